#!/usr/bin/env python3
"""What a call from Python costs, beside ctypes, jellyfish and NLTK: nanoseconds of the processor, medians of rounds
in which all take turns.

Usage: PYTHONPATH=$(scripts/bindings python) bench/python_calls.py [ROUNDS]
Peers: python3-jellyfish, python3-nltk (Debian). One that is not installed is left out.
"""

import ctypes
import statistics
import sys
import time
import timeit

import vstring


def peers():
    strlen = ctypes.CDLL(None).strlen
    strlen.argtypes, strlen.restype = [ctypes.c_char_p], ctypes.c_size_t
    yield "length of abc", "ctypes strlen", lambda: strlen(b"abc")
    yield "length of abc", "len", lambda: len("abc")
    try:
        import jellyfish
    except ImportError:
        jellyfish = None
    if jellyfish:
        yield "levenshtein", "jellyfish", lambda: jellyfish.levenshtein_distance("kitten", "sitting")
        yield "metaphone", "jellyfish", lambda: jellyfish.metaphone("knowledge")
        yield "porter", "jellyfish", lambda: jellyfish.porter_stem("relational")
        yield "soundex", "jellyfish", lambda: jellyfish.soundex("Robert")
        yield "jarowinkler", "jellyfish", lambda: jellyfish.jaro_winkler_similarity("DIXON", "DICKSONX")
    try:
        from nltk.metrics.distance import edit_distance
        from nltk.stem.porter import PorterStemmer
    except ImportError:
        return
    stem = PorterStemmer().stem
    yield "levenshtein", "nltk", lambda: edit_distance("kitten", "sitting")
    yield "porter", "nltk", lambda: stem("relational")


OURS = {
    "length of abc": lambda: vstring.length("abc"),
    "levenshtein": lambda: vstring.levenshtein("kitten", "sitting"),
    "metaphone": lambda: vstring.metaphone("knowledge"),
    "porter": lambda: vstring.porter("relational"),
    "soundex": lambda: vstring.soundex("Robert"),
    "jarowinkler": lambda: vstring.jarowinkler("DIXON", "DICKSONX"),
}


def main():
    rounds = int(sys.argv[1]) if len(sys.argv) > 1 else 15
    words = [f"word{i}" for i in range(1000)]
    tasks = [(job, "vstring", call) for job, call in OURS.items()] + list(peers())
    times = {(job, who): [] for job, who, _ in tasks}
    times["each, of 1000 words", "vstring"] = []
    times["each, of 1000 words", "[f(w) for w in words]"] = []
    for _ in range(rounds):
        for job, who, call in tasks:
            times[job, who].append(timeit.timeit(call, timer=time.process_time, number=2000) / 2000 * 1e9)
        for who, call in (
            ("vstring", lambda: vstring.each("length", words)),
            ("[f(w) for w in words]", lambda: [vstring.length(word) for word in words]),
        ):
            spent = timeit.timeit(call, timer=time.process_time, number=3)
            times["each, of 1000 words", who].append(spent / 3000 * 1e9)
    medians = {key: statistics.median(values) for key, values in times.items()}
    for (job, who), value in sorted(medians.items()):
        ratio = value / medians[job, "vstring"]
        print(f"{job:22} {who:24} {value:9.0f} ns {ratio:7.2f}")


if __name__ == "__main__":
    main()
