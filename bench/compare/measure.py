"""Runs the programs and takes the figures of one comparison."""

import json
import math
import os
import shlex
import shutil
import statistics
import time
from collections import namedtuple
from dataclasses import dataclass
from pathlib import Path

from patterns import MIXTURES, PART_OF_SETS, PATTERNS, REPEATED, UN_ABLE

RUNS = 9  # after one that does not count
MAKE_RUNS = 3
OUR_PROGRAMS = ("quorvane-cli", "make_bench_lexicon", "bench_probe")
PEER_PROGRAMS = ("rg", "grep", "wc", "cp", "sort", "sh")
MOST_RESULTS_IN_MEMORY_RUN = 10_000

Finished = namedtuple("Finished", "milliseconds output peak_bytes")
# One pattern: the search in the loaded program, its runs one after the other (ours) or taking turns with those of the
# other patterns, then three whole processes. Times in milliseconds.
Row = namedtuple("Row", "count ours in_turn whole rg grep")
# A search with conditions: in the loaded program, then what it is made of, each alone; then whole processes.
Mixed = namedtuple("Mixed", "count ours alone whole pipe")


@dataclass
class Comparison:
    rows: dict  # Row by Pattern
    mixed: dict  # Mixed by Mixture
    repeated_with_perl: float  # grep -P over the pattern that grep gets without it
    sets: float
    load: float
    wc: float
    cp: float
    make: dict  # (ours, sort -u) in milliseconds, by the order of the list
    memory: int
    probe: dict
    differences: list


class CannotRun(Exception):
    pass


def geometric_mean(values):
    return math.exp(statistics.fmean(math.log(value) for value in values))


