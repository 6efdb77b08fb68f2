#!/usr/bin/env python3
"""Checks what no compiler checks: who includes whom, the width of the seam to the desktop, clean text.

Prints one line per finding and exits 1 if there is any. That each header compiles alone is left to the
build (target all_verify_interface_header_sets).
"""

import graphlib
import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
SRC = ROOT / "src"

# Includes run downwards only; folders on one floor don't know each other.
FLOORS = {
    "forms": 1,
    "model": 2,
    "persistence": 3,
    "board": 4,
    "deployment": 5,
    "play": 5,
    "network": 6,
    "shell": 7,
}
SCREEN = "desktop/qt"
SCREEN_MAY_INCLUDE = {SCREEN, "forms"}
# Inside the screen's folder, too: from the ground up; files on one floor don't know each other.
SCREEN_FLOORS = [
    "conversions keyboard_move reporter scale style",
    "element_view fonts form message_box picture_store",
    "accessibility file_dialog zoom",
    "application focus_keeper",
    "screen",
    "control_view window_view",
    "child_window picture_view",
    "elements windows",
    "qt_desktop",
]
LONGEST_SEAM = 12

TEXT_FILES = {".cpp", ".h", ".cmake", ".in", ".json", ".manifest", ".md", ".py", ".sh", ".supp", ".svg"}
MORE_TEXT_FILES = {"CMakeLists.txt", "jugar", "probar", "probar-windows", "empaquetar", "run"}

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)
COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/", re.DOTALL)
QT_NAME = re.compile(r"\bQ[A-Z][a-z]\w*|\bQt::\w+|\bQ_[A-Z]+\b")

findings = []


def report(path, line, text):
    findings.append(f"{path.relative_to(ROOT)}:{line}: {text}")


def line_of(text, position):
    return text.count("\n", 0, position) + 1


def folder_of(name):
    """The folder of the layout that a file under src/ belongs to, "" for the main files."""
    known = [*FLOORS, SCREEN]
    return max((f for f in known if name.startswith(f + "/")), key=len, default="")


def may_include(folder, other):
    if folder == SCREEN:
        return other in SCREEN_MAY_INCLUDE
    return other == folder or FLOORS.get(other, len(FLOORS)) < FLOORS[folder]


def screen_floor(name):
    """Of a file in the screen's folder, whatever system it is for; -1 for one that has no place."""
    part = re.sub(r"_(posix|windows)$", "", Path(name).stem)
    return next((i for i, floor in enumerate(SCREEN_FLOORS) if part in floor.split()), -1)


def runs_up(name, target):
    """Whether one file of the screen's folder includes another that does not lie below it."""
    same = re.sub(r"_(posix|windows)$", "", Path(name).stem) == Path(target).stem
    return not same and screen_floor(target) >= screen_floor(name)


def check_source(path):
    name = path.relative_to(SRC).as_posix()
    text = path.read_text(encoding="utf-8", errors="replace")
    folder = folder_of(name)
    if path.suffix == ".h" and "#pragma once" not in text:
        report(path, 1, "no #pragma once")
    if not folder:
        if not name.startswith("main"):
            report(path, 1, "lies in no folder of the layout")
        return
    if folder == SCREEN and screen_floor(name) < 0:
        report(path, 1, "has no floor in SCREEN_FLOORS")
    for include in INCLUDE.finditer(text):
        kind, target = include.groups()
        line = line_of(text, include.start(1))
        if kind == '"' and not (SRC / target).is_file() and not target.endswith(".moc"):
            report(path, line, f"{target} is not a path below src/")
        elif kind == '"' and not target.endswith(".moc"):
            if not may_include(folder, folder_of(target)):
                report(path, line, f"{folder} may not include {target}")
            elif folder == folder_of(target) == SCREEN and runs_up(name, target):
                report(path, line, f"{target} lies no lower")
    if folder != SCREEN:
        # Comments keep their line ends, so that positions stay true.
        code = COMMENT.sub(lambda comment: re.sub(r"[^\n]", " ", comment.group()), text)
        for mention in QT_NAME.finditer(code):
            report(path, line_of(code, mention.start()), f"the core names {mention.group()}")


def check_cycles():
    headers = {}
    for path in sorted(SRC.rglob("*.h")):
        text = path.read_text(encoding="utf-8", errors="replace")
        headers[path.relative_to(SRC).as_posix()] = [name for _, name in INCLUDE.findall(text)]
    try:
        graphlib.TopologicalSorter(headers).prepare()
    except graphlib.CycleError as error:
        cycle = error.args[1]
        report(SRC / cycle[0], 1, "headers include each other: " + " < ".join(cycle))


def check_seam():
    path = SRC / "forms/desktop.h"
    if not path.is_file():
        report(path, 1, "is missing")
        return
    text = COMMENT.sub("", path.read_text(encoding="utf-8", errors="replace"))
    body = re.search(r"^class Desktop\b[^;{]*\{(.*?)^\};", text, re.DOTALL | re.MULTILINE)
    count = len(re.findall(r"=\s*0\s*;", body.group(1))) if body else 0
    if not 1 <= count <= LONGEST_SEAM:
        report(path, 1, f"Desktop has {count} pure virtual functions, wanted are 1 to {LONGEST_SEAM}")


def check_text(path):
    data = path.read_bytes()
    try:
        data.decode("utf-8")
    except UnicodeDecodeError as error:
        report(path, line_of(data[: error.start].decode("utf-8"), error.start), "is not UTF-8")
    if data and not data.endswith(b"\n"):
        report(path, data.count(b"\n") + 1, "no line end at the end of the file")
    for number, line in enumerate(data.split(b"\n"), 1):
        if b"\r" in line:
            report(path, number, "carriage return")
        elif line != line.rstrip():
            report(path, number, "blanks at the end of the line")
        if line[: len(line) - len(line.lstrip())].count(b"\t"):
            report(path, number, "indented with a tab")


def project_files():
    for path in sorted(ROOT.rglob("*")):
        if not {".git", "build"} & set(path.relative_to(ROOT).parts) and path.is_file():
            yield path


def main():
    for path in sorted([*SRC.rglob("*.h"), *SRC.rglob("*.cpp")]):
        check_source(path)
    check_cycles()
    check_seam()
    for path in project_files():
        if path.suffix in TEXT_FILES or path.name in MORE_TEXT_FILES:
            check_text(path)
    print(*findings, sep="\n", end="\n" if findings else "")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
