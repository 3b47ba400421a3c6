# SPDX-License-Identifier: GPL-3.0-or-later
"""clang-format and clang-tidy over the project's files."""
import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import subprocess

import source_rules

# What the build adds for precompiled headers: the linter reads the source as it stands, so that a missing include is found.
PRECOMPILED = re.compile(r" -Winvalid-pch| -fpch-preprocess| -include \S+/cmake_pch\.hxx")
# A change of these can change the findings in any file.
LINTER_FILES = {".clang-tidy", "tools/clang_tools.py"}

DIAGNOSTIC = re.compile(r"^(/.*?):(\d+):\d+: (?:warning|error): (.*)$", re.MULTILINE)


def check_format(root, files):
    if not files:
        return []
    run = subprocess.run(["clang-format", "--dry-run", "-Werror", *files], cwd=root, capture_output=True, text=True)
    wrong = sorted(set(re.findall(r"^(\S+):\d+:\d+: error:", run.stderr, re.MULTILINE)))
    if run.returncode != 0 and not wrong:
        return [f"clang-format: {run.stderr.strip()}"]
    return [f"{path}: not in the project's style; clang-format -i {path} mends it" for path in wrong]


def check_tidy(root, files, build, since=None):
    """Lints the sources of the build's compile_commands.json. A file found clean is not read again until it, a
    header that it includes, its command or the configuration has changed. With `since`, a commit that was clean, only
    what has changed from there on is looked at, and what includes it."""
    clean = build / "tidy-clean"
    clean.mkdir(exist_ok=True)
    sources = {}
    commands = json.loads((build / "compile_commands.json").read_text(encoding="utf-8"))
    for entry in commands:
        entry["command"] = PRECOMPILED.sub("", entry["command"])
        path = pathlib.Path(entry["file"])
        if path.is_relative_to(root) and path.relative_to(root).as_posix() in files:
            sources[path.relative_to(root).as_posix()] = entry["command"]
    plain = build / "tidy"
    plain.mkdir(exist_ok=True)
    (plain / "compile_commands.json").write_text(json.dumps(commands), encoding="utf-8")

    configuration = (root / ".clang-tidy").read_text(encoding="utf-8")
    stamps = {path: clean / fingerprint(files, path, configuration + command) for path, command in sources.items()}
    for old in set(clean.iterdir()) - set(stamps.values()):
        old.unlink()
    differing = changed_since(root, since) if since else None
    changed = [path for path in sources if not stamps[path].exists()
               and (differing is None or not differing.isdisjoint(reached_by(files, path)))]
    print(f"clang-tidy: {len(changed)} of {len(sources)} files to read", flush=True)

    findings = {}
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for path, found in zip(changed, pool.map(lambda path: tidy(root, plain, path), changed)):
            if not found:
                stamps[path].touch()
            findings.update(dict.fromkeys(found))
    return list(findings)


def changed_since(root, commit):
    """The paths that differ from that commit, in the working tree; None when that says nothing about the findings."""
    def git(*words):
        return subprocess.run(["git", *words], cwd=root, capture_output=True, text=True, check=True).stdout.splitlines()
    paths = {*git("diff", "--name-only", "--no-renames", commit), *git("ls-files", "--others", "--exclude-standard")}
    return None if paths & LINTER_FILES else paths


def reached_by(files, path):
    """The file and every project header that it reaches."""
    reached = set()
    waiting = [path]
    while waiting:
        here = waiting.pop()
        if here in files and here not in reached:
            reached.add(here)
            waiting += [header for _, header in source_rules.included(files[here], files)]
    return reached


def fingerprint(files, path, context):
    """A digest of the file, of every project header that it reaches, and of `context`."""
    digest = hashlib.sha256(context.encode())
    for name in sorted(reached_by(files, path)):
        digest.update(f"\0{name}\0{files[name]}".encode())
    return digest.hexdigest()


def tidy(root, build, path):
    ours = f"^{re.escape(str(root))}/({'|'.join(source_rules.SOURCE_FOLDERS)})/"
    run = subprocess.run(["clang-tidy", "--quiet", f"--header-filter={ours}", "-p", build, path], cwd=root,
                         capture_output=True, text=True)
    found = [f"{os.path.relpath(file, root)}:{line}: {text}" for file, line, text in DIAGNOSTIC.findall(run.stdout)]
    if run.returncode != 0 and not found:
        return [f"{path}: clang-tidy failed: {(run.stdout + run.stderr).strip()}"]
    return found
