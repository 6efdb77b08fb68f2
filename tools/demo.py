#!/usr/bin/python3
"""Plays a recorded game through the real windows on a virtual screen and leaves pictures of it.

demo.py PROGRAM_FOLDER           a picture of each move too, in capturas/
demo.py PROGRAM_FOLDER --manual  those that README and manual show, in docs/capturas/
"""

import subprocess
import sys
from pathlib import Path

from player import START, VICTORY, Player, Session, marker, unit

ROOT = Path(__file__).resolve().parent.parent
ARMY = {
    "Infantería": (25, 26, 27, 29, 30),
    "Caballería": (31, 36),
    "Elefantes": (28, 32, 35),
    "General": (34,),
    "Bandera": (33,),
}
OPENING = [(28, 22), (10, 16), (22, 16), (11, 16), (29, 23), (3, 10)]
ENDING = [(23, 16), (9, 15), (16, 11), (15, 21)]
LAST = (11, 4)


class Photographer(Player):
    def __init__(self, session, program_folder, folder, each_move):
        super().__init__(session, program_folder, "Falanges", "1024x620")
        self.album = folder
        self.each_move = each_move
        self.moves = 0
        folder.mkdir(parents=True, exist_ok=True)
        # Says 1 also when all is well.
        command = ["display", "-window", "root", "-size", "1024x620", "xc:#2d4a63"]
        subprocess.run(command, env=self.environment, check=False)

    def photograph(self, name):
        """With few colours, to keep the file small."""
        picture = str(self.album / f"{name}.png")
        self.picture(picture)
        self.tool("convert", picture, "+dither", "-colors", "128", f"PNG8:{picture}")

    def play(self, moves):
        for origin, target in moves:
            self.move(origin, target)
            self.moves += 1
            if self.each_move:
                self.photograph(f"jugada-{self.moves:02}")


def set_up(player):
    player.choose("Juego", "Nuevo Juego")
    player.choose_item("Tablero", "6x6")
    for name, squares in ARMY.items():
        player.click(name)
        for square in squares:
            player.click_square(square)
            player.sees(unit(square), unit(37 - square))
    player.photograph("nuevo-juego")
    player.click("Iniciar")
    player.answer(START, "Sí")
    player.sees("En Juego")


def save_and_load(player):
    player.choose("Juego", "Guardar Juego")
    player.choose_file("Guardar Juego", "partida.txt")
    player.close_window("En Juego")
    player.choose("Juego", "Cargar Juego")
    player.sees("partida.txt")
    player.photograph("cargar")
    player.choose_file("Cargar Juego", "partida.txt")
    player.sees("En Juego")


def win(player):
    origin, target = LAST
    player.click(unit(origin))
    player.click(marker(target))
    player.sees(VICTORY.format(1))
    player.photograph("victoria")
    player.answer(VICTORY.format(1))
    player.close_window("En Juego")


def join(player):
    player.choose("Juego", "Nuevo Juego")
    player.choose("Opciones")
    player.sees("Jugar en Red")
    player.photograph("opciones")
    player.click("Cargar Juego en Red")
    player.choose_file("Cargar Juego", "partida.txt")
    player.sees("Jugador -1- Actualización en: -*- segundos")
    player.photograph("red")


def main():
    program_folder, *options = sys.argv[1:]
    manual = options == ["--manual"]
    album = ROOT / ("docs/capturas" if manual else "capturas")
    with Session() as session:
        player = Photographer(session, program_folder, album, each_move=not manual)
        player.sees("Aceptar")
        player.photograph("informacion")
        player.pass_information()
        set_up(player)
        player.play(OPENING)
        player.click(unit(23))
        player.sees(marker(16))
        player.photograph("en-juego")
        player.click(unit(23))
        save_and_load(player)
        player.play(ENDING)
        win(player)
        join(player)
        player.leave()


main()
