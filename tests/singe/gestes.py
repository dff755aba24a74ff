"""What the monkey does: gestures drawn at random from what stands on the screen.

A gesture is a list of plain deeds, so that it can be written down and done again. Places are not drawn from the air: a
click looks for ink, and for coloured ink first, as buttons, links and pictures have it.
"""
from ecran import Rect

WORDS = ["contrat", "bail", "consommateur", "garantie", "vente", "publicité", "clause abusive", "bail*", "cont*", "*",
         "a", "le la les", "délai rétractation", "directive", "CO000002", "JP3", "CO1", "1998", "01/02/1999",
         "31/12/2001", "99/99/9999", "12", "0", "-1", "999999999999", "é", "’", "«»", "漢α", "a\u0301", "<b>x</b>",
         "x" * 300, "((", "'", "%1 %2", "  ", "..", "essai.cv2", "/tmp/essai.cv2", "/tmp/essai.cv2", "/dev/null", "\\"]
PLAIN = ["Tab", "Tab", "Down", "Down", "Down", "Up", "Left", "Right", "Right", "Return", "Return", "space", "Home", "End",
         "Prior", "Next", "Next", "Escape", "BackSpace", "Delete", "Menu", "F1", "F3", "F5", "F6", "F10", "Insert", "plus",
         "asterisk", "minus", "a", "c", "l", "t"]
CHORDS = ["ctrl+Tab", "ctrl+shift+Tab", "ctrl+F6", "ctrl+F4", "ctrl+F4", "ctrl+w", "ctrl+f", "ctrl+a", "ctrl+c", "ctrl+v",
          "ctrl+x", "ctrl+z", "ctrl+Home", "ctrl+End", "ctrl+Next", "ctrl+Prior", "ctrl+p", "ctrl+s", "ctrl+plus",
          "ctrl+minus", "ctrl+0", "ctrl+q", "alt+Left", "alt+Left", "alt+Right", "alt+Down", "shift+Tab", "shift+Tab",
          "shift+Down", "shift+End", "shift+F10", "shift+F3", "ctrl+Down", "ctrl+Up", "ctrl+Return", "shift+Right",
          "ctrl+shift+End", "ctrl+Insert", "alt+minus", "alt+F4"]
MENUS = ["f", "e", "a", "o", "n", "d", "u", "i"]
COLOURED = 70  # so far apart are the parts of a colour that is no grey
PATCH = 40


