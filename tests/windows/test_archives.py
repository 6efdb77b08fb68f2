#!/usr/bin/env python3
"""Plays with the programs of both archives as their players do, the Windows program under Wine.

    test_archives.py FALANGES-win64.zip FALANGES-linux.tar.gz

Each archive is unpacked into an empty folder, whose path has blanks and accents. Nothing may be left
behind in the registry or in the user's folder.
"""

import shutil
import sys
import tempfile
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
from picture_player import BOX, INICIAR, Game, Program, game_file, place, screen, traces, wait_for


def deploy_move_save(folder):
    program = Game(folder)
    units = program.lay_out({21: "inf", 22: "cab", 23: "ele", 24: "gen", 25: "ban"})
    program.click(INICIAR)
    program.answer(BOX, "s")
    program.shows(units)
    program.move(units, 24, 18)
    program.shows(units)
    saved = folder / "jguardados" / "partida"  # to which nothing may be added
    saved.write_bytes(b"replaced without a question")
    program.window("Guardar Juego", "Escape", "alt+j", "g")
    program.choose_file("Guardar Juego", "partida")
    wait_for("saved game", lambda: saved.read_bytes() == game_file(units, "2"))
    program.close()


def play_over_a_folder(first, second):
    """`first` is the folder of the copy of player 1, who wins."""
    units = {13: "inf_j1", 25: "ban_j1", 1: "inf_j2", 3: "ban_j2"}
    shared = first.parents[1] / "compartido" / "juego.txt"
    shared.parent.mkdir(exist_ok=True)
    shared.write_bytes(game_file(units, "1"))
    one, two = Game(first), Game(second)
    for program in (one, two):
        program.join("../../../compartido/juego.txt", program is two)
        program.anchor("ban_j1", place(25))
    for mover, other, start, target, turn in ((one, two, 13, 8, "2"), (two, one, 1, 6, "1")):
        mover.move(units, start, target)
        other.shows(units)
        assert shared.read_bytes() == game_file(units, turn)
    one.move(units, 8, 3)
    for program in (one, two):
        program.window(BOX)  # a key too early would go to the box that comes to the front
    assert shared.read_bytes() == game_file(units, "1", "11")
    for program in (one, two):
        program.answer(BOX, "Return")
        program.shows(units)
        program.close()


def coordinate_tool_opens_and_closes(folder):
    program = Program(folder, "coordenadas")
    program.answer("Form1", "alt+F4")
    program.ends()


def linux_needs_no_qt(archive, folder):
    assert (folder / "Manual.html").is_file()
    assert archive.stat().st_size <= 30 * 2**20
    program = Game(folder)
    files = program.qt_files()
    assert len(files) >= 6 and all(file.startswith(str(folder)) for file in files), files
    program.close()


windows, linux = (Path(name).resolve() for name in sys.argv[1:])
with screen(windows.parent), tempfile.TemporaryDirectory(prefix="José Núñez ") as home:
    one, two, three = (Path(home) / name / "falanges" for name in ("uno", "dos", "tres"))
    for archive, folder in ((windows, one), (windows, two), (linux, three)):
        shutil.unpack_archive(archive, folder.parent)
    before = traces()
    linux_needs_no_qt(linux, three)
    for folder in (one, three):
        deploy_move_save(folder)
        coordinate_tool_opens_and_closes(folder)
    play_over_a_folder(one, two)
    play_over_a_folder(three, one)
    assert traces() == before and b"QtProject" not in before[0]
