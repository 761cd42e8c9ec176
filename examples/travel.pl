% Travel in an invented timetable: what the formulas of travel.trees talk about, and what they mean.
%
%   answer(F)   writes the answer to the question, command or statement F
%   reply(F)    the same answer as a message: a notice at the node in a batch run, else a notice
%   normal(F)   sends F's normal form back as a message: "filter" makes it the node's tag
%
% A formula is a lambda term: X^Body is an abstraction, app(F,A) the application of F to A. Only functors, atoms,
% numbers and variables occur, so a normal form is written without blanks and slashes and can be read back.
%
%   ask(T)  tell(T)              is the proposition T true?
%   list(P,Q)  count(P,Q)        which things, how many, have the properties P and Q
%   value(M,E)                   the measure M of E: price, duration, departure, arrival, people, distance(City) ...
%   some(P,Q) every(P,Q) none(P,Q) and(T,U) or(T,U) not(T) true
%   less(M,E,V) more(M,E,V) equal(M,E,V)    compares measures; V is an amount or a thing to compare with
%   least(M,P,X) most(M,P,X)     X is what has the smallest (largest) M of all that have the property P
%   the(P)                       what has the property P, each of them in turn
%   city(X) train(X) from(X,C) ...          the facts below

:- use_module(library(lists)).
:- use_module(library(apply)).

% ---------------------------------------------------------------- answers

answer(F) :- reduced(F, N), ( reported(N) -> true ; means(N) ).

reply(F) :- with_output_to(string(S), answer(F)), split_string(S, "", "\n", [Text]), message(Text).

normal(F) :- reduced(F, N), formula_text(N, Text), message(Text).

reported(V) :- var(V), !, fail.
reported(ask(T)) :- ( holds(T) -> writeln(yes) ; writeln(no) ).
reported(tell(T)) :- ( holds(T) -> writeln('That is so.') ; writeln('Not known.') ).
reported(list(P,Q)) :- all_with(P, Q, Es), listed(Es).
reported(count(P,Q)) :- all_with(P, Q, Es), length(Es, N), writeln(N).
reported(value(M,E)) :- findall(X-V, (denotes(E, X), measure(M, X, V)), Pairs), sort(Pairs, Sorted),
    ( Sorted == [] -> writeln(unknown) ; forall(member(X-V, Sorted), value_line(M, X, V)) ).
reported(X^B) :- property(X^B), !, all_with(X^B, _^true, Es), listed(Es).
reported(E) :- entity(E), !, listed([E]).
reported(the(P)) :- all_with(P, _^true, Es), listed(Es).
reported(T) :- proposition(T), ( holds(T) -> writeln(true) ; writeln(false) ).

means(N) :- formula_text(N, Text), format("means ~w~n", [Text]).

listed([]) :- writeln(none).
listed([E|Es]) :- forall(member(X, [E|Es]), ( described(X, Text), writeln(Text) )).

value_line(M, X, V) :- described(X, Text), amount_text(M, V, Amount), format("~w: ~w~n", [Text, Amount]).

described(E, Text) :- trip(E, Mode, From, To, Departs, _, Price, _, _), !, clock_text(Departs, Clock),
    capitalised(From, F), capitalised(To, T), format(atom(Text), "~w ~w-~w ~w, ~w euros", [Mode, F, T, Clock, Price]).
described(E, Text) :- capitalised(E, Text).

capitalised(Atom, Text) :- atomic_list_concat(Words, '_', Atom), maplist(capital_word, Words, Capitals),
    atomic_list_concat(Capitals, ' ', Text).

capital_word(Word, Capital) :- sub_atom(Word, 0, 1, _, First), sub_atom(Word, 1, _, 0, Rest),
    upcase_atom(First, Upper), atom_concat(Upper, Rest, Capital).

