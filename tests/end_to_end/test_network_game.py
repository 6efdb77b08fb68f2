#!/usr/bin/python3
"""Ana sets up a game and saves it in a shared folder; Bea joins from her own screen, and wins."""

import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
from player import START, VICTORY, Player, Session, saved_game, unit, wait_for  # noqa: E402

DEFEAT = """JUGADOR -2- HA VENCIDO

Cierre la ventana del Tablero para iniciar otro juego"""


def make_game(player, path):
    player.choose("Juego", "Nuevo Juego")
    for name, squares in {"Infantería": (16, 20), "General": (19,), "Bandera": (18,)}.items():
        player.click(name)
        for square in squares:
            player.click_square(square)
            player.sees(unit(square), unit(26 - square))
    player.click("Iniciar")
    player.answer("DEBE colocar al menos 1 Unidad de cada tipo\n" + START, "Sí")
    player.choose("Juego", "Guardar Juego")
    player.choose_file("Guardar Juego", path)
    wait_for("the game to be shared", path.exists)


def join(player, number, path):
    player.choose("Opciones")
    player.type_into("Segundos de Actualización", "5")
    player.choose_item("Jugador de Red", number)
    player.click("Cargar Juego en Red")
    player.choose_file("Cargar Juego", path)
    player.sees_no("Opciones de Configuración")
    player.sees(f"Jugador -{number}- Actualización en: -?- segundos")


with Session() as session:
    shared = session.folder / "carpeta compartida" / "partida.txt"
    shared.parent.mkdir()
    ana = Player(session, sys.argv[1], "Casa de Ana")
    bea = Player(session, sys.argv[1], "Casa de Begoña")
    ana.pass_information()
    bea.pass_information()
    make_game(ana, shared)
    join(ana, "1", shared)
    ana.move(16, 11)
    join(bea, "2", shared)

    bea.sees("Infantería, Jugador 1, cuadro 11,*", "Jugador 2: En Turno")
    bea.move(7, 13)
    ana.sees("General, Jugador 2, cuadro 13,*", "Jugador 1: En Turno")
    ana.move(20, 15)
    bea.sees("Infantería, Jugador 1, cuadro 15,*", "Jugador 2: En Turno")
    bea.move(13, 18, wins=VICTORY.format(2))
    bea.sees("Victoria - Juego finalizado", "Jugador 1: Derrota", "Jugador 2: Victoria")
    ana.answer(DEFEAT)
    ana.sees("Derrota - Juego finalizado", "Jugador 1: Derrota", "Jugador 2: Victoria")
    ana.sees("General, Jugador 2, cuadro 18,*")

    pieces = {6: (2, 2), 8: (2, 1), 10: (2, 2), 11: (1, 2), 15: (1, 2), 18: (2, 5), 19: (1, 5)}
    assert shared.read_bytes() == saved_game(pieces, 2) + b"12\r\n"
    ana.leave()
    bea.leave()
