#!/usr/bin/env python3
"""compare-windows.py LINUX-ZOVA-MASTER WINDOWS-ZOVA-MASTER [PROJECTS [SEED]]

Runs both zova-master programs on the sample data and on random projects (36 unless said otherwise), and zova-import and
zova-compare, which lie beside them, on tables, the second ones under tools/wine. Demands the same exit codes and the
same bytes in every file that they write and in all that they print.
"""

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
# name of the directory, of the project's file, arguments of zova-master
SAMPLE_RUNS = [
    ("Sample 1", "Example.prm", []),
    ("Sample 2", "Example.prm", ALL_FILES),
    ("Sample 3", "Example.prm", ["--means", "Interval", "--computed-only"]),
    ("Sample 4", "Example.prm", ORDER),
    (UNICODE, "Étude €.prm", ALL_FILES),
    ("Sample 5", "none.prm", []),
    ("Sample 6", "Example.prm", ["--means", "Nobody"]),
]


TABLE = """subject,list,trial_type,position,word,group
p1,1,study,1,apple,jung
p1,1,study,2,Bär,jung
p1,1,study,3,日本,jung
p1,1,recall,1,Bâr,jung
p1,1,recall,2,日本,jung
p2,1,study,1,Bär,"älter, {0}"
p2,1,study,2,apple,"älter, {0}"
p2,1,study,3,日本,"älter, {0}"
p2,1,recall,1,{1},"älter, {0}"
p2,1,recall,2,aple,"älter, {0}"
"""
TABLES = {
    "Table.csv": TABLE.format("€", "日本").encode(),
    "Typed again é.csv": b"\xef\xbb\xbf" + TABLE.format("€", "pear").replace("\n", "\r\n").encode(),
    "Old.csv": TABLE.format("€", "Bär").replace("日本", "vase").replace(",", ";").encode("cp1252"),
    "Broken.csv": b"subject,list\n1,\"x\n",
}
STUDY = ["--new-project", "Étude", "--variables", "group", "--accept-distance", "1", "--others", "intrusion"]
# program and arguments, in this order in one directory
TABLE_STEPS = [
    ("zova-import", ["--dry-run", "--new-project", "Étude", "--directory", r"{dir}\Study", r"{dir}\Table.csv"]),
    ("zova-import",
     STUDY[:4] + ["--directory", r"{dir}\Study", "--unmatched", r"{dir}\left 日.csv", r"{dir}\Table.csv"]),
    ("zova-import", STUDY + ["--directory", r"{dir}\Study", r"{dir}\Table.csv"]),
    ("zova-import", STUDY[4:] + [r"{dir}\Table.csv", r"{dir}\Study\Étude.prm"]),
    ("zova-import", STUDY + ["--directory", r"{dir}\Again", r"{dir}\Typed again é.csv"]),
    ("zova-import", STUDY + ["--directory", r"{dir}\Old", r"{dir}\Old.csv"]),
    ("zova-import", STUDY + ["--directory", r"{dir}\None", r"{dir}\Broken.csv"]),
    ("zova-import", ["--shape", "square", r"{dir}\Table.csv"]),
    ("zova-compare", [r"{dir}\Study\Étude.prm"]),
    ("zova-compare", ["--with", r"{dir}\Again\Sdata", r"{dir}\Study\Étude.prm"]),
    ("zova-master", ["--means", "group", r"{dir}\Study\Étude.prm"]),
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


def make_tables(top, directory):
    for name, content in TABLES.items():
        (top / directory).mkdir(exist_ok=True)
        (top / directory / name).write_bytes(content)


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
        self.linux, self.windows = linux.parent, windows.parent
        self.drives = [ROOT / "build" / "compare-windows", prefix / "drive_c"]
        # Its C:\ZOVA is deleted below, and tools/wine would take it for its own.
        if prefix.exists() and any(prefix.iterdir()) and not (prefix / "zova-made").exists():
            sys.exit(f"compare-windows: {prefix} was not made by tools/wine, and may hold what somebody needs")
        run([str(WINE), str(windows)], {}, ["--version"])  # makes the prefix
        for drive in self.drives:
            shutil.rmtree(drive / "ZOVA", ignore_errors=True)

    def make(self, projects, seed):
        """The directories of C:\\ZOVA, each with programs and arguments in their order."""
        runs = []
        for top in [drive / "ZOVA" for drive in self.drives]:
            runs = [(directory, [("zova-master", arguments + ["{dir}\\" + project])])
                    for directory, project, arguments in SAMPLE_RUNS]
            for directory, project, _ in SAMPLE_RUNS:
                make_sample(top, directory, project)
            for number in range(projects):
                directory = f"Random {number}"
                arguments = RandomProject(seed * 1000003 + number).write(top, directory)
                runs.append((directory, [("zova-master", arguments + [r"{dir}\P.prm"])]))
            make_tables(top, "Tables ü")
            runs.append(("Tables ü", TABLE_STEPS))
        return runs

    def compare(self, directory_and_steps):
        """For each step what differs ("" for nothing), its exit code, and how many files were written."""
        directory, steps = directory_and_steps
        return [self.compare_step(directory, *step) for step in steps]

    def compare_step(self, directory, program, arguments):
        full = [argument.replace("{dir}", "C:\\ZOVA\\" + directory) for argument in arguments]
        tops = [drive / "ZOVA" / directory for drive in self.drives]
        before = tree(tops[0])
        expected = run([str(self.linux / program)], {"ZOVA_DRIVES": f"C={self.drives[0]}"}, full)
        got = run([str(WINE), str(self.windows / f"{program}.exe")], {}, full)
        table = program != "zova-master" or "--means" in arguments
        same = {"exit code": expected[0] == got[0], "files": tree(tops[0]) == tree(tops[1]),
                "standard output": expected[1] == got[1] if table else names(expected[1]) == names(got[1]),
                "standard error": names(expected[2]) == names(got[2])}
        written = len(tree(tops[0]).items() - before.items())
        if all(same.values()):
            return "", got[0], written
        return (f"DIFFERENT {[what for what in same if not same[what]]}: {program} {full}\n  exit code {expected[0]}: "
                f"{expected[2][-500:].decode()}\n  under Wine {got[0]}: {got[2][-500:].decode()}\n"), None, written


def main():
    if not 3 <= len(sys.argv) <= 5:
        sys.exit(f"usage: {__doc__}")
    programs = [pathlib.Path(program).resolve() for program in sys.argv[1:3]]
    for program in programs:
        if not program.is_file():
            sys.exit(f"compare-windows: there is no {program}")
    projects, seed = (int(number) for number in (sys.argv[3:] + [PROJECTS, SEED][len(sys.argv[3:]):]))
    comparison = Comparison(*programs)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        results = sum(pool.map(comparison.compare, comparison.make(projects, seed)), [])
    print("".join(report for report, _, _ in results), end="")
    codes = [code for _, code, _ in results]
    counts = {code: codes.count(code) for code in set(codes)}
    print(f"{len(codes)} runs, {sum(written for _, _, written in results)} files, runs by exit code {counts}")
    # A comparison of projects that all fail, or of none that fails, would show little.
    sys.exit(0 if None not in counts and counts.get(0, 0) > len(codes) / 2 and len(counts) > 1 else 1)


if __name__ == "__main__":
    main()
