#!/usr/bin/python3
"""What a call from Python costs, beside ctypes, jellyfish and NLTK: lines as vstring_bench writes them, medians of
processor time in rounds in which all take turns. A peer that is not installed is left out.

Usage: PYTHONPATH=FOLDER bench/python_calls.py ROUNDS [JOB...]     (regular expressions, as of scripts/bench)
"""
import ctypes
import re
import statistics
import sys
import time
import timeit
import warnings

import vstring

CALLS = 2000
warnings.showwarning = lambda *_: None  # jellyfish's; to ignore them would cost it time in each call
WORDS = [f"word{i}" for i in range(1000)]


def peers():
    strlen = ctypes.CDLL(None).strlen
    strlen.argtypes, strlen.restype = [ctypes.c_char_p], ctypes.c_size_t
    yield "length", "ctypes strlen", lambda: strlen(b"abc")
    yield "length", "len", lambda: len("abc")
    try:
        import jellyfish
        yield "levenshtein", "jellyfish", lambda: jellyfish.levenshtein_distance("kitten", "sitting")
        yield "metaphone", "jellyfish", lambda: jellyfish.metaphone("knowledge")
        yield "porter", "jellyfish", lambda: jellyfish.porter_stem("relational")
        yield "soundex", "jellyfish", lambda: jellyfish.soundex("Robert")
        yield "jarowinkler", "jellyfish", lambda: jellyfish.jaro_winkler_similarity("DIXON", "DICKSONX")
    except ImportError:
        pass
    try:
        from nltk.metrics.distance import edit_distance
        from nltk.stem.porter import PorterStemmer
        stem = PorterStemmer().stem
        yield "levenshtein", "nltk", lambda: edit_distance("kitten", "sitting")
        yield "porter", "nltk", lambda: stem("relational")
    except ImportError:
        pass
    yield "each, a word of 1000", "[f(w) for w in words]", lambda: [vstring.length(word) for word in WORDS]


OURS = {
    "length": lambda: vstring.length("abc"),
    "levenshtein": lambda: vstring.levenshtein("kitten", "sitting"),
    "metaphone": lambda: vstring.metaphone("knowledge"),
    "porter": lambda: vstring.porter("relational"),
    "soundex": lambda: vstring.soundex("Robert"),
    "jarowinkler": lambda: vstring.jarowinkler("DIXON", "DICKSONX"),
    "each, a word of 1000": lambda: vstring.each("length", WORDS),
}


def main():
    rounds, *wanted = sys.argv[1:]
    tasks = [(f"calls from Python/{job}", who, call)
             for job, who, call in [(job, "ours", call) for job, call in OURS.items()] + list(peers())]
    tasks = [task for task in tasks if not wanted or any(re.search(each, task[0]) for each in wanted)]
    times = {task[:2]: [] for task in tasks}
    for _ in range(int(rounds)):
        for job, who, call in tasks:
            words = len(WORDS) if "a word" in job else 1
            seconds = timeit.timeit(call, timer=time.process_time, number=CALLS // words)
            times[job, who].append(seconds / CALLS * 1e9)
    for (job, who), each in sorted(times.items(), key=lambda item: (item[0][0], item[0][1] != "ours")):
        print(f"{job}\t{who}\t{statistics.median(each):.6g}")


main()
