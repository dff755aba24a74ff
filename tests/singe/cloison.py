"""A partition around a trial: no network, every disk read only, nothing of the user's in reach, and a display of its own.

What runs inside sees one place it can write to, /tmp, which lies in memory and goes with it; the report folder stands in
it as /tmp/rapport. It sees no process of outside, and finds no program by name but those that only note that they were
called. The program under trial has a root of its own besides, with libraries and fonts: a file dialog finds nothing
else to walk through.
"""
import ctypes
import os
import pathlib
import shutil
import subprocess
import sys

INSIDE = "--inside"
OWN = "/tmp/singe"  # this folder's place inside
ROOT = "/tmp/racine"  # what the program takes for the root
TOOLS = ["Xvfb", "openbox", "unshare", "mount"]
LIBRARIES = ["libX11.so.6", "libXtst.so.6"]
SHARED = ["usr", "lib", "lib32", "lib64", "bin", "etc", "var/cache/fontconfig"]
DEVICES = ["null", "zero", "random", "urandom"]
HERE = pathlib.Path(__file__).resolve().parent
# Programs that a desktop would be asked to start.
OTHERS = ["xdg-open", "xdg-email", "xdg-mime", "xdg-settings", "x-www-browser", "www-browser", "sensible-browser",
          "firefox", "chromium", "google-chrome", "kde-open", "gio", "gvfs-open", "hardinfo", "kinfocenter",
          "update-desktop-database", "update-mime-database"]
NOTE = """#!/bin/sh
printf '%s\\n' "${0##*/} $*" >>/tmp/rapport/appels
"""


def missing():
    """Why no partition can stand here; empty when one can."""
    lacking = [tool for tool in TOOLS if not shutil.which(tool)]
    if lacking:
        return f"{', '.join(lacking)} not installed"
    for library in LIBRARIES:
        try:
            ctypes.CDLL(library)
        except OSError:
            return f"{library} not installed"
    trial = subprocess.run([*partition(), "true"], capture_output=True, text=True)
    return "" if trial.returncode == 0 else f"no partition can be made here ({trial.stderr.strip()})"


def partition():
    command = ["unshare", "--mount", "--net", "--ipc", "--pid", "--fork", "--kill-child", "--mount-proc"]
    return command if os.geteuid() == 0 else [*command, "--map-root-user"]


def enter(arguments, report, folder):
    """Runs this very script inside; its status."""
    inside = [sys.executable, "-B", str(HERE / "singe.py"), INSIDE, str(report), str(folder), *arguments]
    return subprocess.run([*partition(), *inside]).returncode


def mount(*words):
    return subprocess.run(["mount", *words], capture_output=True).returncode == 0


def settle(report, folder):
    """To be called inside: makes /tmp the only place that can be written to, with the program's folder in it."""
    ground = pathlib.Path(folder).parent / "sol"
    ground.mkdir()
    if not mount("-t", "tmpfs", "-o", "size=1g,mode=755", "tmpfs", str(ground)):
        raise SystemExit("the partition has no ground")
    for name in ("rapport", "maison", "tmp", "outils", "singe", "racine"):
        (ground / name).mkdir()
    (ground / "run").mkdir(mode=0o700)
    shutil.copytree(folder, ground / "programme")
    shutil.copy(HERE.parent / "e2e" / "fuites.supp", ground / "singe")
    shutil.copy(HERE.parent / "fuzz" / "graines" / "cv2" / "complet", ground / "essai.cv2")
    for script in HERE.glob("*"):
        if script.is_file():
            shutil.copy(script, ground / "singe")
    for name in OTHERS:
        tool = ground / "outils" / name
        tool.write_text(NOTE)
        tool.chmod(0o755)
    kept = [str(ground), str(ground / "rapport")]
    if not mount("--bind", str(report), kept[1]):
        raise SystemExit("the partition has no place for its report")
    close_all(kept)
    if not mount("--rbind", str(ground), "/tmp"):
        raise SystemExit("the partition cannot be closed")
    os.chdir("/tmp")
    lay_root()
    leaks = [place for place in ("/", "/var/tmp", str(pathlib.Path.home()), str(HERE)) if writable(place)]
    if leaks:
        raise SystemExit(f"the partition is open: {', '.join(leaks)} can be written to")


def lay_root():
    """What the program needs of the machine, read only as it is by now."""
    root = pathlib.Path(ROOT)
    for name in SHARED:
        there, here = pathlib.Path("/") / name, root / name
        if there.is_symlink():
            here.symlink_to(os.readlink(there))
        elif there.is_dir():
            here.mkdir(parents=True)
            mount("--bind", str(there), str(here))
    (root / "dev").mkdir()
    for name in DEVICES:
        (root / "dev" / name).touch()
        mount("--bind", f"/dev/{name}", str(root / "dev" / name))
    (root / "tmp").mkdir()
    mount("--bind", "/tmp", str(root / "tmp"))
    mount("--bind", "/tmp/rapport", str(root / "tmp" / "rapport"))


def lend_processes():
    """A program with sanitizers reads the map of its own memory."""
    place = pathlib.Path(ROOT) / "proc"
    place.mkdir()
    if not mount("-t", "proc", "-o", "subset=pid", "proc", str(place)):
        mount("-t", "proc", "proc", str(place))


def close_all(but):
    for line in pathlib.Path("/proc/self/mountinfo").read_text().splitlines():
        words = line.split()
        place, options = words[4].encode().decode("unicode_escape"), words[5].split(",")
        if place not in but:
            mount("-o", ",".join(["remount", "bind", *("ro" if o == "rw" else o for o in options)]), place)


def writable(place):
    trial = pathlib.Path(place) / ".cloison"
    try:
        trial.touch()
        trial.unlink()
        return True
    except OSError:
        return False


class Display:
    """A display with a window manager, and the surroundings of a program on it."""

    def __init__(self, size="1280x900"):
        read, write = os.pipe()
        quiet = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
        self.server = subprocess.Popen([shutil.which("Xvfb"), "-displayfd", str(write), "-screen", "0", f"{size}x24",
                                        "-dpi", "96", "-nolisten", "tcp", "-noreset"], pass_fds=[write], **quiet)
        os.close(write)
        number = b""
        while not number.endswith(b"\n"):
            part = os.read(read, 16)
            if not part:
                raise SystemExit("the display did not start")
            number += part
        os.close(read)
        self.name = f":{int(number)}"
        self.manager = subprocess.Popen([shutil.which("openbox"), "--config-file", f"{OWN}/openbox.xml"],
                                        env=self.surroundings(), **quiet)

    def surroundings(self):
        home = "/tmp/maison"
        return {"DISPLAY": self.name, "HOME": home, "PATH": "/tmp/outils", "TMPDIR": "/tmp/tmp",
                "XDG_RUNTIME_DIR": "/tmp/run", "XDG_CONFIG_HOME": home + "/config", "XDG_DATA_HOME": home + "/data",
                "XDG_CACHE_HOME": home + "/cache", "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "xcb", "QT_FONT_DPI": "96",
                "QT_SCALE_FACTOR": "1", "NO_AT_BRIDGE": "1",
                "ASAN_OPTIONS": "halt_on_error=1:detect_leaks=1:abort_on_error=0",
                "UBSAN_OPTIONS": "halt_on_error=1:print_stacktrace=1",
                "LSAN_OPTIONS": f"suppressions={OWN}/fuites.supp:print_suppressions=0"}

    def close(self):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()
