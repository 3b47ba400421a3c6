# SPDX-License-Identifier: GPL-3.0-or-later
"""What a text is after each key that is typed into it, worked out without the editor."""
import hashlib
import string

LETTERS = string.ascii_lowercase + string.digits


def digest(text):
    return hashlib.blake2b(text, digest_size=16).digest()


class TypedText:
    """A text with a caret and what it was after each key. The keys of all texts are numbered together, from 1."""

    def __init__(self, name, text):
        self.name = name
        self.text = text
        self.line_end = "\r\n" if "\r\n" in text or "\n" not in text else "\n"
        self.caret = 0
        self.anchor = 0
        self.states = [(0, digest(text.encode()))]
        # The number of the key that changed it first: from there on it is not on the disk alone.
        self.changed_at = None

    def note(self, number, changed):
        if changed and self.changed_at is None:
            self.changed_at = number
        self.states.append((number, digest(self.text.encode())))

    def keys_that_give(self, found, count):
        """After which of `count` keys, as ranges, the text was `found`; None stands for a text of which nothing but its
        file was left."""
        if found is None:
            return [(0, count + 1 if self.changed_at is None else self.changed_at)]
        bounds = [number for number, _ in self.states] + [count + 1]
        wanted = digest(found)
        return [(bounds[i], bounds[i + 1]) for i, (_, known) in enumerate(self.states) if known == wanted]

    # Places.

    def begin_of_line(self):
        return max(self.text.rfind(end, 0, self.caret) for end in "\r\n") + 1

    def end_of_line(self):
        return min((at for at in (self.text.find(end, self.caret) for end in "\r\n") if at >= 0), default=len(self.text))

    def before(self):
        return max(self.caret - (2 if self.text.endswith("\r\n", 0, self.caret) else 1), 0)

    def behind(self):
        return min(self.caret + (2 if self.text.startswith("\r\n", self.caret) else 1), len(self.text))

    # What keys do.

    def move(self, place):
        self.caret = self.anchor = place

    def select(self, place):
        self.caret = place

    def put(self, new):
        start, end = sorted((self.caret, self.anchor))
        self.text = self.text[:start] + new + self.text[end:]
        self.move(start + len(new))

    def erase(self, place):
        if self.caret == self.anchor:
            self.anchor = place
        self.put("")

    def restore(self, text):
        self.text = text


def some_keys(choose, text, pasted):
    """One key or some that go together, chosen at random: for each its name for xdotool, and what it does to `text`.
    @param pasted  the clipboard's lines, which get the text's line ends"""
    keys = {
        "Return": lambda: text.put(text.line_end),
        "BackSpace": lambda: text.erase(text.before()),
        "Delete": lambda: text.erase(text.behind()),
        "Left": lambda: text.move(text.before()),
        "Right": lambda: text.move(text.behind()),
        "Home": lambda: text.move(text.begin_of_line()),
        "End": lambda: text.move(text.end_of_line()),
        "ctrl+Home": lambda: text.move(0),
        "ctrl+End": lambda: text.move(len(text.text)),
        "shift+Left": lambda: text.select(text.before()),
        "shift+Right": lambda: text.select(text.behind()),
        "shift+Home": lambda: text.select(text.begin_of_line()),
        "shift+End": lambda: text.select(text.end_of_line()),
        "ctrl+v": lambda: text.put(text.line_end.join(pasted)),
    }
    keys |= {letter: lambda letter=letter: text.put(letter) for letter in LETTERS}
    before = text.text
    keys["ctrl+z"] = lambda: text.restore(before)

    kind = choose.random()
    if kind < 0.55:
        names = [choose.choice(LETTERS)]
    elif kind < 0.75:
        names = [choose.choice(["Return", "BackSpace", "BackSpace", "Delete", "ctrl+v"])]
    elif kind < 0.85:
        names = [choose.choice(["Left", "Right", "Home", "End", "ctrl+Home", "ctrl+End"])]
    elif kind < 0.96:
        selecting = choose.choice(["shift+Left", "shift+Right", "shift+Home", "shift+End"])
        names = [selecting] * choose.randint(1, 4) + [choose.choice([*LETTERS, "Return", "BackSpace", "Delete", "ctrl+v"])]
    else:
        # Where a step back leaves the caret is the editor's to say.
        names = ["ctrl+v", "ctrl+z", "ctrl+End"]
    return [(name, keys[name]) for name in names]
