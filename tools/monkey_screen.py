# SPDX-License-Identifier: GPL-3.0-or-later
"""A virtual display with a window manager, and the editor on it, confined to a directory that goes at the end."""
import ctypes
import os
import pathlib
import re
import shutil
import signal
import struct
import subprocess
import tempfile
import time

DATA = pathlib.Path(__file__).resolve().parent.parent / "data"
DISPLAY_SIZE = (1024, 768)
# How long a state may take to come, on a machine that has much else to do.
PATIENCE_SECONDS = 60
XDOTOOL = shutil.which("xdotool")

# Landlock, of linux/landlock.h: the calls, and the rights of its first version, which every later one knows.
CREATE_RULESET, ADD_RULE, RESTRICT_SELF = 444, 445, 446
EVERY_RIGHT = (1 << 13) - 1
EXECUTE, WRITE_FILE, READ_FILE, READ_DIR = 1, 2, 4, 8
NO_NEW_PRIVILEGES = 38  # of prctl
LIBRARY = ctypes.CDLL(None, use_errno=True)


class Failure(Exception):
    """What must not happen, in words."""


def allow(ruleset, place, rights):
    if not os.path.exists(place):
        return
    descriptor = os.open(place, os.O_PATH | os.O_CLOEXEC)
    if not os.path.isdir(place):
        rights &= EXECUTE | WRITE_FILE | READ_FILE
    rule = struct.pack("=Qi", rights, descriptor)
    if LIBRARY.syscall(ADD_RULE, ruleset, 1, rule, 0):
        raise OSError(ctypes.get_errno(), "a rule of the confinement", place)
    os.close(descriptor)


def linked_libraries(program):
    """The files of the libraries that the program is linked with; the project's own lie in the build tree."""
    said = subprocess.run(["ldd", program], text=True, capture_output=True, check=True).stdout
    return re.findall(r" => (/\S+) ", said)


def confine(work, libraries):
    """Lets this process and what it starts read the system and `libraries` and list folders, and nothing else outside
    `work`."""
    ruleset = LIBRARY.syscall(CREATE_RULESET, struct.pack("=Q", EVERY_RIGHT), 8, 0)
    allow(ruleset, work, EVERY_RIGHT)
    # Folders are listed everywhere, as Quick File does from the root on; the files in them stay closed.
    allow(ruleset, "/", READ_DIR)
    for place in ("/usr", "/lib", "/lib64", "/etc", "/proc", "/sys", "/var/cache/fontconfig", *libraries):
        allow(ruleset, place, READ_FILE | READ_DIR)
    # The loader and the shell of the stand-ins.
    for place in ("/lib64", "/lib", "/bin/sh"):
        allow(ruleset, os.path.realpath(place), EXECUTE | READ_FILE | READ_DIR)
    for place in ("/dev/null", "/dev/urandom"):
        allow(ruleset, place, READ_FILE | WRITE_FILE)
    if LIBRARY.prctl(NO_NEW_PRIVILEGES, 1, 0, 0, 0) or LIBRARY.syscall(RESTRICT_SELF, ruleset, 0):
        raise OSError(ctypes.get_errno(), "the confinement")


