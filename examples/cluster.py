#!/usr/bin/python3
"""Counts the stems of a corpus, and the lines that have certain terms, on a local cluster of two processes.

Usage: cluster.py FILE...     Exit code 1 when a single process counts otherwise.
"""
import collections
import functools
import sys

import dask.bag
import vstring
from dask.distributed import Client, LocalCluster

TERMS = ["ponies", "data", "string"]


@functools.cache
def terms():
    """The dictionary, made once in each process: its number means nothing in another one."""
    return vstring.dictCreate(TERMS)


def stems(line):
    return vstring.each("porter", vstring.words(vstring.lowercase(line)))


def has_term(line):
    return vstring.dictObjSearch(terms(), line) != []


def on_cluster(files):
    lines = dask.bag.read_text(files, blocksize="1MB", errors="surrogateescape")
    counts = lines.map(stems).flatten().frequencies()
    found = lines.filter(has_term).count()
    return dask.compute(counts, found)


def alone(files):
    counts, found = collections.Counter(), 0
    for name in files:
        with open(name, errors="surrogateescape") as file:
            for line in file:
                counts.update(stems(line))
                found += has_term(line)
    return counts, found


def main():
    files = sys.argv[1:]
    with LocalCluster(n_workers=2, threads_per_worker=1, processes=True,
                      dashboard_address=None) as cluster, Client(cluster):
        counts, found = on_cluster(files)
    same = (dict(counts), found) == alone(files)
    for stem, count in sorted(counts, key=lambda item: (-item[1], item[0]))[:10]:
        print(count, stem)
    print(found, "lines have one of", ", ".join(TERMS))
    print("the same as in one process" if same else "ONE PROCESS COUNTS OTHERWISE")
    return 0 if same else 1


if __name__ == "__main__":
    sys.exit(main())
