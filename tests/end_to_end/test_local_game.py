#!/usr/bin/python3
"""Two people at one machine play a whole game with the mouse, save it, load it, and leave."""

import re
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
from player import (  # noqa: E402
    START, VICTORY, Player, Session, marker, saved_game, unit, value_of, wait_for,
)

FRAME = "Vornath - Falanges Z - Tomar El Estandarte"
ARMY = {17: "Infantería", 18: "Caballería", 19: "Elefantes", 20: "General", 24: "Bandera"}


def set_up(ana):
    ana.choose("Juego", "Nuevo Juego")
    for square, name in ARMY.items():
        ana.click(name)
        ana.click_square(square)
        ana.sees(f"{name}, Jugador 1, cuadro {square},*", f"{name}, Jugador 2, cuadro {26 - square},*")
    ana.click("Infantería")
    ana.click_square(16, times=2)
    ana.sees(unit(16), "Infantería, Jugador 2, cuadro 10, fila 2, columna 5")
    ana.click(unit(10), button=3)
    ana.sees_no(unit(16), unit(10))
    ana.click("Iniciar")
    ana.answer(START, "Sí")


def play_and_save(ana):
    ana.sees("En Juego", "Jugador 1: En Turno", "Jugador 2: En Espera")
    ana.click(unit(8))  # not in turn
    ana.click(unit(20))
    ana.sees("General, Jugador 1, cuadro 20, fila 4, columna 5, seleccionada")
    ana.sees(marker(14), marker(15), marker(25))
    ana.move(17, 12)
    ana.sees("Jugador 1: En Espera", "Jugador 2: En Turno")
    ana.move(7, 12)
    ana.move(18, 12)
    ana.choose("Juego", "Guardar Juego")
    proposed = value_of(ana.find("Nombre:", "text"))
    assert re.fullmatch(r"JuegoGuardado(-\d\d){2}-\d{4}(-\d\d){3}", proposed), proposed
    ana.choose_file("Guardar Juego", "partida")
    pieces = {2: (2, 1), 6: (2, 5), 8: (2, 3), 9: (2, 2), 12: (1, 3), 19: (1, 4), 20: (1, 5), 24: (1, 1)}
    saved = ana.folder / "jguardados" / "partida"
    wait_for("the saved game", lambda: saved.exists() and saved.read_bytes() == saved_game(pieces, 2))


def load_and_win(ana):
    ana.choose("Juego", "Cargar Juego")
    ana.choose_file("Cargar Juego", "partida")
    ana.sees("Jugador 1: En Espera", "Jugador 2: En Turno")
    ana.move(9, 14)
    ana.move(12, 6)
    ana.move(8, 12)
    ana.move(6, 2, wins=VICTORY.format(1))
    ana.sees("En Juego", "Jugador 1: En Turno", "Caballería, Jugador 1, cuadro 2, fila 1, columna 2")
    ana.click(unit(19))
    assert ana.entries("Juego") == ["Declarar Rendición", "1 En Juego"]
    ana.sees_no(marker("*"))  # a finished game can only be looked at


with Session() as session:
    ana = Player(session, sys.argv[1])
    wait_for("the box alone", lambda: len(ana.windows()) == 1)
    assert f"\n{FRAME} - v2.0\n" in ana.pass_information()
    wait_for("the frame alone", lambda: ana.windows() == [FRAME])
    set_up(ana)
    play_and_save(ana)
    ana.close_window("En Juego")
    load_and_win(ana)
    ana.close_window("En Juego")
    ana.leave()