class Screen:
    """What `begin` starts ends when the screen is left, and the directory with it."""

    def __init__(self, program):
        self.program = pathlib.Path(program).resolve()
        self.processes = []
        self.editor = None

    @staticmethod
    def can_confine():
        return LIBRARY.syscall(CREATE_RULESET, None, 0, 1) >= 1

    def __enter__(self):
        self.work = pathlib.Path(tempfile.mkdtemp())
        for name in ("home", "runtime", "bin", "tmp"):
            (self.work / name).mkdir(mode=0o700)
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            process.kill()
            process.wait()
        shutil.rmtree(self.work)

    def begin(self):
        self.make_stand_ins()
        self.start_display()
        self.start_editor()

    def make_stand_ins(self):
        """What the program may start: a desktop that opens nothing."""
        for name in ("xdg-open", "browser"):
            stand_in = self.work / "bin" / name
            stand_in.write_text("#!/bin/sh\n")
            stand_in.chmod(0o755)

    def start(self, command, **options):
        log = (self.work / "log").open("ab")
        process = subprocess.Popen(command, env=self.environment, stdout=log, stderr=log, **options)
        self.processes.append(process)
        return process

    def start_display(self, *options):
        reader, writer = os.pipe()
        self.environment = {"PATH": os.environ["PATH"]}
        # Without -noreset the server begins anew, and throws out who is just coming, whenever the last program leaves it.
        # With -r no key repeats itself, however late it is let go.
        self.display = self.start(["Xvfb", "-displayfd", str(writer), "-nolisten", "tcp", "-noreset", "-r",
                                   "-screen", "0", "{}x{}x24".format(*DISPLAY_SIZE), *options], pass_fds=(writer,))
        os.close(writer)
        with open(reader, encoding="ascii") as answer:
            number = answer.readline().strip()
        work = str(self.work)
        self.environment = {
            "PATH": work + "/bin", "HOME": work + "/home", "TMPDIR": work + "/tmp", "XDG_RUNTIME_DIR": work + "/runtime",
            "XDG_CONFIG_HOME": work + "/config", "XDG_DATA_HOME": work + "/data", "XDG_CACHE_HOME": work + "/cache",
            "XDG_STATE_HOME": work + "/state", "LANG": "C.UTF-8", "QT_QPA_PLATFORM": "xcb", "DISPLAY": ":" + number}
        self.start([shutil.which("openbox")])
        self.wait("the window manager did not start", lambda: self.press("get_num_desktops"))

    def start_editor(self):
        place = self.work / "program"
        shutil.copytree(DATA, place)
        shutil.copy(self.program, place / "kelvor")
        libraries = linked_libraries(self.program)
        self.editor = self.start([place / "kelvor"], cwd=self.work / "home",
                                 preexec_fn=lambda: confine(str(self.work), libraries))
        self.wait("the greeting of the first start did not appear", lambda: self.title() == "First time user")
        self.press("key", "Return")
        self.wait("the main window did not appear", lambda: self.title().startswith("Kelvor"))
        self.frame = self.front()

    def press(self, *words):
        """Runs xdotool; what it says, or "" when it failed."""
        done = subprocess.run([XDOTOOL, *map(str, words)], env=self.environment, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False)
        return done.stdout.strip() if done.returncode == 0 else ""

    def front(self):
        """The number of the window with the keyboard; "" while none has it."""
        return self.press("getactivewindow")

    def title(self):
        """The title of the window with the keyboard; "" while none has it."""
        return self.press("getactivewindow", "getwindowname")

    def is_shown(self, title):
        return bool(self.press("search", "--onlyvisible", "--name", f"^{title}$"))

    def wait(self, otherwise, holds, seconds=PATIENCE_SECONDS, pause=0.05):
        """Waits until `holds()`; a Failure otherwise, or as soon as the program has crashed."""
        end = time.monotonic() + seconds
        while not holds():
            self.check_alive()
            if time.monotonic() > end:
                raise Failure(otherwise)
            time.sleep(pause)

    def check_alive(self):
        if self.editor and self.editor.poll() not in (None, 0):
            raise Failure(f"the program crashed: {self.outcome()}")

    def outcome(self):
        code = self.editor.returncode
        return f"exit code {code}" if code >= 0 else signal.Signals(-code).name

    def picture(self, path):
        """Keeps what is to be seen, where ImageMagick is installed; whether it is."""
        taken = subprocess.run(["import", "-silent", "-window", "root", path],
                               env=self.environment | {"PATH": os.environ["PATH"]}, stderr=subprocess.DEVNULL,
                               check=False)
        return taken.returncode == 0
