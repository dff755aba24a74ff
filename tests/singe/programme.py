"""The program under trial: its runs, what it says, what it takes."""
import os
import pathlib
import subprocess
import time

from cloison import ROOT

ENDED, FAILED = 0, 1
MEGABYTE = 1024


class Fault(Exception):
    """What must not happen has happened."""


def step_in():
    os.chroot(ROOT)
    os.chdir("/tmp")


class Program:
    def __init__(self, screen, executable, surroundings, report, patience):
        self.screen, self.executable, self.surroundings = screen, executable, surroundings
        self.said = pathlib.Path(report) / "erreurs.txt"
        self.said.write_bytes(b"")
        self.patience = patience  # seconds that an answer may take
        self.process = None
        self.runs, self.ends_meant = 0, 0
        self.since = 0.0
        self.meant_to_end = False  # it has said that it ends at one of its limits

    def start(self, arguments):
        with open(self.said, "ab") as errors:
            self.process = subprocess.Popen([str(self.executable), *arguments], env=self.surroundings,
                                            preexec_fn=step_in, stdin=subprocess.DEVNULL, stdout=errors,
                                            stderr=errors)
        self.runs += 1
        self.meant_to_end = False
        self.since = time.monotonic()
        end = self.since + self.patience
        while not self.frame():
            if time.monotonic() > end:
                raise Fault("the program does not show its window")
            if self.process.poll() is not None:
                self.check_end()
                return
            for window in self.screen.clients():
                # A box may have to be answered before the window can stand.
                if self.is_box(window) and time.monotonic() > self.since + 2:
                    self.screen.activate(window)
                    self.screen.key("Return")
            time.sleep(0.05)

    def mean_to_end(self):
        self.ends_meant += not self.meant_to_end
        self.meant_to_end = True

    def running(self):
        """False when it has ended as it may; an end that must not be is a fault."""
        if self.process.poll() is None:
            return True
        self.check_end()
        return False

    def check_end(self):
        status = self.process.poll()
        if status != (FAILED if self.meant_to_end else ENDED):
            how = f"signal {-status}" if status < 0 else f"status {status}"
            raise Fault(f"the program ended abnormally, with {how}")

    def check_words(self):
        if self.said.stat().st_size:
            raise Fault("the program wrote to its error output")

    def is_box(self, window):
        return bool(self.screen.property(window, "WM_TRANSIENT_FOR")) or self.screen.is_of(window, "DIALOG")

    def frame(self):
        """The main window, also while it is put away; 0 when there is none."""
        for window in self.screen.clients():
            if not self.is_box(window) and not self.screen.is_of(window, "SPLASH") and self.screen.title(window):
                return window
        return 0

    def settle(self):
        """Waits until all that was done has been taken in; a fault when the program does not answer any more."""
        window = self.frame()
        if not window or not self.running():
            return
        serial = self.screen.ping(window)
        end = time.monotonic() + self.patience
        while not self.screen.answered(serial, 2):
            self.screen.ping(window)  # a window that is only being made may not have heard the first
            # A window that has gone meanwhile has nothing to say.
            if not self.running() or self.frame() != window:
                return
            if time.monotonic() > end:
                raise Fault(f"the program has not answered for {self.patience} seconds")

    def work(self):
        """Ticks of the clock (hundredths of a second) that it has worked so far."""
        words = pathlib.Path(f"/proc/{self.process.pid}/stat").read_text().rpartition(")")[2].split()
        return int(words[11]) + int(words[12])

    def rest(self):
        """Waits until it has nothing to do any more."""
        end = time.monotonic() + self.patience
        before = self.work()
        while self.running():
            time.sleep(0.5)
            now = self.work()
            if now - before <= 2:
                return
            if time.monotonic() > end:
                raise Fault(f"the program does not come to rest within {self.patience} seconds")
            before = now

    def resident(self):
        text = pathlib.Path(f"/proc/{self.process.pid}/status").read_text()
        return next(int(line.split()[1]) / MEGABYTE for line in text.splitlines() if line.startswith("VmRSS"))

    def end(self):
        if self.process and self.process.poll() is None:
            self.process.kill()
            self.process.wait()
