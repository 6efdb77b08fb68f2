#!/usr/bin/python3
"""How fast the game's windows are and what they cost, beside a bare window of the same toolkit.

    bench/window/measure.py <build folder> [rounds]

tools/measure.sh builds what is wanted and runs this. Both programs start in turn on a virtual screen;
what is printed are medians. A window counts as painted when its middle shows something else than the
empty screen does.
"""

import os
import shutil
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

from Xlib import X, XK, display
from Xlib.ext import xtest

PATIENCE = 20  # seconds
BOX = "Falanges Z"
FRAME = "Vornath - Falanges Z - Tomar"
SIDE = 1180 / 15  # pixels of a square


class Screen:
    """A virtual screen of its own, with a window manager."""

    def __enter__(self):
        read, write = os.pipe()
        arguments = ["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x1024x24"]
        self.server = subprocess.Popen(arguments, pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as number:
            self.name = ":" + number.readline().strip()
        self.environment = dict(os.environ, DISPLAY=self.name, QT_QPA_PLATFORM="xcb")
        self.manager = subprocess.Popen(["openbox"], env=self.environment, stderr=subprocess.DEVNULL)
        self.display = display.Display(self.name)
        self.root = self.display.screen().root
        self.wait(lambda: self.root.get_full_property(self.atom("_NET_SUPPORTING_WM_CHECK"), 0))
        return self

    def __exit__(self, *_):
        self.display.close()
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()

    def atom(self, name):
        return self.display.intern_atom(name)

    @staticmethod
    def wait(ask):
        end = time.perf_counter() + PATIENCE
        while not (answer := ask()):
            if time.perf_counter() > end:
                raise SystemExit("waited in vain")
        return answer

    def window(self, title):
        """The window whose title begins so, once it is on the screen."""
        listed = self.root.get_full_property(self.atom("_NET_CLIENT_LIST"), X.AnyPropertyType)
        for number in listed.value if listed else []:
            window = self.display.create_resource_object("window", number)
            try:
                name = window.get_full_property(self.atom("_NET_WM_NAME"), X.AnyPropertyType)
                if name and name.value.decode().startswith(title):
                    return window
            except Exception:  # it has closed meanwhile
                continue
        return None

    def pixels(self, x, y, width, height):
        return self.root.get_image(x, y, width, height, X.ZPixmap, 0xFFFFFF).data

    def painted(self, title):
        window = self.window(title)
        if not window:
            return None
        place = window.translate_coords(self.root, 0, 0)
        size = window.get_geometry()
        x, y = -place.x + 20, -place.y + size.height // 2
        seen = self.pixels(x, y, 60, 1)
        return window if any(seen[i] for i in range(len(seen)) if i % 4 != 3) else None

    def key(self, name, *held):
        codes = [self.display.keysym_to_keycode(XK.string_to_keysym(k)) for k in (*held, name)]
        for code in codes:
            xtest.fake_input(self.display, X.KeyPress, code)
        for code in reversed(codes):
            xtest.fake_input(self.display, X.KeyRelease, code)
        self.display.sync()

    def click(self, x, y):
        xtest.fake_input(self.display, X.MotionNotify, x=round(x), y=round(y))
        self.display.sync()
        time.sleep(0.1)  # the hint of the square is not what is measured
        start = time.perf_counter()
        xtest.fake_input(self.display, X.ButtonPress, 1)
        xtest.fake_input(self.display, X.ButtonRelease, 1)
        self.display.sync()
        return start


def timed(screen, start, title):
    screen.wait(lambda: screen.painted(title))
    return (time.perf_counter() - start) * 1000


def memory(process):
    rollup = Path(f"/proc/{process.pid}/smaps_rollup").read_text().splitlines()
    kilobytes = {line.split()[0]: int(line.split()[1]) for line in rollup[1:]}
    return kilobytes["Rss:"] / 1024, kilobytes["Pss:"] / 1024


def wakeups(process, seconds):
    def switches():
        total = 0
        for task in Path(f"/proc/{process.pid}/task").iterdir():
            for line in (task / "status").read_text().splitlines():
                if line.startswith("voluntary_ctxt_switches"):
                    total += int(line.split()[1])
        return total

    before = switches()
    time.sleep(seconds)
    return switches() - before


def saved_game():
    """An 8x8 game in which the general on square 53 has all squares in front of it free."""
    lines = []
    for square in range(1, 65):
        row, column = divmod(square - 1, 8)
        player = 2 if square <= 16 else 1 if square > 48 else 0
        kind = 0 if not player else 5 if square == 53 else 1 + square % 5
        lines.append(f"{player};{kind};{380 + row * 1180};{1340 + column * 1180};{row + 1};{column + 1};")
    return "".join(f"{line}\r\n" for line in [*lines, "1"])


def measure_bare(screen, program, figures):
    start = time.perf_counter()
    process = subprocess.Popen([program], env=screen.environment, stderr=subprocess.DEVNULL)
    figures.setdefault("bare: start", []).append(timed(screen, start, "Bare window"))
    time.sleep(1)
    rss, pss = memory(process)
    figures.setdefault("bare: resident MiB", []).append(rss)
    figures.setdefault("bare: proportional MiB", []).append(pss)
    process.terminate()
    process.wait()


def measure_game(screen, program, figures, idle):
    start = time.perf_counter()
    process = subprocess.Popen([program], env=screen.environment, stderr=subprocess.DEVNULL)
    figures.setdefault("start to box", []).append(timed(screen, start, BOX))
    time.sleep(0.5)
    start = time.perf_counter()
    screen.key("Return")
    figures.setdefault("OK to main window", []).append(timed(screen, start, FRAME))
    time.sleep(0.5)
    screen.key("j", "Alt_L")
    time.sleep(0.3)
    screen.key("c")
    choose_game(screen)
    first, *others = clicks_to_markers(screen)
    figures.setdefault("first click to markers", []).append(first)
    figures.setdefault("click to markers", []).extend(others)
    rss, pss = memory(process)
    figures.setdefault("resident MiB", []).append(rss)
    figures.setdefault("proportional MiB", []).append(pss)
    if idle:
        figures["wake-ups of ten idle seconds"] = [wakeups(process, 10)]
        screen.key("o", "Alt_L")
        time.sleep(0.5)
        for key in ("Tab", "Tab", "space"):  # the button that joins a network game
            screen.key(key)
        choose_game(screen)
        figures["the same in a network game"] = [wakeups(process, 10)]
    process.terminate()
    process.wait()


def choose_game(screen):
    screen.wait(lambda: screen.window("Cargar Juego"))
    time.sleep(0.5)
    for character in "juego":
        screen.key(character)
    screen.key("Return")
    time.sleep(1)


def clicks_to_markers(screen, times=8):
    """From a click on the general to its last marker on the screen, in milliseconds, so many times."""
    client = screen.window(FRAME)
    place = client.translate_coords(screen.root, 0, 0)
    board_x, board_y = board_corner(screen, -place.x, -place.y)
    x, y = round(board_x + 5 * SIDE + 20), round(board_y + 5 * SIDE + 20)

    def click(painted):
        start = screen.click(board_x + 4.5 * SIDE, board_y + 6.5 * SIDE)
        screen.wait(lambda: (screen.pixels(x, y, 1, 1)[:3] == b"\xff\xc0\xc0") == painted)
        return (time.perf_counter() - start) * 1000

    for _ in range(times):
        yield click(True)
        click(False)  # takes the selection back


def board_corner(screen, x, y):
    """The board's first pixel, behind the black line that frames it."""

    def first_black(places):
        return next(place for place in places if screen.pixels(*place, 1, 1)[:3] == bytes(3))

    left = first_black((x + column, y + 400) for column in range(200))[0]
    top = first_black((left + 30, y + row) for row in range(200))[1]
    return left + 1, top + 1


def main():
    build, rounds = Path(sys.argv[1]).resolve(), int(sys.argv[2]) if len(sys.argv) > 2 else 15
    figures = {}
    with tempfile.TemporaryDirectory() as folder, Screen() as screen:
        program = shutil.copytree(build / "falanges", Path(folder) / "falanges") / "falanges"
        (program.parent / "jguardados").mkdir(exist_ok=True)
        (program.parent / "jguardados" / "juego").write_bytes(saved_game().encode())
        for round_number in range(rounds):
            measure_bare(screen, build / "bench" / "bare_window", figures)
            measure_game(screen, program, figures, idle=round_number == 0)
    middle = {name: statistics.median(values) for name, values in figures.items()}
    for name, value in middle.items():
        print(f"{name:32}{value:10.1f}")
    for ours, bare in (("start to box", "start"), ("resident MiB",) * 2, ("proportional MiB",) * 2):
        print(f"{ours + ' / bare':32}{middle[ours] / middle['bare: ' + bare]:10.2f}")


if __name__ == "__main__":
    main()