def ink(screen, rect, rng):
    """A place in a part of the screen where something is drawn; any place when nothing is."""
    x, y = rect.x + rect.width // 2, rect.y + rect.height // 2
    for _ in range(6):
        x, y = rect.x + rng.randrange(max(1, rect.width)), rect.y + rng.randrange(max(1, rect.height))
        patch = Rect(x - PATCH // 2, y - PATCH // 2, PATCH, PATCH).cut(rect).cut(screen.area)
        dots = screen.dots(patch)
        if not dots:
            continue
        spots = {dots[i:i + 3]: i // 4 for i in range(0, len(dots), 4 * 3)}
        if len(spots) < 2:
            continue
        coloured = [c for c in spots if max(c) - min(c) > COLOURED]
        # The least common ones: what is written last is what was seen last.
        chosen = spots[rng.choice(sorted(coloured or spots))]
        return patch.x + chosen % patch.width, patch.y + chosen // patch.width
    return x, y


class Monkey:
    """Draws one gesture after the other. `quits` tells whether a box asks if the program is to end."""

    def __init__(self, screen, rng, quits):
        self.screen, self.rng, self.quits = screen, rng, quits
        self.box, self.inbox = 0, 0

    def gesture(self, frame):
        """(what it is called, its deeds) for what is in front now."""
        active = self.screen.active()
        popup = next((w for w in self.screen.popups() if not self.screen.is_of(w, "TOOLTIP")), 0)
        if popup:
            return self.among([(70, self.choose), (18, self.walk), (12, self.leave)], popup)
        if active and active != frame:
            return self.answer(active)
        self.box, self.inbox = 0, 0
        if not self.screen.place(frame):
            return "back", [("back",)]
        return self.among([(27, self.click), (12, self.twice), (5, self.right), (7, self.drag), (6, self.wheel),
                           (6, self.plain), (6, self.chord), (4, self.menu), (6, self.write), (8, self.bars),
                           (8, self.dive), (3, self.open), (2, self.shape)], frame)

    def among(self, choices, window):
        deed = self.rng.choices([c[1] for c in choices], [c[0] for c in choices])[0]
        place = self.screen.place(window)
        if not place:
            return "nothing", []
        return deed.__name__, deed(place)

    def answer(self, box):
        """A window of its own wants something; nobody stays in it for ever."""
        self.inbox = self.inbox + 1 if box == self.box else 1
        self.box = box
        if self.inbox > 60:
            return "close", [("key", "Escape"), ("pause", 50), ("close",)]
        if self.inbox > 40 or (self.quits(self.screen.title(box)) and self.rng.random() < 0.8):
            return "escape", [("key", "Escape")]
        return self.among([(46, self.click), (8, self.twice), (2, self.right), (4, self.drag), (4, self.wheel),
                           (14, self.plain), (4, self.chord), (8, self.write), (5, self.escape), (4, self.agree),
                           (1, self.shape)], box)

    # --- with the hand

    def at(self, place, button, times=1):
        x, y = ink(self.screen, place, self.rng)
        deeds = [("move", x, y)]
        for _ in range(times):
            deeds += [("down", button), ("up", button)]
        return deeds

    def click(self, place):
        return self.at(place, 1)

    def bars(self, place):
        """Along one of the four edges, where bars stand."""
        broad, high, deep = place.width, place.height, min(120, place.width // 2, place.height // 2)
        edges = [Rect(place.x, place.y, broad, deep), Rect(place.x, place.y, deep // 2, high),
                 Rect(place.x + broad - deep // 2, place.y, deep // 2, high),
                 Rect(place.x, place.y + high - deep // 2, broad, deep // 2)]
        return self.at(self.rng.choices(edges, [3, 2, 1, 1])[0], 1)

    def choose(self, place):
        return self.at(place, 1)

    def twice(self, place):
        return self.at(place, 1, self.rng.choice([2, 2, 2, 2, 3]))

    def right(self, place):
        return self.at(place, 3)

    def wheel(self, place):
        x, y = ink(self.screen, place, self.rng)
        deeds = [("move", x, y)]
        for _ in range(self.rng.randrange(1, 12)):
            way = self.rng.choice([4, 5, 5, 5])
            deeds += [("down", way), ("up", way)]
        return deeds

    def drag(self, place):
        x, y = ink(self.screen, place, self.rng)
        reach = self.rng.choice([8, 60, 400])
        dx, dy = self.rng.randint(-reach, reach), self.rng.randint(-reach, reach)
        steps = self.rng.randrange(2, 8)
        deeds = [("move", x, y), ("down", 1)]
        for step in range(1, steps + 1):
            deeds += [("move", x + dx * step // steps, y + dy * step // steps), ("pause", self.rng.choice([0, 0, 10]))]
        if self.rng.random() < 0.1:
            deeds.append(("key", "Escape"))
        return deeds + [("up", 1)]

    # --- with the keys

    def plain(self, _place):
        return [("key", self.rng.choice(PLAIN)) for _ in range(self.rng.randrange(1, 6))]

    def chord(self, _place):
        return [("key", self.rng.choice(CHORDS))]

    def menu(self, _place):
        return [("key", "alt+" + self.rng.choice(MENUS)), ("pause", 30)] + \
            [("key", "Down")] * self.rng.randrange(0, 12) + [("key", self.rng.choice(["Return", "Right", "Escape"]))]

    def dive(self, place):
        """Into a tree or a list by keys: whatever has rows to open is opened far down."""
        deeds = self.at(Rect(place.x, place.y, place.width, place.height), 1)
        for _ in range(self.rng.randrange(2, 7)):
            deeds += [("key", "Right")] + [("key", "Down")] * self.rng.randrange(1, 4)
        return deeds + [("key", "Return")]

    def open(self, _place):
        """A window of documents, by the end of the view menu, where they all stand."""
        return [("key", "alt+a"), ("pause", 30)] + [("key", "Up")] * self.rng.randrange(1, 15) + [("key", "Return")]

    def walk(self, _place):
        return [("key", self.rng.choice(["Down", "Down", "Up", "Right", "Left", "Return", "Escape", "End"]))
                for _ in range(self.rng.randrange(1, 5))]

    def leave(self, _place):
        return [("key", "Escape")]

    def escape(self, _place):
        return [("key", "Escape")]

    def agree(self, _place):
        return [("key", "Return")]

    def write(self, _place):
        deeds = [("key", "ctrl+a")] if self.rng.random() < 0.5 else []
        deeds.append(("text", self.rng.choice(WORDS)))
        return deeds + ([("key", "Return")] if self.rng.random() < 0.7 else [])

    # --- with the manager

    def shape(self, place):
        what = self.rng.randrange(6)
        if what == 0:
            return [("iconify",), ("pause", 100), ("back",)]
        if what == 1:
            return [("maximise", self.rng.randrange(2))]
        if what == 2:
            return [("size", place.x, place.y, self.rng.randrange(100, 1280), self.rng.randrange(60, 900))
                    for _ in range(self.rng.randrange(1, 6))]
        x, y = self.rng.randrange(0, 500), self.rng.randrange(20, 300)
        return [("size", x, y, self.rng.randrange(300, 1280 - x), self.rng.randrange(200, 900 - y))]
