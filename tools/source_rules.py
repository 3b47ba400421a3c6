"""The rules over the text of the sources: floors, circles, toolkit headers, lengths."""
import pathlib
import re

SOURCE_FOLDERS = ("KVFileSystem", "assistants", "authoring", "batch", "bench", "core", "platform", "preview", "support",
                  "tests")

# Floors: a file includes only its own floor and those below. The first row that matches counts; a row is a
# folder (it ends in "/") or a unit, which is a .cpp with its .h.
FLOORS = (
    ("platform/qt/", 5),
    ("platform/", 0),
    ("KVFileSystem/", 0),
    ("support/setting", 1),
    ("support/settings", 1),
    ("support/settings_database", 1),
    ("support/report_error", 1),
    ("support/html_help", 1),
    ("support/help_commands", 1),
    ("support/help_pages", 1),
    ("support/desktop_tools", 1),
    ("authoring/common", 1),
    ("authoring/anchors", 1),
    ("authoring/htmlkeys", 1),
    ("core/frame", 1),
    ("core/edit_window", 1),
    ("core/menu_table", 1),
    ("core/toolbar_table", 1),
    ("core/command_table", 4),
    ("core/toolbar_commands", 4),
    ("core/startup", 4),
    ("core/new_file", 3),
    ("core/quick_file", 3),
    ("core/", 2),
    ("preview/", 2),
    ("authoring/", 3),
    ("assistants/", 3),
    ("batch/", 3),
    ("support/", 3),
    ("tests/", 6),
    ("bench/", 6),
)

# The two folders of floor 0 know only themselves, not even each other.
CLOSED_FOLDERS = ("platform/", "KVFileSystem/")

TOOLKIT_FOLDERS = ("platform/qt/", "tests/qt/", "bench/")
TOOLKIT_HEADER = re.compile(r"^(Q[A-Z]\w*|Qt\w*/.*|Qsci/.*|q\w+\.h|Sci\w*\.h|ui_\w+\.h)$")

# An event loop inside a command runs only where the forms below it are kept open: dialogs go through modal.h.
LOOP = re.compile(r"(\.|->)exec\(")
LOOP_PLACES = ("platform/qt/modal.cpp", "platform/qt/windows.cpp", "platform/qt/browser/", "tests/", "bench/")

FILE_LINES = 500
# Rows of data without a branch may go on for longer.
DATA_TABLES = ("core/menu_table.cpp", "core/toolbar_table.cpp")

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^>"]+)[>"]', re.MULTILINE)


def read_sources(root):
    """Path from the root -> text, for every C++ file of the project."""
    return {path.relative_to(root).as_posix(): path.read_text(encoding="utf-8")
            for folder in SOURCE_FOLDERS for path in sorted((root / folder).rglob("*")) if path.suffix in (".cpp", ".h")}


def unit_of(path):
    return path.rsplit(".", 1)[0]


def floor_of(path):
    for place, floor in FLOORS:
        if path.startswith(place) if place.endswith("/") else unit_of(path) == place:
            return floor
    raise ValueError(f"{path}: its folder has no floor in {pathlib.Path(__file__).name}")


def includes(text):
    """(line number, header, whether it stands in quotes) of each include."""
    for match in INCLUDE.finditer(text):
        yield text.count("\n", 0, match.start()) + 1, match.group(2), match.group(1) == '"'


def check(files):
    return (check_toolkit(files) + check_include_paths(files) + check_floors(files) + check_circles(files)
            + check_loops(files) + check_lengths(files))


def check_toolkit(files):
    return [f"{path}:{line}: {header} belongs to the toolkit, which only {', '.join(TOOLKIT_FOLDERS)} may know"
            for path, text in files.items() if not path.startswith(TOOLKIT_FOLDERS)
            for line, header, _ in includes(text) if TOOLKIT_HEADER.match(header)]


def check_include_paths(files):
    return [f'{path}:{line}: "{header}" is no path from the project\'s root'
            for path, text in files.items()
            for line, header, quoted in includes(text)
            if quoted and header not in files and not TOOLKIT_HEADER.match(header) and not header.endswith(".moc")]


def check_floors(files):
    findings = []
    for path, text in files.items():
        floor = floor_of(path)
        home = next((folder for folder in CLOSED_FOLDERS if floor == 0 and path.startswith(folder)), "")
        for line, header, _ in includes(text):
            if header not in files:
                continue
            if floor_of(header) > floor:
                findings.append(f"{path}:{line}: floor {floor} includes {header} of floor {floor_of(header)}")
            elif not header.startswith(home):
                findings.append(f"{path}:{line}: {home} includes nothing else of the project, but here {header}")
    return findings


def check_circles(files):
    """One finding for each circle met on a walk over the units, with the way round."""
    below = {}
    for path, text in files.items():
        below.setdefault(unit_of(path), set()).update(unit_of(header) for _, header, _ in includes(text) if header in files)
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


def check_loops(files):
    return [f"{path}:{number}: an event loop of its own; platform/qt/modal.h shows dialogs"
            for path, text in files.items() if not path.startswith(LOOP_PLACES)
            for number, line in enumerate(text.splitlines(), 1) if LOOP.search(line)]


def check_lengths(files):
    return [f"{path}: {text.count(chr(10))} lines; a file has {FILE_LINES} at most"
            for path, text in files.items() if text.count("\n") > FILE_LINES and path not in DATA_TABLES]
