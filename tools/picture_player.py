"""A person at a program whose windows tell nothing but what is seen: the Windows program under Wine, and
likewise the Linux one.

The eyes are screenshots, in which the pictures of the units must stand pixel by pixel; the hands are
xdotool's. Needs DISPLAY, a screen with a window manager, and WINE, the path of Wine, with WINEPREFIX.
"""

import os
import subprocess
import time
from contextlib import contextmanager
from pathlib import Path

TYPES = {"ban": 1, "inf": 2, "cab": 3, "ele": 4, "gen": 5}
PALETTE = {"inf": (560, 100), "cab": (1640, 100), "ele": (2720, 100), "gen": (3800, 100), "ban": (4880, 100)}
INICIAR = 6000, 500  # a place on the button
FRAME = "Tomar El Estandarte"
BOX = "Vornath - Falanges Z - TEE"

running = []  # processes, to be ended when something goes wrong


def run(*command):
    return subprocess.run(command, check=True, capture_output=True).stdout


@contextmanager
def screen(folder):
    """At the end of what is done on it everything ends that was started. A failure leaves a picture of it
    in the folder."""
    try:
        yield
    except BaseException:
        run("import", "-window", "root", folder / "screen-at-failure.png")
        raise
    finally:
        for process in running:
            process.kill()


def traces():
    """What programs under Wine have left in the registry and in the user's folder."""
    keys = run(os.environ["WINE"], "reg", "query", r"HKCU\Software")
    return keys, set(Path(os.environ["WINEPREFIX"], "drive_c", "users").rglob("*"))


def wait_for(what, condition, seconds=60):
    end = time.monotonic() + seconds
    while not (result := condition()):
        if time.monotonic() > end:
            raise AssertionError(f"{what}: not within {seconds} seconds")
        time.sleep(0.2)
    return result


def press_until(what, condition, press):
    """A busy machine may lose a key: it is pressed again until the condition holds."""
    for _ in range(5):
        press()
        try:
            return wait_for(what, condition, 12)
        except AssertionError:
            pass
    return wait_for(what, condition)


def place(square):
    """Top and Left in twips of the unit on this square of the 5x5 board."""
    return 380 + (square - 1) // 5 * 1180, 1340 + (square - 1) % 5 * 1180


def game_file(units, *closing):
    """The bytes of a saved game: units by square ("inf_j1"), then the closing lines."""
    lines = []
    for square in range(1, 26):
        unit = units.get(square)
        owner, kind = (unit[-1], TYPES[unit[:3]]) if unit else (0, 0)
        fields = owner, kind, *place(square), (square - 1) // 5 + 1, (square - 1) % 5 + 1
        lines.append("".join(f"{field};" for field in fields))
    return "\r\n".join([*lines, *closing, ""]).encode()


def rgb(*source):
    """Width, and the bytes of all pixels, of what this ImageMagick command reads."""
    _, size, _, data = run(*source, "-depth", "8", "ppm:-").split(b"\n", 3)
    return int(size.split()[0]), data


class Program:
    """One running copy, from its start to its end."""

    def __init__(self, folder, name="falanges"):
        self.windows = (folder / f"{name}.exe").exists()
        command = [os.environ["WINE"], f"{name}.exe"] if self.windows else [f"./{name}"]
        self.process = subprocess.Popen(
            command, cwd=folder, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL
        )
        running.append(self.process)

    def find(self, title):
        search = "xdotool search --all --onlyvisible --pid".split()
        search += [str(self.process.pid), "--name", title]
        return subprocess.run(search, capture_output=True, text=True).stdout.split()

    def window(self, title, *keys):
        """Waits until the program shows a window of this title, which the keys bring, and goes there."""
        found = press_until(f"window «{title}»", lambda: self.find(title), lambda: self.keys(*keys))
        run("xdotool", "windowactivate", "--sync", found[-1], "mousemove", "1000", "900", "sleep", "0.5")

    def answer(self, title, key):
        """Waits for a window of this title, and presses the key that closes it."""
        self.window(title)
        press_until(f"«{title}» to go", lambda: not self.find(title), lambda: self.keys(key))

    def qt_files(self):
        """Those of Qt, and of its plugins, that the Linux program has loaded."""
        loaded = Path(f"/proc/{self.process.pid}/maps").read_text()
        return {line.split(maxsplit=5)[5] for line in loaded.splitlines() if "Qt6" in line or "/libq" in line}

    def keys(self, *keys):
        for key in keys:
            run("xdotool", "key", key, "sleep", "0.4")

    def ends(self):
        code = self.process.wait(30)
        assert code == 0, code


