"""Values of Python on their way to a command and back."""

import copy, os, pickle, sys, unittest

import vstring
from vstring import FAIL, Eq, Name, Range


def there_and_back(value):
    """The value as the heap has it: foldl of no letters gives what it was given."""
    return vstring.foldl(Name("f"), value, "")


class Values(unittest.TestCase):
    def test_round_trips(self):
        for value in (
            *("", "abc", "ä€😀", "\udcff\udc80", "two\nlines"),
            *(True, False, FAIL, 0.0, -0.5, float("inf"), 5e-324),
            *([], [1, [2, ["x"]]], Range(1, -1), Range("a", "e"), Eq("a", [1]), [Eq(1, 2)]),
            *(set(), {1, 2}, {"a", "b", Name("c")}, Name("x"), Name("ä")),
            *(vstring.reverse, print, lambda x: x),
        ):
            with self.subTest(value=value):
                back = there_and_back(value)
                self.assertEqual(back, value)
                self.assertIs(type(back), type(value))
        self.assertEqual(there_and_back((1, "a", (2,))), [1, "a", [2]])
        self.assertEqual(there_and_back(frozenset([1])), {1})
        self.assertIsNone(vstring.foldl(lambda z, c: None, 1, "x"))
        self.assertEqual(there_and_back({(1, 2), frozenset([3])}), {(1, 2), frozenset([3])})

    def test_integers_of_any_size(self):
        for bits in (*range(60, 70), 127, 128, 1000, 20000):
            for value in (2**bits - 1, 2**bits, 2**bits + 1):
                self.assertEqual(there_and_back([value, -value]), [value, -value])

    def test_subclasses_are_what_they_derive_from(self):
        class Text(str):
            pass

        class Data(bytes):
            pass

        class Number(int):
            pass

        class Items(list):
            def __call__(self):
                raise AssertionError

        self.assertEqual(vstring.repeat(Text("ab"), Number(2)), "abab")
        self.assertEqual(vstring.reverse(Data(b"ab")), b"ba")
        self.assertEqual(there_and_back(Number(2**70)), 2**70)
        self.assertEqual(vstring.join(Items(["a", "b"])), "a b")

    def test_bytes_if_any_text_is(self):
        for got in (
            vstring.reverse(b"ba"),
            vstring.cap("", "a", b"b"),
            vstring.join(["a", [b"b"][0]], ""),
            vstring.foldl(lambda z, c: z, Name(b"a"), "x").text + b"b",
            vstring.map(lambda c: b"ab", "x"),
            vstring.map(lambda c: c + b"b", b"a"),
            vstring.morphism("a", [Eq("a", b"ab")]),
            vstring.encode(b"ab", "null"),
        ):
            self.assertEqual(got, b"ab")
        self.assertEqual(vstring.explode(b"\xff\xc3"), [b"\xff", b"\xc3"])
        self.assertEqual(vstring.reverse("ä"), "\udca4\udcc3")
        self.assertEqual(vstring.tally(b"aa"), [Eq(b"a", 2)])

    def test_what_is_refused(self):
        deep = []
        for _ in range(100_000):
            deep = [deep]
        circle = []
        circle.append(circle)
        for error, value in (
            *((TypeError, wrong) for wrong in (object(), 1j, {}, bytearray(b"a"), memoryview(b"a"))),
            *((TypeError, wrong) for wrong in (range(2), slice(2), [None], Range(1, None), vstring._)),
            *((ValueError, wrong) for wrong in ("a\0b", b"\0", ["\0"], Eq("a", "\0"), "\ud800")),
            *((RecursionError, wrong) for wrong in (deep, circle, Eq(1, circle))),
        ):
            with self.assertRaises(error):
                there_and_back(value)
            with self.assertRaises(error):
                vstring.tabulate(lambda i: value, 1)
        with self.assertRaises(ValueError):
            vstring.hash("a", **{"me\0": 1})
        with self.assertRaises(TypeError):
            vstring.hash("a", method=None)

    def test_lists_that_change_while_they_are_read(self):
        class Fickle(Name):
            @property
            def text(self):
                items.clear()
                return "a"

        items = [Fickle("a"), "b", "c"]
        self.assertEqual(vstring.join(items, ""), Name("a"))


