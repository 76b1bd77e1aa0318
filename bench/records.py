"""The newest record, and what its rows say."""
import json
import math
import pathlib
import statistics

ROOT = pathlib.Path(__file__).resolve().parent.parent
YARDSTICKS = ("an empty call", "copy for the host", "memchr pass")  # no peers: they do less


def newest():
    path = max((ROOT / "bench/record").glob("*.json"))
    record = json.loads(path.read_text())
    return path.relative_to(ROOT), record["machine"], record["jobs"]


def peers(row):
    """Names and times of those that did the job, the fastest first."""
    times = {who: time for who, time in row["ns"].items()
             if who != "ours" and who not in YARDSTICKS and isinstance(time, (int, float))}
    return sorted(times.items(), key=lambda peer: peer[1])


def ratio(row):
    """How many times as fast as the fastest peer; None without one."""
    others = peers(row)
    return others[0][1] / row["ns"]["ours"] if others else None


def summary(jobs):
    ratios = [each for each in map(ratio, jobs.values()) if each]
    return {"jobs": len(ratios), "mean": math.exp(statistics.fmean(map(math.log, ratios))),
            "median": statistics.median(ratios), "slower": sum(each < 1 for each in ratios)}


def shown(nanoseconds):
    for unit, size in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.3g}\u00a0{unit}"
    return f"{nanoseconds:.3g}\u00a0ns"
