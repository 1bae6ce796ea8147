#!/usr/bin/env python3
"""compare-windows.py LINUX-PROGRAM WINDOWS-PROGRAM [PROJECTS [SEED]]: runs both zova-master programs on the sample data
and on random projects (36 unless said otherwise), the second program under tools/wine, and demands the same exit code
and the same bytes in every file that they write and in all that they print."""

import concurrent.futures
import os
import pathlib
import random
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
WINE = ROOT / "tools" / "wine"
SAMPLE = ROOT / "data" / "Sample Data"
# Letters of Windows-1252, of no code page of the West, and outside the first 65,536.
UNICODE = "Donnéеs 日本 \N{GRINNING FACE}"
MEASURES = ["chkBasic", "chkBi", "chkIP", "chkCat", "chkRat", "chkFBasic", "chkFPos", "chkFwhich", "chkFIP",
            "chkMinNet", "chkMinCat", "chkMinCum", "chkMinGains"]
PROJECTS, SEED = 36, 1

# "{dir}" is the project's directory below C:\ZOVA.
ALL_FILES = ["--destination", r"{dir}\Out\m.txt", "--clean", r"{dir}\Out\é 日.csv", "--long", r"{dir}\Out\long.csv",
             "--group-size", "3"]
ORDER = ["--serial-order", r"{dir}\order.dat"]
# name of the directory, of the project's file, arguments
SAMPLE_RUNS = [
    ("Sample 1", "Example.prm", []),
    ("Sample 2", "Example.prm", ALL_FILES),
    ("Sample 3", "Example.prm", ["--means", "Interval", "--computed-only"]),
    ("Sample 4", "Example.prm", ORDER),
    (UNICODE, "Étude €.prm", ALL_FILES),
    ("Sample 5", "none.prm", []),
    ("Sample 6", "Example.prm", ["--means", "Nobody"]),
]


def lines(rows):
    return ("\r\n".join(rows) + "\r\n").encode()


def order(items):
    return lines(f"{item + 1},{position}" for item, position in enumerate(items))


def make_sample(top, directory, project):
    target = top / directory
    shutil.copytree(SAMPLE, target)
    (target / "Out").mkdir()
    text = (target / "Example.prm").read_bytes()
    (target / "Example.prm").unlink()
    if project != "none.prm":
        (target / project).write_bytes(text.replace(b"Sample Data", directory.encode()))
    (target / "order.dat").write_bytes(order(range(int(text.split(b",", 2)[1]), 0, -1)))


class RandomProject:
    """One in eight holds items, minutes and ratings out of range, which end the run in an error."""

    def __init__(self, seed):
        self.chance = chance = random.Random(seed)
        self.tests = chance.randint(1, 5)
        self.categories, self.exemplars = chance.choice([(0, 0), (chance.randint(1, 6), chance.randint(1, 6))])
        self.items = self.categories * self.exemplars or chance.randint(1, 40)
        self.lures = int(self.categories > 0 and chance.random() < 0.4)
        self.minutes, self.ratings = chance.choice([0, chance.randint(1, 12)]), chance.choice([0, chance.randint(1, 9)])
        self.rated = [chance.choice("YN") for _ in range(self.tests)]
        self.levels = [chance.randint(1, 4) for _ in range(chance.randint(0, 3))]
        self.names = [f"{chance.choice(['Age', 'Été', 'Ж', '日'])} {number}" for number in range(len(self.levels))]
        self.abbreviation = chance.choice(["Ex", "A b", "Größe", "日本"])
        self.out_of_range = chance.random() < 0.12

    def parameters(self, directory):
        rows = ["%d,%d,%d,%s,%s,%d,%s,,,%d,%s,,%d,\"%s\",\"C:\\ZOVA\\%s\",\"(none)\",\"P.prm\",%d,,\"VB Version\"" % (
            self.tests, self.items, self.categories > 0, self.categories or "", self.exemplars or "", self.minutes > 0,
            self.minutes or "", self.ratings > 0, self.ratings or "", len(self.levels), self.abbreviation, directory,
            self.lures)]
        if self.levels:
            rows.append(",".join(map(str, self.levels)))
        for name, levels in zip(self.names, self.levels):
            rows += [f'"{name}"'] + [f'"müde, {level}"' for level in range(levels)]
        return lines(rows + [f'"{flag}"' for flag in self.rated if self.ratings])

    def subject(self, name):
        chance = self.chance
        rows = ['"Subject#","%s","n, Item #(recall order), Min(recall order), Rating(recall order)","*"' % name]
        rows += [f'"{name}",{chance.randint(1, levels)}' for name, levels in zip(self.names, self.levels)]
        for rated in self.rated:
            recalled = chance.sample(range(1, self.items + 1), chance.randint(0, self.items))
            if recalled and chance.random() < 0.3:  # a repetition, or an intrusion
                recalled[chance.randrange(len(recalled))] = chance.choice([recalled[0], 0])
            minutes = sorted(chance.randint(1, self.minutes) if self.minutes else 0 for _ in recalled)
            ratings = [chance.randint(1, self.ratings) if self.ratings and rated == "Y" else 0 for _ in recalled]
            if self.out_of_range and recalled and chance.random() < 0.1:
                column = chance.choice([recalled, minutes, ratings])
                column[-1] = 1001
            cells = list(zip(recalled, minutes, ratings)) + [(0, 0, 0)] * (self.items - len(recalled))
            rows += ["%d,%d,%d,%d" % (place + 1, *cell) for place, cell in enumerate(cells)]
        content = lines(rows)
        if chance.random() < 0.1 and "Ж" not in str(self.names) + name and "日" not in str(self.names) + name:
            return content.decode().encode("cp1252")
        return content

    def write(self, top, directory):
        """Returns the arguments."""
        chance = self.chance
        target = top / directory
        (target / "Sdata").mkdir(parents=True)
        (target / "P.prm").write_bytes(self.parameters(directory))
        for number in range(chance.choice([0, 1, 2, 5, 12])):
            name = chance.choice([str(number + 1), f"S{number:02}", f"ß{number}", f"日{number}"])
            (target / "Sdata" / f"{self.abbreviation} Sub#{name}.dat").write_bytes(self.subject(name))
        (target / "order.dat").write_bytes(order(chance.sample(range(1, self.items + 1), self.items)))
        arguments = []
        for probability, option in [
                (0.3, ["--measures", ",".join(chance.sample(MEASURES, chance.randint(1, len(MEASURES))))]),
                (0.4, ORDER), (0.4, ["--clean", r"{dir}\clean.csv"]), (0.4, ["--long", r"{dir}\é 日.csv"]),
                (0.3, ["--group-size", str(chance.randint(1, 4))]), (0.2, ["--destination", "Other.txt"]),
                (0.4, ["--means", chance.choice(self.names + [""])] + chance.choice([[], ["--computed-only"]]))]:
            arguments += option if chance.random() < probability else []
        return arguments