amount_text(price, V, T) :- !, format(atom(T), "~w euros", [V]).
amount_text(duration, V, T) :- !, H is V // 60, M is V mod 60, format(atom(T), "~w h ~|~`0t~w~2+", [H, M]).
amount_text(departure, V, T) :- !, clock_text(V, T).
amount_text(arrival, V, T) :- !, clock_text(V, T).
amount_text(distance(_), V, T) :- !, format(atom(T), "~w km", [V]).
amount_text(_, V, V).

clock_text(Minutes, Text) :- H is Minutes // 60 mod 24, M is Minutes mod 60,
    format(atom(Text), "~|~`0t~w~2+:~|~`0t~w~2+", [H, M]).

% ---------------------------------------------------------------- lambda terms

% A formula comes with every X of its text as one variable. apart/2 gives each abstraction a variable of its own (the
% innermost X^ binds), so that from there on no two abstractions share one.
reduced(F, N) :- apart(F, [], G), reduce(G, N).

apart(V, Env, W) :- var(V), !, ( member(U-X, Env), U == V -> W = X ; W = V ).
apart(V^B, Env, X^C) :- var(V), !, apart(B, [V-X|Env], C).
apart(T, Env, U) :- T =.. [F|As], maplist(apart_in(Env), As, Bs), U =.. [F|Bs].

apart_in(Env, A, B) :- apart(A, Env, B).

% Normal form, outermost application first. An abstraction is applied as a copy: bound variables new, free ones shared.
reduce(V, V) :- var(V), !.
reduce(X^B, X^C) :- var(X), !, reduce(B, C).
reduce(app(F,A), N) :- !, reduce(F, G),
    ( nonvar(G), G = X^_, var(X) -> copied(G, A1^B), A1 = A, reduce(B, N)
    ; reduce(A, A2), N = app(G,A2) ).
reduce(T, N) :- T =.. [F|As], maplist(reduce, As, Bs), N =.. [F|Bs].

copied(X^B, Copy) :- free_variables(X^B, [], Free), copy_term(Free-(X^B), Free-Copy0), apart(Copy0, [], Copy).

free_variables(V, Bound, Free) :- var(V), !, ( member(U, Bound), U == V -> Free = [] ; Free = [V] ).
free_variables(X^B, Bound, Free) :- var(X), !, free_variables(B, [X|Bound], Free).
free_variables(T, Bound, Free) :- T =.. [_|As], maplist(free_in(Bound), As, Lists), append(Lists, Free).

free_in(Bound, T, Free) :- free_variables(T, Bound, Free).

formula_text(N, Text) :- \+ \+ ( apart(N, [], M), numbervars(M, 23, _), nb_setval(formula_term, M) ),
    nb_getval(formula_term, Named), with_output_to(string(Text), write_formula(Named)).

write_formula(X^B) :- !, write_formula(X), write(^), write_formula(B).
write_formula('$VAR'(N)) :- !, print('$VAR'(N)).
write_formula(T) :- compound(T), !, T =.. [F|[A|As]], writeq(F), write('('), write_formula(A),
    forall(member(B, As), ( write(','), write_formula(B) )), write(')').
write_formula(T) :- writeq(T).

% ---------------------------------------------------------------- truth

proposition(T) :- nonvar(T), functor(T, F, _), memberchk(F, [some, every, none, and, or, not, true, less, more, equal,
    least, most]), !.
proposition(T) :- fact(T).

property(X^B) :- var(X), nonvar(B), proposition(B).

% all_with(P, Q, Es): the things, trips in order of departure, that have both properties.
all_with(P, Q, Es) :- findall(K-E, ( having(P, E), has(Q, E), sort_key(E, K) ), Pairs), sort(Pairs, Sorted),
    pairs_values(Sorted, Es).

sort_key(E, M) :- trip(E, _, _, _, M, _, _, _, _), !.
sort_key(_, 0).

having(P, E) :- entity(E), has(P, E).

has(P, E) :- reduced(app(P,E), T), holds(T), !.