class Game(Program):
    """A running copy of the game, with a look every 5 seconds at a shared file and one move per turn."""

    def __init__(self, folder):
        (folder / "VornathFalangesZTEE.cfg").write_bytes(b"0;0;5;1;\r\n")
        super().__init__(folder)
        self.patches = {}
        for name in (f"{kind}_j{player}" for kind in TYPES for player in (1, 2)):
            width, data = rgb("convert-im6.q16", folder / "img" / f"{name}.jpg")
            # The middle of the picture, which neither a frame nor a marker covers.
            self.patches[name] = data[3 * 33 * width + 90 :][:60]
        self.answer("Un juego del equipo", "Return")
        self.window(FRAME)
        assert {"jguardados", "plantillas"} <= {entry.name for entry in folder.iterdir()}

    def choose_file(self, title, file):
        self.window(title)
        if self.windows:
            # Wine's dialog adds to a name what the pattern begins with, but for the last one: all files.
            self.keys("Tab", "End", "shift+Tab")
        self.keys("End", "shift+Home")  # nor does Wine's select the proposed name
        run("xdotool", "type", "--delay", "50", file.replace("/", "\\") if self.windows else file)
        self.answer(title, "Return")

    def see(self):
        """Top left pixels of all unit pictures on the screen: a set of (name, y, x)."""
        width, screen = rgb("import", "-window", "root")
        seen = set()
        for name, patch in self.patches.items():
            at = -1
            while (at := screen.find(patch, at + 1)) >= 0:
                if at % 3 == 0:
                    seen.add((name, at // 3 // width - 33, at // 3 % width - 30))
        return seen

    def anchor(self, name, spot, *keys):
        """Learns where the child window stands, which the keys bring, from the one picture of this name,
        which is at `spot`."""
        self.window(FRAME)
        find = lambda: [at for at in self.see() if at[0] == name]
        one = lambda: len(found := find()) == 1 and found
        ((_, y, x),) = press_until(f"one {name}", one, lambda: self.keys(*keys))
        self.origin = y - round(spot[0] / 15), x - round(spot[1] / 15)

    def pixel(self, spot):
        return tuple(start + round(twips / 15) for start, twips in zip(self.origin, spot))

    def shows(self, units, palette=None):
        """Waits until these units stand on the screen, each in its very place, and no others."""
        self.window(FRAME)
        wanted = {(unit, *self.pixel(place(square))) for square, unit in units.items()}
        wanted |= {(f"{kind}_j1", *self.pixel(spot)) for kind, spot in (palette or {}).items()}
        wait_for(f"units {units}", lambda: self.see() == wanted)

    def click(self, spot):
        y, x = map(str, self.pixel((spot[0] + 200, spot[1] + 200)))
        run("xdotool", "mousemove", x, y, "sleep", "0.2", "click", "1", "sleep", "0.3")

    def lay_out(self, army):
        """Sets down kinds of units by square in a new game. Gives them and their mirror images, as they must
        stand on the screen now."""
        self.anchor("inf_j1", PALETTE["inf"], "Escape", "alt+j", "n")
        units = {}
        for square, kind in army.items():
            self.click(PALETTE[kind])
            self.click(place(square))
            units |= {square: f"{kind}_j1", 26 - square: f"{kind}_j2"}
        self.shows(units, PALETTE)
        return units

    def move(self, units, start, target):
        """Moves on the screen and in `units`."""
        self.window(FRAME)
        self.click(place(start))
        self.click(place(target))
        units[target] = units.pop(start)

    def join(self, file, second):
        """Opens the shared file in the options dialog, as player 1 or 2."""
        self.window(FRAME)
        choose_second = ["Tab", "Tab", "Down", "shift+Tab", "shift+Tab"] if second else []
        self.window("Cargar Juego", "ctrl+F4", "alt+o", "Tab", "Tab", *choose_second, "space")
        self.choose_file("Cargar Juego", file)

    def close(self):
        self.window(FRAME)
        self.window(BOX, "alt+F4")
        self.answer(BOX, "s")
        self.answer("Un juego del equipo", "Return")
        self.ends()
