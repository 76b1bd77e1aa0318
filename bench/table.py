#!/usr/bin/python3
"""Makes a table of what vstring_bench writes: ours, the fastest peer, ours / peer as speed, the
figure wanted (bench/wanted.tsv), and whether it is reached within 5 %.

Usage: vstring_bench ... | bench/table.py [RECORD.json]

With a file the jobs are put into it too, with every peer's time; those it holds already and that
were not run stay.
"""
import collections
import datetime
import json
import os
import pathlib
import platform
import sys

sys.dont_write_bytecode = True
import records
from records import shown

SLACK = 0.95
WANTED = pathlib.Path(__file__).with_name("wanted.tsv")


def wanted_figures():
    lines = (line.rstrip("\n").split("\t") for line in WANTED.open() if not line.startswith("#"))
    return {row: float(figure) for row, figure in lines}


def figure_for(job, figures):
    """That of the longest row that the job's name is, or begins with as whole words."""
    rows = [row for row in figures if job == row or job.startswith((row + " ", row + "/"))]
    return figures[max(rows, key=len)] if rows else None


def judged(job, times, figures):
    """Ratio, wanted ratio and verdict, where there are any."""
    peers = {who: time for who, time in times.items() if who != "ours" and isinstance(time, float)}
    if not peers or not isinstance(times.get("ours"), float):
        return None, None, None, ""
    best = min(peers, key=peers.get)
    ratio = peers[best] / times["ours"]
    wanted = figure_for(job, figures)
    verdict = "" if wanted is None else "yes" if ratio >= wanted * SLACK else "NO"
    return best, ratio, wanted, verdict


def run(lines, figures):
    """Prints each row as it comes, and returns the jobs."""
    jobs = collections.OrderedDict()
    print(f"{'job':45} {'ours':>9}  {'best peer':>9} {'':18} {'ratio':>6} {'wanted':>6}")
    last = None

    def close(job):
        times = jobs[job]
        best, ratio, wanted, verdict = judged(job, times, figures)
        ours = times.get("ours", "?")
        remarks = [f"{who}: {what}" for who, what in times.items() if isinstance(what, str)]
        peer = f"{shown(times[best]):>9} {best:18} {ratio:6.3g}" if best else " " * 35
        print(f"{job:45} {shown(ours) if isinstance(ours, float) else ours:>9}  {peer} "
              f"{'' if wanted is None else format(wanted, 'g'):>6} {verdict:3} "
              f"{'; '.join(remarks)}".rstrip(), flush=True)

    for line in lines:
        job, who, what = line.rstrip("\n").split("\t")
        if last not in (None, job):
            close(last)
        last = job
        jobs.setdefault(job, {})[who] = what if what in ("cannot", "wrong") else float(what)
    if last:
        close(last)
    return jobs


def summary(jobs, figures):
    """What the page of the record will say of them, and how many wanted figures are reached."""
    rows = {job: {"ns": times} for job, times in jobs.items() if isinstance(times.get("ours"), float)}
    if not any(map(records.ratio, rows.values())):
        return {}
    counts = {what: round(count, 3) for what, count in records.summary(rows).items()}
    reached = [verdict for job, times in jobs.items() if (verdict := judged(job, times, figures)[3])]
    return counts | {"figures reached": f"{reached.count('yes')} of {len(reached)}"}


def processor():
    with open("/proc/cpuinfo") as info:
        return next((line.split(":")[1].strip() for line in info if line.startswith("model name")),
                    platform.machine())


def record(path, jobs, figures):
    now = datetime.datetime.now().isoformat(timespec="minutes")
    kept = {}
    if path.exists():
        old = json.loads(path.read_text())
        kept = {job: {"at": old["machine"]["at"]} | row for job, row in old["jobs"].items()}
    for job, times in jobs.items():
        _, ratio, wanted, verdict = judged(job, times, figures)
        row = {"ns": {who: float(f"{t:.4g}") if isinstance(t, float) else t
                      for who, t in times.items()}}
        row |= {"ratio": round(ratio, 3)} if ratio else {}
        row |= {"wanted": wanted, "reached": verdict == "yes"} if verdict else {}
        kept[job] = row | {"at": now}
    machine = {"processor": processor(), "load": round(os.getloadavg()[0], 2),
               "at": now}
    # A job a line, so that records compare well.
    rows = ",\n".join(f"  {json.dumps(job)}: {json.dumps(row, ensure_ascii=False)}"
                      for job, row in kept.items())
    path.write_text(f'{{\n "machine": {json.dumps(machine)},\n'
                    f' "summary of this run": {json.dumps(summary(jobs, figures))},\n'
                    f' "jobs": {{\n{rows}\n }}\n}}\n')


def main():
    figures = wanted_figures()
    jobs = run(sys.stdin, figures)
    for what, value in summary(jobs, figures).items():
        print(f"{what}: {value}")
    if len(sys.argv) > 1:
        record(pathlib.Path(sys.argv[1]), jobs, figures)
        print(f"recorded in {sys.argv[1]}")


main()
