#!/usr/bin/env swipl
% A checking program for the information format: one line "FORMULA --- [] ---" on standard input; "(ANSWER)" on standard
% output when travel.pl finds an answer in the formula, else a line that says what is wrong ("Formula rejected").
%
%   BRINDLE_FORMULA_CHECKER=./checker.pl BRINDLE_FORMULA_DIR=examples brindle-batch write --format info \
%       examples/travel.trees

:- prolog_load_context(directory, Here), directory_file_path(Here, travel, Travel), consult(Travel).
:- initialization(main, main).

main :-
    read_line_to_string(user_input, Line),
    ( catch(checked(Line, Answer), Error, ( print_message(error, Error), fail ))
    -> format("(~w)~n", [Answer])
    ;  writeln('no answer') ).

checked(Line, Answer) :-
    string(Line), string_concat(Text, " --- [] ---", Line),
    term_string(Formula, Text),
    with_output_to(string(Told), answer(Formula)),
    \+ string_concat("means ", _, Told),
    split_string(Told, "\n", "\n", Lines), exclude(==(""), Lines, Parts),
    atomic_list_concat(Parts, '; ', Answer).
