# SPDX-License-Identifier: GPL-3.0-or-later
"""A virtual display that can be looked at, with an editor on it that can be killed and started again."""
import mmap
import os
import pathlib
import re
import shutil
import signal
import struct
import subprocess
import time

from monkey_screen import DATA, PATIENCE_SECONDS, XDOTOOL, Failure, Screen, confine, linked_libraries

# The editor's status bar, at the bottom of its main window, in pixels.
STRIP_HEIGHT = 22
# For how long it must look the same until nothing of it is still being drawn.
SETTLED_SECONDS = 0.004
UNSAVED = "Unsaved Texts"


class Framebuffer:
    """What is on the screen, in the file where the display keeps it: big-endian words about it, then the pixels."""

    def __init__(self, file):
        with file.open("rb") as opened:
            self.bytes = mmap.mmap(opened.fileno(), 0, prot=mmap.PROT_READ)
        words = struct.unpack(">25I", self.bytes[:100])
        header_size, self.row_size, color_count = words[0], words[12], words[19]
        self.pixel_size = words[11] // 8
        self.begin = header_size + 12 * color_count

    def area(self, left, top, width, height):
        begins = (self.begin + row * self.row_size + left * self.pixel_size for row in range(top, top + height))
        return b"".join(self.bytes[begin:begin + width * self.pixel_size] for begin in begins)


def journals_left(reader, state, texts):
    """What read_journals finds in a state directory: of each journal its kind, the document's name, the text and why there
    is none.
    @param texts  a directory that is made anew"""
    shutil.rmtree(texts, ignore_errors=True)
    texts.mkdir()
    said = subprocess.run([reader, texts], env=os.environ | {"XDG_STATE_HOME": str(state)}, text=True,
                          capture_output=True, check=True).stdout
    for line in said.splitlines():
        kind, file, path, cause = line.split("\t")
        yield kind, pathlib.Path(path).name, (texts / file).read_bytes(), cause


class StormScreen(Screen):
    def begin(self):
        self.make_stand_ins()
        self.place = self.work / "program"
        shutil.copytree(DATA, self.place)
        shutil.copy(self.program, self.place / "kelvor")
        self.libraries = linked_libraries(self.program)
        self.start_display()

    def start_display(self):
        buffers = self.work / "screen"
        shutil.rmtree(buffers, ignore_errors=True)
        buffers.mkdir()
        super().start_display("-fbdir", str(buffers))
        self.buffer = Framebuffer(buffers / "Xvfb_screen0")
        self.keys = self.start([XDOTOOL, "-"], stdin=subprocess.PIPE)

    def start_editor(self, state):
        """@param state  its state directory"""
        self.environment["XDG_STATE_HOME"] = str(state)
        self.editor = self.start([self.place / "kelvor"], cwd=self.work / "home",
                                 preexec_fn=lambda: confine(str(self.work), self.libraries))
        self.wait("no window appeared", self.title)
        if self.title() == "First time user":
            self.press("key", "Return")
        self.wait("the main window did not appear", lambda: self.title() == UNSAVED or self.title().startswith("Kelvor"))

    def find_status_bar(self):
        frame = self.front()
        width, height = map(int, self.press("getwindowgeometry", frame).split()[-1].split("x"))
        # Where a window is in which another one holds it, the pointer knows best. Then it gets out of the way.
        said = self.press("mousemove", "--window", frame, 0, height - STRIP_HEIGHT, "getmouselocation")
        left, top = map(int, re.findall(r"\b[xy]:(\d+)", said))
        self.press("mousemove", 0, 0)
        self.strip = left, top, width, STRIP_HEIGHT

    # Documents.

    def front_name(self):
        """The name of the document in front; "" while none is."""
        name = re.search(r"\[(.*)\]$", self.title())
        return pathlib.Path(name[1]).name if name else ""

    def open(self, paths):
        self.press("key", "ctrl+o")
        self.wait("Ctrl+O did not ask for a file", lambda: self.title().startswith("Open HTML file"))
        self.press("type", "--delay", 5, " ".join(f'"{path}"' for path in paths))
        self.press("key", "Return")
        self.wait("the files did not open", lambda: self.front_name() == paths[-1].name)

    def new_document(self):
        """One of the default template; its name."""
        self.press("key", "ctrl+n")
        self.wait("Ctrl+N did not show the templates", lambda: self.title() == "Templates")
        self.press("key", "Home", "Return")
        self.wait("no document came of the template", lambda: self.front_name().startswith("Untitled"))
        return self.front_name()

    def next_document(self):
        before = self.front_name()
        # On the same way as the keys before it, which it must not overtake.
        self.send("ctrl+w")
        self.wait("Ctrl+W did not bring another document", lambda: self.front_name() not in ("", before))

    def save_document(self, untitled_path):
        """Saves the one in front, one without a file under that path; where it is now."""
        name = self.front_name()
        if not name.startswith("Untitled"):
            path = self.work / "home" / name
            before = path.stat().st_mtime_ns
            self.press("key", "ctrl+s")
            self.wait(f"{name} was not saved", lambda: path.stat().st_mtime_ns != before)
            return path
        self.press("key", "ctrl+s")
        self.wait("a name is not asked for", lambda: self.title() == "Save HTML file as")
        self.press("key", "ctrl+a")
        self.press("type", "--delay", 5, untitled_path)
        self.press("key", "Return")
        self.wait(f"{name} was not saved", lambda: self.front_name() == untitled_path.name)
        return untitled_path

    # Keys that are seen.

    def send(self, key):
        """Has a key pressed, without waiting."""
        self.keys.stdin.write(f"key --delay 0 {key}\n".encode())
        self.keys.stdin.flush()

    def look(self):
        """The status bar, when nothing of it is being drawn."""
        seen = self.buffer.area(*self.strip)
        while True:
            time.sleep(SETTLED_SECONDS)
            again = self.buffer.area(*self.strip)
            if again == seen:
                return seen
            seen = again

    def wait_for_another(self, seen, otherwise):
        end = time.monotonic() + PATIENCE_SECONDS
        while self.buffer.area(*self.strip) == seen:
            if time.monotonic() > end:
                raise Failure(otherwise)
            time.sleep(0.001)
            self.check_alive()

    # Ends.

    def kill_editor(self):
        self.editor.kill()
        self.editor.wait()
        self.editor = None

    def end_display(self):
        """Takes the display away, which ends the editor."""
        self.display.kill()
        self.display.wait()
        try:
            self.editor.wait(PATIENCE_SECONDS)
        except subprocess.TimeoutExpired:
            raise Failure("without its display the program did not end") from None
        self.editor = None

    def end_editor(self):
        self.editor.send_signal(signal.SIGTERM)
        try:
            code = self.editor.wait(PATIENCE_SECONDS)
        except subprocess.TimeoutExpired:
            raise Failure("SIGTERM did not end the program") from None
        if code != 0:
            raise Failure(f"SIGTERM ended the program by {self.outcome()}")
        self.editor = None
