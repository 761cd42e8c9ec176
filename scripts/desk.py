"""A private virtual display with a window manager and the workbench on it, worked as a person works it: by pointer and
keys. Where things are on the screen is read from the UI map that the program keeps (BRINDLE_UI_MAP)."""
import os
import shutil
import subprocess
import tempfile
import time

SELECT, ADJUST, MENU = 1, 2, 3


class Thing:
    """A line of the UI map: its kind, its fields by name, and its box on the screen."""

    FIELDS = {
        "frame": ["id", "owner", "title", "footer", "state", "x", "y", "w", "h"],
        "text": ["frame", "text"],
        "item": ["frame", "kind", "label", "value", "state", "x", "y", "w", "h"],
        "row": ["frame", "list", "text", "state", "x", "y", "w", "h"],
        "node": ["frame", "path", "category", "tag", "word", "state", "x", "y", "w", "h"],
    }

    def __init__(self, line):
        self.line, *values = line.split("\t")
        for name, value in zip(self.FIELDS.get(self.line, []), values):
            setattr(self, name, int(value) if name in "xywh" else value)

    def middle(self):
        return self.x + self.w // 2, self.y + self.h // 2


class Desk:
    """Starts the display and the program; ends both when the `with` block is left."""

    def __init__(self, program, arguments, size="1280x1024", directory=None, environment=None):
        self.work = tempfile.mkdtemp()
        self.processes = []
        self.map = os.path.join(self.work, "map")
        self.command, self.size, self.directory = [program, *arguments], size, directory
        bare = {"QT_QPA_PLATFORM": "xcb", "QT_QPA_PLATFORMTHEME": "", "QT_STYLE_OVERRIDE": "", "QT_SCALE_FACTOR": "",
                "XDG_CURRENT_DESKTOP": "", "XDG_CONFIG_HOME": self.work, "XDG_STATE_HOME": self.work}
        self.environment = os.environ | bare | {"BRINDLE_UI_MAP": self.map, "LC_ALL": "C.UTF-8"} | (environment or {})

    def __enter__(self):
        try:
            self.environment["DISPLAY"] = ":" + self._display(self.size)
            self._start(["openbox"])
            self._wait_for_window_manager()
            self.program = self._start(self.command, cwd=self.directory)
            self.wait_for(lambda: self.items("Edit "), "the main window")
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            process.terminate()
            process.wait()
        shutil.rmtree(self.work)

    def _display(self, size):
        read, write = os.pipe()
        server = ["Xvfb", "-displayfd", str(write), "-screen", "0", size + "x24", "-wr"]
        self.processes.append(subprocess.Popen(server, pass_fds=[write], stderr=subprocess.DEVNULL))
        os.close(write)
        with os.fdopen(read) as numbers:
            return numbers.readline().strip()

    def _start(self, command, cwd=None):
        quiet = subprocess.DEVNULL if command[0] == "openbox" else None
        process = subprocess.Popen(command, env=self.environment, cwd=cwd, stdout=quiet, stderr=quiet)
        self.processes.append(process)
        return process

    def _wait_for_window_manager(self):
        ask = ["xdotool", "get_desktop"]
        self.wait_for(lambda: subprocess.run(ask, env=self.environment, capture_output=True).returncode == 0,
                      "the window manager")

    # What is on the screen.

    def things(self, kind):
        """All lines of that kind of the newest map, topmost window last."""
        try:
            with open(self.map, encoding="utf-8", errors="replace") as lines:
                found = [Thing(line.rstrip("\n")) for line in lines]
        except FileNotFoundError:
            return []
        return [thing for thing in found if thing.line == kind]

    def frames(self, title):
        return [f for f in self.things("frame") if f.title == title]

    def items(self, label, title=None):
        """The items whose label begins so, in frames of that title if one is given: an equal label first, then the
        topmost window's."""
        titles = {f.id: f.title for f in self.things("frame")}
        order = list(titles)
        found = [i for i in self.things("item")
                 if i.label.startswith(label) and (title is None or titles.get(i.frame) == title)]
        return sorted(found, key=lambda i: (i.label != label, -order.index(i.frame)))

    def serial(self):
        try:
            with open(self.map, encoding="utf-8", errors="replace") as lines:
                return int(lines.readline().split("\t")[1])
        except (FileNotFoundError, IndexError, ValueError):
            return 0

    def wait_for(self, condition, what, seconds=20):
        """The first true value of the condition."""
        deadline = time.monotonic() + seconds
        while time.monotonic() < deadline:
            value = condition()
            if value:
                return value
            time.sleep(0.02)
        raise SystemExit("Waited in vain for " + what)

    def settle(self):
        """Waits until the map has stayed the same for a moment."""
        serial, since = self.serial(), time.monotonic()
        while time.monotonic() - since < 0.25:
            time.sleep(0.02)
            if self.serial() != serial:
                serial, since = self.serial(), time.monotonic()

    # What a person does.

    def xdotool(self, *words):
        subprocess.run(["xdotool", *map(str, words)], env=self.environment, check=True)

    def click_at(self, place, button=SELECT, modifier=None):
        self.xdotool("mousemove", *place)
        held = ["keydown", modifier] if modifier else []
        freed = ["keyup", modifier] if modifier else []
        self.xdotool(*held, "click", button, *freed)
        self.settle()

    def click(self, label, title=None):
        """Presses the button, menu entry, check box ... with that label."""
        item = self.wait_for(lambda: self.items(label, title), repr(label))[0]
        self.click_at(item.middle())

    def menu(self, place, *entries):
        """Opens the menu at the place and goes through its entries, the last one chosen."""
        self.click_at(place, MENU)
        for entry in entries:
            found = self.wait_for(lambda: [i for i in self.items(entry) if i.kind == "menuentry"], entry)
            self.click_at(found[0].middle())

    def node(self, path, title=None):
        """The node's place in the topmost window of that title that shows it."""
        titles = {f.id: f.title for f in self.things("frame")}
        fits = lambda: [n for n in self.things("node")
                        if n.path == path and (title is None or titles[n.frame] == title)]
        return self.wait_for(fits, "node " + path)[-1]

    def key(self, *keys):
        self.xdotool("key", *keys)
        self.settle()

    def type(self, text):
        self.xdotool("type", "--delay", 8, text)
        self.settle()

    def choose(self, label, entry, title=None):
        """Takes an entry of a choice item."""
        self.click(label, title)
        found = self.wait_for(lambda: [i for i in self.items(entry) if i.kind == "menuentry"], entry)
        self.click_at(found[0].middle())

    def fill(self, label, text, title=None):
        """Replaces the text of a field."""
        item = self.wait_for(lambda: self.items(label, title), repr(label))[0]
        self.click_at((item.x + item.w - 12, item.y + item.h // 2))
        self.key("ctrl+a", "Delete")
        self.type(text)

    def _window(self, title):
        search = ["xdotool", "search", "--onlyvisible", "--name", "^" + title + "$"]
        found = subprocess.run(search, env=self.environment, capture_output=True, text=True).stdout.split()
        return found[-1] if found else ""

    def borders(self, title):
        """What the window manager puts around the frame: left, right, top, bottom."""
        window = self._window(title)
        ask = ["xprop", "-id", window, "_NET_FRAME_EXTENTS"]
        told = subprocess.run(ask, env=self.environment, capture_output=True, text=True).stdout if window else ""
        numbers = told.partition("=")[2].split(",")
        return [int(n) for n in numbers] if len(numbers) == 4 else [0, 0, 0, 0]

    def move(self, title, x, y):
        """Puts the frame's window there on the screen."""
        self.xdotool("windowmove", "--sync", self._window(title), x, y)
        self.settle()

    def resize(self, title, width, height):
        self.xdotool("windowsize", self._window(title), width, height)
        self.settle()

    # Pictures.

    def picture(self, path, boxes=None):
        """Saves the screen, or what encloses the boxes (x, y, w, h), with a palette of 64 colours."""
        crop = []
        if boxes:
            left, top = min(b[0] for b in boxes), min(b[1] for b in boxes)
            right, bottom = max(b[0] + b[2] for b in boxes), max(b[1] + b[3] for b in boxes)
            left, top = max(left, 0), max(top, 0)
            crop = ["-crop", f"{right - left}x{bottom - top}+{left}+{top}", "+repage"]
        reduce = ["-strip", "+dither", "-colors", "64", "-define", "png:compression-level=9", "PNG8:" + path]
        subprocess.run(["import", "-window", "root", *crop, *reduce], env=self.environment, check=True)
