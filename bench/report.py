#!/usr/bin/python3
"""Turns the newest record into docs/speed.md and its plots in docs/speed/.

Usage: scripts/bench --report

Every figure of the page comes from bench/record/DATE.json; nothing is written by hand.
"""
import collections
import re
import statistics
import subprocess
import sys

sys.dont_write_bytecode = True
from records import ROOT, YARDSTICKS, newest, peers, ratio, shown, summary

PAGE = ROOT / "docs/speed.md"
PLOTS = ROOT / "docs/speed"
GROWTH = "growth"
CALLS = {"short calls": "C", "calls from Python": "Python", "calls from SQL": "SQL"}
HEAD = """# Speed

Ours beside independent libraries that do the same work otherwise: {jobs} jobs have such a peer. The geometric
mean of their ratios is {mean:.2f}, the median {median:.2f}; [ours is the slower one in {slower}](#where-we-are-slower).
*Ratio* is the time of the fastest peer over ours: 2 is twice as fast, less than 1 slower.

![Least, median and greatest ratio of each family](speed/families.svg)

The dot is the median of a family, the bar goes from its least to its greatest ratio. On this page:
[growth with the length](#growth), [the cost of a call](#the-cost-of-a-call),
[where we are slower](#where-we-are-slower), and each family: {families}.

Machine: {processor}. Measured {at}, by `scripts/bench --json`, and written by `scripts/bench --report` from
`{path}`. Ours is a command called through the reference host; answers are compared before
anything is timed, contestants take turns, and medians of processor time count. *Wanted* is the ratio that we
have set ourselves (`bench/wanted.tsv`), reached within 5 %.
"""
SLOWER = """## Where we are slower

[Limits of speed](speed-limits.md) tells what holds these rows back.
"""
GROWN = """## Growth

Nanoseconds for each byte of the text: where the line stays level, twice the text takes twice the time. Random
letters, but for the hard pattern, b and 63 letters a where b and 62 of them repeat, and the runaway pattern
`(a|aa)+(b|c)` on a text of letters a. The distance of two texts grows with the product of their lengths.

![Nanoseconds for each byte](speed/growth.svg)
"""
CALLED = """## The cost of a call

Short arguments, so that the way to the command and back is what counts: from C through the reference host,
from [Python](python.md), from [SQL](sqlite.md). *An empty call* is a command that does nothing.

![Nanoseconds of a call](speed/calls.svg)
"""
SETTINGS = """
set terminal svg size 860,{height} font "sans-serif,13" background "white"
set output "{output}"
set border lc rgb "#8a94a3"
set tics textcolor rgb "#1d2430"
set grid x lc rgb "#dfe4ea" lt 1
unset key
"""
RATIOS = SETTINGS + """
set logscale x
set format x "%g"
set xlabel "times as fast as the fastest peer"
set yrange [{count}:-1]
set ytics ({ticks}) nomirror
set lmargin at screen 0.3
set arrow from 1,graph 0 to 1,graph 1 nohead lw 2 lc rgb "#5b6575"
"""
BARS = RATIOS + """
set style fill solid noborder
plot "-" using (($2+1)/2):0:($2 < 1 ? $2 : 1):($2 < 1 ? 1 : $2):($0-0.3):($0+0.3):($2 < 1 ? 0xc0504d : 0x0b6e4f) \\
  with boxxyerror lc rgb variable
{rows}
e
"""
SPANS = RATIOS + """
$spans << e
{rows}
e
plot $spans using 3:1:2:4 with xerrorbars pt 7 ps 0 lw 5 lc rgb "#a8d5c4", \\
     $spans using 3:1:($3 < 1 ? 0xc0504d : 0x0b6e4f) with points pt 7 ps 1 lc rgb variable
"""
LINES = SETTINGS + """
set logscale xy
set format y "%g"
set xrange [900:1.2e6]
set xlabel "bytes"
set ylabel "nanoseconds for each byte"
set grid y lc rgb "#dfe4ea" lt 1
set key outside right samplen 1 spacing 1.3
set xtics ("1 KB" 1024, "4 KB" 4096, "16 KB" 16384, "64 KB" 65536, "256 KB" 262144, "1 MB" 1048576)
{data}
plot {lines}
"""
CALL_BARS = SETTINGS + """
set logscale x
set format x "%g"
set xrange [5:*]
set xlabel "nanoseconds of a call"
set yrange [{count}:-1]
set ytics ({ticks}) nomirror
set lmargin at screen 0.3
set key outside top center horizontal
set style fill solid noborder
plot "-" using ((5+$2)/2):1:(5):2:($1-0.38):($1) with boxxyerror lc rgb "#0b6e4f" title "ours", \\
     "-" using ((5+$2)/2):1:(5):2:($1):($1+0.38) with boxxyerror lc rgb "#b9c1cc" title "the fastest peer"
{ours}
e
{others}
e
"""


def draw(name, script, **places):
    script = script.format(output=PLOTS / f"{name}.svg", **places)
    subprocess.run(["gnuplot"], input=script, text=True, check=True)


def quoted(name):
    return re.sub(r"([_^@{}])", r"\\\\\1", name.replace("\\", "\\\\\\\\").replace('"', "'"))


