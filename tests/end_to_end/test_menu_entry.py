#!/usr/bin/python3
"""The desktop's menu gets an entry that starts the game where it lies, and loses it again."""

import os
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

from gi.repository import Gio

ROOT = Path(__file__).resolve().parents[2]
SCRIPT = ROOT / "packaging" / "linux" / "menu.sh"
sys.path.insert(0, str(ROOT / "tools"))
from player import wait_for  # noqa: E402

with tempfile.TemporaryDirectory() as home:
    # All that an entry's own rules have a meaning for.
    game = Path(home, 'Ángel 100%f "$a" `b` \\c')
    shutil.copytree(Path(sys.argv[1], "ico"), game / "ico")
    program = game / "falanges"
    program.write_text(f"#!/bin/sh\necho $# >'{home}/started'\n")
    program.chmod(0o755)
    shutil.copy(SCRIPT, game)
    os.environ["XDG_DATA_HOME"] = home
    entry = Path(home, "applications", "falanges.desktop")

    def menu(word):
        return subprocess.run([game / SCRIPT.name, word], stdout=subprocess.DEVNULL).returncode

    assert menu("poner") == 0 and menu("poner") == 0
    subprocess.run(["desktop-file-validate", entry], check=True)
    known = Gio.DesktopAppInfo.new_from_filename(str(entry))
    assert Path(known.get_icon().get_file().get_path()).is_file()
    known.launch()
    started = Path(home, "started")
    wait_for(known.get_commandline(), lambda: started.exists() and started.read_text() == "0\n")
    assert menu("quitar") == 0 and menu("quitar") == 0
    assert not entry.exists() and menu("otra cosa") == 2
