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
        row, column = divmod(self.square - 1, 5)
        rows, columns = (square - 1) // 5 - row, (square - 1) % 5 - column
        steps = [("Down" if rows > 0 else "Up", 5 if rows > 0 else -5)] * abs(rows)
        steps += [("Right" if columns > 0 else "Left", 1 if columns > 0 else -1)] * abs(columns)
        for key, step in steps:
            self.square += step
            row, column = divmod(self.square - 1, 5)
            self.key(key, f"*uadro {self.square}, fila {row + 1}, columna {column + 1}*")

    def say_yes(self, words):
        """No has the focus at first."""
        self.sits_at("No")
        self.key("Left", "Sí")
        self.answer(words, key="Return")

    def name_file(self, name):
        self.sits_at("Nombre:")
        self.keys("ctrl+a")
        self.tool("xdotool", "type", "--delay", "20", name)
        self.keys("Return")
        self.sees_no("Nombre:")

    def move_by_keys(self, origin, target, name):
        self.walk(origin)
        self.key("Return", f"{name}, cuadro {origin},*, seleccionada")
        self.walk(target)
        self.sits_at(marker(target))
        self.key("space", f"{name}, cuadro {target},*")

    def move_by_names(self, origin, target):
        self.press(unit(origin))
        self.press(marker(target))
        self.sees_no(marker("*"))


def change_options(ana):
    ana.keys("alt+o")
    ana.sits_at("Permitir más de 1 Bandera")
    ana.key("Tab", "Permitir Unidades en cualquier fila")
    ana.keys("space")
    ana.key("Tab", "Cargar Juego en Red")
    ana.key("Tab", "Segundos de Actualización")
    ana.keys("8")
    ana.key("Tab", "Jugador de Red")
    ana.key("Tab", "Movimientos por Turno")
    ana.keys("ctrl+F4")
    ana.sees_no("Opciones de Configuración")
    assert (ana.folder / "VornathFalangesZTEE.cfg").read_bytes() == b"0;1;8;1;\r\n"


def set_up(ana):
    ana.choose_by_keys("j", "n")
    ana.sits_at("Tablero 5x5")
    ana.key("Tab", "Tablero")
    ana.key("Down", "Tablero 6x6")
    ana.key("Tab", "Tablero")
    ana.key("Up", "Tablero 5x5")
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
    ana.keys("1")
    ana.hears("Infantería, elegida")
    ana.key("space", "Infantería, Jugador 1, cuadro 25,*")
    ana.sees(unit(1))
    ana.key("Delete", "Cuadro 25, fila 5, columna 5, vacío")
    ana.sees_no(unit(1))
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
    ana.key("Escape", "Cuadro 12, fila 3, columna 2, vacío")
    ana.move_by_keys(17, 12, "Infantería, Jugador 1")
    ana.sees("Jugador 1: En Espera", "Jugador 2: En Turno")
    ana.move_by_keys(7, 12, "Elefantes, Jugador 2")
    ana.move_by_names(18, 12)
    ana.sits_at("Caballería, Jugador 1, cuadro 12, fila 3, columna 2")


def save_and_load(ana):
    ana.choose_by_keys("j", "g")
    ana.name_file("partida.txt")
    ana.keys("ctrl+F4")
    ana.sees_no("En Juego")
    ana.choose_by_keys("j", "c")
    ana.name_file("partida.txt")
    ana.sees("Jugador 2: En Turno", "Caballería, Jugador 1, cuadro 12,*")
    ana.sees_no(unit(17), unit(7), unit(18))


with Session() as session:
    ana = BlindPlayer(session, sys.argv[1])
    ana.listen()
    ana.sits_at("Aceptar")
    ana.pass_information()
    change_options(ana)
    set_up(ana)
    play(ana)
    save_and_load(ana)
    ana.move_by_names(9, 14)
    ana.move_by_names(12, 6)
    ana.move_by_names(8, 12)
    ana.press(unit(6))
    ana.press(marker(2))
    ana.answer(VICTORY.format(1), key="Return")
    ana.keys("ctrl+F4")
    ana.sees_no("En Juego")
    ana.keys("alt+F4")
    ana.say_yes(LEAVE)
    ana.pass_information()
    assert ana.program.wait() == 0
