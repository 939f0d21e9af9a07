#!/usr/bin/env python3
"""How many requests a second `quorvane-cli find --stream` answers on one core, and whether that is enough.

Usage: stream.py QUORVANE_CLI. The lexicon is the default one. Exit status: 0 enough, 1 not, 2 it could not be measured.
"""

import json
import os
import resource
import statistics
import subprocess
import sys
import tempfile
import time

REQUESTS = 200_000
RUNS = 5  # after one that does not count
NEEDED = 100_000


def measure(program, requests):
    """Requests a second, by the clock and by what the processor was busy."""
    busy = lambda: sum(resource.getrusage(resource.RUSAGE_CHILDREN)[:2])
    busy_before, start = busy(), time.perf_counter()
    requests.seek(0)
    with tempfile.TemporaryFile() as answers:
        subprocess.run([program, "find", "--stream"], stdin=requests, stdout=answers, check=True)
        elapsed, worked = time.perf_counter() - start, busy() - busy_before
        answers.seek(0)
        lines = answers.readlines()
    if len(lines) != REQUESTS or json.loads(lines[-1])["id"] != REQUESTS - 1 or not json.loads(lines[-1])["words"]:
        raise ValueError("the answers are wrong")
    return REQUESTS / elapsed, REQUESTS / worked


def main():
    os.sched_setaffinity(0, {max(os.sched_getaffinity(0))})
    with tempfile.TemporaryFile() as requests:
        for number in range(REQUESTS):
            requests.write(json.dumps({"id": number, "pattern": "c?t", "limit": 10}).encode() + b"\n")
        try:
            figures = [measure(sys.argv[1], requests) for _ in range(RUNS + 1)][1:]
        except (IndexError, OSError, ValueError, subprocess.CalledProcessError) as problem:
            print(f"stream.py: {problem}", file=sys.stderr)
            return 2
    clock, worked = (statistics.median(column) for column in zip(*figures))
    met = clock >= NEEDED
    print(f"{clock:,.0f} requests a second by the clock, {worked:,.0f} a second of the processor's; "
          f"needed {NEEDED:,}: {'met' if met else 'NOT met'}")
    return 0 if met else 1


if __name__ == "__main__":
    sys.exit(main())
