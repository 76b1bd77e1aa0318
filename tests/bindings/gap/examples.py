#!/usr/bin/env python3
"""Every example of the commands gives in GAP what it says."""
import sys

import expressions, session

# What GAP writes in another way: the value of a statement without one cannot be shown, and what a
# command prints is no value.
WITHOUT_VALUE = {"config", "wildTester"}

rows = session.rows()
writer = expressions.GapWriter(rows)


def statement(row):
    parts = []
    for node in expressions.read(row[3]):
        value = writer.write(node)
        if node[1] in ("randomise", *WITHOUT_VALUE):
            parts.append(f"{value};")
        else:
            parts.append(f"show({value});" if writer.gives_sequence(node) else f"show([{value}]);")
    return " ".join(parts)


failures = 0
for row, answer in zip(rows, session.gap([statement(row) for row in rows]), strict=True):
    shown = ", ".join(line[1:-1] for line in answer.split("\n"))
    if row[0] in WITHOUT_VALUE:
        wrong = answer.startswith("Error") or not answer
    else:
        wrong = shown != row[4]
    if wrong:
        failures += 1
        print(f"{row[0]}: {statement(row)}\n  expected {row[4]}\n  got {answer}")
print(f"{len(rows)} examples, {failures} wrong")
sys.exit(failures > 0)
