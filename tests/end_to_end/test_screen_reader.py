#!/usr/bin/python3
"""A game begun without looking at the screen: names heard on the accessibility bus, and keys."""

import sys

from player import START, Player, Session


def set_up(ana):
    ana.choose_by_keys("j", "n")
    ana.sits_at("Tablero 5x5")
    ana.goes("Left", "Cuadro 21, fila 5, columna 1, vacío")
    ana.keys("5")
    ana.hears("Bandera, elegida")
    ana.goes("Return", "Bandera, Jugador 1, cuadro 21,*")
    for digit, name in enumerate(["Infantería", "Caballería", "Elefantes", "General"], 1):
        ana.goes("Right", f"Cuadro {21 + digit}, fila 5, columna {1 + digit}, vacío")
        ana.keys(str(digit))
        ana.hears(f"{name}, elegida")
        ana.goes("Return", f"{name}, Jugador 1, cuadro {21 + digit},*")
    # Forwards the way leads over the list, and to leave that takes the army off the board.
    ana.goes("shift+Tab", "Iniciar")
    ana.keys("Return")
    ana.sits_at("No")
    ana.goes("Left", "Sí")
    ana.answer(START, key="s")


def play(ana):
    ana.sits_at("Tablero 5x5")
    ana.goes("Left", "Bandera, Jugador 1, cuadro 21,*")
    ana.goes("Right", "Infantería, Jugador 1, cuadro 22,*")
    ana.goes("Return", "Infantería, Jugador 1, cuadro 22, fila 5, columna 2, seleccionada")
    ana.goes("Up", "Mover al cuadro 17, fila 4, columna 2*")
    ana.goes("space", "Infantería, Jugador 1, cuadro 17,*")
    ana.hears("! Jugador 2: En Turno")


with Session() as session:
    ana = Player(session, sys.argv[1])
    ana.listen()
    ana.sits_at("Aceptar")
    ana.pass_information()
    set_up(ana)
    play(ana)
    ana.leave()
