#!/usr/bin/python3
"""A game begun without looking at the screen: names heard on the accessibility bus, and keys."""

import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
from player import LEAVE, START, Player, Session  # noqa: E402


def change_options(ana):
    ana.keys("alt+o")
    ana.sits_at("Permitir más de 1 Bandera")
    ana.goes("Tab", "Permitir Unidades en cualquier fila")
    ana.keys("space")
    ana.goes("Tab", "Cargar Juego en Red")
    ana.goes("Tab", "Segundos de Actualización")
    ana.keys("8", "ctrl+F4")
    ana.sees_no("Opciones de Configuración")
    assert (ana.folder / "VornathFalangesZTEE.cfg").read_bytes() == b"0;1;8;1;\r\n"


def set_up(ana):
    ana.choose_by_keys("j", "n")
    ana.sits_at("Tablero 5x5")
    ana.goes("Left", "Cuadro 21, fila 5, columna 1, vacío")
    ana.keys("5")
    ana.hears("Bandera, elegida")
    ana.goes("Return", "Bandera, Jugador 1, cuadro 21,*")
    ana.goes("Up", "Cuadro 16, fila 4, columna 1, vacío")
    ana.keys("Return")
    ana.answer("NO se permite ubicar más de 1 Bandera", key="Return")
    ana.sits_at("Cuadro 16, fila 4, columna 1, vacío")
    for digit, name in enumerate(["Infantería", "Caballería", "Elefantes", "General"], 1):
        ana.goes("Right", f"Cuadro {16 + digit},*")
        ana.keys(str(digit))
        ana.hears(f"{name}, elegida")
        ana.goes("Return", f"{name}, Jugador 1, cuadro {16 + digit},*")
    # Forwards the way leads over the list, and to leave that takes the army off the board.
    ana.goes("shift+Tab", "Iniciar")
    ana.keys("Return")
    ana.sits_at("No")
    ana.goes("Left", "Sí")
    ana.answer(START, key="s")


def play(ana):
    ana.sits_at("Tablero 5x5")
    ana.goes("Left", "Bandera, Jugador 1, cuadro 21,*")
    ana.keys("Right")
    ana.goes("Up", "Infantería, Jugador 1, cuadro 17,*")
    ana.goes("Return", "Infantería, Jugador 1, cuadro 17, fila 4, columna 2, seleccionada")
    ana.goes("Up", "Mover al cuadro 12, fila 3, columna 2*")
    ana.goes("space", "Infantería, Jugador 1, cuadro 12,*")
    ana.hears("! Jugador 2: En Turno")


with Session() as session:
    ana = Player(session, sys.argv[1])
    ana.listen()
    ana.sits_at("Aceptar")
    ana.pass_information()
    change_options(ana)
    set_up(ana)
    play(ana)
    ana.keys("alt+F4")
    ana.answer(LEAVE, key="s")
    ana.pass_information()
    assert ana.program.wait() == 0
