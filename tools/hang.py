#!/usr/bin/python3
"""Plays a network game over a share that stops answering: no window may stop with it.

    tools/hang.py PROGRAM_FOLDER [SECONDS]

Two copies reach one folder over two mounts, served on this machine. The server is stopped, not ended, so
that whoever asks it waits: during a turn, at a win, at joining and at leaving. Meanwhile the windows are
asked and played with all the time; none may keep anybody waiting for more than half a second. When the
server goes on so must the game, and a copy that is closed while it hangs must be gone within a second of
its last window.
Needs the Debian packages sshfs, socat and openssh-sftp-server, and the right to mount.
"""

import fcntl
import os
import signal
import socket
import subprocess
import sys
import time

from player import LEAVE, VICTORY, Player, Session, marker, saved_game, unit, wait_for

NAME = "partida.txt"
PIECES = {23: (1, 2), 25: (1, 1), 3: (2, 2), 1: (2, 1)}
NEARLY_WON = {6: (1, 2), 25: (1, 1), 20: (2, 2), 1: (2, 1)}
DEFEAT = """JUGADOR -1- HA VENCIDO

Cierre la ventana del Tablero para iniciar otro juego"""
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
    ana, blas = copies = [Player(session, program_folder, f"Casa {n}") for n in (1, 2)]
    mounts = [share.mount(f"red {number}") for number in (1, 2)]
    for copy in copies:
        copy.pass_information()

    begin(share, copies, mounts, PIECES)
    a_turn(share, copies, seconds)
    for copy, caption in (ana, "Jugador -1-*"), (blas, "Jugador -2-*"):
        copy.close_window(caption)
    begin(share, copies, mounts, NEARLY_WON)
    a_win(share, copies, seconds)
    for copy, caption in (ana, "Victoria - Juego finalizado"), (blas, "Derrota - Juego finalizado"):
        copy.close_window(caption)
    a_join(share, blas, mounts[1] / NAME, seconds)
    ana.join(1, mounts[0] / NAME)
    an_end(share, ana)


def begin(share, copies, mounts, pieces):
    (share.folder / NAME).write_bytes(saved_game(pieces, 1))
    for number, (copy, mount) in enumerate(zip(copies, mounts), 1):
        copy.join(number, mount / NAME)
    # Past the first look, in which the copy out of turn may write.
    copies[1].sees("*Actualización en: -1-*", "*Actualización en: -5-*")


def hung_for(share, copies, seconds, what):
    """The rest of that time without a server."""
    slowest = longest_wait(copies, seconds)
    print(f"{what}, {seconds:.0f} s without a server: slowest answer {slowest:.3f} s", flush=True)
    assert slowest < 0.5
    share.everyone(signal.SIGCONT)


def a_turn(share, copies, seconds):
    ana, blas = copies
    ana.move(23, 18)
    share.everyone(signal.SIGSTOP)
    blas.sees(LOST)
    blas.click(unit(23))
    blas.sees(marker(18))  # an idle click, but its window answers
    hung_for(share, copies, seconds, "a turn")
    blas.sees(unit(18), "Jugador 2: En Turno")
    blas.move(3, 8)
    ana.sees(unit(8), "Jugador 1: En Turno")


def a_win(share, copies, seconds):
    ana, blas = copies
    share.everyone(signal.SIGSTOP)
    start = time.monotonic()
    ana.click(unit(6))
    ana.click(marker(1))
    ana.answer(VICTORY.format(1))
    print(f"the winner's box has come and gone within {time.monotonic() - start:.1f} s")
    ana.sees(LOST, "Jugador 1: Victoria")
    hung_for(share, copies, seconds, "a win")
    ana.sees("Victoria - Juego finalizado")
    blas.find("*", "alert")
    blas.answer(DEFEAT)
    blas.sees("Derrota - Juego finalizado")


def a_join(share, copy, path, seconds):
    """The file dialog looks at the folder, too: here the server stops at the opening of the file."""
    served = share.folder / NAME
    served.write_bytes(saved_game(PIECES, 1))
    question = f"El archivo no responde:\n{path}\n¿Seguir esperando?"
    signal.signal(signal.SIGIO, signal.SIG_IGN)
    with served.open("r+b") as file:
        fcntl.fcntl(file, fcntl.F_SETLEASE, fcntl.F_WRLCK)  # others wait at their open, up to 45 s
        copy.choose("Opciones")
        copy.click("Cargar Juego en Red")
        copy.choose_file("Cargar Juego", path)
        copy.answer(question, "Sí")
        copy.find("*", "alert")
        hung_for(share, [copy], seconds, "a join")
    copy.answer(question, "Sí")
    copy.sees("Jugador -2- Actualización en: -?- segundos")


def an_end(share, ana):
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
