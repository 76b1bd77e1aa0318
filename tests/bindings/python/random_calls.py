#!/usr/bin/env python3
"""Calls every command with random arguments, right and wrong ones, and watches for what must not be.

Usage: PYTHONPATH=... random_calls.py [CALLS [SEED]]
With a build under sanitizers (scripts/build asan vstring_python; build/asan/bindings/python) the
libraries that the sanitizers look into must be there first:

    LD_PRELOAD="$(gcc -print-file-name=libasan.so) $(gcc -print-file-name=libstdc++.so)"
    ASAN_OPTIONS=detect_leaks=0:allocator_may_return_null=1 PYTHONMALLOC=malloc
"""

import collections, contextlib, inspect, io, random, re, sys

import vstring
from vstring import FAIL, Eq, Name, Range

WORDS = (
    "true FAIL builtin last alpha digit space method md4 stemmer lancaster plural timestamp offset "
    "words characters countbytes obeylines expandtabs [a-c] a*b?[c-] (a|b)+c? ^(a*)b$ \\1& %1 %0 "
    "%Y-%m-%d relational latin1 utf8 hex base64 base32 rot13 quoted null overlapping left both "
    "SHA256 crc32 match gap damerau tokenset grade rna ATGRAYtaa café"
).split()
INTEGERS = (0, 1, 2, 3, 5, -1, -2, 10, 80, 255, 256, 8191, 2**31 - 1, -(2**31), 2**40, -(10**30))
# These make as much as they are asked for, which is harmless but takes its time.
SLOW = set("christoffel fibword fill ipsum random randperm repeat tabulate thuemorse".split())


class Source:
    def __init__(self, seed):
        self.random = random.Random(seed)
        self.commands = [
            f
            for f in vars(vstring).values()
            if inspect.isbuiltin(f) and f is not vstring.wildTester  # that one only prints
        ]
        self.kinds = (
            *[self.text] * 6,
            *[self.integer] * 3,
            *(self.word, self.items, self.range, self.equation, self.procedure, self.other),
        )

    def value(self, depth=2):
        kind = self.random.choice(self.kinds)
        return kind() if depth or kind in self.kinds[:10] else self.text()

    def text(self):
        alphabet = self.random.choice(("ab", "ACGT", "aeiou xyz\t\n", "AbCdEf ghi-_.", "äß\udcff😀"))
        length = self.random.choice((0, 1, 2, 3, 5, 8, 8, 30, 80, 4100))
        text = "".join(self.random.choices(alphabet, k=length))
        return text.encode("utf-8", "surrogateescape") if self.random.random() < 0.2 else text

    def integer(self):
        return self.random.choice((*INTEGERS, *range(5), *range(5), *range(5)))

    def word(self):
        word = self.random.choice(WORDS)
        return self.random.choice((word, Name(word), Name(word.encode())))

    def items(self, depth=1):
        one = self.text if depth == 0 or self.random.random() < 0.6 else lambda: self.value(depth - 1)
        items = [one() for _ in range(self.random.randint(0, 4))]
        kind = self.random.choice((list, list, tuple, set, frozenset))
        try:
            return kind(items)
        except TypeError:
            return items

    def range(self):
        return Range(self.random.randint(-4, 8), self.random.randint(-4, 8))

    def equation(self):
        return Eq(self.random.choice((self.word, self.text))(), self.value(0))

    def procedure(self):
        return self.random.choice(
            (
                vstring.uppercase,
                vstring.isdigit,
                Name("f"),
                lambda *given: given[0] if given else "",
                lambda *given: vstring.map(vstring.lowercase, "Ab"),
                lambda *given: self.call(),
                lambda *given: 1 / 0,
                str,
                len,
            )
        )

    def other(self):
        return self.random.choice((None, True, False, FAIL, 1.5, "\0", object(), vstring._, {}, 1j))

    def call(self):
        command = self.random.choice(self.commands)
        if command is vstring.each:
            other = self.random.choice([f for f in self.commands if f is not vstring.each])
            arguments = [other, self.items(), *self.arguments(2)]
        else:
            other = command
            arguments = self.arguments(4) if self.random.random() < 0.3 else self.fitting(command)
        if other.__name__ in SLOW:
            arguments = [a % 1000 if isinstance(a, int) else a for a in arguments]
        keywords = {}
        if self.random.random() < 0.1:
            keywords[self.random.choice(WORDS)] = self.value(1)
        return command(*arguments, **keywords)

    def fitting(self, command):
        """Arguments of the kinds that the documentation tells, perhaps not all of them."""
        kinds = re.findall(r"^  .+?: (.*)$", command.__doc__, re.MULTILINE)
        made = [
            self.items() if "list" in kind and self.random.random() < 0.5
            else self.range() if "range" in kind
            else self.integer() if "integer" in kind
            else self.procedure() if "procedure" in kind
            else self.text() if kind.startswith("a string")
            else self.word()
            for kind in kinds
        ]
        return made[: self.random.randint(0, len(made))] if self.random.random() < 0.2 else made

    def arguments(self, most):
        return [self.value() for _ in range(self.random.randint(0, most))]


def main():
    calls = int(sys.argv[1]) if len(sys.argv) > 1 else 100_000
    source = Source(int(sys.argv[2]) if len(sys.argv) > 2 else 1)
    outcomes = collections.Counter()
    allowed = (vstring.Error, TypeError, ValueError, ZeroDivisionError, RecursionError, MemoryError)
    for _ in range(calls):
        try:
            with contextlib.redirect_stdout(io.StringIO()):
                source.call()
            outcomes["a value"] += 1
        except allowed as failure:
            outcomes[type(failure).__name__] += 1
    print(f"{calls} calls:", dict(outcomes))


if __name__ == "__main__":
    main()
