#!/usr/bin/python3
"""Plays network games between two real programs on a shared folder that keeps failing.

    tools/soak.py PROGRAM_FOLDER GAMES [MOST_TURNS]

The players move at random. Meanwhile the folder goes away and comes back, the file vanishes, is torn or
falls back to an older text, a copy is killed, perhaps while it writes, and joins again, and who is not in
turn moves what stands on the screen. After each turn the file must hold what that player's move makes of
the text before, and both screens must come to show it: no published turn may be lost, doubled or rolled
back. Ends with the figures, or at the first fault with a picture of both screens.
"""

import random
import re
import sys
import threading
import time
from collections import Counter
from pathlib import Path

from player import Player, Session, marker, saved_game, unit, wait_for

KINDS = ["", "Bandera", "Infantería", "Caballería", "Elefantes", "General"]
UNIT = re.compile(r"(\w+), Jugador (\d), cuadro (\d+),")
MARKER = re.compile(r"Mover al cuadro (\d+),")
WHOLE = re.compile(rb"([0-9;]+;\r\n){25}[12]\r\n(1[12]\r\n)?")


class Copy(Player):
    """A player with a program that can be killed and join again."""

    def __init__(self, session, program_folder, number):
        self.number = number
        self.status = f"Jugador {number}: En Turno"
        super().__init__(session, program_folder, f"Casa del jugador {number}")
        self.kill()

    def kill(self):
        self.program.kill()
        self.program.wait()
        wait_for("the program to go", lambda: not self.look("*"))

    def enter(self, path):
        self.start_program()
        self.pass_information()
        self.join(self.number, path)

    def settle(self):
        """Past the first look at the file, in which a copy out of turn writes."""
        self.sees("*Actualización en: -1-*", "*Actualización en: -5-*")

    def board(self):
        names = (UNIT.match(element.get_name()) for element in self.elements())
        return {int(m[3]): (int(m[2]), KINDS.index(m[1])) for m in names if m}

    def shows(self, pieces, status):
        wait_for(f"player {self.number} to see {pieces}", lambda: self.board() == pieces)
        self.sees(status)

    def select_any(self, pieces, player=None):
        """A unit of the player, or of this copy's, that can move, and where to; nothing when none can."""
        player = player or self.number
        own = [square for square, (owner, kind) in pieces.items() if owner == player and kind > 1]
        random.shuffle(own)
        for square in own:
            self.click(unit(square))
            time.sleep(0.5)
            names = (MARKER.match(element.get_name()) for element in self.elements())
            targets = [int(m[1]) for m in names if m]
            captures = [target for target in targets if target in pieces]
            if targets:
                return square, random.choice(captures or targets)
        return None


class Watcher(threading.Thread):
    """Keeps every whole text that stands in the file."""

    def __init__(self, path):
        super().__init__(daemon=True)
        self.path = path
        self.seen = []
        self.stopped = threading.Event()

    def run(self):
        while not self.stopped.wait(0.01):
            text = read(self.path)
            if WHOLE.fullmatch(text) and self.seen[-1:] != [text]:
                self.seen.append(text)


def read(path):
    try:
        return path.read_bytes()
    except OSError:
        return b""


def random_army():
    """A flag and two to four units of player 1 in the lower rows, and the mirrored army."""
    squares = random.sample(range(16, 26), random.randint(3, 5))
    kinds = [1] + [random.randint(2, 5) for _ in squares[1:]]
    own = {square: (1, kind) for square, kind in zip(squares, kinds)}
    return own | {26 - square: (2, kind) for square, (_, kind) in own.items()}


