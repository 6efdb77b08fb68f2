#!/usr/bin/python3
"""The desktop's menu gets an entry that starts the game where it lies, and loses it again. A folder that
no entry can lead to is refused."""

import os
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

from gi.repository import Gio
from player import wait_for, write_script

program_folder, packaging = map(Path, sys.argv[1:])


def menu(script, word, folder=None):
    return subprocess.run([script, word], cwd=folder).returncode


with tempfile.TemporaryDirectory() as home:
    home = Path(home)
    os.environ["XDG_DATA_HOME"] = str(home)
    os.environ["CDPATH"] = str(home)
    entry = home / "applications/falanges.desktop"
    started = home / "started"

    # All that an entry's own rules have a meaning for, and what env would take for a variable.
    game = home / 'a=b Ángel 100%f "$a" `b` \\c'
    shutil.copytree(program_folder / "ico", game / "ico")
    shutil.copy(packaging / "menu.sh", game)
    program = game / "falanges"
    write_script(program, f"printf '%s' \"$0 $#\" >'{started}'")
    link = home / "menú"
    link.symlink_to(game / "menu.sh")
    for script in (link, f"{game.name}/menu.sh"):
        assert menu(script, "poner", home) == 0
        subprocess.run(["desktop-file-validate", entry], check=True)
        known = Gio.DesktopAppInfo.new_from_filename(str(entry))
        assert Path(known.get_icon().get_file().get_path()).is_file()
        started.write_text("")
        known.launch()
        wait_for(known.get_commandline(), lambda: started.read_text() == f"{program} 0")
    assert menu(link, "quitar") == 0
    assert not entry.exists()

    for name in ("con\nExec=touch renglones", "al final\n", os.fsdecode(b"d\xeda")):
        game = game.rename(home / name)
        assert menu(game / "menu.sh", "poner") == 1
        assert not entry.exists()
