# SPDX-License-Identifier: GPL-3.0-or-later
"""The rules over the text of the sources: floors, circles, toolkit headers, lengths."""
import pathlib
import re

SOURCE_FOLDERS = ("src", "tests", "bench")

# Where an include's path begins; the first that has the file counts.
INCLUDE_ROOTS = ("src/", "")

# A library that includes nothing of the project, so that other programs can have it.
CLOSED_FLOORS = ("KVFileSystem",)

TOOLKIT_FOLDERS = ("src/qt/", "tests/qt/", "bench/")
TOOLKIT_HEADER = re.compile(r"^(Q[A-Z]\w*|Qt\w*/.*|Qsci/.*|q\w+\.h|Sci\w*\.h|ui_\w+\.h)$")

# An event loop inside a command runs only where the forms below it are kept open: dialogs go through modal.h.
LOOP = re.compile(r"(\.|->)exec\(")
LOOP_PLACES = ("src/qt/modal.cpp", "src/qt/qt_windows.cpp", "src/qt/browser/", "tests/", "bench/")

FILE_LINES = 500
# Rows of data without a branch may go on for longer.
DATA_TABLES = ("src/frame/menu_table.cpp", "src/frame/toolbar_table.cpp")

LICENCE = "SPDX-License-Identifier: GPL-3.0-or-later"

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^>"]+)[>"]', re.MULTILINE)


def read_floors():
    """The folders of src in their order: those that the build links, and the toolkit's above them."""
    build = (pathlib.Path(__file__).resolve().parent.parent / "src/CMakeLists.txt").read_text(encoding="utf-8")
    return re.search(r"set\(floors\s+([^)]*)\)", build).group(1).split() + ["qt"]


FLOORS = read_floors()


def read_sources(root):
    """Path from the root -> text, for every C++ file of the project."""
    return {path.relative_to(root).as_posix(): path.read_text(encoding="utf-8")
            for folder in SOURCE_FOLDERS for path in sorted((root / folder).rglob("*")) if path.suffix in (".cpp", ".h")}


def unit_of(path):
    return path.rsplit(".", 1)[0]


def floor_of(path):
    """The place of a file's folder in the list; tests and benchmarks stand above it."""
    folder, _, rest = path.partition("/")
    if folder != "src":
        return len(FLOORS)
    floor = rest.partition("/")[0]
    if floor not in FLOORS:
        raise ValueError(f"{path}: its folder is not in the list of src/CMakeLists.txt")
    return FLOORS.index(floor)


def resolve(header, files):
    """The file that an include names, or None for one that is not the project's."""
    return next((root + header for root in INCLUDE_ROOTS if root + header in files), None)


def includes(text):
    """(line number, header, whether it stands in quotes) of each include."""
    for match in INCLUDE.finditer(text):
        yield text.count("\n", 0, match.start()) + 1, match.group(2), match.group(1) == '"'


def included(text, files):
    """(line number, file) of each include of the project's own."""
    for line, header, _ in includes(text):
        file = resolve(header, files)
        if file:
            yield line, file


def check(files):
    return (check_toolkit(files) + check_include_paths(files) + check_floors(files) + check_circles(files)
            + check_loops(files) + check_lengths(files) + check_licence(files))


def check_toolkit(files):
    return [f"{path}:{line}: {header} belongs to the toolkit, which only {', '.join(TOOLKIT_FOLDERS)} may know"
            for path, text in files.items() if not path.startswith(TOOLKIT_FOLDERS)
            for line, header, _ in includes(text) if TOOLKIT_HEADER.match(header)]


def check_include_paths(files):
    return [f'{path}:{line}: "{header}" is no path from src or from the project\'s root'
            for path, text in files.items()
            for line, header, quoted in includes(text)
            if quoted and not resolve(header, files) and not TOOLKIT_HEADER.match(header) and not header.endswith(".moc")]


def check_floors(files):
    findings = []
    for path, text in files.items():
        floor = floor_of(path)
        closed = floor < len(FLOORS) and FLOORS[floor] in CLOSED_FLOORS
        for line, header in included(text, files):
            if floor_of(header) > floor:
                findings.append(f"{path}:{line}: includes {header}, whose folder comes later in the list")
            elif closed and floor_of(header) != floor:
                findings.append(f"{path}:{line}: {FLOORS[floor]} includes nothing else of the project, but here {header}")
    return findings


def check_circles(files):
    """One finding for each circle met on a walk over the units, with the way round."""
    below = {}
    for path, text in files.items():
        below.setdefault(unit_of(path), set()).update(unit_of(header) for _, header in included(text, files))
    findings = []
    finished = set()

    def walk(unit, way):
        if unit in way:
            findings.append("include circle: " + " -> ".join(way[way.index(unit):] + [unit]))
        elif unit not in finished:
            for other in sorted(below[unit] - {unit}):
                walk(other, way + [unit])
            finished.add(unit)

    for unit in sorted(below):
        walk(unit, [])
    return findings


def check_lengths(files):
    return [f"{path}: {text.count(chr(10))} lines; a file has {FILE_LINES} at most"
            for path, text in files.items() if text.count("\n") > FILE_LINES and path not in DATA_TABLES]


def check_loops(files):
    return [f"{path}:{number}: an event loop of its own; src/qt/modal.h shows dialogs"
            for path, text in files.items() if not path.startswith(LOOP_PLACES)
            for number, line in enumerate(text.splitlines(), 1) if LOOP.search(line)]


def check_licence(files):
    """Scripts have it below the line that names their interpreter."""
    return [f"{path}: does not begin with {mark} {LICENCE}"
            for path, text in files.items()
            for mark in ["//" if path.endswith((".cpp", ".h")) else "#"]
            if not re.match(rf"(#!.*\n)?{mark} {re.escape(LICENCE)}\n", text)]


def read_build_files(root):
    """Path from the root -> text, for the scripts and the build's own files."""
    places = [*root.glob("*.sh"), root / ".ci/run", root / "CMakeLists.txt", *(root / "tools").iterdir(),
              *(path for folder in SOURCE_FOLDERS for path in (root / folder).rglob("CMakeLists.txt"))]
    return {path.relative_to(root).as_posix(): path.read_text(encoding="utf-8") for path in sorted(places) if path.is_file()}
