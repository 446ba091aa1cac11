"""A user who works the built program by real keys and pointer, and reads it through the
accessibility tree. Needs a display with a window manager, and its own session bus."""

import os
import subprocess
import time
import warnings
from pathlib import Path
from xml.etree import ElementTree
from xml.sax.saxutils import escape

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib

warnings.simplefilter("ignore", DeprecationWarning)  # Debian's library and its binding disagree

PATIENCE = 60  # seconds; only a failure takes that long
DIALOGS = ("dialog", "file chooser", "alert")
# `below` leaves out what is below these.
CLOSED = ("combo box", "table", "menu bar", "list", "tree", "spin button")
NOT_YET = (GLib.Error, AttributeError, IndexError, StopIteration, OSError,
           subprocess.CalledProcessError)
ACCESS_KEYS = {"Undo": "u", "Cut": "t", "Copy": "c", "Paste": "p", "Delete": "d", "Select All": "a"}


def wait_for(what, condition, patience=PATIENCE):
    """Asks until the answer is true, and returns it. A busy program may fail to answer."""
    deadline = time.monotonic() + patience
    while True:
        try:
            answer = condition()
        except NOT_YET:
            answer = None
        if answer:
            return answer
        assert time.monotonic() < deadline, f"never came: {what}"
        time.sleep(0.02)


def expect(seen, wanted):
    """Waits until `seen()` returns what is wanted."""
    last = [None]

    def matches():
        last[0] = seen()
        return last[0] == wanted
    try:
        wait_for(wanted, matches, PATIENCE / 4)
    except AssertionError:
        raise AssertionError(f"wanted {wanted!r}, saw {last[0]!r}") from None


def xdotool(*arguments):
    return subprocess.run(["xdotool", *map(str, arguments)], check=True, text=True,
                          stdout=subprocess.PIPE).stdout


def press(*keys):
    xdotool("key", *keys)


def write(text):
    xdotool("type", text)


def is_(state, node):
    return node.get_state_set().contains(getattr(Atspi.StateType, state))


def children(node):
    found = map(node.get_child_at_index, range(node.get_child_count()))
    return [child for child in found if child]


def below(node):
    """The nodes below a node, except below `CLOSED` ones. The topmost, added last, come first: a
    busy program answers only ten questions a second."""
    for index in reversed(range(node.get_child_count())):
        child = node.get_child_at_index(index)
        yield child
        if child.get_role_name() not in CLOSED:
            yield from below(child)


def place(node):
    area = node.get_extents(Atspi.CoordType.SCREEN)
    return area.x, area.y, area.width, area.height


