#!/usr/bin/env python3
"""A monkey at the program: random keys, clicks, drags, menus, resizes and turns of the wheel on the real executable.

    tests/singe/singe.py [--minutes 15] [--seed N] [--binary release|asan|FOLDER] [--base FOLDER|FILE]
                         [--report FOLDER] [--replay FILE]

The seed is printed, and gives the same gestures as long as the screen shows the same.

It sits behind a partition on a virtual display (cloison.py): nothing of the machine can be changed, nothing of the
network is there, and what the program wants to open elsewhere is only noted. It answers boxes, starts the program again
when it was left in the ordinary way or has ended at its limit of words, as it is meant to, and goes on for the given
time. FOLDER of --binary is a portable one; --base is a source folder, which is compiled first, or a base. --replay does
the deeds of a report's file actions.txt again, at their pace: surer than the seed where the machine is busy otherwise.

The status is 0 when nothing went wrong; 77 when this machine cannot hold a partition. Otherwise a line says what went
wrong (an end that must not be, no answer, a word on the error output, more memory than 60 MB above the start), the last
50 gestures follow, and the report folder holds all of them, the pictures, and what the program said.
"""
import argparse
import collections
import pathlib
import random
import re
import shutil
import subprocess
import sys
import tempfile
import time

import cloison

ROOT = pathlib.Path(__file__).resolve().parents[2]
MEMORY_ALLOWED = 60  # megabytes above the start, with all windows closed
BETWEEN_BALANCES = 240  # seconds
SKIPPED = 77
QUIT_ENTRY = 116  # of the language file: the entry that ends the program, which captions its question too
PORTABLE = ["velm2000", "velmoutil", "langues", "master.ini", "dossiers.dat"]


def options(words):
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--minutes", type=float, default=15)
    parser.add_argument("--seed", type=int, default=None)
    parser.add_argument("--binary", default="release", help="release, asan, or a portable folder")
    parser.add_argument("--base", help="a publisher's source folder, or a compiled base; the sample without it")
    parser.add_argument("--report", default=str(ROOT / "build" / "singe"))
    parser.add_argument("--replay", help="a report's file of deeds")
    return parser.parse_args(words)


def main():
    if sys.argv[1:2] == [cloison.INSIDE]:
        return inside(pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3]), options(sys.argv[4:]))
    chosen = options(sys.argv[1:])
    reason = cloison.missing()
    if reason:
        print(f"SKIPPED: {reason}")
        return SKIPPED
    report = pathlib.Path(chosen.report).resolve()
    shutil.rmtree(report, ignore_errors=True)
    report.mkdir(parents=True)
    seed = chosen.seed if chosen.seed is not None else random.randrange(1 << 31)
    with tempfile.TemporaryDirectory() as folder:
        portable(chosen, pathlib.Path(folder) / "programme")
        words = [*sys.argv[1:], "--seed", str(seed)]
        if chosen.replay:
            shutil.copy(chosen.replay, report / "rejoue.txt")
        return cloison.enter(words, report, pathlib.Path(folder) / "programme")


def portable(chosen, folder):
    """A copy of the portable folder, with the base that was asked for."""
    known = {"release": ROOT / "build" / "bin", "asan": ROOT / "build" / "asan" / "bin"}
    source = pathlib.Path(known.get(chosen.binary, chosen.binary)).resolve()
    folder.mkdir()
    for name in PORTABLE:
        copy = shutil.copytree if (source / name).is_dir() else shutil.copy
        copy(source / name, folder / name)
    base = pathlib.Path(chosen.base) if chosen.base else source / "velm2000.dat"
    if base.is_dir():
        subprocess.run([str(folder / "velmoutil"), "compiler", str(base), str(folder / "velm2000.dat")], check=True,
                       stdout=subprocess.DEVNULL)
    else:
        shutil.copy(base, folder / "velm2000.dat")


def inside(report, folder, chosen):
    cloison.settle(report, folder)
    # From the copy inside, as the project itself may lie where the partition has its ground.
    sys.path.insert(0, cloison.OWN)
    from session import Session
    return Session(pathlib.Path("/tmp/rapport"), pathlib.Path("/tmp/programme"), chosen).run()


if __name__ == "__main__":
    sys.exit(main())
