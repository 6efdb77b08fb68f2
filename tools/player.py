"""A person at the real program: a virtual screen, real clicks and keys, and what screen readers see.

    with Session() as session:
        ana = Player(session, program_folder)
        ana.choose("Juego", "Nuevo Juego")
        ana.click("Infantería")
        ana.click_square(17)

Elements go by the names that a screen reader says; * and ? stand for anything. Nothing sleeps for a
guessed time: who waits for something asks again until it is there or the patience has run out.
It needs the system's own python, /usr/bin/python3, for the packages that know the accessibility bus.
"""

import fnmatch
import os
import shutil
import subprocess
import tempfile
import time
from pathlib import Path

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = 40  # seconds, for a machine that has other things to do
SQUARE = 1180 / 15  # pixels
TITLE = "Vornath - Falanges Z - TEE"
START = "¿Iniciar el juego con la disposición actual de Unidades en el Tablero?"
LEAVE = "¿Está seguro de salir y cerrar todo?"
VICTORY = """JUGADOR -{0}- HA CONQUISTADO la Bandera

JUGADOR -{0}- GANA

Cierre la ventana del Tablero para iniciar otro juego"""


def unit(square):
    return f"*, Jugador ?, cuadro {square},*"


def marker(square):
    return f"Mover al cuadro {square},*"


def saved_game(pieces, player, side=5):
    """The bytes of a game saved on a side x side board; pieces: square to (player, type of unit)."""
    lines = []
    for square in range(1, side * side + 1):
        row, column = divmod(square - 1, side)
        owner, kind = pieces.get(square, (0, 0))
        place = f"{380 + row * 1180};{1340 + column * 1180};{row + 1};{column + 1}"
        lines.append(f"{owner};{kind};{place};")
    return "".join(f"{line}\r\n" for line in [*lines, player]).encode()


def write_script(path, *lines):
    path.write_text("\n".join(["#!/bin/sh", *lines]))
    path.chmod(0o755)


