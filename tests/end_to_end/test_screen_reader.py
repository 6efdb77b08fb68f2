#!/usr/bin/python3
"""A whole game without looking at the screen: names heard on the accessibility bus, and keys."""

import fnmatch
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
from player import LEAVE, START, VICTORY, Player, Session, marker, unit, wait_for  # noqa: E402


class BlindPlayer(Player):
    square = 0  # of the cursor on the board that has the focus

    def sits_at(self, words):
        wait_for(f"the focus on {words!r}", lambda: fnmatch.fnmatchcase(self.focused(), words))

    def key(self, key, words):
        """What the key does is said, and the element with the focus has that name."""
        self.keys(key)
        self.hears(words)
        self.sits_at(words)

    def sits_at_board(self):
        """The first arrow key puts the cursor on the lower left square."""
        self.sits_at("Tablero 5x5")
        self.key("Left", "*uadro 21, fila 5, columna 1*")
        self.square = 21

    def walk(self, square):
        while self.square != square:
            rows = (square - 1) // 5 - (self.square - 1) // 5
            step = 5 * (rows > 0) - 5 * (rows < 0) or (1 if square > self.square else -1)
            self.square += step
            key = {5: "Down", -5: "Up", 1: "Right", -1: "Left"}[step]
            self.key(key, f"*uadro {self.square}, fila *")

    def say_yes(self, words):
        """No has the focus at first."""
        self.sits_at("No")
        self.key("Left", "Sí")
        self.answer(words, key="Return")


def change_options(ana):
    ana.keys("alt+o")
    ana.sits_at("Permitir más de 1 Bandera")
    ana.key("Tab", "Permitir Unidades en cualquier fila")
    ana.keys("space")
    for words in "Cargar Juego en Red", "Segundos de Actualización":
        ana.key("Tab", words)
    ana.keys("8")
    ana.key("Tab", "Jugador de Red")
    ana.key("Tab", "Movimientos por Turno")
    ana.keys("ctrl+F4")
    ana.sees_no("Opciones de Configuración")
    assert (ana.folder / "VornathFalangesZTEE.cfg").read_bytes() == b"0;1;8;1;\r\n"


def set_up(ana):
    ana.choose_by_keys("j", "n")
    ana.sits_at("Tablero 5x5")
    for key, board in ("Down", "Tablero 6x6"), ("Up", "Tablero 5x5"):
        ana.key("Tab", "Tablero")
        ana.key(key, board)
    ana.sits_at_board()
    army = {17: "Infantería", 18: "Caballería", 19: "Elefantes", 20: "General", 24: "Bandera"}
    for digit, (square, name) in enumerate(army.items(), 1):
        ana.keys(str(digit))
        ana.hears(f"{name}, elegida")
        ana.walk(square)
        ana.key("Return", f"{name}, Jugador 1, cuadro {square},*")
    ana.walk(25)
    ana.keys("Return")
    ana.answer("NO se permite ubicar más de 1 Bandera", key="Return")
    ana.sits_at("Cuadro 25, fila 5, columna 5, vacío")
    # Forwards the way leads over the list, and to leave that takes the army off the board.
    ana.key("shift+Tab", "Iniciar")
    ana.keys("Return")
    ana.say_yes(START)


def play(ana):
    ana.sits_at_board()
    ana.sees("Jugador 1: En Turno", "Jugador 2: En Espera")
    ana.walk(17)
    ana.key("Return", "Infantería, Jugador 1, cuadro 17, fila 4, columna 2, seleccionada")
    ana.walk(12)
    ana.sits_at("Mover al cuadro 12, fila 3, columna 2")
    ana.key("space", "Infantería, Jugador 1, cuadro 12,*")
    ana.hears("! Jugador 2: En Turno")
    for origin, target in (7, 12), (18, 12), (9, 14), (12, 6), (8, 12), (6, 2):
        ana.press(unit(origin))
        ana.press(marker(target))
    ana.answer(VICTORY.format(1), key="Return")
    ana.sees("Caballería, Jugador 1, cuadro 2, fila 1, columna 2")


with Session() as session:
    ana = BlindPlayer(session, sys.argv[1])
    ana.listen()
    ana.sits_at("Aceptar")
    ana.pass_information()
    change_options(ana)
    set_up(ana)
    play(ana)
    ana.keys("ctrl+F4")
    ana.sees_no("En Juego")
    ana.keys("alt+F4")
    ana.say_yes(LEAVE)
    ana.pass_information()
    assert ana.program.wait() == 0
