"""One trial from its start to its balance."""
import ast
import collections
import pathlib
import random
import re
import time
import zlib

from cloison import Display, lend_processes
from ecran import Rect, Screen
from gestes import Monkey
from programme import Fault, Program

MEMORY_ALLOWED = 60  # megabytes above the start, with all windows closed
BETWEEN_BALANCES = 240  # seconds
LAST = 50  # gestures that a report shows
QUIT_CAPTION = 116  # of the language file: the entry that ends the program captions its question, too
FAILURE_CAPTION, LIMIT = 9400, 9405  # of the language file: a run-time error, and the reason of one that is told
LIMIT_HEIGHT = 200  # dots; the box of no other reason is as high
MOST_WINDOWS = 500
CLOSED = 8  # rounds in which nothing closes any more; windows of one document in one place look the same,
IDLE = 4    # and those out of sight are told by the hundredths of a second that closing them takes
ARGUMENTS = [[], [], [], ["CO000002"], ["JP3"], ["XX9"], ["/tmp/essai.cv2"]]


def caption(folder, number):
    lines = (folder / "langues" / "RES2000.FR").read_bytes().decode("cp1252").splitlines()
    return next((line.split("=", 1)[1].replace("&", "").strip(" .…") for line in lines
                 if line.startswith(f"{number}=")), "")


def lengthen_limit(folder):
    """The program ends by itself at the twenty-first word, as it is meant to, and says why in a box that any failure
    has. A reason of many lines in the program's copy makes a box that can be told from the others by its height."""
    for file in (folder / "langues").glob("RES2000.*"):
        file.write_bytes(file.read_bytes().replace(b"\n%d=" % LIMIT, b"\n%d=" % LIMIT + b"limite " * 120))


