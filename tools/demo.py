#!/usr/bin/python3
"""Plays a recorded game through the real windows on a virtual screen, looks whether all is as it should
be, and leaves pictures of it.

demo.py PROGRAM_FOLDER           a picture of each move too, in capturas/ where it is started
demo.py PROGRAM_FOLDER --manual  those that README and manual show, in docs/capturas/
"""

import re
import subprocess
import sys
from pathlib import Path

from player import START, VICTORY, Player, Session, marker, saved_game, unit, value_of, wait_for

ROOT = Path(__file__).resolve().parent.parent
FRAME = "Vornath - Falanges Z - Tomar El Estandarte"
KINDS = ["Bandera", "Infantería", "Caballería", "Elefantes", "General"]
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
    player.click(unit(25), button=3)
    player.sees_no(unit(25), unit(12))
    player.click("Infantería")
    player.click_square(25, times=2)
    player.sees("Infantería, Jugador 1, cuadro 25,*", "Infantería, Jugador 2, cuadro 12,*")
    player.photograph("nuevo-juego")
    player.click("Iniciar")
    player.answer(START, "Sí")
    player.sees("En Juego", "Jugador 1: En Turno", "Jugador 2: En Espera")


def pieces_after(moves):
    pieces = {}
    for name, squares in ARMY.items():
        for square in squares:
            pieces |= {square: (1, KINDS.index(name) + 1), 37 - square: (2, KINDS.index(name) + 1)}
    for origin, target in moves:
        pieces[target] = pieces.pop(origin)
    return pieces


def save_and_load(player):
    player.choose("Juego", "Guardar Juego")
    proposed = value_of(player.find("Nombre:", "text"))
    assert re.fullmatch(r"JuegoGuardado(-\d\d){2}-\d{4}(-\d\d){3}", proposed), proposed
    player.choose_file("Guardar Juego", proposed)
    saved = player.folder / "jguardados" / proposed
    text = saved_game(pieces_after(OPENING), 1, side=6)
    wait_for("the saved game", lambda: saved.exists() and saved.read_bytes() == text)
    player.close_window("En Juego")
    player.choose("Juego", "Cargar Juego")
    player.choose_item("Archivos de texto", "Todos los archivos")
    player.sees(proposed)
    player.photograph("cargar")
    player.choose_file("Cargar Juego", proposed)
    player.sees("En Juego")
    return saved


def win(player):
    origin, target = LAST
    player.click(unit(origin))
    player.click(marker(target))
    player.sees(VICTORY.format(1))
    player.photograph("victoria")
    player.answer(VICTORY.format(1))
    player.sees("Jugador 1: En Turno", f"*, Jugador 1, cuadro {target},*")
    player.click(unit(target))
    assert player.entries("Juego") == ["Declarar Rendición", "1 En Juego"]
    player.sees_no(marker("*"))  # a finished game can only be looked at
    player.close_window("En Juego")


def join(player, game):
    player.choose("Juego", "Nuevo Juego")
    player.choose("Opciones")
    player.sees("Jugar en Red")
    player.photograph("opciones")
    player.click("Cargar Juego en Red")
    player.choose_file("Cargar Juego", game)
    player.sees("Jugador -1- Actualización en: -*- segundos")
    player.photograph("red")


def main():
    program_folder, *options = sys.argv[1:]
    manual = options == ["--manual"]
    album = ROOT / "docs/capturas" if manual else Path("capturas")
    with Session() as session:
        player = Photographer(session, program_folder, album, each_move=not manual)
        player.sees("Aceptar")
        assert len(player.windows()) == 1, "the box stands alone"
        player.photograph("informacion")
        assert re.search(rf"\n{FRAME} - v\d+\.\d+\n", player.pass_information())
        wait_for("the frame alone", lambda: player.windows() == [FRAME])
        set_up(player)
        player.play(OPENING)
        player.click(unit(23))
        player.sees(marker(16))
        player.photograph("en-juego")
        player.click(unit(23))
        saved = save_and_load(player)
        player.play(ENDING)
        win(player)
        join(player, saved)
        player.leave()


main()