class Game:
    """From an own start file to a win, or for so many turns."""

    def __init__(self, copies, path, figures, most_turns):
        self.copies, self.path, self.figures = copies, path, figures
        self.most_turns = most_turns
        self.pieces, self.turn = random_army(), random.choice((1, 2))
        self.record = [saved_game(self.pieces, self.turn)]
        self.expected = self.record[0]
        self.killed_after_move = self.old_text_seen = False
        self.path.write_bytes(self.record[0])
        self.watcher = Watcher(path)
        self.watcher.start()
        for copy in random.sample(copies, 2):
            copy.enter(path)
        self.copy(3 - self.turn).settle()

    def copy(self, number):
        return self.copies[number - 1]

    def file_holds(self, *texts):
        return wait_for("the file to be right", lambda: (text := read(self.path)) in texts and text)

    # --- Faults: a waiting copy, or the turn that is played on, puts each of them right ----------------

    def folder_goes(self):
        away = self.path.parent.with_name("lejos")
        self.path.parent.rename(away)
        time.sleep(random.uniform(1, 12))
        away.rename(self.path.parent)

    def file_goes(self):
        self.path.unlink(missing_ok=True)
        time.sleep(random.uniform(0, 12))

    def file_is_torn(self):
        text = self.record[-1]
        self.path.write_bytes(text[: random.randrange(len(text))])
        time.sleep(random.uniform(0, 12))

    def waiting_copy_is_killed(self):
        self.replace(self.copy(3 - self.turn))

    def copy_in_turn_is_killed(self):
        self.killed_after_move = self.expected != self.record[-1]
        self.replace(self.copy(self.turn))

    def copy_is_killed_while_it_writes(self):
        self.replace(self.copy(self.turn), torn=True)

    def replace(self, copy, torn=False):
        copy.kill()
        if torn:
            self.file_is_torn()
        text = self.file_holds(self.record[-1], self.expected)
        copy.enter(self.path)
        if not text.endswith(b"\r\n%d\r\n" % copy.number):
            copy.settle()

    def old_text_comes_back(self):
        # Who was started anew since has forgotten the text that the turn was played from.
        self.old_text_seen = not self.killed_after_move
        if self.old_text_seen:
            self.path.write_bytes(self.record[-2])

    def waiting_player_tries_moves(self):
        self.try_moves(self.copy(3 - self.turn), self.turn)

    def turn_is_over_and_moves_go_on(self):
        self.try_moves(self.copy(self.turn), 3 - self.turn)

    def try_moves(self, copy, player):
        """Idle moves of both players, one after the other, so that the copy looks at the file again."""
        for owner in (player, 3 - player):
            move = copy.select_any(copy.board(), owner)
            shown = move and copy.look(marker(move[1]))
            if shown:
                area = copy.area(shown)
                copy.click_at(area.x + area.width / 2, area.y + area.height / 2)
            elif owner != player:
                killed_mover = copy.number == self.turn
                self.killed_after_move = killed_mover and self.expected != self.record[-1]
                self.replace(copy)

    AFTER = folder_goes, file_goes, file_is_torn, waiting_copy_is_killed, copy_in_turn_is_killed
    BEFORE = *AFTER, copy_is_killed_while_it_writes, waiting_player_tries_moves
    BEHIND = *AFTER, turn_is_over_and_moves_go_on
    LATER = (old_text_comes_back,)

    def fault(self, faults, percent=50):
        if random.randrange(100) < percent:
            fault = random.choice(faults)
            name = fault.__name__.replace("_", " ")
            print(f"  {name}", flush=True)
            self.figures[name] += 1
            fault(self)

    # --- Turns --------------------------------------------------------------------------------------

    def play(self):
        while len(self.record) <= self.most_turns and self.play_turn():
            pass
        self.file_holds(self.record[-1])
        for copy in self.copies:
            wait_for("the last board", lambda copy=copy: copy.board() == self.pieces)
        self.watcher.stopped.set()
        for copy in self.copies:
            copy.kill()
        self.figures["turns"] += len(self.record) - 1
        self.figures["games"] += 1

    def play_turn(self):
        """False at the end of the game."""
        mover, other = self.copy(self.turn), self.copy(3 - self.turn)
        self.file_holds(self.record[-1])
        mover.shows(self.pieces, mover.status)
        self.fault(self.BEFORE)
        mover.shows(self.pieces, mover.status)
        move = mover.select_any(self.pieces)
        if not move:
            return False
        origin, target = move
        print(f"turn {len(self.record)}: player {self.turn} from {origin} to {target}", flush=True)
        taken = self.pieces.get(target)
        pieces = self.pieces | {target: self.pieces[origin]}
        del pieces[origin]
        mover.click(marker(target))
        left = [kind for owner, kind in pieces.values() if owner == other.number and kind > 1]
        if taken and (taken[1] == 1 or not left):
            self.win(mover, other, pieces)
            return False
        mover.shows(pieces, other.status)
        self.expected = saved_game(pieces, other.number)
        self.killed_after_move = False
        self.fault(self.BEHIND)
        if self.killed_after_move and read(self.path) == self.record[-1]:
            self.expected = self.record[-1]  # a turn that wasn't published is played again
            return True
        self.file_holds(self.expected)
        self.publish(pieces, self.expected)
        other.shows(pieces, other.status)
        self.fault(self.LATER, 25)
        return True

    def publish(self, pieces, *texts):
        """The next text of the record stands in the file: nothing else may have stood there."""
        allowed = {*self.record[-2 if self.old_text_seen else -1 :], *texts}
        seen, self.watcher.seen = self.watcher.seen, []
        assert allowed.issuperset(seen), f"unknown texts: {set(seen) - allowed}"
        self.record.append(texts[-1])
        self.pieces, self.turn, self.old_text_seen = pieces, 3 - self.turn, False

    def win(self, mover, other, pieces):
        position = saved_game(pieces, mover.number)
        for copy, caption in (mover, "Victoria"), (other, "Derrota"):
            words = copy.find("*", "label", copy.find("*", "alert")).get_name()
            assert words.startswith(f"JUGADOR -{mover.number}- HA "), words
            copy.answer(words)
            copy.sees(f"{caption} - Juego finalizado")
        self.file_holds(position + b"1%d\r\n" % mover.number)
        self.publish(pieces, position, position + b"1%d\r\n" % mover.number)
        self.figures["games won"] += 1


def main(program_folder, games, most_turns=30):
    figures = Counter()
    begun = time.monotonic()
    with Session() as session:
        path = session.folder / "carpeta compartida" / "partida.txt"
        path.parent.mkdir()
        copies = [Copy(session, program_folder, number) for number in (1, 2)]
        for _ in range(games):
            Game(copies, path, figures, most_turns).play()
            print(f"after {time.monotonic() - begun:.0f} seconds:", dict(figures), flush=True)


if __name__ == "__main__":
    if len(sys.argv) not in (3, 4):
        sys.exit(__doc__)
    main(sys.argv[1], *map(int, sys.argv[2:]))
