#!/usr/bin/python3
"""Watches the memory of a copy that waits for its turn with a question open, which nobody answers.

    tools/memory.py PROGRAM_FOLDER

At each look of the copy at the shared file another position stands there, so that it builds its board
anew behind the question: 2,000 times, as in a night. After the first 200 its resident memory may grow by
2 MiB, no more. Once the question stands, time goes a hundred times as fast for the copy.
Needs the Debian package libfaketime.
"""

import ctypes
import os
import select
import struct
import sys
from pathlib import Path

from player import LEAVE, PATIENCE, Player, Session, saved_game, unit

SPEED = 100
LIBRARY = f"/usr/lib/{os.uname().machine}-linux-gnu/faketime/libfaketime.so.1"
FIRST, LAST = 200, 2000  # refreshes
ALLOWED = 2048  # KiB
# Player 1 is in turn, and the copy is player 2's.
POSITIONS = [saved_game({1: (2, 1), 25: (1, 1), square: (1, 2)}, 1) for square in (17, 18)]


class HurriedPlayer(Player):
    def start_program(self):
        self.clock = self.session.folder / "clock"
        self.let_time_go(1)
        clock = {"FAKETIME_TIMESTAMP_FILE": str(self.clock), "FAKETIME_NO_CACHE": "1"}
        environment = self.environment
        self.environment = environment | clock | {"LD_PRELOAD": LIBRARY}
        super().start_program()
        self.environment = environment

    def let_time_go(self, speed):
        self.clock.write_text(f"+0 x{speed}")

    def resident(self):
        """KiB."""
        status = Path(f"/proc/{self.program.pid}/status").read_text()
        return int(status.split("VmRSS:")[1].split()[0])


class Looks:
    """Tells when somebody has read a file: a writer of it is none."""

    IN_CLOSE_NOWRITE = 0x10

    def __init__(self, path):
        libc = ctypes.CDLL(None)
        self.events = libc.inotify_init()
        libc.inotify_add_watch(self.events, os.fsencode(path), self.IN_CLOSE_NOWRITE)

    def wait(self):
        """For the next look; those that were missed meanwhile count as one."""
        assert select.select([self.events], [], [], PATIENCE)[0], "nobody looks any more"
        os.read(self.events, 100 * struct.calcsize("iIII"))


def main(program_folder):
    with Session() as session:
        path = session.folder / "partida.txt"
        path.write_bytes(POSITIONS[0])
        ana = HurriedPlayer(session, program_folder)
        ana.pass_information()
        ana.join(2, path)
        ana.sees("*Actualización en:*")
        ana.keys("alt+F4")
        ana.sees(LEAVE)
        ana.let_time_go(SPEED)
        looks = Looks(path)
        for count in range(1, LAST + 1):
            looks.wait()
            path.write_bytes(POSITIONS[(count + 1) % 2])
            if count % FIRST == 0:
                resident = ana.resident()
                print(f"{count} refreshes: {resident} KiB resident", flush=True)
                first = resident if count == FIRST else first
        ana.sees(unit(18))  # the last one
        grown = resident - first
        print(f"{grown} KiB more than after {FIRST}")
        assert grown <= ALLOWED, f"more than {ALLOWED} KiB"


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    main(sys.argv[1])
