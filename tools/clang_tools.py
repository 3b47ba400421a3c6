"""clang-format and clang-tidy over the project's files."""
import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import subprocess

import source_rules

DIAGNOSTIC = re.compile(r"^(/.*?):(\d+):\d+: (?:warning|error): (.*)$", re.MULTILINE)


def check_format(root, files):
    if not files:
        return []
    run = subprocess.run(["clang-format", "--dry-run", "-Werror", *files], cwd=root, capture_output=True, text=True)
    wrong = sorted(set(re.findall(r"^(\S+):\d+:\d+: error:", run.stderr, re.MULTILINE)))
    if run.returncode != 0 and not wrong:
        return [f"clang-format: {run.stderr.strip()}"]
    return [f"{path}: not in the project's style; clang-format -i {path} mends it" for path in wrong]


def check_tidy(root, files, build):
    """Lints the sources of the build's compile_commands.json. A file found clean is not read again until it, a
    header that it includes, its command or the configuration has changed."""
    commands = json.loads((build / "compile_commands.json").read_text(encoding="utf-8"))
    sources = {}
    for entry in commands:
        path = pathlib.Path(entry["file"])
        if path.is_relative_to(root) and path.relative_to(root).as_posix() in files:
            sources[path.relative_to(root).as_posix()] = entry["command"]
    clean = build / "tidy-clean"
    clean.mkdir(exist_ok=True)
    configuration = (root / ".clang-tidy").read_text(encoding="utf-8")
    stamps = {path: clean / fingerprint(files, path, configuration + command) for path, command in sources.items()}
    for old in set(clean.iterdir()) - set(stamps.values()):
        old.unlink()
    changed = [path for path in sources if not stamps[path].exists()]
    print(f"clang-tidy: {len(changed)} of {len(sources)} files have changed", flush=True)

    findings = {}
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for path, found in zip(changed, pool.map(lambda path: tidy(root, build, path), changed)):
            if not found:
                stamps[path].touch()
            findings.update(dict.fromkeys(found))
    return list(findings)


def fingerprint(files, path, context):
    """A digest of the file, of every project header that it reaches, and of `context`."""
    reached = set()
    waiting = [path]
    while waiting:
        here = waiting.pop()
        if here in files and here not in reached:
            reached.add(here)
            waiting += [header for _, header in source_rules.included(files[here], files)]
    digest = hashlib.sha256(context.encode())
    for name in sorted(reached):
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