def ticks(names):
    return ", ".join(f'"{quoted(name)}" {i}' for i, name in enumerate(names))


def escaped(name):
    return re.sub(r"([|*_])", r"\\\1", name)


def families(jobs):
    found = collections.OrderedDict()
    for job, row in jobs.items():
        family, _, name = job.partition("/")
        found.setdefault(family, {})[name] = row
    return found


def table(rows):
    yield "| job | ours | ratio | wanted | peers, fastest first |"
    yield "|---|---|---|---|---|"
    for name, row in rows.items():
        others = [f"{who} {shown(time)}" for who, time in peers(row)]
        others += [f"{who} {what}" for who, what in row["ns"].items() if isinstance(what, str)]
        others += [f"({who} {shown(time)})" for who, time in row["ns"].items() if who in YARDSTICKS]
        times = f"{ratio(row):.3g}" if ratio(row) else ""
        wanted = f"{row['wanted']:g}{'' if row['reached'] else ' missed'}" if times and "wanted" in row else ""
        yield f"| {escaped(name)} | {shown(row['ns']['ours'])} | {times} | {wanted} | {', '.join(others)} |"


def file_of(family):
    return "".join(c if c.isalnum() else "-" for c in family)


def with_bars(family, rows):
    yield f"## {family[:1].upper()}{family[1:]}\n"
    measured = {name: ratio(row) for name, row in rows.items() if ratio(row)}
    if measured:
        draw(file_of(family), BARS, height=100 + 21 * len(measured), count=len(measured), ticks=ticks(measured),
             rows="\n".join(f"{i} {each}" for i, each in enumerate(measured.values())))
        yield f"![Ratios of {family}](speed/{file_of(family)}.svg)\n"
    yield from table(rows)
    yield ""


def overview(kinds):
    """A line for each family, from its least to its greatest ratio, with the median on it."""
    spans = {}
    for family, rows in kinds.items():
        ratios = sorted(filter(None, map(ratio, rows.values())))
        if ratios:
            spans[family] = (ratios[0], statistics.median(ratios), ratios[-1])
    spans = dict(sorted(spans.items(), key=lambda item: -item[1][1]))
    draw("families", SPANS, height=100 + 21 * len(spans), count=len(spans), ticks=ticks(spans),
         rows="\n".join(f"{i} {least} {median} {most}" for i, (least, median, most) in enumerate(spans.values())))


def growth(rows):
    by_command = collections.OrderedDict()
    for name, row in rows.items():
        command, _, n = name.rpartition(" n ")
        by_command.setdefault(command, {})[int(n)] = row["ns"]["ours"] / int(n)
    data = "\n".join(f"$grown{i} << e\n" + "\n".join(f"{n} {each}" for n, each in grown.items()) + "\ne"
                     for i, grown in enumerate(by_command.values()))
    lines = ", ".join(f'$grown{i} with linespoints lw 2 pt 7 ps 0.6 title "{quoted(command)}"'
                      for i, command in enumerate(by_command))
    draw("growth", LINES, height=430, data=data, lines=lines)
    lengths = sorted({n for grown in by_command.values() for n in grown})
    yield GROWN
    yield "| ns for each byte | " + " | ".join(f"{n:,}" for n in lengths) + " |"
    yield "|---" * (len(lengths) + 1) + "|"
    for command, grown in by_command.items():
        cells = (f"{float(f'{grown[n]:.3g}'):g}" if n in grown else "" for n in lengths)
        yield f"| {escaped(command)} | {' | '.join(cells)} |"
    yield ""


def calls(kinds):
    rows = {f"{language}: {name}": row for family, language in CALLS.items()
            for name, row in kinds.get(family, {}).items()}
    others = [(i, peers(row)[0][1]) for i, row in enumerate(rows.values()) if peers(row)]
    draw("calls", CALL_BARS, height=110 + 21 * len(rows), count=len(rows), ticks=ticks(rows),
         ours="\n".join(f"{i} {row['ns']['ours']}" for i, row in enumerate(rows.values())),
         others="\n".join(f"{i} {time}" for i, time in others))
    yield CALLED
    yield from table(rows)
    yield ""


def main():
    path, machine, jobs = newest()
    PLOTS.mkdir(exist_ok=True)
    for old in PLOTS.glob("*.svg"):
        old.unlink()
    kinds = families(jobs)
    compared = {family: rows for family, rows in kinds.items() if family not in (GROWTH, *CALLS)}
    overview(compared)
    dates = sorted({row.get("at", machine["at"]) for row in jobs.values()})
    lines = [HEAD.format(**summary(jobs), processor=machine["processor"], path=path,
                         at=" to ".join(dict.fromkeys((dates[0], dates[-1]))),
                         families=", ".join(f"[{family}](#{file_of(family).lower()})" for family in compared))]
    if GROWTH in kinds:
        lines += growth(kinds[GROWTH])
    lines += calls(kinds)
    slower = {job: row for job, row in jobs.items() if (ratio(row) or 1) < 1}
    if slower:
        lines += [SLOWER, *table(dict(sorted(slower.items(), key=lambda item: ratio(item[1])))), ""]
    for family, rows in compared.items():
        lines += with_bars(family, rows)
    PAGE.write_text("\n".join(lines))
    print(PAGE.relative_to(ROOT))


main()
