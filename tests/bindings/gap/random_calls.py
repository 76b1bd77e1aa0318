#!/usr/bin/env python3
"""Random calls give in GAP what they give in velmor, errors included.   Usage: random_calls.py COUNT SEED

A call is the example of a command with arguments changed, left out, added, or taken from another one.
"""
import random, re, sys

import expressions
import session

# Not the same from one call to the next, or nothing to compare; `regmatch` gives names a value, which
# velmor puts in their place from then on.
LEFT_OUT = {"regmatch", "random", "randperm", "randomise", "ipsum", "config", "wildTest", "wildTester", "fmttime",
            "parsetime", "dictCreate", "dictObjSize", "dictObjGet", "dictObjSearch", "dictObjFree"}
INTEGERS = [0, 1, -1, 2, 3, 7, -3, 31, 255, 256, 2**31 - 1, 2**31, -2**31 - 1, 2**60, -2**60, 2**62,
            2**63, -2**63 - 1, 10**30]
TEXTS = ["", "a", "ab", "banana", "hello world", "\x01\xff\\\"", "A,b;C", "\xe9t\xe9", "x" * 300, "12"]
NAMES = ["true", "false", "FAIL", "lower", "digit", "left", "md5", "both", "uppercase", "qqq"]

count, seed = map(int, sys.argv[1:])
chance = random.Random(seed)
rows = session.rows()
writer = expressions.GapWriter(rows)
calls = [node for row in rows if row[0] not in LEFT_OUT for node in expressions.read(row[3])
         if node[0] == "call"]


def value(depth=0):
    simple = [("integer", chance.choice(INTEGERS)), ("string", chance.choice(TEXTS)),
              ("name", chance.choice(NAMES)), ("float", chance.choice(["0.5", "2.0", "1.5e300"])),
              ("..", *(("integer", chance.choice(INTEGERS[:7])) for _ in range(2))),
              chance.choice(chance.choice(calls)[2] or [("list", [])])]
    if depth == 3:
        return chance.choice(simple)
    left = chance.choice([("string", "a"), ("name", "method")])
    return chance.choice([*simple, ("list", [value(depth + 1) for _ in range(chance.randrange(4))]),
                          ("=", left, value(depth + 1))])


def changed(call):
    arguments = list(call[2])
    for _ in range(chance.choice([0, 1, 1, 1, 2])):
        place = chance.randrange(len(arguments) + 1)
        arguments[place:place + chance.choice([0, 1, 1, 1, 1])] = [value()] * chance.choice([0, 1, 1, 1])
    place = writer.range_place(call[1]) - 1
    if 0 <= place < len(arguments) and arguments[place][0] == "list":
        return changed(call)  # which may be a range to GAP
    return ("call", call[1], arguments)


def statement(call):
    text = writer.write(call)
    shown = text if writer.gives_sequence(call) else f"[{text}]"
    return f"show({shown});"


def comparable(answer, is_gap, call):
    """Without what differs by intent: how an error names the command, what is no value."""
    answer = re.sub(r"^Error, (\(in \w+\) |VString\.\w+: )?", "Error, ", answer)
    answer = re.sub(r" \(standard input, line \d+\)$", "", answer)
    if is_gap and answer.startswith("["):
        answer = answer[1:-1]
    if writer.gives_sequence(call) and answer == "[]":
        answer = ""
    return answer


tried = [changed(chance.choice(calls)) for _ in range(count)]
expected = session.velmor([expressions.Writer().write(call) for call in tried])
got = session.gap([statement(call) for call in tried])
failures = refused = 0
for call, ours, theirs in zip(tried, got, expected, strict=True):
    ours, theirs = comparable(ours, True, call), comparable(theirs, False, call)
    refused += theirs.startswith("Error")
    if ours != theirs:
        failures += 1
        print(f"{expressions.Writer().write(call)}\n  {statement(call)}\n  velmor {theirs}\n  GAP {ours}")
print(f"{count} random calls, {refused} refused, {failures} different")
sys.exit(failures > 0)
