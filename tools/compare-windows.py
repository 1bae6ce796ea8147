#!/usr/bin/env python3
"""compare-windows.py LINUX-PROGRAM WINDOWS-PROGRAM: runs both zova-master programs on the sample data, the second one
under tools/wine, and demands the same bytes in every file that they write and in the tables that they print."""

import os
import pathlib
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
WINE = ROOT / "tools" / "wine"
SAMPLE = ROOT / "data" / "Sample Data"
# Letters of Windows-1252, of no code page of the West, and outside the first 65,536.
UNICODE = "Donnéеs 日本 \N{GRINNING FACE}"

ALL_FILES = ["--destination", r"{dir}\Out\m.txt", "--clean", r"{dir}\Out\é 日.csv", "--long", r"{dir}\Out\long.csv",
             "--group-size", "3"]
# name of the directory below C:\ZOVA, name of the project's file, arguments
RUNS = [
    ("Sample Data", "Example.prm", []),
    ("Sample Data", "Example.prm", ALL_FILES),
    ("Sample Data", "Example.prm", ["--means", "Interval", "--computed-only"]),
    ("Sample Data", "Example.prm", ["--serial-order", r"{dir}\order.dat"]),
    (UNICODE, "Étude €.prm", ALL_FILES),
    ("Sample Data", "none.prm", []),
    ("Sample Data", "Example.prm", ["--means", "Nobody"]),
]


def make_drive(drive):
    shutil.rmtree(drive / "ZOVA", ignore_errors=True)
    for directory, project in {(directory, project) for directory, project, _ in RUNS if project != "none.prm"}:
        target = drive / "ZOVA" / directory
        shutil.copytree(SAMPLE, target)
        (target / "Out").mkdir()
        text = (target / "Example.prm").read_bytes()
        (target / "Example.prm").unlink()
        (target / project).write_bytes(text.replace(b"Sample Data", directory.encode()))
        items = int(text.split(b",", 2)[1])
        order = "".join(f"{item},{items + 1 - item}\r\n" for item in range(1, items + 1))
        (target / "order.dat").write_bytes(order.encode())


def tree(drive):
    top = drive / "ZOVA"
    return {str(path.relative_to(top)): path.read_bytes() for path in sorted(top.rglob("*")) if path.is_file()}


def run(command, environment, arguments):
    done = subprocess.run(command + arguments, env=os.environ | environment, stdin=subprocess.DEVNULL,
                          capture_output=True, timeout=120)
    return done.returncode, done.stdout, done.stderr


def names(output):
    """The last components of the paths that a run printed, which differ in what stands before."""
    lines = output.decode().replace("\r\n", "\n").splitlines()
    return [line.replace("\\", "/").rsplit("/", 1)[-1] for line in lines]


def main():
    linux, windows = (str(pathlib.Path(program).resolve()) for program in sys.argv[1:3])
    prefix = pathlib.Path(os.environ.get("ZOVA_WINEPREFIX", ROOT / "build" / "wine-prefix"))
    run([str(WINE)], {}, [windows, "--version"])  # makes the prefix
    drives = {"linux": ROOT / "build" / "compare-windows", "windows": prefix / "drive_c"}
    for drive in drives.values():
        make_drive(drive)
    faults = 0
    for directory, project, arguments in RUNS:
        at = "C:\\ZOVA\\" + directory
        full = [argument.replace("{dir}", at) for argument in arguments] + [at + "\\" + project]
        before = tree(drives["linux"])
        expected = run([linux], {"ZOVA_DRIVES": f"C={drives['linux']}"}, full)
        got = run([str(WINE), windows], {}, full)
        table = "--means" in arguments
        same = [expected[0] == got[0], tree(drives["linux"]) == tree(drives["windows"]),
                expected[1] == got[1] if table else names(expected[1]) == names(got[1]),
                expected[0] != 0 or names(expected[2]) == names(got[2])]
        written = len(tree(drives["linux"]).items() - before.items())
        print("same" if all(same) else "DIFFERENT", f"exit code {got[0]}, {written} files, table {table}:", *full)
        if not all(same):
            faults += 1
            print("  same exit code, files, standard output, standard error:", *same)
            print(f"  exit code {expected[0]}:", expected[2][-500:].decode(), "\n  under Wine:", got[2][-500:].decode())
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
