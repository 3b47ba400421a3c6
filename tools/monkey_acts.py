# SPDX-License-Identifier: GPL-3.0-or-later
"""The acts of tools/monkey, and what must be true of the program and its files whatever they were."""
import hashlib
import random
import re
import signal
import string
import subprocess
import time

from monkey_screen import DISPLAY_SIZE, PATIENCE_SECONDS, Failure

MAIN_WINDOW = "Kelvor"
PAGE = "<HTML>\r\n<BODY>\r\n<P>one two <A HREF=\"two.htm\">three</A></P>\r\n<IMG SRC=\"Four.gif\">\r\n</BODY>\r\n</HTML>\r\n"
MENUS = "feivtoamwh"
TEXT_KEYS = ["Return", "BackSpace", "Delete", "Tab", "Home", "End", "Up", "Down", "Left", "Right", "Prior", "Next",
             "shift+Left", "shift+Right", "shift+End", "ctrl+Left", "ctrl+shift+Right", "ctrl+Home", "ctrl+End"]
# Those that write no file, and those that may.
CHORDS = ["ctrl+b", "ctrl+i", "ctrl+u", "ctrl+z", "ctrl+c", "ctrl+v", "ctrl+x", "ctrl+a", "ctrl+shift+p", "ctrl+shift+k",
          "ctrl+shift+a", "ctrl+shift+n", "ctrl+shift+l", "ctrl+f", "ctrl+r", "ctrl+n", "ctrl+Tab", "shift+F4", "shift+F5"]
WRITING_CHORDS = ["ctrl+s", "ctrl+shift+s", "ctrl+shift+d", "ctrl+q", "ctrl+w", "ctrl+F4", "alt+F4", "F2", "F3", "F4",
                  "F5", "F6", "ctrl+p"]
# Between two keys of a quick double act, in milliseconds; the library's buttons take a tenth of a second.
QUICK = (1, 10, 40, 90)
# For coming to rest, however many questions come up on the way.
REST_SECONDS = 3 * PATIENCE_SECONDS
LOGGED = re.compile(r"^\w+, \d+ \w+ \d{4} (\d+) (.*)$", re.MULTILINE)
# File not found, no access to it, no such folder: what names typed at random lead to, told in boxes of their own.
NAME_ERRORS = {"53", "75", "76"}
# What these say of a number field that holds no number, a lone point for one: an Application Error, and no fault.
NUMBER_DIALOGS = ("Table Wizard", "Image Assistant")
NO_NUMBER = ("13", "Type mismatch: \"")