class Session:
    def __init__(self, report, folder, chosen):
        self.report, self.chosen = report, chosen
        self.display = Display()
        self.screen = Screen(self.display.name)
        self.await_manager()
        self.rng = random.Random(chosen.seed)
        self.checked = b"__asan_init" in (folder / "velm2000").read_bytes()
        if self.checked:
            lend_processes()
        self.program = Program(self.screen, folder / "velm2000", self.display.surroundings(), report,
                               300 if self.checked else 120)
        lengthen_limit(folder)
        self.failure = caption(folder, FAILURE_CAPTION)
        question = caption(folder, QUIT_CAPTION)
        self.monkey = Monkey(self.screen, self.rng, lambda title: title.startswith(question))
        self.deeds = open(report / "actions.txt", "w", buffering=1)
        self.last = collections.deque(maxlen=LAST)
        self.count, self.began = 0, time.monotonic()
        self.titles, self.pictures, self.kinds = collections.Counter(), set(), collections.Counter()
        self.named, self.sought = set(), set()
        self.memory = []  # megabytes with all windows closed, the start first
        self.before = b""

    def run(self):
        print(f"seed {self.chosen.seed}", flush=True)
        fault = None
        try:
            self.begin()
            self.replay() if self.chosen.replay else self.play()
            self.balance()
            self.check_memory()
        except Fault as what:
            fault = what
        self.tell(fault)
        self.program.end()
        self.display.close()
        return 1 if fault else 0

    def await_manager(self):
        """A window that is shown before the manager stands may never be mapped."""
        end = time.monotonic() + 60
        while not self.screen.property(self.screen.root, "_NET_SUPPORTING_WM_CHECK"):
            if time.monotonic() > end:
                raise SystemExit("the window manager did not start")
            time.sleep(0.05)

    # --- the trial

    def begin(self):
        settings = pathlib.Path(self.display.surroundings()["XDG_CONFIG_HOME"]) / "VELMORANTE2000"
        settings.mkdir(parents=True, exist_ok=True)
        self.settings = settings / "VELMORANTE2000.ini"
        self.start([])
        self.close_all()
        self.memory.append(self.program.resident())

    def play(self):
        end = self.began + 60 * self.chosen.minutes
        balance = self.began + BETWEEN_BALANCES
        while time.monotonic() < end:
            if not self.program.running():
                self.read_settings()
                self.do("start", [("start", *self.rng.choice(ARGUMENTS))])
            elif time.monotonic() > balance:
                self.balance()
                self.check_memory()
                balance = time.monotonic() + BETWEEN_BALANCES
            else:
                self.look()
                self.do(*self.monkey.gesture(self.program.frame()))

    def replay(self):
        """At the pace of the first time: some faults come only with it."""
        for line in (self.report / "rejoue.txt").read_text().splitlines():
            _, name, moment, deeds = line.split("\t")
            time.sleep(max(0.0, float(moment.split()[0]) - (time.monotonic() - self.began)))
            self.watch_limit()
            if name == "start" or self.program.running():
                self.do(name, ast.literal_eval(deeds))

    def look(self):
        """Notes what stands there."""
        self.titles[self.screen.title(self.screen.active())] += 1
        self.watch_limit()
        self.before = self.screen.dots(self.screen.area)
        self.pictures.add(zlib.crc32(self.before[::1009]))

    def watch_limit(self):
        box = self.screen.active()
        place = self.screen.place(box)
        if place and place.height > LIMIT_HEIGHT and self.screen.title(box) == self.failure:
            self.program.mean_to_end()

    def do(self, name, deeds):
        self.count += 1
        self.kinds[name] += 1
        window = self.screen.title(self.screen.active())[:40]
        line = f"{self.count}\t{name}\t{time.monotonic() - self.began:.2f} {window}\t{deeds}"
        print(line, file=self.deeds)
        self.last.append(line)
        for deed in deeds:
            self.deed(*deed)
        if not self.chosen.replay and self.rng.random() < 0.15:
            time.sleep(self.rng.choice([0.02, 0.1, 0.1, 0.6]))
        self.program.settle()
        self.program.check_words()

    def deed(self, what, *words):
        window = self.screen.active() or self.program.frame()
        if what == "pause":
            time.sleep(words[0] / 1000)
        elif what == "text":
            for letter in words[0]:
                self.screen.key(letter)
        elif what == "start":
            self.start(list(words))
        elif what in ("down", "up"):
            self.screen.button(words[0], what == "down")
        elif what == "size":
            self.screen.resize(window, Rect(*words))
        elif what == "maximise":
            self.screen.maximise(window, *words)
        elif what == "back":
            for put_away in (w for w in self.screen.clients() if not self.screen.place(w)):
                self.screen.activate(put_away)
        elif what == "iconify":
            self.screen.iconify(window)
        elif what == "close":
            self.screen.close(window)
        elif what == "move":
            self.screen.move(*words)
        elif what == "key":
            self.screen.key(*words)

    def start(self, arguments):
        self.program.start(arguments)
        self.program.settle()

    # --- the balance

    def close_all(self):
        """Answers what asks and closes all windows but the main one, so that the memory can be compared."""
        self.close_boxes()
        self.program.rest()
        rounds = collections.deque(maxlen=CLOSED)
        for _ in range(MOST_WINDOWS):
            # A window that is only hidden when it closes (the search form) may stay in front. One that lay behind
            # others is seen only between the two chords.
            work, now = self.program.work(), []
            for chord in ("ctrl+Tab", "ctrl+F4"):
                self.screen.key(chord)
                self.program.settle()
                now.append(zlib.crc32(self.screen.dots(self.screen.area)))
            rounds.append((work, now))
            alike = all(round[1] == now for round in rounds)
            if len(rounds) == CLOSED and alike and self.program.work() - rounds[0][0] <= IDLE:
                break
        # The tip of a start comes when all else stands, and may have come only now.
        self.close_boxes()
        self.program.rest()

    def close_boxes(self):
        """Every window that the program has beside its frame; one that did not get the keys is given them."""
        for _ in range(20):
            self.deed("back")
            frame = self.program.frame()
            others = [window for window in self.screen.clients() if window != frame]
            if not self.program.running() or not others and not self.screen.popups():
                break
            if others and self.screen.active() == frame:
                self.screen.activate(others[-1])
            self.screen.key("Escape")
            self.program.settle()
            time.sleep(0.1)

    def balance(self):
        if not self.program.running():
            return
        self.watch_limit()
        self.do("balance", [])
        self.close_all()
        if self.program.running():
            self.memory.append(self.program.resident())
            self.screen.keep(self.screen.dots(self.screen.area), self.report / f"bilan-{len(self.memory) - 1}.png")
            self.leave()

    def leave(self):
        """Ends the program as a user does, and reads what it has kept."""
        end = time.monotonic() + self.program.patience
        while self.program.running():
            if time.monotonic() > end:
                raise Fault("the program cannot be left")
            # What stands in front of the frame has the keys: first it is answered, then the command is given.
            self.screen.key("ctrl+q" if self.screen.active() == self.program.frame() else "Return")
            time.sleep(0.2)
        self.program.check_words()
        self.read_settings()

    def check_memory(self):
        grown = max(self.memory) - self.memory[0]
        if not self.checked and grown > MEMORY_ALLOWED:
            raise Fault(f"the program has grown by {grown:.0f} MB")

    def read_settings(self):
        """Which documents the program has had open and what was searched with it, as far as it keeps that."""
        try:
            text = self.settings.read_bytes().decode("utf-8", "replace")
        except OSError:
            return
        self.named |= set(re.findall(r"\b[A-Z]{2}\d{6}\b", text))

    # --- the report

    def tell(self, fault):
        seconds = time.monotonic() - self.began
        if fault:
            self.screen.keep(self.screen.dots(self.screen.area), self.report / "ecran.png")
            self.screen.keep(self.before, self.report / "avant.png")
            print(f"FAULT after {seconds:.0f} s: {fault}")
            print(self.program.said.read_text("utf-8", "replace")[-8000:])
            print(f"--- the last {len(self.last)} gestures")
            print("\n".join(self.last))
        calls = self.report / "appels"
        outside = len(calls.read_text("utf-8", "replace").splitlines()) if calls.exists() else 0
        print(f"{self.count} gestures in {seconds:.0f} s, seed {self.chosen.seed}; {self.program.runs} runs, "
              f"{self.program.ends_meant} ended at a limit; "
              f"{len(self.titles)} captions; {len(self.pictures)} pictures; "
              f"{len(self.named)} documents named in the settings; "
              f"{outside} calls to the outside")
        print("memory with all windows closed, MB: " + " ".join(f"{m:.0f}" for m in self.memory))
        print("captions: " + ", ".join(f"{title[:50] or '(none)'} {n}" for title, n in self.titles.most_common(40)))
        print("gestures: " + ", ".join(f"{kind} {n}" for kind, n in self.kinds.most_common()))