holds(true).
holds(and(T,U)) :- holds(T), holds(U).
holds(or(T,U)) :- ( holds(T) -> true ; holds(U) ).
holds(not(T)) :- \+ holds(T).
holds(some(P,Q)) :- having(P, E), has(Q, E), !.
holds(none(P,Q)) :- \+ holds(some(P,Q)).
holds(every(P,Q)) :- having(P, _), !, forall(having(P, E), has(Q, E)).
holds(less(M,E,V)) :- compared(M, E, V, A, B), A < B, !.
holds(more(M,E,V)) :- compared(M, E, V, A, B), A > B, !.
holds(equal(M,E,V)) :- compared(M, E, V, A, B), A =:= B, !.
holds(least(M,P,X)) :- extreme(M, P, X, <).
holds(most(M,P,X)) :- extreme(M, P, X, >).
holds(T) :- fact(T), T =.. [F|As], maplist(denotes, As, Es), G =.. [F|Es], true_fact(G), !.

compared(M, E, V, A, B) :- denotes(E, X), measure(M, X, A), ( amount(V, B) ; denotes(V, Y), measure(M, Y, B) ).

extreme(M, P, X, Order) :- denotes(X, E), has(P, E), measure(M, E, A),
    \+ ( having(P, F), measure(M, F, B), call(Order, B, A) ), !.

denotes(the(P), E) :- !, having(P, E).
denotes(E, E) :- atom(E).

entity(E) :- city(E, _, _, _, _).
entity(E) :- setof(K, C^P^X^Y^city(C, K, P, X, Y), Ks), member(E, Ks).
entity(E) :- trip(E, _, _, _, _, _, _, _, _).

amount(N, N) :- number(N).
amount(euros(N), N).
amount(minutes(N), N).
amount(hours(N), M) :- M is 60 * N.
amount(clock(H), M) :- M is 60 * H.
amount(thousand(N), M) :- M is 1000 * N.

measure(price, E, V) :- trip(E, _, _, _, _, _, V, _, _).
measure(duration, E, V) :- trip(E, _, _, _, _, V, _, _, _).
measure(departure, E, V) :- trip(E, _, _, _, V, _, _, _, _).
measure(arrival, E, V) :- trip(E, _, _, _, D, M, _, _, _), V is D + M.
measure(length, E, V) :- trip(E, _, A, B, _, _, _, _, _), kilometres(A, B, V).
measure(people, E, V) :- city(E, _, V, _, _).
measure(distance(A), B, V) :- kilometres(A, B, V).
measure(changes(A), B, V) :- fewest_changes([A], [A], B, -1, V).

% Kilometres between two cities on the globe.
kilometres(A, B, Km) :- city(A, _, _, La1, Lo1), city(B, _, _, La2, Lo2), F is pi / 180,
    H is sin((La2 - La1) * F / 2) ** 2 + cos(La1 * F) * cos(La2 * F) * sin((Lo2 - Lo1) * F / 2) ** 2,
    Km is round(2 * 6371 * asin(sqrt(H))).

% Breadth first over the trips: N changes so far, Front reached with them.
fewest_changes(Front, _, B, N, N) :- memberchk(B, Front), !.
fewest_changes(Front, Seen, B, N, V) :-
    setof(C, I^M^A^D^T^P^W^S^( member(A, Front), trip(I, M, A, C, D, T, P, W, S), \+ memberchk(C, Seen) ), Next),
    append(Next, Seen, Seen1), N1 is N + 1, fewest_changes(Next, Seen1, B, N1, V).

% ---------------------------------------------------------------- facts as the formulas name them

fact(T) :- nonvar(T), functor(T, F, N), memberchk(F/N, [city/1, country/1, place/1, capital/1, port/1, train/1, bus/1,
    flight/1, ferry/1, trip/1, night/1, direct/1, from/2, to/2, in/2, stops/2, runs/2]).

