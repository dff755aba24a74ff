"""What an X display offers to a hand and an eye: windows, pictures, real keys and real mouse buttons."""
import ctypes
import time
import zlib

X = ctypes.CDLL("libX11.so.6")
XTST = ctypes.CDLL("libXtst.so.6")

WINDOW = ctypes.c_ulong
P = ctypes.POINTER
CLIENT_MESSAGE = 33
STRUCTURE = 1 << 17  # answers to pings come to those who listen to the screen itself
MANAGER = 1 << 19 | 1 << 20  # requests to the manager
Z_PIXMAP = 2
ALL_PLANES = ctypes.c_ulong(-1)
VIEWABLE = 2

LETTERS = "éèàçùôœ’«»€…–\u00a0ÉαЖ漢\u0301"  # given keys of their own: the keyboard lacks them
NAMES = {" ": "space", "*": "asterisk", "?": "question", "'": "apostrophe", '"': "quotedbl", ",": "comma",
         ".": "period", "-": "minus", "/": "slash", "(": "parenleft", ")": "parenright", "&": "ampersand",
         "<": "less", ">": "greater", "%": "percent", "_": "underscore", ":": "colon", "\\": "backslash",
         "{": "braceleft", "}": "braceright", "|": "bar", "=": "equal"}
MODIFIERS = {"ctrl": "Control_L", "alt": "Alt_L", "shift": "Shift_L"}


class Attributes(ctypes.Structure):
    _fields_ = [("x", ctypes.c_int), ("y", ctypes.c_int), ("width", ctypes.c_int), ("height", ctypes.c_int),
                ("border", ctypes.c_int), ("depth", ctypes.c_int), ("visual", ctypes.c_void_p), ("root", WINDOW),
                ("klass", ctypes.c_int), ("bit_gravity", ctypes.c_int), ("win_gravity", ctypes.c_int),
                ("backing", ctypes.c_int), ("planes", ctypes.c_ulong), ("pixel", ctypes.c_ulong),
                ("save_under", ctypes.c_int), ("colormap", ctypes.c_ulong), ("map_installed", ctypes.c_int),
                ("map_state", ctypes.c_int), ("all_events", ctypes.c_long), ("your_events", ctypes.c_long),
                ("no_propagate", ctypes.c_long), ("override_redirect", ctypes.c_int), ("screen", ctypes.c_void_p)]


class Image(ctypes.Structure):
    """The beginning of the library's own structure."""
    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int), ("xoffset", ctypes.c_int),
                ("format", ctypes.c_int), ("data", ctypes.c_void_p), ("byte_order", ctypes.c_int),
                ("unit", ctypes.c_int), ("bit_order", ctypes.c_int), ("pad", ctypes.c_int), ("depth", ctypes.c_int),
                ("bytes_per_line", ctypes.c_int)]


class ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", WINDOW), ("message_type", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5)]


class Event(ctypes.Union):
    _fields_ = [("type", ctypes.c_int), ("client", ClientMessage), ("pad", ctypes.c_long * 24)]


HANDLER = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)
GONE = HANDLER(lambda display, error: 0)  # a window may go while it is looked at

X.XOpenDisplay.restype = ctypes.c_void_p
X.XGetImage.restype = P(Image)
X.XInternAtom.restype = ctypes.c_ulong
X.XDefaultRootWindow.restype = WINDOW
X.XStringToKeysym.restype = ctypes.c_ulong
X.XKeycodeToKeysym.restype = ctypes.c_ulong


class Rect:
    def __init__(self, x, y, width, height):
        self.x, self.y, self.width, self.height = x, y, width, height

    def cut(self, other):
        x, y = max(self.x, other.x), max(self.y, other.y)
        return Rect(x, y, min(self.x + self.width, other.x + other.width) - x,
                    min(self.y + self.height, other.y + other.height) - y)