class Types(unittest.TestCase):
    def test_names(self):
        m = Name("m")
        self.assertIsNone(m.value)
        self.assertIs(vstring.regmatch("(a+)", "xaab", Name("all"), m), True)
        self.assertEqual(m.value, "aa")
        self.assertIs(vstring.regmatch("z", "xaab", m), False)
        self.assertEqual(m.value, "aa")
        vstring.regmatch("b", b"xaab", m)
        self.assertEqual(m.value, b"b")
        self.assertIsNone(Name("m").value)
        with self.assertRaises(AttributeError):
            m.text = "n"
        for wrong, error in ((1, TypeError), ("a\0", ValueError), ("\ud800", UnicodeError)):
            with self.assertRaises(error):
                Name(wrong)
        # Neither an assignment nor a value reaches another name of the same text.
        self.assertEqual(vstring.length(Name("m")), 1)

    def test_names_may_assign_what_is_protected(self):
        with self.assertRaisesRegex(vstring.Error, "cannot assign to true"):
            vstring.regmatch("a", "a", Name("true"))

    def test_equality_hash_and_form(self):
        alike = ((Name("ä"), Name("ä".encode())), (Range(1, 2), Range(1.0, 2)), (Eq(1, 2), Eq(1, 2)))
        for a, b in alike:
            self.assertEqual((a, hash(a)), (b, hash(b)))
        self.assertEqual(len({Name("a"), "a", Range(1, 2), Eq(1, 2), (1, 2), Range(2, 1)}), 6)
        self.assertEqual(repr([Name(b"a"), Range(1, -1), Eq("a", FAIL)]), "[Name(b'a'), Range(1, -1), Eq('a', FAIL)]")
        self.assertFalse(FAIL)
        with self.assertRaises(AttributeError):
            Eq(1, 2).left = 3
        match Eq(1, 2):
            case Eq(left, right):
                self.assertEqual((left, right), (1, 2))

    def test_pickles_and_copies(self):
        name = Name(b"m")
        name.value = ["x"]
        for protocol in range(pickle.HIGHEST_PROTOCOL + 1):
            for again in (lambda v: pickle.loads(pickle.dumps(v, protocol)), copy.deepcopy, copy.copy):
                for value in (name, Range(1, [2]), Eq("a", Range(1, 2))):
                    self.assertEqual(again(value), value)
                self.assertEqual((again(name).text, again(name).value), (b"m", ["x"]))
                self.assertIs(again(FAIL), FAIL)
                self.assertIs(again(vstring._), vstring._)
                error = again(vstring.Error("message", "take"))
                self.assertEqual((str(error), error.command), ("message", "take"))

    def test_nothing_leaks(self):
        values = ["abc", b"abc", 2**100, Name("n"), Range(1, 2), Eq("a", 1), vstring.take, FAIL]

        def calls():
            there_and_back([values, set(values), (values, values)])
            vstring.map(lambda c: c, "abc")
            vstring.regmatch("(b)", "abc", *values[3:4])
            vstring.each("cap", values[:2], "<", ">")
            for wrong in (lambda: vstring.take("a", -1), lambda: vstring.map(len, "a" * 5000)):
                self.assertRaises(vstring.Error, wrong)
            self.assertRaises(TypeError, vstring.join, [*values, object()])

        def counts():  # and the resident memory in bytes
            with open("/proc/self/statm") as statm:
                resident = int(statm.read().split()[1]) * 4096
            return [sys.getrefcount(value) for value in values], resident

        n = int(os.environ.get("VSTRING_LEAK_CALLS", 20_000)) // 8  # so many are in calls()
        for _ in range(n // 4 + 1000):
            calls()
        before = counts()
        for _ in range(n):
            calls()
        after = counts()
        self.assertEqual(after[0], before[0])
        self.assertLess(after[1] - before[1], 1 << 20)


if __name__ == "__main__":
    unittest.main()
