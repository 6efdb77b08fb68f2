#!/usr/bin/python3
"""Ana and Bea join a game in a shared folder from screens of their own, and Bea wins."""

import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
from player import VICTORY, Player, Session, saved_game  # noqa: E402

DEFEAT = """JUGADOR -2- HA VENCIDO

Cierre la ventana del Tablero para iniciar otro juego"""


with Session() as session:
    shared = session.folder / "carpeta compartida" / "partida.txt"
    shared.parent.mkdir()
    pieces = {6: (2, 2), 7: (2, 5), 8: (2, 1), 10: (2, 2), 16: (1, 2), 18: (1, 1), 19: (1, 5), 20: (1, 2)}
    shared.write_bytes(saved_game(pieces, 1))
    ana = Player(session, sys.argv[1], "Casa de Ana")
    bea = Player(session, sys.argv[1], "Casa de Begoña")
    ana.pass_information()
    bea.pass_information()
    ana.join(1, shared)
    ana.move(16, 11)
    bea.join(2, shared)

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