def tree(top):
    return {str(path.relative_to(top)): path.read_bytes() for path in sorted(top.rglob("*")) if path.is_file()}


def run(command, environment, arguments):
    for _ in range(3):
        done = subprocess.run(command + arguments, env=os.environ | environment, stdin=subprocess.DEVNULL,
                              capture_output=True, timeout=600)
        if b"wine client error" not in done.stderr:  # the emulator lost its own server; the program did not end
            break
    return done.returncode, done.stdout, done.stderr


def names(output):
    """The last components of the paths that a run printed, which differ in what stands before."""
    text = output.decode().replace("\r\n", "\n").splitlines()
    return [line.replace("\\", "/").rsplit("/", 1)[-1] for line in text]


class Comparison:
    def __init__(self, linux, windows):
        prefix = pathlib.Path(os.environ.get("ZOVA_WINEPREFIX", ROOT / "build" / "wine-prefix"))
        self.linux, self.windows = [linux], [str(WINE), windows]
        self.drives = [ROOT / "build" / "compare-windows", prefix / "drive_c"]
        run(self.windows, {}, ["--version"])  # makes the prefix
        for drive in self.drives:
            shutil.rmtree(drive / "ZOVA", ignore_errors=True)

    def make(self, projects, seed):
        runs = []
        for top in [drive / "ZOVA" for drive in self.drives]:
            for directory, project, _ in SAMPLE_RUNS:
                make_sample(top, directory, project)
            runs = SAMPLE_RUNS + [(f"Random {number}", "P.prm",
                                   RandomProject(seed * 1000003 + number).write(top, f"Random {number}"))
                                  for number in range(projects)]
        return runs

    def compare(self, run_of_both):
        """What differs ("" for nothing), the exit code (None where something differs), and how many files were written."""
        directory, project, arguments = run_of_both
        at = "C:\\ZOVA\\" + directory
        full = [argument.replace("{dir}", at) for argument in arguments] + [at + "\\" + project]
        tops = [drive / "ZOVA" / directory for drive in self.drives]
        before = tree(tops[0])
        expected = run(self.linux, {"ZOVA_DRIVES": f"C={self.drives[0]}"}, full)
        got = run(self.windows, {}, full)
        table = "--means" in arguments
        same = {"exit code": expected[0] == got[0], "files": tree(tops[0]) == tree(tops[1]),
                "standard output": expected[1] == got[1] if table else names(expected[1]) == names(got[1]),
                "standard error": names(expected[2]) == names(got[2])}
        written = len(tree(tops[0]).items() - before.items())
        if all(same.values()):
            return "", got[0], written
        return (f"DIFFERENT {[what for what in same if not same[what]]}: {full}\n  exit code {expected[0]}: "
                f"{expected[2][-500:].decode()}\n  under Wine {got[0]}: {got[2][-500:].decode()}\n"), None, written


def main():
    programs = [str(pathlib.Path(program).resolve()) for program in sys.argv[1:3]]
    projects, seed = (int(number) for number in (sys.argv[3:] + [PROJECTS, SEED][len(sys.argv[3:]):]))
    comparison = Comparison(*programs)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        results = list(pool.map(comparison.compare, comparison.make(projects, seed)))
    print("".join(report for report, _, _ in results), end="")
    codes = [code for _, code, _ in results]
    counts = {code: codes.count(code) for code in set(codes)}
    print(f"{len(codes)} runs, {sum(written for _, _, written in results)} files, runs by exit code {counts}")
    # A comparison of projects that all fail, or of none that fails, would show little.
    sys.exit(0 if None not in counts and counts.get(0, 0) > len(codes) / 2 and len(counts) > 1 else 1)


if __name__ == "__main__":
    main()