true_fact(city(X)) :- city(X, _, _, _, _).
true_fact(country(X)) :- city(_, X, _, _, _).
true_fact(place(X)) :- ( true_fact(city(X)) ; true_fact(country(X)) ).
true_fact(capital(X)) :- capital_city(X).
true_fact(port(X)) :- port_city(X).
true_fact(train(X)) :- trip(X, train, _, _, _, _, _, _, _).
true_fact(bus(X)) :- trip(X, bus, _, _, _, _, _, _, _).
true_fact(flight(X)) :- trip(X, flight, _, _, _, _, _, _, _).
true_fact(ferry(X)) :- trip(X, ferry, _, _, _, _, _, _, _).
true_fact(trip(X)) :- trip(X, _, _, _, _, _, _, _, _).
true_fact(night(X)) :- trip(X, _, _, _, D, M, _, _, _), D + M > 1440.
true_fact(direct(X)) :- trip(X, _, _, _, _, _, _, _, []).
true_fact(from(X,C)) :- trip(X, _, A, _, _, _, _, _, _), at(A, C).
true_fact(to(X,C)) :- trip(X, _, _, B, _, _, _, _, _), at(B, C).
true_fact(in(X,K)) :- city(X, K, _, _, _).
true_fact(stops(X,C)) :- trip(X, _, _, B, _, _, _, _, Stops), member(S, [B|Stops]), at(S, C).
true_fact(runs(X,Day)) :- trip(X, _, _, _, _, _, _, Days, _), ( Days == daily ; memberchk(Day, Days) ).

% A trip to a city is also one to its country.
at(City, City).
at(City, Country) :- city(City, Country, _, _, _).

% city(City, Country, People, Latitude, Longitude)
city(paris, france, 2103000, 48.86, 2.35).
city(lyon, france, 522000, 45.76, 4.84).
city(marseille, france, 873000, 43.30, 5.37).
city(dijon, france, 159000, 47.32, 5.04).
city(geneva, switzerland, 203000, 46.20, 6.15).
city(zurich, switzerland, 427000, 47.38, 8.54).
city(milan, italy, 1370000, 45.46, 9.19).
city(rome, italy, 2750000, 41.90, 12.50).
city(genoa, italy, 560000, 44.41, 8.93).
city(barcelona, spain, 1660000, 41.39, 2.17).
city(madrid, spain, 3330000, 40.42, -3.70).
city(lisbon, portugal, 546000, 38.72, -9.14).
city(porto, portugal, 232000, 41.15, -8.61).
city(london, britain, 8800000, 51.51, -0.13).
city(dublin, ireland, 592000, 53.35, -6.26).
city(brussels, belgium, 1220000, 50.85, 4.35).
city(ghent, belgium, 265000, 51.05, 3.72).
city(hamburg, germany, 1850000, 53.55, 9.99).
city(berlin, germany, 3680000, 52.52, 13.40).
city(vienna, austria, 1980000, 48.21, 16.37).
city(oslo, norway, 709000, 59.91, 10.75).
city(bergen, norway, 289000, 60.39, 5.32).
city(copenhagen, denmark, 653000, 55.68, 12.57).
city(athens, greece, 643000, 37.98, 23.73).

capital_city(C) :- member(C, [paris, rome, madrid, lisbon, london, dublin, brussels, berlin, vienna, oslo, copenhagen,
    athens]).
port_city(C) :- member(C, [marseille, genoa, barcelona, lisbon, porto, dublin, hamburg, oslo, bergen, copenhagen,
    athens]).