def click(node):
    left, top, width, height = place(node)
    xdotool("mousemove", left + width // 2, top + height // 2, "click", 1)


class Person:
    """Works one process at a time, with its own home folder."""

    def __init__(self, program, home):
        self.program, self.home = program, home
        self.settings_file = home / "config/Skyvert/Preferences.xml"
        self.process = self.window = None  # those in use
        self.processes = []
        self.focuses = []  # sources of focus events
        self.listener = Atspi.EventListener.new(lambda event: self.focuses.append(event.source))
        self.listener.register("object:state-changed:focused")

    def has_stored(self, rows, **settings):
        """Writes the settings file of an earlier run: a list, and settings by their keys."""
        settings["nContents"] = len(rows)
        for number, (ra, dec) in enumerate(rows):
            settings |= {f"Contents.RA.{number}": ra, f"Contents.Dec.{number}": dec}
        self.settings_file.parent.mkdir(parents=True, exist_ok=True)
        with self.settings_file.open("w", encoding="utf-8") as file:
            file.write('<?xml version="1.0" encoding="UTF-8"?>\n<xmldict version="1.1">\n')
            for key, value in settings.items():
                kind = "integer" if isinstance(value, int) else "string"
                file.write(f"<key>{key}</key><{kind}>{escape(str(value))}</{kind}>\n")
            file.write("</xmldict>\n")

    def stored_rows(self):
        """The list in the settings file."""
        entries = list(ElementTree.parse(self.settings_file).getroot())
        stored = {key.text: value.text for key, value in zip(entries[::2], entries[1::2])}
        return [(stored[f"Contents.RA.{row}"], stored[f"Contents.Dec.{row}"])
                for row in range(int(stored["nContents"]))]

    def launches(self, locale="C.UTF-8"):
        kept = ("PATH", "DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR")
        environment = {name: os.environ[name] for name in kept}
        # Sometimes Qt leaks an event when the program ends.
        environment |= {"ASAN_OPTIONS": "detect_leaks=0", "HOME": str(self.home),
                        "XDG_CONFIG_HOME": str(self.home / "config"), "LC_ALL": locale,
                        "QT_QPA_PLATFORM": "xcb", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        with (self.home / "log").open("a", encoding="utf-8") as log:
            self.processes.append(subprocess.Popen(
                [self.program], cwd=self.home, env=environment, stdin=subprocess.DEVNULL,
                stdout=log, stderr=log))
        return self.processes[-1]

    def starts(self, rows, locale="C.UTF-8"):
        """Starts the program and waits until its stored rows, at least one, are restored. Until
        then the list is about to be replaced."""
        self.process = self.launches(locale)
        self.window = wait_for("the window", lambda: self.front("frame"))
        expect(self.row_count, rows)

    def front(self, *roles):
        """The program's active window if it has one of these roles, else None."""
        assert self.process.poll() is None, f"the program ended, code {self.process.returncode}"
        desktop = Atspi.get_desktop(0)
        desktop.set_cache_mask(Atspi.Cache.NONE)
        return next((window for program in children(desktop)
                     if program.get_process_id() == self.process.pid
                     for window in children(program)
                     if window.get_role_name() in roles and is_("ACTIVE", window)), None)

    def ends(self):
        """Quits by the keyboard."""
        press("ctrl+q")
        self.has_ended()

    def has_ended(self):
        code = self.process.wait(PATIENCE)
        assert code == 0, f"ended with code {code}"

    def leaves(self):
        """Kills whatever still runs."""
        self.listener.deregister("object:state-changed:focused")
        for process in self.processes:
            if process.poll() is None:
                process.kill()
                process.wait()

    def has_open(self, name):
        """Whether the program has a file with that name open."""
        return any(os.readlink(file).endswith("/" + name)
                   for file in Path(f"/proc/{self.process.pid}/fd").iterdir())

    def find(self, name, role=None):
        """The visible node whose name ends with `name`."""
        return wait_for(name, lambda: next(
            (node for node in below(self.window) if node.get_name().endswith(name)
             and role in (None, node.get_role_name()) and is_("SHOWING", node)), None))

    def heard_focus(self):
        """The source of the last focus event so far."""
        while GLib.MainContext.default().iteration(False):
            pass
        return self.focuses[-1] if self.focuses else None

    def minimises_window(self):
        xdotool("getactivewindow", "windowminimize")
        wait_for("no window in front", lambda: not self.front("frame"))

    def moves_window(self, left, top, height):
        width = place(self.window)[2]
        xdotool("getactivewindow", "windowmove", left, top, "windowsize", width, height)
        wait_for("the window's place", lambda: place(self.window)[3] == height)

    def clicks(self, name):
        click(self.find(name))

    def tabs_to(self, name):
        target = self.find(name)
        for _ in range(30):
            if is_("FOCUSED", target):
                return
            before = self.focused()
            press("Tab")
            wait_for("the next stop", lambda: self.focused() not in (None, before))
        raise AssertionError(f"no Tab stop: {name}")

    def focused(self):
        return next((node for node in below(self.window) if is_("FOCUSED", node)), None)

    def chooses(self, panel, popup, row):
        """Opens a popup, given its number in a panel, and chooses a row."""
        boxes = [node for node in below(self.find(panel, "panel"))
                 if node.get_role_name() == "combo box"]
        box = boxes[-1 - popup]
        rows = box.get_child_at_index(0)
        number = [item.get_name() for item in children(rows)].index(row)
        click(box)
        wait_for("the popup", lambda: is_("SHOWING", rows))
        press("Home", *["Down"] * number, "Return")
        self.sees_popups_go()

    def edits(self, item, by_mouse=False):
        """Chooses an item of the menu "Edit", by access keys or by mouse."""
        bar = next(node for node in children(self.window) if node.get_role_name() == "menu bar")
        menu = next(node for node in children(bar) if node.get_name() == "Edit")
        node = next(node for node in below(menu) if node.get_name() == item)
        if by_mouse:
            click(menu)
        else:
            xdotool("keydown", "alt")
            self.settles()
            xdotool("key", "e", "keyup", "alt")
        wait_for(f"the menu for {item}", lambda: is_("SHOWING", node))
        if by_mouse:
            click(node)
        else:
            press(ACCESS_KEYS[item])
        self.sees_popups_go()

    def settles(self):
        """Waits until a key has arrived. Qt acts on a key, unless it is a shortcut, only after the
        accessibility registry has seen it: a late Alt closes the menu that Alt+E has opened."""
        for node in (self.window, self.window, Atspi.get_desktop(0), self.window, self.window):
            node.get_child_count()

    def sees_popups_go(self):
        """Asks the display, since an open popup takes the keys, whatever the program reports."""
        wait_for("the window alone", lambda: len(xdotool(
            "search", "--onlyvisible", "--pid", self.process.pid).split()) == 1)

    def sees_dialog(self):
        wait_for("a dialog", lambda: self.front(*DIALOGS))

    def accepts_dialog(self):
        """Waits for a dialog, presses Return and waits for the window."""
        self.sees_dialog()
        press("Return")
        wait_for("the window in front again", lambda: self.front("frame"))

    def text(self, name):
        field = self.find(name)
        return Atspi.Text.get_text(field, 0, Atspi.Text.get_character_count(field))

    def table(self):
        return self.find("Coordinates", "table")

    def row_count(self):
        return Atspi.Table.get_n_rows(self.table())

    def row(self, number):
        table = self.table()
        return [Atspi.Table.get_accessible_at(table, number, column).get_name()
                for column in range(4)]

    def selected_rows(self):
        return list(Atspi.Table.get_selected_rows(self.table()))

    def headings(self):
        return [node.get_name() for node in children(self.table())[:8]
                if node.get_role_name() == "table column header"]