class Screen:
    def __init__(self, name):
        self.display = ctypes.c_void_p(X.XOpenDisplay(name.encode()))
        if not self.display:
            raise RuntimeError(f"no display {name}")
        X.XSetErrorHandler(GONE)
        self.root = WINDOW(X.XDefaultRootWindow(self.display))
        X.XSelectInput(self.display, self.root, ctypes.c_long(STRUCTURE))
        whole = self.attributes(self.root)
        self.area = Rect(0, 0, whole.width, whole.height)
        self.serial = 0
        self.codes = {}
        self.learn_letters()

    def learn_letters(self):
        least, most, per_code = (ctypes.c_int() for _ in range(3))
        X.XDisplayKeycodes(self.display, ctypes.byref(least), ctypes.byref(most))
        free = [code for code in range(least.value, most.value + 1)
                if not X.XKeycodeToKeysym(self.display, ctypes.c_ubyte(code), 0)]
        for letter, code in zip(LETTERS, free):
            value = ord(letter)
            keysym = (ctypes.c_ulong * 1)(value if value < 0x100 else 0x01000000 + value)
            X.XChangeKeyboardMapping(self.display, code, 1, keysym, 1)
            self.codes[letter] = (code, False)
        X.XSync(self.display, 0)

    def atom(self, name):
        return X.XInternAtom(self.display, name.encode(), 0)

    # --- what is there

    def attributes(self, window):
        found = Attributes()
        known = X.XGetWindowAttributes(self.display, WINDOW(getattr(window, "value", window)), ctypes.byref(found))
        return found if known else None

    def property(self, window, name):
        """The raw value of a property: numbers of 32 bits as a list, else bytes; empty when it lacks."""
        kind, length, rest = ctypes.c_ulong(), ctypes.c_ulong(), ctypes.c_ulong()
        form = ctypes.c_int()
        data = ctypes.c_void_p()
        X.XGetWindowProperty(self.display, WINDOW(getattr(window, "value", window)), ctypes.c_ulong(self.atom(name)),
                             ctypes.c_long(0), ctypes.c_long(4096), 0, ctypes.c_ulong(0), ctypes.byref(kind),
                             ctypes.byref(form), ctypes.byref(length), ctypes.byref(rest), ctypes.byref(data))
        if not data:
            return []
        try:
            if form.value == 32:
                return list(ctypes.cast(data, P(ctypes.c_ulong))[:length.value])
            return ctypes.string_at(data, length.value * form.value // 8)
        finally:
            X.XFree(data)

    def title(self, window):
        return bytes(self.property(window, "_NET_WM_NAME")).decode("utf-8", "replace")

    def is_of(self, window, kind):
        return self.atom("_NET_WM_WINDOW_TYPE_" + kind) in self.property(window, "_NET_WM_WINDOW_TYPE")

    def clients(self):
        """The program's windows that the manager keeps, the last one on top."""
        return self.property(self.root, "_NET_CLIENT_LIST_STACKING")

    def active(self):
        """The manager goes on naming a box that has gone while its window was put away."""
        found = self.property(self.root, "_NET_ACTIVE_WINDOW")
        return found[0] if found and found[0] in self.clients() else 0

    def popups(self):
        """Menus and other windows that the manager does not keep, the topmost first."""
        parent, root, count = WINDOW(), WINDOW(), ctypes.c_uint()
        children = P(WINDOW)()
        X.XQueryTree(self.display, self.root, ctypes.byref(root), ctypes.byref(parent), ctypes.byref(children),
                     ctypes.byref(count))
        windows = list(children[:count.value]) if count.value else []
        if children:
            X.XFree(children)
        return [w for w in reversed(windows) if self.is_popup(w)]

    def is_popup(self, window):
        seen = self.attributes(window)
        return bool(seen and seen.override_redirect and seen.map_state == VIEWABLE and seen.width > 8 and
                    self.property(window, "_NET_WM_PID"))

    def place(self, window):
        """Where a window's content lies on the screen; None when it cannot be seen."""
        seen = self.attributes(window)
        if not seen or seen.map_state != VIEWABLE:
            return None
        x, y, child = ctypes.c_int(), ctypes.c_int(), WINDOW()
        X.XTranslateCoordinates(self.display, WINDOW(window), self.root, 0, 0, ctypes.byref(x), ctypes.byref(y),
                                ctypes.byref(child))
        return Rect(x.value, y.value, seen.width, seen.height)

    def dots(self, rect):
        """Four bytes for each dot (blue, green, red, nothing), row by row; nothing outside the screen."""
        part = rect.cut(self.area)
        if part.width <= 0 or part.height <= 0:
            return b""
        image = X.XGetImage(self.display, self.root, part.x, part.y, part.width, part.height, ALL_PLANES, Z_PIXMAP)
        if not image:
            return b""
        data = ctypes.string_at(image.contents.data, image.contents.bytes_per_line * part.height)
        X.XDestroyImage(image)
        return data

    def keep(self, data, path):
        """Keeps the dots of a whole screen as a picture (PNG)."""
        width, height = self.area.width, self.area.height
        rows = bytearray()
        for y in range(height):
            row = data[y * width * 4:(y + 1) * width * 4]
            line = bytearray(width * 3)
            line[0::3], line[1::3], line[2::3] = row[2::4], row[1::4], row[0::4]
            rows += b"\0" + line

        def chunk(kind, content):
            body = kind + content
            return len(content).to_bytes(4, "big") + body + zlib.crc32(body).to_bytes(4, "big")

        head = width.to_bytes(4, "big") + height.to_bytes(4, "big") + bytes([8, 2, 0, 0, 0])
        with open(path, "wb") as file:
            file.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(b"IDAT", zlib.compress(bytes(rows), 6)) +
                       chunk(b"IEND", b""))

    # --- what is done

    def move(self, x, y):
        XTST.XTestFakeMotionEvent(self.display, -1, int(x), int(y), ctypes.c_ulong(0))
        X.XFlush(self.display)

    def button(self, number, down):
        XTST.XTestFakeButtonEvent(self.display, int(number), int(down), ctypes.c_ulong(0))
        X.XFlush(self.display)

    def code(self, name):
        """(key code, with shift) of a key's or letter's name; None when no key bears it."""
        if name not in self.codes:
            keysym = X.XStringToKeysym(NAMES.get(name, name).encode())
            code = X.XKeysymToKeycode(self.display, ctypes.c_ulong(keysym))
            plain = code and X.XKeycodeToKeysym(self.display, ctypes.c_ubyte(code), 0) == keysym
            self.codes[name] = (code, not plain) if code else None
        return self.codes[name]

    def key(self, combination):
        """A key with its modifiers: "ctrl+shift+Tab", "a", "é"."""
        *modifiers, name = combination.split("+") if len(combination) > 1 else [combination]
        found = self.code(name)
        if not found:
            return
        held = [self.code(MODIFIERS[m])[0] for m in modifiers]
        if found[1] and "shift" not in modifiers:
            held.append(self.code("Shift_L")[0])
        for code in held:
            XTST.XTestFakeKeyEvent(self.display, code, 1, ctypes.c_ulong(0))
        XTST.XTestFakeKeyEvent(self.display, found[0], 1, ctypes.c_ulong(0))
        XTST.XTestFakeKeyEvent(self.display, found[0], 0, ctypes.c_ulong(0))
        for code in reversed(held):
            XTST.XTestFakeKeyEvent(self.display, code, 0, ctypes.c_ulong(0))
        X.XFlush(self.display)

    def send(self, window, kind, *data, to_root=True):
        event = Event()
        event.client.type = CLIENT_MESSAGE
        event.client.window = window
        event.client.message_type = self.atom(kind)
        event.client.format = 32
        for i, value in enumerate(data):
            event.client.data[i] = value
        target = self.root if to_root else WINDOW(window)
        X.XSendEvent(self.display, target, 0, ctypes.c_long(MANAGER if to_root else 0), ctypes.byref(event))
        X.XFlush(self.display)

    def resize(self, window, rect):
        X.XMoveResizeWindow(self.display, WINDOW(window), rect.x, rect.y, max(1, rect.width), max(1, rect.height))
        X.XFlush(self.display)

    def iconify(self, window):
        X.XIconifyWindow(self.display, WINDOW(window), 0)
        X.XFlush(self.display)

    def activate(self, window):
        self.send(window, "_NET_ACTIVE_WINDOW", 2, 0, 0)

    def maximise(self, window, add):
        self.send(window, "_NET_WM_STATE", int(add), self.atom("_NET_WM_STATE_MAXIMIZED_VERT"),
                  self.atom("_NET_WM_STATE_MAXIMIZED_HORZ"), 2)

    def close(self, window):
        self.send(window, "_NET_CLOSE_WINDOW", 0, 2)

    def ping(self, window):
        """Asks a window whether its program is at work; answered() tells when it has said so."""
        self.serial += 1
        self.send(window, "WM_PROTOCOLS", self.atom("_NET_WM_PING"), self.serial, window, to_root=False)
        return self.serial

    def answered(self, serial, seconds):
        """True once the program has worked through all that was sent to it before that ping or a later one."""
        end = time.monotonic() + seconds
        event = Event()
        kind, ping = self.atom("WM_PROTOCOLS"), self.atom("_NET_WM_PING")
        pause = 0.0005
        while True:
            while X.XPending(self.display):
                X.XNextEvent(self.display, ctypes.byref(event))
                told = event.client
                if event.type == CLIENT_MESSAGE and told.message_type == kind and told.data[0] == ping and \
                        told.data[1] >= serial:
                    return True
            if time.monotonic() > end:
                return False
            time.sleep(pause)
            pause = min(0.02, pause * 1.5)
