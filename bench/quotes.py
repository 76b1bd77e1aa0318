#!/usr/bin/python3
"""Puts the figures of the newest records where the README and the first page quote them.

Usage: bench/quotes.py [--check]     --check: fails when a page quotes others

A place is what stands between "<!-- figures: NAME -->" and "<!-- end -->". The records are
bench/record/DATE.json, which `scripts/bench --json` makes, and docs/trust.txt, made so:
scripts/trust >build/trust.txt && mv build/trust.txt docs/
"""
import re
import sys

sys.dont_write_bytecode = True
import records
from records import ROOT

PAGES = ("README.md", "docs/index.md", "docs/promises.md")
# One row for each kind of work, those among them where ours is slower.
ROWS = {
    "first match/prose m 16": "a piece of 16 bytes in 4 MB of prose",
    "all matches/DNA m 16": "all matches of 16 bases in a genome",
    "many patterns/searchx 1000 words": "1000 words at once",
    "k mismatches/prose m 32 k 3": "32 bytes with up to 3 mismatches",
    "k edits/DNA m 32 k 3 all": "32 bases with up to 3 edits",
    "regex replace/word": "every word replaced, by a regular expression",
    "regex first/class": "first match of a regular expression with a class",
    "Levenshtein/1000 similar": "Levenshtein distance of 1000 bytes",
    "suffixes/suffixarray prose": "suffix array of prose",
    "digests and random/sha1 1 MB": "SHA-1 of 1 MB",
}
PROMISES = """\
- **Nothing brings the host down.** {failed_allocations} allocations and {raised_by_longjmp} operations of the
  host are made to fail one after the other, by `longjmp` and by exception, in all {commands_made_to_fail}
  entry points; {random_calls} random calls leave {blocks_leaked} blocks behind. {calls_on_48_KiB_of_stack}
  calls are content with 48 KiB of stack.
- **Answers are exact.** {answers_compared} are compared with those of short definitions.
- **Answers are the same everywhere.** {builds_and_places} compilers, settings, languages and time zones give
  {different_answers} set of answers.
- **It loads in {load_microseconds} µs**, and needs {libraries_needed} libraries beyond libc and libm.
- **`velmor` takes what is typed**: {lines_velmor_survived} random lines did not end it.

These are figures of `scripts/trust`, which measures them and fails when one is beyond its limit."""


def speed(folder):
    path, machine, jobs = records.newest()
    yield f"![Ours beside the fastest peer of each job]({folder}speed/families.svg)\n"
    yield "The dot is the median of a family of jobs; the bar goes from its least to its greatest ratio.\n"
    yield ("{jobs} jobs beside the fastest of the libraries that do the same work, on\n{processor} (`{path}`): "
           "the geometric mean of the ratios is {mean:.2f}, the median {median:.2f}; in\n{slower} jobs ours is slower.\n"
           ).format(**records.summary(jobs), processor=machine["processor"], path=path)
    yield "| job | ours | fastest peer | times as fast |"
    yield "|---|---|---|---|"
    for job, says in ROWS.items():
        peer, time = records.peers(jobs[job])[0]
        ours = records.shown(jobs[job]["ns"]["ours"])
        yield f"| {says} | {ours} | {peer} {records.shown(time)} | {records.ratio(jobs[job]):.2f} |"


def trust():
    return [line.split() for line in (ROOT / "docs/trust.txt").read_text().splitlines()]


def promises(_):
    yield PROMISES.format_map({name: f"{float(value):,.0f}" for name, value, *_ in trust()})


def lines(_):
    yield "| what | measured | limit |"
    yield "|---|---|---|"
    for name, value, limit, _ in trust():
        yield f"| {name.replace('_', ' ')} | {value} | {limit} |"


PLACES = {"speed": speed, "promises": promises, "lines": lines}


def main():
    stale = []
    for page in PAGES:
        text = (ROOT / page).read_text()
        folder = "docs/" if page == "README.md" else ""
        text = re.sub(r"(<!-- figures: (\w+) -->\n).*?(?=<!-- end -->)",
                      lambda place: place[1] + "\n".join(PLACES[place[2]](folder)) + "\n", text, flags=re.S)
        if text != (ROOT / page).read_text():
            stale.append(page)
        if "--check" not in sys.argv:
            (ROOT / page).write_text(text)
    if stale and "--check" in sys.argv:
        sys.exit(f"{', '.join(stale)}: other figures than the records have; scripts/bench --report mends it")


main()
