% Reads the terms of the file named on the command line and prints every node as "depth label", a line "." after each
% tree. A label that begins with a capital is a variable to Prolog: it gets its name as its value. A label with a
% sign of the language in it is no atom, so its clause is no tree/2: "error" stands in its place.

:- set_prolog_flag(double_quotes, codes).

run :-
    current_prolog_flag(argv, Arguments),
    last(Arguments, File),
    open(File, read, Stream, [encoding(utf8)]),
    repeat,
    catch(read_term(Stream, Term, [variable_names(Names)]), error(syntax_error(_), _), Term = error),
    ( Term == end_of_file
    -> !
    ; print_term(Term, Names), fail
    ).

print_term(error, _) :- !, writeln(error).
print_term(Term, Names) :-
    maplist([Name = Name]>>true, Names),
    ( is_tree(Term) -> print_tree(0, Term), writeln('.') ; writeln(error) ).

is_tree(tree(Label, Daughters)) :- atom(Label), is_list(Daughters), maplist(is_tree, Daughters).

print_tree(Depth, tree(Label, Daughters)) :-
    format("~d ~w~n", [Depth, Label]),
    Below is Depth + 1,
    maplist(print_tree(Below), Daughters).
