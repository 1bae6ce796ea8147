#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures zova-master as a whole process, from its start to its end.

    bench/compare.py [zova-master]

First against `cat` of the same subject files to /dev/null, both run alternately, at 1,000 and 4,000 subjects; then at
one, two and four times as many subjects, items, columns and tests. It makes its own data and removes it again.

Every master is checked for its lines and columns, and a wrong one ends the script with 1; slowness never does.
"""

import argparse
import json
import os
import platform
import random
import shutil
import statistics
import subprocess
import sys
import tempfile
import time
from dataclasses import asdict, dataclass
from pathlib import Path

DEFAULT_PROGRAM = Path(__file__).resolve().parent.parent / "build" / "bench" / "zova-master"
MAX_RATING = 7
VARIABLES = (("Experimenter", ("Joe", "Jane")), ("Interval", ("24 Hours", "1 Week", "2 Weeks")))
WITHOUT_PATTERNS = "chkBasic,chkBi,chkCat,chkRat,chkMinNet,chkMinCat,chkMinCum,chkMinGains"
WARM_UPS = 2
MEMORY_RUNS = 3


class Failure(Exception):
    """The program under test failed, or wrote a master that cannot be right."""


@dataclass(frozen=True)
class Shape:
    """A project: all measures unless patterns is False, every test rated, `recalls` items per test (low, high)."""
    subjects: int = 1000
    tests: int = 5
    items: int = 100
    minutes: int = 5
    categories: int = 10
    recalls: tuple = (50, 70)
    patterns: bool = True

    def columns(self):
        tests, later = self.tests, self.tests - 1
        count = 1 + len(VARIABLES)
        count += tests + 2 * later                        # net, losses, gains
        count += self.minutes * (3 * tests + later)       # recall, cumulative recall, categories; gains
        count += 2 ** tests if self.patterns else 0
        count += 3 * tests + later                        # ARC, categories, items per category; ITR
        count += 4 * tests + 6 * later                    # average, above/below/at; gains so, up/down/same
        return count + (3 if tests >= 3 else 0)           # first test against last


class Project:
    """One generated project on disk below `root`, which is its drive C:."""

    def __init__(self, root, name, shape):
        self.shape = shape
        self.directory = root / name
        self.subject_directory = self.directory / "Sdata"
        self.subject_directory.mkdir(parents=True)
        self.file = self.directory / "Bench.prm"
        self.file.write_bytes("".join(line + "\r\n" for line in self._parameters(name)).encode())
        width = len(str(shape.subjects))
        self.names = ["Bench Sub#%0*d.dat" % (width, subject) for subject in range(1, shape.subjects + 1)]
        chance = random.Random(1)
        for subject, name in enumerate(self.names, 1):
            (self.subject_directory / name).write_bytes(self._subject(subject, chance).encode())
        self.environment = dict(os.environ, ZOVA_DRIVES="C=%s" % root)

    def _parameters(self, name):
        shape = self.shape
        yield '%d,%d,1,%d,%d,1,%d,,,1,%d,,%d,"Bench","C:\\%s","(none)","Bench.prm",0,,"VB Version"' % (
            shape.tests, shape.items, shape.categories, shape.items // shape.categories, shape.minutes, MAX_RATING,
            len(VARIABLES), name)
        yield from (str(len(levels)) for _, levels in VARIABLES)
        for variable, levels in VARIABLES:
            yield from ('"%s"' % text for text in (variable, *levels))
        yield from ['"Y"'] * shape.tests

    def _subject(self, subject, chance):
        shape = self.shape
        lines = ['"Subject#","%d","n, Item #(recall order), Min(recall order), Rating(recall order)","*"' % subject]
        lines += ['"%s",%d' % (name, chance.randint(1, len(levels))) for name, levels in VARIABLES]
        for _ in range(shape.tests):
            count = chance.randint(*shape.recalls)
            items = chance.sample(range(1, shape.items + 1), count)
            minutes = sorted(int(chance.random() * shape.minutes) + 1 for _ in range(count))
            lines += ["%d,%d,%d,%d" % (position, item, minute, int(chance.random() * MAX_RATING) + 1)
                      for position, (item, minute) in enumerate(zip(items, minutes), 1)]
            lines += ["%d,0,0,0" % position for position in range(count + 1, shape.items + 1)]
        return "\r\n".join(lines) + "\r\n"

    def bytes_read(self):
        return sum((self.subject_directory / name).stat().st_size for name in self.names)

    def command(self, program):
        measures = [] if self.shape.patterns else ["--measures", WITHOUT_PATTERNS]
        return [str(program), *measures, str(self.file)]

    def check_master(self):
        expected = self.shape.columns()
        found = self._line_columns("Bench Master.txt")
        if found != expected:
            raise Failure("the master has %d columns instead of %d" % (found, expected))
        if expected > 256:
            pieces = ["Bench Master%d.txt" % piece for piece in range(1, expected // 256 + 2)]
            found = sum(self._line_columns(piece) for piece in pieces)
            if found != expected:
                raise Failure("the master's pieces have %d columns instead of %d" % (found, expected))

    def _line_columns(self, name):
        """The columns of every line of a master, of which there must be one per subject after the header."""
        lines = (self.directory / name).read_bytes().split(b"\r\n")
        if lines.pop() != b"" or len(lines) != 1 + self.shape.subjects:
            raise Failure("%s has %d whole lines instead of %d" % (name, len(lines), 1 + self.shape.subjects))
        counts = {line.count(b",") + 1 for line in lines}
        if len(counts) != 1:
            raise Failure("%s has lines of %d to %d columns" % (name, min(counts), max(counts)))
        return counts.pop()


def run(command, environment, log):
    """Nanoseconds from the start of a process to its end."""
    actions = [(os.POSIX_SPAWN_OPEN, 0, os.devnull, os.O_RDONLY, 0),
               (os.POSIX_SPAWN_OPEN, 1, os.devnull, os.O_WRONLY, 0),
               (os.POSIX_SPAWN_OPEN, 2, str(log), os.O_WRONLY | os.O_CREAT | os.O_TRUNC, 0o600)]
    start = time.perf_counter_ns()
    process = os.posix_spawn(command[0], command, environment, file_actions=actions)
    _, status = os.waitpid(process, 0)
    elapsed = time.perf_counter_ns() - start
    if status != 0:
        said = log.read_text(errors="replace").strip()
        raise Failure("%s ended with %d: %s" % (command[0], os.waitstatus_to_exitcode(status), said))
    return elapsed


def peak_memory(command, environment):
    """Peak resident set in KiB.

    A process inherits the peak of whoever it was before exec, so one started from here would report at least this
    interpreter's. The shell between is small; it then becomes the interpreter that asks for its children's peak, and a
    process keeps that figure over exec.
    """
    report = ("import resource, sys; print(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss); "
              "sys.exit(int(sys.argv[1]))")
    script = 'python=$1; report=$2; shift 2; "$@" </dev/null >/dev/null; exec "$python" -c "$report" $?'
    result = subprocess.run(["/bin/sh", "-c", script, "sh", sys.executable, report, *command], env=environment,
                            stdout=subprocess.PIPE, stderr=subprocess.PIPE, universal_newlines=True)
    if result.returncode != 0:
        raise Failure("%s ended with %d: %s" % (command[0], result.returncode, result.stderr.strip()))
    kibibytes = int(result.stdout)
    return kibibytes // 1024 if sys.platform == "darwin" else kibibytes


def rounds_of(sides, count, log):
    """Runs the sides by turns, `count` times each after the warm-ups: nanoseconds per side."""
    times = [[] for _ in sides]
    for number in range(WARM_UPS + count):
        for side, (command, directory, environment) in enumerate(sides):
            os.chdir(directory)
            elapsed = run(command, environment, log)
            if number >= WARM_UPS:
                times[side].append(elapsed)
    return times


def milliseconds(times):
    return statistics.median(times) / 1e6


def compare_with_cat(program, root, rounds, subject_counts, figures):
    cat = shutil.which("cat")
    floor = peak_memory([shutil.which("true")], dict(os.environ))
    figures["true_peak_kib"] = floor
    print("\nAgainst cat of the same files, medians of %d alternate rounds (peak of `true`: %.1f MiB)\n" % (
        rounds, floor / 1024))
    print("subjects  columns     MB   cat ms  zova-master ms  ratio  peak MiB")
    peaks = []
    for subjects in subject_counts:
        project = Project(root, "cat-%d" % subjects, Shape(subjects=subjects))
        command = project.command(program)
        sides = [([cat, *project.names], project.subject_directory, project.environment),
                 (command, project.directory, project.environment)]
        cat_times, program_times = rounds_of(sides, rounds, root / "log")
        project.check_master()
        peaks.append(max(peak_memory(command, project.environment) for _ in range(MEMORY_RUNS)))
        ratio = milliseconds(program_times) / milliseconds(cat_times)
        print("%8d  %7d  %5.1f  %7.2f  %14.2f  %5.2f  %8.2f" % (
            subjects, project.shape.columns(), project.bytes_read() / 1e6, milliseconds(cat_times),
            milliseconds(program_times), ratio, peaks[-1] / 1024))
        figures["against_cat"].append({"shape": asdict(project.shape), "bytes": project.bytes_read(), "ratio": ratio,
                                       "cat_ns": cat_times, "zova_master_ns": program_times, "peak_kib": peaks[-1]})
    if len(peaks) > 1:
        growth = (peaks[-1] - peaks[0]) * 1024 / (subject_counts[-1] - subject_counts[0])
        print("\nPeak memory from the first to the last row: %+.0f bytes a subject" % growth)


def scaling_tables():
    """Title, unit, then per row a shape and how many units its run handles."""
    shapes = [Shape(subjects=count) for count in (500, 1000, 2000)]
    yield "Subjects", "subject", [(shape, shape.subjects) for shape in shapes]
    # Recall grows with the list, to 120 of 480, so that a walk over pairs of recalled items would show.
    shapes = [Shape(items=count, recalls=(count // 8, count // 4)) for count in (120, 240, 480)]
    yield "Items", "subject x item", [(shape, shape.subjects * shape.items) for shape in shapes]
    shapes = [Shape(subjects=200, minutes=count) for count in (200, 400, 800)]
    yield "Columns by minutes", "subject x column", [(shape, shape.subjects * shape.columns()) for shape in shapes]
    # Fifteen tests have 32,768 patterns, more than a master can hold: no patterns in the whole table.
    shapes = [Shape(tests=count, patterns=False) for count in (3, 6, 12, 15)]
    title = "Columns by tests without item patterns"
    yield title, "subject x test", [(shape, shape.subjects * shape.tests) for shape in shapes]


def measure_scaling(program, root, rounds, figures):
    for title, unit, rows in scaling_tables():
        projects = [Project(root, "%s-%d" % (title, units), shape) for shape, units in rows]
        sides = [(project.command(program), project.directory, project.environment) for project in projects]
        all_times = rounds_of(sides, rounds, root / "log")
        print("\n%s, medians of %d alternate rounds; a unit is a %s\n" % (title, rounds, unit))
        print("subjects  tests  items  minutes  columns       ms  us/unit  us/unit added to the row above")
        before = None
        for project, (shape, units), times in zip(projects, rows, all_times):
            project.check_master()
            now = milliseconds(times)
            added = "" if before is None else "  %7.4f" % ((now - before[0]) * 1000 / (units - before[1]))
            print("%8d  %5d  %5d  %7d  %7d  %7.2f  %7.4f%s" % (
                shape.subjects, shape.tests, shape.items, shape.minutes, shape.columns(), now, now * 1000 / units,
                added))
            figures["scaling"].append({"table": title, "unit": unit, "units": units, "shape": asdict(shape),
                                       "columns": shape.columns(), "zova_master_ns": times})
            before = (now, units)


def machine():
    model = platform.processor()
    try:
        lines = Path("/proc/cpuinfo").read_text().splitlines()
        model = next(line.split(":", 1)[1].strip() for line in lines if line.startswith("model name"))
    except (OSError, StopIteration):
        pass
    return "%s, %d processors, %s %s" % (model, os.cpu_count(), platform.system(), platform.release())


def measure(program, root, arguments):
    figures = {"machine": machine(), "date": time.strftime("%Y-%m-%d"), "program": str(program),
               "against_cat": [], "scaling": []}
    print("%s; %s" % (figures["machine"], figures["date"]))
    compare_with_cat(program, root, arguments.rounds, (1000, 4000), figures)
    measure_scaling(program, root, arguments.scaling_rounds, figures)
    return figures


def main():
    parser = argparse.ArgumentParser(description="Measures zova-master as a whole process.")
    parser.add_argument("program", nargs="?", type=Path, default=DEFAULT_PROGRAM,
                        help="zova-master (default: build/bench/zova-master)")
    parser.add_argument("--rounds", type=int, default=21, help="rounds against cat (default 21)")
    parser.add_argument("--scaling-rounds", type=int, default=7, help="rounds of the scaling tables (default 7)")
    parser.add_argument("--json", type=Path, metavar="FILE", help="write every single time there")
    parser.add_argument("--keep", action="store_true", help="keep the generated data, and say where it is")
    arguments = parser.parse_args()
    if arguments.rounds < 1 or arguments.scaling_rounds < 1:
        parser.error("a median needs at least one round")
    program = arguments.program.resolve()
    if not os.access(program, os.X_OK) or program.is_dir():
        parser.error("%s is no program; build it:\ncmake --preset bench && cmake --build --preset bench" % program)
    json_file = arguments.json.resolve() if arguments.json else None

    sys.stdout.reconfigure(line_buffering=True)
    root = Path(tempfile.mkdtemp(prefix="zova-bench-")).resolve()
    try:
        figures = measure(program, root, arguments)
        if json_file:
            json_file.write_text(json.dumps(figures, indent=1) + "\n")
    except (Failure, OSError) as failure:
        print("compare.py: %s" % failure, file=sys.stderr)
        return 1
    finally:
        os.chdir(root.parent)
        if arguments.keep:
            print("\nThe data is in %s" % root)
        else:
            shutil.rmtree(root)
    return 0


if __name__ == "__main__":
    sys.exit(main())
