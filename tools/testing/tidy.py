#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs clang-tidy over every unit of a compilation database and remembers, outside the tree, which ones were clean:
a unit is looked at again when its preprocessed text, its flags, the checks or clang-tidy itself have changed."""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import shlex
import subprocess
import sys

CACHE = pathlib.Path(
    os.environ.get("NOLVEX_CACHE_DIR")
    or pathlib.Path(os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache") / "nolvexlibwx"
) / "tidy"


def preprocessed(entry):
    """Returns the unit's text after preprocessing."""
    command = [part for part in shlex.split(entry["command"])]
    if "-o" in command:
        at = command.index("-o")
        del command[at : at + 2]
    command = [part for part in command if part not in ("-c",)] + ["-E", "-P"]
    return subprocess.run(command, cwd=entry["directory"], capture_output=True, check=False).stdout


def key(entry, salt):
    flags = " ".join(sorted(part for part in shlex.split(entry["command"]) if part.startswith(("-D", "-W", "-std", "-m"))))
    return hashlib.sha256(salt + flags.encode() + preprocessed(entry) + pathlib.Path(entry["file"]).read_bytes()).hexdigest()


def look(entry, folder, salt):
    """Returns None if the unit is clean, and otherwise the output of clang-tidy."""
    stamp = CACHE / key(entry, salt)
    if stamp.exists():
        return None
    run = subprocess.run(
        ["clang-tidy", "--quiet", "-p", folder, entry["file"]], capture_output=True, text=True, check=False
    )
    if run.returncode != 0:
        return run.stdout + ("" if "error:" in run.stdout else run.stderr)
    stamp.touch()
    return None


def main():
    folder = sys.argv[1]
    CACHE.mkdir(parents=True, exist_ok=True)
    entries = json.loads(pathlib.Path(folder, "compile_commands.json").read_text())
    entries = [entry for entry in entries if "/build/" not in entry["file"]]
    version = subprocess.run(["clang-tidy", "--version"], capture_output=True, check=True).stdout
    salt = version + pathlib.Path(".clang-tidy").read_bytes()
    for extra in pathlib.Path(".").glob("*/.clang-tidy"):
        salt += extra.read_bytes()
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        findings = [text for text in pool.map(lambda entry: look(entry, folder, salt), entries) if text]
    for text in findings:
        print(text)
    print(f"clang-tidy: {len(entries)} units, {len(findings)} with findings")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
