#!/usr/bin/env python3
"""Makes a picture of every window in every state, and a page that shows them side by side.

    tests/vues/vues.py [--base FILE] [--binary FOLDER] [--into FOLDER] [--only WORD ...] [--jobs N]

One process for each combination of screen, scale, palette and language walks through the real program on a virtual
display of its own: 1366x768 at 100, 150 and 200 %, 1920x1080 at 100 and 200 %, light and dark, French and English.
--only keeps the combinations whose name holds all the words, such as "1366x768 150 dark FR". The pictures and
index.html go to build/eye. The status is 0 when every state was reached; 77 when a tool is missing.
"""
import argparse
import concurrent.futures
import itertools
import json
import os
import pathlib
import shutil
import subprocess
import sys
import time

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parents[1]
SCREENS = {"1366x768": (100, 150, 200), "1920x1080": (100, 200)}
PALETTES = ("light", "dark")
LOCALES = {"FR": "fr_FR.UTF-8", "EN": "en_GB.UTF-8"}
LONGEST = 240  # seconds for one walk
SKIPPED = 77


def combinations(words):
    for screen, scales in SCREENS.items():
        for scale, palette, language in itertools.product(scales, PALETTES, LOCALES):
            name = f"{screen}-{scale}-{palette}-{language}"
            if all(word in name.split("-") for word in words):
                yield name


def walk(name, chosen):
    """The name, the status, what was said, and the seconds of one walk."""
    screen, scale, palette, language = name.split("-")
    folder = chosen.into / name
    shutil.rmtree(folder, ignore_errors=True)
    command = [str(ROOT / "tests/e2e/lance.sh"), str(chosen.binary / "vues"), str(folder), "--language", language]
    if palette == "dark":
        command.append("--dark")
    if chosen.base:
        command += ["--base", str(chosen.base)]
    # The names of months are the system's.
    around = dict(os.environ, VELM_ECRAN=screen, VELM_ECHELLE=str(int(scale) / 100), LC_TIME=LOCALES[language])
    begun = time.monotonic()
    try:
        done = subprocess.run(command, env=around, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True,
                              timeout=LONGEST)
        return name, done.returncode, done.stderr, time.monotonic() - begun
    except subprocess.TimeoutExpired as late:
        said = late.stderr.decode(errors="replace") if late.stderr else ""
        return name, 1, said + f"no end after {LONGEST} s\n", time.monotonic() - begun


def page(into):
    """Writes the page over all pictures that the folder holds."""
    views = {}
    for picture in sorted(into.glob("*/*.png"), key=lambda path: path.stat().st_mtime_ns):
        views.setdefault(picture.stem, []).append(picture.parent.name)
    text = (HERE / "page.html").read_text(encoding="utf-8")
    (into / "index.html").write_text(text.replace("/*VIEWS*/{}", json.dumps(views)), encoding="utf-8")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--base", type=pathlib.Path, help="a base; the sample without it")
    parser.add_argument("--binary", type=pathlib.Path, default=ROOT / "build/bin")
    parser.add_argument("--into", type=pathlib.Path, default=ROOT / "build/eye")
    parser.add_argument("--only", nargs="*", default=[], metavar="WORD")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    chosen = parser.parse_args()
    chosen.into.mkdir(parents=True, exist_ok=True)
    status = 0
    with concurrent.futures.ThreadPoolExecutor(chosen.jobs) as pool:
        walks = [pool.submit(walk, name, chosen) for name in combinations(chosen.only)]
        for done in concurrent.futures.as_completed(walks):
            name, result, said, seconds = done.result()
            print(f"{name}: {len(list((chosen.into / name).glob('*.png')))} pictures in {seconds:.0f} s", flush=True)
            sys.stdout.write("".join(f"  {line}\n" for line in said.splitlines()))
            status = status or result
    page(chosen.into)
    print(chosen.into / "index.html")
    return status if status in (0, SKIPPED) else 1


if __name__ == "__main__":
    sys.exit(main())
