#!/usr/bin/python3
"""The archive's starter becomes the program, or says in a window why it cannot; also where the launcher
has the end of children ignored."""

import os
import shutil
import signal
import subprocess
import sys
import tempfile
from pathlib import Path

from player import write_script as script

_, packaging, starter = map(Path, sys.argv[1:])
OLD_NAME = os.fsdecode(b"A\xf1o 2005")  # as an archive of those days unpacks


def shows(folder, *words):
    shown = subprocess.run([folder / "falanges"], stdout=subprocess.PIPE).stdout.decode()
    assert all(word in shown for word in words), shown


with tempfile.TemporaryDirectory() as home:
    folder = Path(home)
    check, program = folder / "lib/check.sh", folder / "falanges.bin"
    check.parent.mkdir()
    shutil.copy(starter, folder / "falanges")
    script(program, "echo El programa")
    script(folder / "zenity", 'echo "Ventana: $*"')
    os.environ["PATH"] = f"{folder}:/usr/bin:/bin"
    signal.signal(signal.SIGCHLD, signal.SIG_IGN)  # what is started inherits it

    shows(folder, "Ventana", f"{check}")  # missing
    shutil.copy(packaging / "check.sh", check)
    shows(shutil.copytree(folder, folder / OLD_NAME), "Ventana", "UTF-8")
    script(check, "echo 'Falta libX'", "exit 1")
    shows(folder, "Ventana", "Falta libX")
    script(check, "exit 0")
    shows(folder, "El programa")
    program.unlink()
    shows(folder, "Ventana", f"{program}")
