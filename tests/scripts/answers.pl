% run: for each formula on a line of the input its answer, "#", its normal form, "#", "same" if that has the same answer
% and normal form (else "other"), and "##".

:- dynamic told/1.

message(Text) :- assertz(told(Text)).

run :- read_line_to_string(user_input, Line), ( Line == end_of_file -> true ; one(Line), run ).

one(Line) :- term_string(F, Line), answer_and_normal(F, A, N), term_string(G, N), answer_and_normal(G, B, M), !,
    ( A == B, M == N -> Same = same ; Same = other ),
    format("~w#~w#~w##~n", [A, N, Same]).
one(Line) :- format("#~w#failed##~n", [Line]).

answer_and_normal(F, Answer, Normal) :-
    with_output_to(string(Answer), answer(F)), retractall(told(_)), normal(F), told(Normal).