class Monkey:
    """One run. Its acts come from the seed alone; the program's speed decides where they land."""

    def __init__(self, screen, seed):
        self.screen = screen
        self.seed = seed
        self.random = random.Random(seed)
        self.count = 0
        self.log = []
        self.proofs = []
        self.ending = ""
        self.home = screen.work / "home"
        for name in ("one.htm", "two.htm", "notes.txt", "sub/three.htm", "never/opened.htm"):
            file = self.home / name
            file.parent.mkdir(exist_ok=True)
            file.write_bytes(PAGE.encode() + bytes(range(128, 256)))

    # The run.

    def act_until(self, end):
        self.open("one.htm")
        while time.monotonic() < end and self.runs():
            self.harmless_round() if self.random.random() < 0.4 else self.free_round()

    def runs(self):
        self.screen.check_alive()
        return self.screen.editor.poll() is None

    def harmless_round(self):
        """Acts that may not write: afterwards each file is what it was."""
        self.come_to_rest()
        before = self.files()
        for _ in range(self.random.randint(3, 10)):
            self.pick([self.type, self.text_keys, self.chord, self.open_and_leave, self.quick_find])()
        if self.runs():
            self.come_to_rest()
        changed = {name for name, content in self.files().items() if before.get(name) != content}
        if changed or before.keys() - self.files().keys():
            raise Failure(f"files changed without being saved: {sorted(changed) or 'one has gone'}")

    def free_round(self):
        """Anything. It ends with a page that is typed and saved: that file holds what was typed."""
        for _ in range(self.random.randint(5, 30)):
            if not self.runs():
                return
            self.pick([self.type, self.text_keys, self.chord, self.writing_chord, self.menu, self.menu, self.click, self.click,
                       self.dialog_keys, self.dialog_keys, self.quick_pair, self.quick_pair, self.window, self.open_some])()
        self.come_to_rest()
        if self.runs():
            self.prove()

    def finish(self, ending):
        """Ends the program from outside, whatever is open, and sees it go."""
        self.ending = "ended by itself"
        if not self.runs():
            return
        for act in self.random.choices([self.menu, self.dialog_keys, self.quick_pair, self.open_some], k=3):
            act()
        if not self.runs():
            return
        self.ending = f"ended by {ending}"
        self.note(ending)
        if ending == "display gone":
            self.screen.display.kill()
            try:
                code = self.screen.editor.wait(PATIENCE_SECONDS)
            except subprocess.TimeoutExpired:
                raise Failure("without its display the program did not end") from None
            if code != 1:
                raise Failure(f"without its display the program ended by {self.screen.outcome()}")
            return
        self.screen.editor.send_signal(signal.Signals[ending])
        self.screen.wait(f"{ending} did not end the program", self.gone_without_saving)

    def gone_without_saving(self):
        """Answers the save questions of the exit with No."""
        if self.screen.editor.poll() is not None:
            return True
        self.watch()
        self.screen.press("key", "alt+n")
        return False

    # What must be true.

    def files(self):
        """Name -> digest, of all that the user has."""
        return {str(path.relative_to(self.home)): hashlib.sha256(path.read_bytes()).hexdigest()
                for path in sorted(self.home.rglob("*")) if path.is_file()}

    def watch(self):
        may_err = any(self.screen.is_shown(title) for title in NUMBER_DIALOGS)
        if self.screen.is_shown("Application Error") and not may_err:
            raise Failure("an Application Error is shown")
        log = self.screen.work / "program" / "errorlog.txt"
        text = log.read_text("utf-8", "replace") if log.exists() else ""
        for number, description in LOGGED.findall(text):
            is_no_number = number == NO_NUMBER[0] and description.startswith(NO_NUMBER[1])
            if number not in NAME_ERRORS and not is_no_number:
                raise Failure("the error log says: " + text)

    def come_to_rest(self):
        """Closes what is open, until the main window hears a command."""
        self.ask_for_file()
        self.screen.wait("the file dialog does not close", self.at_rest)

    def ask_for_file(self):
        self.screen.wait("the program does not come to rest", self.hears_command, REST_SECONDS)

    def hears_command(self):
        """Whether Ctrl+O, given at rest, asks for a file. A window that came up late, such as a question, keeps the key
        from the main window; it is no failure, but what is closed next."""
        self.screen.wait("the program hears no keys", self.at_rest)
        if not self.runs():
            return True
        self.press("key", "ctrl+o")
        self.screen.wait("the main window hears no Ctrl+O", self.has_left_rest)
        return self.asked_for_file()

    def has_left_rest(self):
        return not self.runs() or self.screen.front() not in ("", self.screen.frame)

    def asked_for_file(self):
        return not self.runs() or self.screen.title().startswith("Open HTML file")

    def at_rest(self):
        if not self.runs():
            return True
        self.watch()
        # By its number: message boxes have the main window's title.
        front = self.screen.front()
        if front == self.screen.frame:
            self.screen.press("key", "--delay", 10, "Escape", "Escape", "Escape")
            return self.screen.front() == front
        self.count += 1
        if not front:
            self.screen.press("windowactivate", self.screen.frame)
        # Escape does not leave a field that is just being edited, and not every run.
        self.screen.press("key", "--delay", 20, *self.pick([["Escape"], ["Escape"], ["Escape", "Escape"], ["alt+y"]]))
        time.sleep(0.1)
        return False

    def prove(self):
        """A page of its own, opened, typed and saved."""
        name = f"proof{len(self.proofs)}.htm"
        text = "".join(self.random.choices(string.ascii_lowercase + " ", k=30)) + "."
        (self.home / name).write_bytes(b"<P>")
        self.open(name)
        self.press("key", "--delay", 10, "ctrl+a")
        self.press("type", "--delay", 5, text)
        self.press("key", "ctrl+s")
        self.screen.wait(f"{name} does not hold what was typed: {text}",
                         lambda: (self.home / name).read_bytes() == text.encode())
        self.proofs.append(name)

    # Acts.

    def pick(self, choices):
        return self.random.choice(choices)

    def note(self, act):
        self.count += 1
        self.log.append(act)

    def press(self, *words):
        self.note(" ".join(map(str, words)))
        self.screen.press(*words)

    def open(self, name):
        """Opens a file by its path."""
        self.ask_for_file()
        if not self.runs():
            return
        self.press("type", "--delay", 5, self.home / name)
        self.press("key", "Return")
        self.screen.wait(f"{name} does not come to the front", lambda: self.is_in_front(name))

    def is_in_front(self, name):
        title = self.screen.title()
        if title != MAIN_WINDOW:
            return title.endswith(f"{name}]")
        # A frame whose windows are not maximised does not tell which is in front.
        time.sleep(0.5)
        return self.screen.title() == title

    def type(self):
        self.press("type", "--delay", 5, "".join(self.random.choices("abc <>/=\"&.", k=self.random.randint(1, 12))))

    def text_keys(self):
        self.press("key", "--delay", 5, *self.random.choices(TEXT_KEYS, k=self.random.randint(1, 8)))

    def chord(self):
        self.press("key", self.pick(CHORDS))

    def writing_chord(self):
        self.press("key", self.pick(WRITING_CHORDS))

    def open_and_leave(self):
        self.press("key", "--delay", self.pick(QUICK), self.pick(["ctrl+o", "ctrl+f", "ctrl+r"]), "Escape")

    def quick_find(self):
        """A search for what is not there, closed while its message comes."""
        self.press("key", "ctrl+f")
        self.press("type", "--delay", 5, "zqx")
        self.press("key", "--delay", self.pick(QUICK), *self.pick([["alt+c", "Return"], ["alt+f", "Escape"],
                                                                   ["Return", "alt+c"], ["alt+f", "alt+c"]]))

    def menu(self):
        steps = self.random.choices(["Down", "Down", "Down", "Up", "Right", "Left"], k=self.random.randint(0, 14))
        self.press("key", "--delay", 10, "alt+" + self.pick(MENUS), *steps, self.pick(["Return", "Return", "Escape"]))

    def click(self):
        """Somewhere in the window with the keyboard; its tool bars, tabs and title more often."""
        width, height = self.size()
        place = self.random.randrange(width), self.random.randrange(-20, self.pick([height, min(height, 150)]))
        press = self.pick([("click", 1), ("click", 1), ("click", 3), ("click", "--repeat", 2, "--delay", 30, 1),
                           ("click", 5), ("mousedown", 1, "mousemove_relative", 60, 25, "mouseup", 1)])
        window = self.screen.press("getactivewindow")
        if window:
            self.press("mousemove", "--window", window, *place, *press)

    def size(self):
        words = self.screen.press("getactivewindow", "getwindowgeometry", "--shell")
        values = dict(line.split("=") for line in words.splitlines() if "=" in line)
        return max(int(values.get("WIDTH", DISPLAY_SIZE[0])), 1), max(int(values.get("HEIGHT", DISPLAY_SIZE[1])), 1)

    def dialog_keys(self):
        letters = ["alt+" + letter for letter in string.ascii_lowercase]
        keys = ["Tab", "Tab", "shift+Tab", "space", "Return", "Down", "Up", "Home", "End", "Escape", *letters]
        self.press("key", "--delay", self.pick(QUICK), *self.random.choices(keys, k=self.random.randint(1, 6)))

    def quick_pair(self):
        first = "alt+" + self.pick(string.ascii_lowercase)
        second = self.pick(["Return", "Escape", "space", first, "alt+c", "alt+F4", "alt+" + self.pick(string.ascii_lowercase)])
        self.press("key", "--delay", self.pick(QUICK), first, second)

    def window(self):
        act = self.pick([("windowminimize",), ("windowsize", 700, 400), ("windowsize", 1024, 740), ("windowmove", 30, 40)])
        window = self.screen.press("getactivewindow")
        if window:
            self.press(act[0], window, *act[1:])

    def open_some(self):
        """Opens one or several by the dialog, wherever the keyboard is."""
        names = self.random.sample(["one.htm", "two.htm", "notes.txt", "sub/three.htm"], k=self.pick([1, 1, 2, 3]))
        self.press("key", "ctrl+o")
        time.sleep(0.3)
        self.press("type", "--delay", 5, " ".join(f'"{self.home / name}"' for name in names))
        self.press("key", "Return")

    def report(self, failure):
        print(f"\nFailed at seed {self.seed} after {self.count} acts: {failure}")
        print("The last acts:", *self.log[-25:], sep="\n  ")
        picture = f"monkey-{self.seed}.png"
        if self.screen.picture(picture):
            print("The screen at that moment:", picture)
        print("The editor said:", *(self.screen.work / "log").read_text("utf-8", "replace").splitlines()[-15:], sep="\n  ")
