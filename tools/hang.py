#!/usr/bin/python3
"""Plays a network game over a share that stops answering: no window may stop with it.

    tools/hang.py PROGRAM_FOLDER [SECONDS]

Two copies reach one folder over two mounts, served on this machine. The server is stopped in the middle of
the game, not ended, so that whoever asks it waits. Meanwhile both windows are asked and played with all
the time; none may keep anybody waiting for more than half a second. When the server goes on so must the
game, and a copy that is closed while it hangs must be gone within a second of its last window.
Needs the Debian packages sshfs, socat and openssh-sftp-server, and the right to mount.
"""

import os
import signal
import socket
import subprocess
import sys
import time

from player import LEAVE, Player, Session, marker, saved_game, unit, wait_for

PIECES = {23: (1, 2), 25: (1, 1), 3: (2, 2), 1: (2, 1)}
LOST = "Sin acceso al archivo - Reintentando..."


class Share:
    """A folder that is served on this machine."""

    def __init__(self, session):
        self.session = session
        self.folder = session.folder / "servida"
        self.folder.mkdir()
        with socket.socket() as free:
            free.bind(("127.0.0.1", 0))
            self.port = free.getsockname()[1]
        listen = f"TCP-LISTEN:{self.port},bind=127.0.0.1,fork,reuseaddr"
        self.server = session.start("socat", listen, "EXEC:/usr/lib/openssh/sftp-server")
        self.mounts = []

    def mount(self, name):
        place = self.session.folder / name
        place.mkdir()
        options = f"directport={self.port},cache=no"
        wait_for(
            "the mount",
            lambda: not subprocess.call(["sshfs", "-o", options, f"127.0.0.1:{self.folder}", place]),
        )
        self.mounts.append(place)
        return place

    def everyone(self, what):
        """Sends the signal to all processes of the server, which has one or two for each mount."""
        parents = [self.server.pid]
        for parent in parents:
            run = subprocess.run(["pgrep", "-P", str(parent)], stdout=subprocess.PIPE, text=True)
            parents += map(int, run.stdout.split())
        for pid in parents[1:]:
            os.kill(pid, what)

    def end(self):
        self.everyone(signal.SIGCONT)
        for place in self.mounts:
            subprocess.call(["umount", "--lazy", place])


def has_ended(pid):
    """Whether the process's first thread has come to its end."""
    try:
        with open(f"/proc/{pid}/stat") as stat:
            return stat.read().rsplit(")", 1)[1].split()[0] == "Z"
    except OSError:
        return True


def longest_wait(copies, seconds):
    """Asks each window for its elements' names, one after the other, and gives the slowest answer."""
    slowest = 0.0
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        for copy in copies:
            for element in copy.elements():
                start = time.monotonic()
                element.get_name()
                slowest = max(slowest, time.monotonic() - start)
        time.sleep(0.05)
    return slowest


def main():
    program_folder, seconds = sys.argv[1], float((sys.argv[2:] or ["20"])[0])
    with Session() as session:
        share = Share(session)
        try:
            play(session, share, program_folder, seconds)
        finally:
            share.end()


def play(session, share, program_folder, seconds):
    name = "partida.txt"
    (share.folder / name).write_bytes(saved_game(PIECES, 1))
    ana, blas = copies = [Player(session, program_folder, f"Casa {n}") for n in (1, 2)]
    for number, copy in enumerate(copies, 1):
        path = share.mount(f"red {number}") / name
        copy.pass_information()
        copy.join(number, path)
    # Past the first look, in which the copy out of turn writes.
    blas.sees("*Actualización en: -1-*", "*Actualización en: -5-*")
    ana.move(23, 18)

    share.everyone(signal.SIGSTOP)
    start = time.monotonic()
    blas.sees(LOST)
    blas.click(unit(23))
    blas.sees(marker(18))  # an idle click, but its window answers
    slowest = longest_wait(copies, max(0, seconds - (time.monotonic() - start)))
    print(f"{time.monotonic() - start:.0f} s without a server: slowest answer {slowest:.3f} s")
    assert slowest < 0.5
    share.everyone(signal.SIGCONT)
    blas.sees(unit(18), "Jugador 2: En Turno")
    blas.move(3, 8)
    ana.sees(unit(8), "Jugador 1: En Turno")
    print("the game went on")

    share.everyone(signal.SIGSTOP)
    ana.sees(LOST)
    ana.keys("alt+F4")
    ana.answer(LEAVE, "Sí")
    ana.pass_information()
    start = time.monotonic()
    wait_for("the process to end", lambda: has_ended(ana.program.pid))
    ended = time.monotonic() - start
    print(f"closed while it hung: gone after {ended:.2f} s")
    assert ended < 1
    # What the system itself holds of a process that waits for this kind of mount goes with the answer.
    share.everyone(signal.SIGCONT)
    assert ana.program.wait(5) == 0


if __name__ == "__main__":
    main()