class Programs:
    def __init__(self, build, scratch):
        self.scratch = Path(scratch)
        self.paths = {name: Path(build) / "bin" / name for name in OUR_PROGRAMS}
        missing = [str(path) for path in self.paths.values() if not os.access(path, os.X_OK)]
        if missing:
            raise CannotRun(f"not built: {', '.join(missing)} (build the release preset, or name a --build)")
        self.paths |= {name: shutil.which(name) for name in PEER_PROGRAMS}
        missing = [name for name, path in self.paths.items() if path is None]
        if missing:
            raise CannotRun(f"not installed: {', '.join(missing)}")

    def run(self, name, *arguments, stdin=os.devnull, allowed=(0,)):
        """One whole process. Its output goes to a file: a peer that writes to the null device stops at the first
        match."""
        output, errors = self.scratch / "output", self.scratch / "errors"
        written = os.O_WRONLY | os.O_CREAT | os.O_TRUNC
        redirections = [
            (os.POSIX_SPAWN_OPEN, 0, str(stdin), os.O_RDONLY, 0),
            (os.POSIX_SPAWN_OPEN, 1, str(output), written, 0o644),
            (os.POSIX_SPAWN_OPEN, 2, str(errors), written, 0o644),
        ]
        command = [str(self.paths[name]), *map(str, arguments)]
        start = time.perf_counter()
        process = os.posix_spawn(command[0], command, {"LC_ALL": "C", "PATH": os.environ["PATH"]}, file_actions=redirections)
        _, status, usage = os.wait4(process, 0)
        milliseconds = (time.perf_counter() - start) * 1000
        exit_status = os.waitstatus_to_exitcode(status)
        if exit_status not in allowed:
            complaint = errors.read_text(errors="replace").strip()
            raise CannotRun(f"{' '.join(command)} ended with status {exit_status}: {complaint}")
        return Finished(milliseconds, output.read_text(), usage.ru_maxrss * 1024)

    def shell(self, line, *paths):
        return self.run("sh", "-c", line % tuple(shlex.quote(str(path)) for path in paths)).output

    def time(self, name, *arguments, allowed=(0,), times=RUNS):
        """The median time of whole processes, and what the last of them wrote."""
        runs = [self.run(name, *arguments, allowed=allowed) for _ in range(times + 1)]
        return statistics.median(run.milliseconds for run in runs[1:]), runs[-1].output

    def count(self, name, *arguments):
        """The median time of processes that write a count, and the count. Status 1 says that nothing was found."""
        milliseconds, output = self.time(name, *arguments, allowed=(0, 1))
        return milliseconds, int(output.strip() or 0)

    def lexicon(self, words):
        path = self.scratch / f"bench-{words}.lex"
        if not path.exists():
            self.run("make_bench_lexicon", path, words)
        found = self.find(path, PATTERNS[:1])[0]["words"]
        if found != words:
            raise CannotRun(f"{path} has {found} words instead of {words}: remove it")
        return path

    def find(self, lexicon, patterns):
        """What the loaded program writes: the lexicon's object, then one for each pattern. All are of one type."""
        typed = self.scratch / "typed"
        typed.write_text("".join(f"{pattern.text}\n" for pattern in patterns))
        options = ["--json", "--count", "--type", patterns[0].type, "--lexicon", lexicon]
        lines = self.run("quorvane-cli", "find", "-", *options, stdin=typed, allowed=(0, 1)).output.splitlines()
        answers = [json.loads(line) for line in lines]
        if [answer["pattern"] for answer in answers[1:]] != [pattern.text for pattern in patterns]:
            raise CannotRun(f"quorvane-cli gave {len(answers) - 1} answers to {len(patterns)} searches, or others")
        return answers

    def search(self, lexicon, in_turn=False):
        """(median milliseconds, count) by pattern, in one loaded program for each type: only words can take turns."""
        everything = [*PATTERNS, PART_OF_SETS]
        figures = {}
        for kind in dict.fromkeys(pattern.type for pattern in everything):
            patterns = [pattern for pattern in everything if pattern.type == kind]
            rounds = range(RUNS + 1)
            typed = [p for _ in rounds for p in patterns] if in_turn else [p for p in patterns for _ in rounds]
            answers = self.find(lexicon, typed)[1:]
            for pattern in patterns:
                mine = [answer for answer in answers if answer["pattern"] == pattern.text]
                if len({answer["count"] for answer in mine}) != 1:
                    raise CannotRun(f"the searches for {pattern.name} do not all find the same number of words")
                # Times are written to a tenth of a microsecond.
                milliseconds = max(statistics.median(answer["ms"] for answer in mine[1:]), 0.0001)
                figures[pattern] = milliseconds, mine[0]["count"]
        return figures

    def searched_alone(self, lexicon, text, *options):
        """(median milliseconds, count) of one search in a loaded program."""
        typed = self.scratch / "typed"
        typed.write_text(f"{text}\n" * (RUNS + 1))
        command = ["find", "-", "--json", "--count", *options, "--lexicon", lexicon]
        lines = self.run("quorvane-cli", *command, stdin=typed, allowed=(0, 1)).output.splitlines()
        answers = [json.loads(line) for line in lines[1:]]
        return max(statistics.median(answer["ms"] for answer in answers[1:]), 0.0001), answers[0]["count"]

    def mixed(self, lexicon, mixture, differences):
        """A search with conditions beside the pipe of rg that leaves the same lines."""
        ours, count = self.searched_alone(lexicon, mixture.text, *mixture.options)
        whole, whole_count = self.count(
            "quorvane-cli", "find", mixture.text, *mixture.options, "--count", "--lexicon", lexicon)
        stages = [["rg", "-j1", *stage] for stage in mixture.pipe]
        stages[0].append(str(lexicon))
        pipe, pipe_count = self.count("sh", "-c", " | ".join(map(shlex.join, stages)))
        if not count == whole_count == pipe_count:
            differences.append(f"{mixture.name}: {count} in the loaded program, {whole_count} alone, {pipe_count} by rg")
        alone = [self.searched_alone(lexicon, *search)[0] for search in mixture.alone]
        return Mixed(count, ours, alone, whole, pipe)

    def load(self, lexicon):
        loads = [self.find(lexicon, PATTERNS[:1])[0]["load_ms"] for _ in range(RUNS + 1)]
        return statistics.median(loads[1:])

    def make(self, lexicon):
        """Making a lexicon of the words as a list, sorted and shuffled, beside sort -u of the same list."""
        words, made, unique, order_of = (self.scratch / n for n in ("list.txt", "made.lex", "unique.txt", "order.txt"))
        # By other programs: what this one has once held would count as the memory of every program that it starts.
        in_order = ["tr -d '\\r' <%s >%s", lexicon, words]
        in_disorder = ["shuf --random-source=%s -o %s %s", words, order_of, words]
        figures = {}
        for order, source, prepare in (("sorted", words, in_order), ("shuffled", order_of, in_disorder)):
            self.shell(*prepare)
            ours = self.time("quorvane-cli", "lexicon", "make", source, "-o", made, times=MAKE_RUNS)[0]
            peer = self.time("sort", "-u", source, "-o", unique, times=MAKE_RUNS)[0]
            if self.shell("tr -d '\\r' <%s | cmp -s - %s && echo same || echo other", made, unique).strip() != "same":
                raise CannotRun(f"the lexicon made of the {order} list and sort -u of it differ")
            figures[order] = ours, peer
        return figures

    def memory(self, lexicon):
        run = self.run("quorvane-cli", "find", UN_ABLE.text, "--count", "--lexicon", lexicon)
        if not 0 < int(run.output) <= MOST_RESULTS_IN_MEMORY_RUN:
            raise CannotRun(f"{UN_ABLE.name} is no measure of memory: it finds {run.output.strip()} words")
        return run.peak_bytes

    def compare(self, lexicon):
        searched = self.search(lexicon)
        # At once after the searches, some of which are held against it.
        probe = json.loads(self.run("bench_probe", lexicon, self.scratch / "saved.lex").output)
        searched_in_turn = self.search(lexicon, in_turn=True)
        rows, differences = {}, []

        def timed(pattern, who, *arguments):
            milliseconds, count = self.count(who, *arguments, lexicon)
            if count != searched[pattern][1]:
                differences.append(f"{pattern.name}: {searched[pattern][1]} in the loaded program, {count} from {who}")
            return milliseconds

        for pattern in PATTERNS:
            find = ["find", pattern.text, "--type", pattern.type, "--count", "--lexicon"]
            rows[pattern] = Row(
                count=searched[pattern][1],
                ours=searched[pattern][0],
                in_turn=searched_in_turn[pattern][0],
                whole=timed(pattern, "quorvane-cli", *find),
                rg=timed(pattern, "rg", *pattern.rg_arguments()),
                grep=timed(pattern, "grep", *pattern.grep_arguments()),
            )
        timed(PART_OF_SETS, "rg", *PART_OF_SETS.rg_arguments())
        timed(PART_OF_SETS, "grep", *PART_OF_SETS.grep_arguments())
        return Comparison(
            rows=rows,
            mixed={mixture: self.mixed(lexicon, mixture, differences) for mixture in MIXTURES},
            repeated_with_perl=timed(REPEATED, "grep", *REPEATED.grep_arguments(perl=True)),
            sets=searched[PART_OF_SETS][0],
            load=self.load(lexicon),
            wc=self.time("wc", "-l", lexicon)[0],
            cp=self.time("cp", lexicon, self.scratch / "copy.lex")[0],
            make=self.make(lexicon),
            memory=self.memory(lexicon),
            probe=probe,
            differences=differences,
        )
