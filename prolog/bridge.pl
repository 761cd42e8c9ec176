% The Prolog side of BRINDLE's pipe:  swipl -q bridge.pl [-- CORPUS]
%
% One query a line on standard input; its answer on standard output, then an empty line and the prompt "?- ", written
% last and flushed. The answer is what the query writes, then
%
%   X = a        a line for each variable of the query that got a value
%   true.        or "false.", or the text of the error, which never ends the program
%
% of the first solution. (forall(Goal, (write(X), nl)) shows all of them.) A line may hold several queries, and the last
% one's period may be missing. "halt." and the end of the input end the program.
%
% message(Text) sends Text to whoever asked, framed by the markers of the pipe. With CORPUS given, the file of the same
% name with the extension .pl (or with .pl added) is consulted first, if there is one.

:- module(brindle_bridge, [message/1, interactive/1, system/1]).

:- use_module(library(readutil)).
:- use_module(library(lists)).
:- use_module(library(apply)).

:- set_prolog_flag(generate_debug_info, false).

:- initialization(main, main).

main :-
    set_prolog_flag(toplevel_mode, recursive),
    set_prolog_flag(debug_on_error, false),
    set_prolog_flag(on_error, print),
    set_prolog_flag(on_warning, print),
    current_output(Out),
    set_stream(Out, alias(user_error)),     % errors belong to the answer
    set_stream(Out, buffer(line)),
    set_stream(Out, tty(false)),
    set_stream(Out, record_position(false)),    % so that it counts columns of its own,
    set_stream(Out, record_position(true)),     % not together with standard input
    prompt(_, ''),
    current_prolog_flag(argv, Arguments),
    load_corpus_file(Arguments),
    ( stream_property(user_input, tty(true)) -> show_prompt ; true ),
    serve.

% ---------------------------------------------------------------- the corpus's own file

load_corpus_file([Corpus|_]) :-
    file_name_extension(Stem, _, Corpus),
    member(Base, [Stem, Corpus]),
    atom_concat(Base, '.pl', File),
    exists_file(File), !,
    guarded(user:consult(File), Outcome),
    ( Outcome == true -> format("% ~w loaded~n", [File]) ; format("% ~w could not be loaded~n", [File]) ).
load_corpus_file(_).

% ---------------------------------------------------------------- queries

serve :-
    repeat,
    read_line_to_string(user_input, Line),
    ( Line == end_of_file
    -> !, halt
    ; answer_line(Line),
      show_prompt,
      fail ).

show_prompt :-
    flush_output(user_output),
    write(user_output, '?- '),
    flush_output(user_output),
    set_stream(user_output, line_position(0)).

answer_line(Line) :-
    ( catch(queries(Line, Queries), Error, ( print_message(error, Error), fail ))
    -> forall(member(Goal-Names, Queries), answer(Goal, Names))
    ;  true ),
    fresh_line,
    nl(user_output),
    skip_rest_of_line.

% A query that reads a term of its own leaves the end of that line behind.
skip_rest_of_line :- ( line_position(user_input, 0) -> true ; read_line_to_string(user_input, _) ).

% The queries of a line, each with the names of its variables. A line that cannot be read is read again with a period
% after it, so that an error is told about the line as it was meant.
queries(Line, Queries) :-
    catch(terms(Line, Queries), error(syntax_error(_), _), ( string_concat(Line, "\n.", Whole), terms(Whole, Queries) )).

terms(Text, Queries) :-
    setup_call_cleanup(( open_string(Text, Stream), set_stream(Stream, file_name(query)) ),
                       stream_terms(Stream, Queries), close(Stream)).

stream_terms(Stream, Queries) :-
    read_term(Stream, Term, [variable_names(Names), module(user)]),
    ( Term == end_of_file -> Queries = []
    ; Queries = [Term-Names|Rest], stream_terms(Stream, Rest) ).

answer(Goal, Names) :-
    guarded(user:Goal, Outcome),
    fresh_line,
    ( Outcome == true
    -> show_solution(Names), writeln(user_output, 'true.')
    ; Outcome == false
    -> writeln(user_output, 'false.')
    ;  true ).

% guarded(Goal, Outcome): its first solution (true), none (false), or an error, which is shown (error).
guarded(Goal, Outcome) :-
    catch(( call(Goal) -> Outcome = true ; Outcome = false ), Error, ( shown(Error), Outcome = error )).

shown(Error) :- nonvar(Error), Error = unwind(halt(_)), !, throw(Error).
shown(Error) :- fresh_line, without_meta_call(Error, Told), print_message(error, Told).

without_meta_call(Error, error(Formal, _)) :-
    nonvar(Error), Error = error(Formal, context(Where, _)), nonvar(Where), Where = _:'<meta-call>'/_, !.
without_meta_call(Error, Error).

fresh_line :- ( line_position(user_output, 0) -> true ; nl(user_output) ).

% ---------------------------------------------------------------- bindings

% A variable without a value gets its name, so that the terms it occurs in show it; others are
% _1, _2 ... Constraints are shown as goals.
show_solution(Names) :-
    exclude(hidden, Names, Visible),
    copy_term(Visible, Named, Goals),
    maplist(give_name, Named),
    term_variables(Named-Goals, Others),
    foldl(give_number, Others, 1, _),
    forall(member(Name = Value, Named), show_binding(Name, Value)),
    forall(member(Goal, Goals), ( show_term(Goal, 1200), nl(user_output) )).

hidden(Name = _) :- sub_atom(Name, 0, 1, _, '_').

give_name(Name = Value) :- ( var(Value) -> Value = '$VAR'(Name) ; true ).

give_number('$VAR'(Name), N, N1) :- atom_concat('_', N, Name), N1 is N + 1.

show_binding(Name, Value) :-
    ( Value == '$VAR'(Name) -> true
    ; format(user_output, "~w = ", [Name]), show_term(Value, 699), nl(user_output) ).

show_term(Term, Priority) :-
    write_term(user_output, Term, [quoted(true), numbervars(true), portray(true), spacing(next_argument), cycles(true),
                                   priority(Priority)]).

% ---------------------------------------------------------------- the workbench's words

%   message(+Text): Text, an atom, a string or any term, goes to whoever asked: as a node's new tag or in a notice.
% The pipe's reader sees no marker that is split over two writes, so each is written alone.
message(Text) :-
    flush_output(user_output),
    write(user_output, 'begin message'), flush_output(user_output),
    write_message(Text), flush_output(user_output),
    write(user_output, 'end message'), flush_output(user_output).

write_message(Text) :- atomic(Text), !, write(user_output, Text).
write_message(Term) :-
    \+ \+ ( numbervars(Term, 23, _), write_term(user_output, Term, [quoted(true), numbervars(true)]) ).

%   interactive(+YesNo), system(+Name): what the workbench says when it has started this program.
interactive(_).
system(_).