% trip(Name, Mode, From, To, Departure, Minutes, Euros, Days, Stops); times in minutes, departures since midnight
trip(t1, train, paris, lyon, 490, 118, 75, daily, []).
trip(t2, train, paris, lyon, 1035, 140, 49, daily, [dijon]).
trip(t3, train, paris, marseille, 615, 200, 89, daily, [lyon]).
trip(t4, train, lyon, paris, 425, 120, 72, daily, []).
trip(t5, train, lyon, geneva, 560, 112, 34, daily, []).
trip(t6, train, lyon, milan, 690, 305, 68, daily, []).
trip(t7, train, geneva, milan, 455, 235, 82, daily, []).
trip(t8, train, milan, rome, 510, 190, 66, daily, []).
trip(t9, train, milan, genoa, 605, 95, 18, daily, []).
trip(t10, train, rome, milan, 960, 190, 59, daily, []).
trip(t11, train, paris, brussels, 535, 82, 55, daily, []).
trip(t12, train, london, paris, 630, 137, 120, daily, []).
trip(t13, train, brussels, ghent, 480, 33, 10, daily, []).
trip(t14, train, ghent, brussels, 1090, 33, 10, daily, []).
trip(t15, train, hamburg, berlin, 400, 105, 47, daily, []).
trip(t16, train, berlin, hamburg, 1210, 108, 39, daily, []).
trip(t17, train, hamburg, copenhagen, 755, 280, 64, daily, []).
trip(t18, train, vienna, rome, 1165, 845, 99, [friday, saturday, sunday], [milan]).
trip(t19, train, berlin, vienna, 1105, 700, 85, daily, []).
trip(t20, train, paris, vienna, 1180, 850, 110, [monday, wednesday, friday], [dijon, zurich]).
trip(t21, train, barcelona, madrid, 540, 150, 58, daily, []).
trip(t22, train, madrid, barcelona, 1080, 155, 44, daily, []).
trip(t23, train, lisbon, porto, 570, 170, 27, daily, []).
trip(t24, train, oslo, bergen, 505, 395, 53, daily, []).
trip(t25, train, zurich, geneva, 640, 165, 45, daily, []).
trip(t26, train, brussels, london, 720, 125, 95, daily, []).
trip(b1, bus, paris, lyon, 540, 360, 22, daily, [dijon]).
trip(b2, bus, paris, brussels, 1375, 255, 19, daily, []).
trip(b3, bus, brussels, ghent, 615, 60, 6, [monday, tuesday, wednesday, thursday, friday], []).
trip(b4, bus, lisbon, madrid, 1290, 480, 35, daily, []).
trip(b5, bus, geneva, lyon, 975, 140, 14, daily, []).
trip(b6, bus, hamburg, copenhagen, 430, 390, 31, daily, []).
trip(b7, bus, berlin, vienna, 465, 610, 29, [friday, sunday], []).
trip(b8, bus, genoa, rome, 830, 410, 25, daily, [milan]).
trip(b9, bus, madrid, lisbon, 555, 490, 33, daily, []).
trip(b10, bus, porto, lisbon, 1125, 205, 12, daily, []).
trip(f1, flight, athens, oslo, 635, 225, 180, [wednesday, sunday], []).
trip(f2, flight, paris, rome, 410, 125, 95, daily, []).
trip(f3, flight, london, oslo, 1140, 130, 88, daily, []).
trip(f4, flight, madrid, lisbon, 950, 80, 61, daily, []).
trip(f5, flight, berlin, athens, 555, 185, 132, [saturday, sunday], []).
trip(f6, flight, vienna, london, 1000, 145, 104, daily, []).
trip(f7, flight, dublin, london, 465, 85, 42, daily, []).
trip(f8, flight, rome, athens, 720, 120, 78, daily, []).
trip(f9, flight, lisbon, paris, 1230, 155, 69, daily, []).
trip(f10, flight, oslo, copenhagen, 480, 70, 57, daily, []).
trip(f11, flight, milan, london, 1095, 125, 51, [monday, friday], []).
trip(f12, flight, hamburg, bergen, 805, 105, 115, [saturday], []).
trip(s1, ferry, genoa, barcelona, 1260, 1080, 62, [tuesday, saturday], []).
trip(s2, ferry, copenhagen, oslo, 990, 1140, 94, daily, []).
trip(s3, ferry, oslo, copenhagen, 900, 1140, 91, daily, []).
trip(s4, ferry, marseille, genoa, 1140, 720, 48, [sunday], []).
trip(s5, ferry, bergen, hamburg, 780, 1620, 140, [thursday], []).
trip(s6, ferry, barcelona, genoa, 1380, 1110, 65, [monday, thursday], []).
