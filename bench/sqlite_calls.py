#!/usr/bin/python3
"""What a call from SQL costs: our functions beside SQLite's own. Lines as vstring_bench writes them, medians of
rounds in which all take turns, less what the query costs without the call.

Usage: bench/sqlite_calls.py EXTENSION ROUNDS [JOB...]     (regular expressions, as of scripts/bench)
"""
import re
import sqlite3
import statistics
import sys
import time

ROWS = 100_000
CALLS = {"uppercase": {"ours": "vs_uppercase(s)", "upper": "upper(s)"},
         "length": {"ours": "vs_length(s)", "length": "length(s)"},
         "search": {"ours": "vs_search('99', s)", "instr": "instr(s, '99')"},
         "substx": {"ours": "vs_substx(s, '9', 'xy')", "replace": "replace(s, '9', 'xy')"},
         "soundex": {"ours": "vs_soundex(s)"},
         "levenshtein": {"ours": "vs_levenshtein(s, 'name 4711')"},
         "words": {"ours": "vs_words(s)"},
         "an expression": {"ours": "vs('take(reverse(_1), 2)', s)"}}


def cost(database, expression):
    start = time.process_time_ns()
    database.execute(f"SELECT count({expression}) FROM t").fetchall()
    return (time.process_time_ns() - start) / ROWS


def main():
    extension, rounds, *wanted = sys.argv[1:]
    tasks = [(f"calls from SQL/{job}", who, call) for job, calls in CALLS.items() for who, call in calls.items()]
    tasks = [task for task in tasks if not wanted or any(re.search(each, task[0]) for each in wanted)]
    database = sqlite3.connect(":memory:")
    database.enable_load_extension(True)
    database.load_extension(extension)
    database.execute("CREATE TABLE t(s)")
    database.execute("WITH c(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM c LIMIT ?) INSERT INTO t "
                     "SELECT 'name ' || n FROM c", (ROWS,))
    times = {task[:2]: [] for task in tasks}
    for _ in range(int(rounds)):
        without = cost(database, "s")
        for job, who, call in tasks:
            times[job, who].append(cost(database, call) - without)
    for (job, who), each in times.items():
        print(f"{job}\t{who}\t{max(statistics.median(each), 0.1):.6g}")


main()
