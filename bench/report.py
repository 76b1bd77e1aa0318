#!/usr/bin/python3
"""Turns the newest record into docs/speed.md and a plot for each family of jobs in docs/speed/.

Usage: scripts/bench --report

Every figure of the page comes from bench/record/DATE.json; nothing is written by hand.
"""
import collections
import json
import math
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
PAGE = ROOT / "docs/speed.md"
PLOTS = ROOT / "docs/speed"
HEAD = """# Speed

Written by `scripts/bench --report` from `bench/record/{record}`, which `scripts/bench --json` made on
{processor}, {at}. Each job is done by ours, a command called through the reference host, and by
independent libraries that do it otherwise; answers are compared before anything is timed, contestants
take turns, and medians of processor time count. *Ratio* is the time of the fastest peer over ours: 2 is
twice as fast, less than 1 slower. `bench/README.md` tells how to run it.

{jobs} jobs have a peer. The geometric mean of their ratios is {mean:.2f}, the median {median:.2f}; ours is the
slower one in {slower}.
"""
PLOT = """
set terminal svg size 860,{height} font "sans-serif,12" background "white"
set output "{output}"
set logscale x 2
set xlabel "times as fast as the fastest peer"
set grid x
set style fill solid
set boxwidth 0.6
set yrange [{count}:-1]
set ytics ({ticks}) nomirror
set lmargin at screen 0.34
set arrow from 1,graph 0 to 1,graph 1 nohead lw 2
unset key
plot "-" using (($2+1)/2):0:(($2 < 1 ? $2 : 1)):($2 < 1 ? 1 : $2):($0-0.3):($0+0.3):($2 < 1 ? 0xc0504d : 0x0b6e4f) \\
  with boxxyerror lc rgb variable
{rows}
e
"""


def shown(nanoseconds):
    for unit, size in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.3g} {unit}"
    return f"{nanoseconds:.3g} ns"


def families(jobs):
    found = collections.OrderedDict()
    for job, row in jobs.items():
        family, _, name = job.partition("/")
        found.setdefault(family, {})[name] = row
    return found


def peers_of(row):
    times = {who: time for who, time in row["ns"].items() if who != "ours"}
    return sorted(times.items(), key=lambda peer: peer[1] if isinstance(peer[1], float) else math.inf)


def table(rows):
    yield "| job | ours | ratio | peers, fastest first |"
    yield "|---|---|---|---|"
    for name, row in rows.items():
        ours = row["ns"].get("ours")
        peers = ", ".join(f"{who} {shown(time) if isinstance(time, (int, float)) else time}"
                          for who, time in peers_of(row))
        ratio = f"{row['ratio']:.3g}" if "ratio" in row else ""
        name = name.replace("|", "\\|").replace("*", "\\*").replace("_", "\\_")
        yield f"| {name} | {shown(ours) if ours else ''} | {ratio} | {peers} |"


def plot(family, rows, output):
    measured = {name: row["ratio"] for name, row in rows.items() if "ratio" in row}
    if not measured:
        return False
    quoted = [name.replace("\\", "\\\\").replace('"', "'").replace("_", "\\\\_").replace("^", "\\\\^")
              for name in measured]
    ticks = ", ".join(f'"{name}" {i}' for i, name in enumerate(quoted))
    data = "\n".join(f"{i} {ratio}" for i, ratio in enumerate(measured.values()))
    script = PLOT.format(height=90 + 20 * len(measured), output=output, count=len(measured), ticks=ticks,
                         rows=data)
    subprocess.run(["gnuplot"], input=script, text=True, check=True)
    return True


def main():
    records = sorted((ROOT / "bench/record").glob("*.json"))
    if not records:
        sys.exit("no record yet: scripts/bench --json makes one")
    record = json.loads(records[-1].read_text())
    jobs, machine = record["jobs"], record["machine"]
    ratios = sorted(row["ratio"] for row in jobs.values() if "ratio" in row)
    if not ratios:
        sys.exit(f"{records[-1]}: no job has a peer")
    PLOTS.mkdir(exist_ok=True)
    for old in PLOTS.glob("*.svg"):
        old.unlink()
    slower = {job: row for job, row in jobs.items() if row.get("ratio", 1) < 1}
    lines = [HEAD.format(record=records[-1].name, processor=machine["processor"], at=machine["at"],
                         jobs=len(ratios), median=ratios[len(ratios) // 2], slower=len(slower),
                         mean=math.exp(sum(map(math.log, ratios)) / len(ratios)))]
    if slower:
        worst = dict(sorted(slower.items(), key=lambda item: item[1]["ratio"]))
        lines += ["## Where we are slower", "", *table(worst), ""]
    for family, rows in families(jobs).items():
        name = "".join(c if c.isalnum() else "-" for c in family)
        lines += [f"## {family[:1].upper()}{family[1:]}", ""]
        if plot(family, rows, PLOTS / f"{name}.svg"):
            lines += [f"![Ratios of {family}](speed/{name}.svg)", ""]
        lines += [*table(rows), ""]
    PAGE.write_text("\n".join(lines))
    print(PAGE.relative_to(ROOT))


main()