def wait_for(what, ask):
    """Asks until the answer is neither empty nor false, and gives it."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        try:
            if answer := ask():
                return answer
        except GLib.Error:
            pass  # something vanished while it was looked at
        while GLib.MainContext.default().iteration(False):
            pass
        time.sleep(0.02)
    raise AssertionError(f"waited in vain for {what}")


def has(element, state):
    """What has vanished meanwhile has no state."""
    try:
        return element.get_state_set().contains(state)
    except GLib.Error:
        return False


def shows(element):
    return has(element, Atspi.StateType.SHOWING)


def window_of(element):
    while element.get_parent().get_role() != Atspi.Role.APPLICATION:
        element = element.get_parent()
    return element


def value_of(element):
    """The words in a text box."""
    return Atspi.Text.get_text(element, 0, -1)


class Session:
    """A folder, a session bus and an accessibility bus; at its end all that was started in it ends."""

    def __init__(self):
        self.folder = Path(tempfile.mkdtemp(prefix="falanges-"))
        self.environment = {"PATH": "/usr/bin:/bin", "LC_ALL": "C.UTF-8"}
        for name, folder in {"HOME": "Ana", "XDG_RUNTIME_DIR": "run"}.items():
            (self.folder / folder).mkdir(mode=0o700)
            self.environment[name] = str(self.folder / folder)
        self.players = []
        self.processes = []

    def __enter__(self):
        bus = self.start(
            "dbus-daemon", "--session", "--nofork", "--print-address", stdout=subprocess.PIPE
        )
        address = bus.stdout.readline().decode().strip()
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = address
        os.environ.update(self.environment)
        Atspi.init()
        Atspi.get_desktop(0).set_cache_mask(Atspi.Cache.NONE)
        return self

    def __exit__(self, failure, *_):
        if failure:
            for player in self.players:
                player.tell_what_is_there()
        for process in reversed(self.processes):
            process.terminate()
            process.wait(PATIENCE)
        # What the buses themselves had started may still be on its way out.
        shutil.rmtree(self.folder, ignore_errors=True)

    def start(self, command, *arguments, **options):
        """Starts a program that ends with this one, even if this one is killed."""
        log = self.folder / f"{Path(command).name}.log"
        with log.open("ab") as said:
            process = subprocess.Popen(
                ["setpriv", "--pdeathsig", "TERM", "--", command, *arguments],
                **{"env": self.environment, "stdout": said, "stderr": said, **options},
            )
        self.processes.append(process)
        return process


class Player:
    """Sits at a screen of its own, before a copy of the program."""

    def __init__(self, session, program_folder, home="Casa de Ángel", size="1280x1024"):
        self.session = session
        self.folder = session.folder / home
        shutil.copytree(program_folder, self.folder)
        self.environment = session.environment | {"DISPLAY": self.open_screen(size)}
        session.start("openbox", "--sm-disable", env=self.environment)
        check = ("xprop", "-root", "_NET_SUPPORTING_WM_CHECK")
        wait_for("the window manager", lambda: "window id" in self.tool(*check))
        self.start_program()
        session.players.append(self)

    def open_screen(self, size):
        reading, writing = os.pipe()
        # Without -noreset it starts anew whenever the last program on it has gone.
        options = ("-displayfd", str(writing), "-screen", "0", f"{size}x24", "-noreset")
        self.session.start("Xvfb", *options, pass_fds=[writing])
        os.close(writing)
        with open(reading) as answer:
            return ":" + answer.readline().strip()

    def start_program(self):
        environment = self.environment | {"QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        self.program = self.session.start(str(self.folder / "falanges"), env=environment)

    # --- Eyes ---------------------------------------------------------------------------------------

    def elements(self, below=None):
        """What shows below the element, or of the whole program; what holds others comes first."""
        parent = below or Atspi.get_desktop(0)
        for i in range(parent.get_child_count()):
            element = parent.get_child_at_index(i)
            foreign = not below and element and element.get_process_id() != self.program.pid
            if element and not foreign and shows(element):
                yield element
                yield from self.elements(element)

    def look(self, name, role=None, below=None):
        """The first element of this name that shows, or None."""
        for element in self.elements(below):
            if fnmatch.fnmatchcase(element.get_name(), name):
                if role in (None, element.get_role_name()):
                    return element
        return None

    def find(self, name, role=None, below=None):
        return wait_for(f"{role or ''} {name!r}", lambda: self.look(name, role, below))

    def names_with(self, state):
        return [element.get_name() for element in self.elements() if has(element, state)]

    def windows(self):
        """Captions of the top-level windows."""
        application = self.look("*", "application")
        everything = self.elements(application) if application else []
        return [e.get_name() for e in everything if e.get_parent() == application]

    def sees(self, *names):
        for name in names:
            self.find(name)

    def sees_no(self, *names):
        for name in names:
            wait_for(f"{name!r} to go", lambda name=name: not self.look(name))

    def area(self, element):
        """Its place on the screen, once the window manager has placed and activated its window."""
        window = window_of(element)
        wait_for("the window to be active", lambda: has(window, Atspi.StateType.ACTIVE))
        return Atspi.Component.get_extents(element, Atspi.CoordType.SCREEN)

    def picture(self, path):
        self.tool("import", "-window", "root", str(path))

    def tell_what_is_there(self):
        path = Path.cwd() / f"{self.folder.name}.png"
        self.picture(path)
        print(f"{self.folder.name}: {path} shows the screen, on which there is")
        for element in self.elements():
            print(f"  {element.get_role_name()} {element.get_name()!r}")
        print((self.session.folder / "falanges.log").read_text())

    # --- Ears ---------------------------------------------------------------------------------------

    def listen(self):
        """Keeps from now on what the program says on the bus: names that change, get the focus, or are
        those of a notification that appears."""
        self.heard = []
        self.listener = Atspi.EventListener.new(self.hear)
        self.listener.register("object:property-change:accessible-name")
        self.listener.register("object:state-changed:focused")
        self.listener.register("object:state-changed:showing")

    def hear(self, event):
        lost = "state-changed" in event.type and not event.detail1
        appeared = "showing" in event.type
        try:
            mute = appeared and event.source.get_role() != Atspi.Role.NOTIFICATION
            if not lost and not mute and shows(event.source):
                self.heard.append(("! " if appeared else "") + event.source.get_name())
        except GLib.Error:
            pass  # it has gone again

    def hears(self, words):
        """Waits for the words and forgets what was said before them."""
        said = wait_for(f"{words!r} to be said", lambda: fnmatch.filter(self.heard, words))[0]
        del self.heard[: self.heard.index(said) + 1]
        return said

    def focused(self):
        """Name of the element with the focus."""
        names = self.names_with(Atspi.StateType.FOCUSED)
        return names[-1] if names else ""  # the innermost

    def sits_at(self, words):
        wait_for(f"the focus on {words!r}", lambda: fnmatch.fnmatchcase(self.focused(), words))

    def goes(self, key, words):
        """What the key does is said, and the element with the focus has that name."""
        self.keys(key)
        self.hears(words)
        self.sits_at(words)

    # --- Hands --------------------------------------------------------------------------------------

    def tool(self, *command):
        run = subprocess.run(
            command, env=self.environment, check=True, stdout=subprocess.PIPE, timeout=PATIENCE
        )
        return run.stdout.decode()

    def keys(self, *keys):
        wait_for("an active window", lambda: self.names_with(Atspi.StateType.ACTIVE))
        # With a screen reader about, the program gets keys by way of the bus, but shortcuts directly.
        # An Alt that arrives behind its letter would open the menu bar.
        delay = "200" if any("+" in key for key in keys) else "12"
        self.tool("xdotool", "key", "--delay", delay, *keys)

    def click_at(self, x, y, button=1, times=1):
        repeat = ("--repeat", str(times), "--delay", "20", str(button))
        self.tool("xdotool", "mousemove", str(round(x)), str(round(y)), "click", *repeat)

    def click(self, name, role=None, below=None, **how):
        area = self.area(self.find(name, role, below))
        # Off the middle, for a marker covers the upper left quarter of the unit below it.
        self.click_at(area.x + area.width * 0.6, area.y + area.height * 0.6, **how)

    def click_square(self, square, **how):
        """Where the board itself shows, on which the keyboard hasn't been used."""
        board = self.find("Tablero ?x?")
        columns = int(board.get_name()[-1])
        area = self.area(board)
        row, column = divmod(square - 1, columns)
        x = area.x + 1 + (column + 0.5) * SQUARE
        self.click_at(x, area.y + 1 + (row + 0.5) * SQUARE, **how)

    def move(self, origin, target, wins=None):
        self.click(unit(origin))
        self.click(marker(target))
        if wins:
            self.answer(wins)
        self.sees_no(marker("*"))

    def choose(self, menu, entry=None):
        self.click(menu, "menu item")
        if entry:
            self.click(entry, "menu item")

    def entries(self, menu):
        """Opens a menu, gives the entries that it shows, and closes it."""
        self.click(menu, "menu item")
        popup = self.find("*", "popup menu")
        names = [e.get_name() for e in self.elements(popup) if e.get_role_name() == "menu item"]
        self.keys("Escape")
        wait_for("the menu to go", lambda: not shows(popup))
        return names

    def choose_by_keys(self, menu, letter):
        """The accelerators of a menu and of one of its entries."""
        self.keys(f"alt+{menu}")
        self.find("*", "popup menu")
        self.keys(letter)

    def choose_item(self, drop_list, item):
        self.click(drop_list, "combo box")
        shown = self.find(item, "list item")
        # Within the time of a double click (0.4 s) the second one counts as part of the first.
        time.sleep(0.5)
        # An item may be wider than the list that shows it.
        area, items = self.area(shown), self.area(shown.get_parent())
        self.click_at(items.x + items.width / 2, area.y + area.height / 2)
        wait_for("the list to go", lambda: not shows(shown.get_parent()))

    def type_into(self, name, text, below=None):
        self.click(name, "text", below, times=3)
        self.tool("xdotool", "type", "--delay", "20", text)
        box = self.find(name, "text", below)
        wait_for(f"{text!r} in {name!r}", lambda: value_of(box) == text)

    def close_window(self, caption):
        area = self.area(self.find(caption, "frame"))
        self.click_at(area.x + area.width - 14, area.y + 12)
        self.sees_no(caption)

    def answer(self, words, button="Aceptar", key=None, title=TITLE):
        """Waits for a box, compares its words to the letter, and answers it by click or key."""
        box = self.find(title, "alert")
        said = self.find("*", "label", box).get_name()
        assert said == words, f"the box says {said!r}, not {words!r}"
        if key:
            self.area(box)
            self.keys(key)
        else:
            self.click(button, "push button", box)
        wait_for("the box to go", lambda: not shows(box))

    def pass_information(self):
        """The box that opens and ends a run. Gives its words."""
        box = self.find("*", "alert")
        words = self.find("*", "label", box).get_name()
        self.answer(words, key="Return", title=box.get_name())
        return words

    def leave(self):
        """Closes the program, which must end well."""
        self.keys("alt+F4")
        self.answer(LEAVE, "Sí")
        self.pass_information()
        assert self.program.wait(PATIENCE) == 0

    def choose_file(self, title, path):
        """Types a path into the file dialog."""
        dialog = self.find(title, "dialog")
        self.type_into("Nombre:", str(path), dialog)
        self.keys("Return")
        wait_for("the dialog to go", lambda: not shows(dialog))

    def join(self, number, path):
        """Joins the network game in this file as this player, with looks at it every 5 seconds."""
        self.choose("Opciones")
        self.type_into("Segundos de Actualización", "5")
        self.choose_item("Jugador de Red", str(number))
        self.click("Cargar Juego en Red")
        self.choose_file("Cargar Juego", path)
        self.sees_no("Opciones de Configuración")
        self.sees(f"Jugador -{number}- Actualización en: -?- segundos")
