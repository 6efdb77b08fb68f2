#!/usr/bin/python3
"""Two people at one machine play a whole game with the mouse, save it, load it, and leave."""

import re
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
from player import (  # noqa: E402
    LEAVE, START, VICTORY, Player, Session, marker, saved_game, unit, value_of, wait_for,
)

FRAME = "Vornath - Falanges Z - Tomar El Estandarte"
NO_UNIT = "DEBE seleccionar una Unidad y hacer click sobre una casilla del Tablero para situarla"
ARMY = {17: "Infantería", 18: "Caballería", 19: "Elefantes", 20: "General", 24: "Bandera"}


def check_information(words):
    lines = dict(enumerate(words.split("\n"), 1))
    assert len(lines) == 19 and not any(lines[n] for n in (3, 6, 9, 13, 16, 18, 19)), words
    assert lines[7] == "Juego para PC basado en el Juego de Mesa:"
    assert lines[10] == "Visite la Web para ver manuales, vídeos y novedades,"
    assert lines[11].endswith("contactar y solicitar el Juego de Mesa Original. Incluye:")
    assert lines[12] == "Caja, Tablero, Fichas, Instrucciones y 1 CD con esta versión para PC"
    assert lines[17] == FRAME + " - v2.0"


def set_up(ana):
    idle = ["Nuevo Juego", "Cargar Juego", "Cargar Plantilla", "Declarar Rendición"]
    assert ana.entries("Juego") == idle
    ana.choose("Juego", "Nuevo Juego")
    ana.click_square(17)
    ana.answer(NO_UNIT)
    ana.choose_item("Tablero", "8x8")
    ana.click("Elefantes")
    ana.click_square(64)
    ana.sees("Elefantes, Jugador 1, cuadro 64, fila 8, columna 8")
    ana.sees("Elefantes, Jugador 2, cuadro 1, fila 1, columna 1")
    ana.choose_item("Tablero", "5x5")
    ana.sees_no(unit("*"))

    ana.click("Infantería")
    ana.click_square(12)
    ana.answer("SÓLO se permiten Unidades en las 2 primeras filas")
    ana.sees("Infantería, elegida")
    ana.click_square(16, times=2)
    ana.sees(unit(16), "Infantería, Jugador 2, cuadro 10, fila 2, columna 5")
    ana.click(unit(10), button=3)
    ana.sees_no(unit(16), unit(10))
    ana.click("Infantería, elegida")
    for square, name in ARMY.items():
        ana.click(name)
        ana.click_square(square)
        ana.sees(f"{name}, Jugador 1, cuadro {square},*", f"{name}, Jugador 2, cuadro {26 - square},*")
    ana.click_square(25)
    ana.answer("NO se permite ubicar más de 1 Bandera")
    ana.click("Iniciar")
    ana.answer(START, key="Return")  # No is what Enter gives
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
    ana.sees("Caballería, Jugador 1, cuadro 12, fila 3, columna 2")
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
    words = ana.pass_information()
    check_information(words)
    wait_for("the frame alone", lambda: ana.windows() == [FRAME])
    set_up(ana)
    play_and_save(ana)
    ana.close_window("En Juego")
    load_and_win(ana)
    ana.close_window("En Juego")
    ana.choose("Juego", "Nuevo Juego")
    ana.sees("Tablero 5x5")
    ana.sees_no(unit("*"))
    ana.keys("alt+F4")
    ana.answer(LEAVE, key="Return")  # No is what Enter gives
    ana.sees("Nuevo Juego")
    ana.leave()
