#!/usr/bin/env python3
"""Measures a program's start on a screen of its own: from exec to the first paint of its main window, and its memory then.

    bench/demarrage.py [--rounds N] [--data FOLDER] [--argument WORD] [PROGRAM...]

The screen's memory is a mapped file (Xvfb -fbdir), so nothing has to be asked of the display server: the first paint is the
moment when more than 20 % of the dots differ from the empty screen. Programs take turns within a round; the figures are
medians. Without names, the reader of build/bin and the readers installed beside it are measured.
"""
import argparse
import mmap
import os
import pathlib
import shutil
import statistics
import subprocess
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
PEERS = ["zeal", "goldendict", "kiwix-desktop", "okular"]
WIDTH, HEIGHT = 1280, 860
STEP = 997  # one of so many pixels is looked at
PAINTED = 0.2  # of the dots: more than any splash, less than any main window


class Screen:
    """A virtual display with a window manager and its picture in memory."""

    def __enter__(self):
        self.folder = tempfile.TemporaryDirectory()
        read, write = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", f"{WIDTH}x{HEIGHT}x24", "-fbdir", self.folder.name,
             "-nolisten", "tcp", "-noreset"], pass_fds=[write], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(write)
        number = b""
        while not number.endswith(b"\n"):
            number += os.read(read, 16)
        os.close(read)
        self.environment = dict(os.environ, DISPLAY=f":{int(number)}", QT_QPA_PLATFORM="xcb",
                                XDG_RUNTIME_DIR=self.folder.name, XDG_CONFIG_HOME=self.folder.name + "/config",
                                XDG_DATA_HOME=self.folder.name + "/data")
        self.environment.pop("WAYLAND_DISPLAY", None)
        # Peers that show web pages don't start as root with their sandbox.
        self.environment.setdefault("QTWEBENGINE_DISABLE_SANDBOX", "1")
        self.manager = subprocess.Popen(["openbox"], env=self.environment, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)
        time.sleep(1.0)
        self.file = open(self.folder.name + "/Xvfb_screen0", "rb")
        self.memory = mmap.mmap(self.file.fileno(), 0, prot=mmap.PROT_READ)
        self.start = len(self.memory) - WIDTH * HEIGHT * 4
        return self

    def __exit__(self, *_):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()
        self.memory.close()
        self.file.close()
        self.folder.cleanup()

    def dots(self):
        return [self.memory[at:at + 3] for at in range(self.start, len(self.memory) - 4, 4 * STEP)]


def resident(pid):
    """Megabytes of a process, or None when it is gone."""
    try:
        text = pathlib.Path(f"/proc/{pid}/status").read_text()
    except OSError:
        return None
    return next((int(line.split()[1]) / 1024 for line in text.splitlines() if line.startswith("VmRSS")), None)


def measure(screen, command):
    """(milliseconds to the first paint, megabytes two seconds later), or None."""
    empty = screen.dots()
    began = time.perf_counter()
    program = subprocess.Popen(command, env=screen.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    painted = None
    while time.perf_counter() - began < 20 and program.poll() is None:
        now = screen.dots()
        if sum(a != b for a, b in zip(empty, now)) > PAINTED * len(empty):
            painted = 1000 * (time.perf_counter() - began)
            break
        time.sleep(0.0005)
    time.sleep(2)
    memory = resident(program.pid)
    program.kill()
    program.wait()
    for _ in range(100):
        if screen.dots() == empty:
            break
        time.sleep(0.05)
    return (painted, memory) if painted and memory else None


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("programs", nargs="*")
    parser.add_argument("--rounds", type=int, default=7)
    parser.add_argument("--data", help="portable folder with the reader and the collection to open")
    parser.add_argument("--argument", action="append", default=[], help="given to the reader, e.g. a document's key")
    options = parser.parse_args()
    folder = pathlib.Path(options.data or ROOT / "build" / "bin")
    commands = {"velm2000": [folder / "velm2000", *options.argument]}
    for name in options.programs or PEERS:
        if shutil.which(name):
            commands[name] = [name]
    results = {name: [] for name in commands}
    with Screen() as screen:
        for turn in range(options.rounds + 1):
            for name, command in commands.items():
                result = measure(screen, command)
                if result and turn:  # the first turn warms the caches
                    results[name].append(result)
    print(f"{'program':<16}{'first paint, ms':>18}{'resident, MB':>16}{'rounds':>8}")
    for name, rows in results.items():
        if rows:
            print(f"{name:<16}{statistics.median(r[0] for r in rows):>18.0f}"
                  f"{statistics.median(r[1] for r in rows):>16.1f}{len(rows):>8}")
        else:
            print(f"{name:<16}{'no window came':>18}")


if __name__ == "__main__":
    main()
