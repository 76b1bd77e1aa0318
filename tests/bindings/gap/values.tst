# Values on their way in and out, errors, functions. GAP itself compares.

# Integers: small ones of GAP's, of one word, of many.
gap> List([0, -1, 2^28, 2^60 - 1, 2^60, -2^60, 2^62, 2^63 - 1, -2^63, 2^64, -10^40],
>      n -> VString.fmtmsg("%1", n) = String(n)) = List([1..11], i -> true);
true
gap> VString.foldl({r, c} -> [-10^40, 2^60, r], 2^100, "a") = [-10^40, 2^60, 2^100];
true

# Floats, booleans, characters, what is a string.
gap> VString.entropy("aabb") = 1.0; IsFloat(VString.jaro("abc", "xyz"));
true
true
gap> VString.foldl({r, c} -> [true, false, fail, 0.5, r], fail, "a");
[ true, false, fail, 0.5, fail ]
gap> VString.length(['a', 'b']); VString.length('a'); VString.length("");
2
1
0
gap> VString.length([]);
Error, VString.length: first argument must be a string
gap> VString.join([]) = "" and IsStringRep(VString.join([]));
true
gap> s := VString.reverse("abc");; Add(s, 'x'); s;
"cbax"
gap> VString.length(List([1..255], CharInt)) = 255;
true
gap> List(VString.reverse(List([1..255], CharInt)), IntChar) = [255, 254 .. 1];
true
gap> VString.length("a\000b");
Error, VString.length: a string cannot hold a zero byte
gap> VString.length(CharInt(0));
Error, VString.length: a string cannot hold a zero byte

# Lists in all representations, and ranges.
gap> VString.frombytes([72 .. 75]); VString.frombytes([75, 74 .. 72]); VString.frombytes([72]);
"HIJK"
"KJIH"
"H"
gap> VString.foldl({r, c} -> r, BlistList([1 .. 3], [2]), "a");
[ false, true, false ]
gap> List([[2 .. 3], [2, 3], [3], [-2 .. -1], VString.Range(2, -1)], r -> VString.substr("abcde", r));
[ "bc", "bc", "c", "de", "bcde" ]
gap> VString.substr("abcde", []);
Error, VString.substr: second argument must be a range
gap> VString.substr("abcde", [1, 3]);
Error, VString.substr: second argument must be a range
gap> VString.iota([98 .. 100]); VString.iota(VString.Range("x", "z"));
"bcd"
"xyz"
gap> VString.join(["a",, "b"]);
Error, VString.join: a list with holes cannot be handed over

# Sequences are lists, whatever their length.
gap> VString.searchx("an", "banana"); VString.searchx("ban", "banana"); VString.searchx("x", "banana");
[ 2, 4 ]
[ 1 ]
[  ]
gap> VString.hsearchx("ban", "banana", 0); VString.regsplit(",", ""); VString.regsplit(",", "a");
[ [ 1, 0 ] ]
[  ]
[ "a" ]
gap> VString.randomise(1);
gap> x := VString.randomise(1);
Error, Function call: <func> must return a value

# Equations, options, names.
gap> e := VString.tally("aab")[1]; e.left; e.right; e = VString.Eq("a", 2); e = VString.Eq("a", 3);
VString.Eq("a", 2)
"a"
2
true
false
gap> e.middle;
Error, VString.Eq("a", 2) has no middle
gap> VString.stem("churches", rec(stemmer := "plural"));
"church"
gap> VString.morphism("a", [VString.Eq("a", "ab"), rec(b := "a")], 3);
"abaab"
gap> m := VString.Name("values_m");; IsBound(m.value);
false
gap> VString.regmatch("(b+)", "abba", m); m.value; IsBound(m.value); m.text;
true
"bb"
true
"values_m"
gap> VString.Name(7);
Error, VString.Name: argument must be a string
gap> m.value;
"bb"

# What cannot be handed over, lists without end.
gap> VString.length((1,2));
Error, VString.length: permutation (small) cannot be handed over
gap> VString.join([1/2]);
Error, VString.join: rational cannot be handed over
gap> VString.length(Group(()));
Error, VString.length: component object cannot be handed over
gap> l := [];; l[1] := l;; l[2] := l;; VString.join(l);
Error, VString.join: lists are nested too deeply
gap> r := rec();; r.r := r;; VString.length(r);
Error, VString.length: lists are nested too deeply
gap> l := 1;; for i in [1 .. 5000] do l := [l]; od; VString.join(l);
Error, VString.join: lists are nested too deeply
gap> l := "a";; for i in [1 .. 200] do l := [l, l]; od; VString.length(l);
Error, VString.length: first argument must be a string

# Functions: their errors, calls within calls, what they give back.
gap> VString.map(c -> 1/0, "abc");
Error, Rational operations: <divisor> must not be zero
gap> VString.map(c -> Error("mine: ", c), "abc");
Error, mine: a
gap> VString.map(function(c) return; end, "abc");
Error, VString.map: procedure must return a string, but returned 
gap> VString.map(c -> VString.take(c, -1), "abc");
Error, VString.take: second argument must be non-negative
gap> VString.map({a, b} -> a, "abc");
Error, Function: number of arguments must be 2 (not 1)
gap> VString.map(c -> VString.map(d -> Concatenation(c, d), "xy"), "ab");
"axaybxby"
gap> VString.map(function(c)
>      if CALL_WITH_CATCH(VString.take, [c, -1])[1] then return "yes"; fi; return "no"; end, "ab");
Error, VString.take: second argument must be non-negative
Error, VString.take: second argument must be non-negative
"nono"
gap> VString.map(VString.Name("uppercase"), "abc"); VString.filter(VString.isdigit, "a1");
"ABC"
"1"
gap> VString.map(VString.Name("nothing"), "abc");
Error, VString.map: no command nothing
gap> f := c -> VString.map(f, c);; VString.map(f, "a");
Error, VString.map: functions and commands call each other too deeply
gap> kept := [];; VString.foldl(function(r, c) Add(kept, r); return r; end, x -> x, "ab");;
gap> kept[1](5);
5
gap> VString.take();
Error, VString.take: expecting 2 arguments, but got 0
gap> VString.Help("nothing");
Error, VString has no command nothing
gap> Read(Concatenation(VSTRING_FOLDER, "vstring.g")); VString.length("once");
4
gap> VString.length := 1;
Error, Record Assignment: <rec> must be a mutable record
