#!/usr/bin/python3
"""Kills a save before and after each of its system calls, and cuts the power there.

    tools/power_cut.py SAVE_ONCE [ext4] [xfs] [btrfs]

SAVE_ONCE is the program that "cmake --build --preset release --target save_once" makes. Wherever a save
ends, its folder must hold the earlier game or the new one, whole, and at most one temporary file beside
it; once it has said that it is done, the new one. The same is asked of a disk whose power is cut in that
moment: a file that holds a file system is copied as it stands, without what the system still keeps in
memory, and the copy is mounted. A shared file, which is written in place, must stand once that is done.

The power is cut only for root, on the file systems that are named (packages e2fsprogs, xfsprogs and
btrfs-progs). Ends with the figures, or at the first fault.
"""

import ctypes
import os
import signal
import subprocess
import sys
import tempfile
from collections import Counter
from pathlib import Path

from player import saved_game

EARLIER = saved_game({1: (1, 1), 64: (2, 1)}, 1, 8)
NEW = saved_game({2: (1, 1), 63: (2, 1)}, 2, 8)
NAME = "partida.txt"
# What is done, how, and what stands there before.
CASES = {
    "a game over an earlier one": ("save", EARLIER),
    "a game under a new name": ("save", None),
    "a shared file": ("write", EARLIER),
}
SMALLEST_DISK = {"ext4": 16, "xfs": 300, "btrfs": 128}  # MiB
PTRACE_TRACEME, PTRACE_SYSCALL = 0, 24
ptrace = ctypes.CDLL(None, use_errno=True).ptrace
ptrace.argtypes = [ctypes.c_long, ctypes.c_long, ctypes.c_void_p, ctypes.c_void_p]


class Save:
    """A save that stands still before or after one of its system calls, or has ended."""

    def __init__(self, command, stops):
        reading, writing = os.pipe()
        self.said = reading
        self.pid = os.fork()
        if self.pid == 0:
            os.dup2(writing, 1)
            ptrace(PTRACE_TRACEME, 0, None, None)
            os.execv(command[0], command)
        os.close(writing)
        status = os.waitpid(self.pid, 0)[1]
        for _ in range(stops):
            if not os.WIFSTOPPED(status):
                break
            ptrace(PTRACE_SYSCALL, self.pid, None, None)
            status = os.waitpid(self.pid, 0)[1]
        self.ended = not os.WIFSTOPPED(status)
        assert not self.ended or status == 0, f"the save failed: {status}"

    def kill(self):
        """Whether it had said that it was done."""
        if not self.ended:
            os.kill(self.pid, signal.SIGKILL)
            os.waitpid(self.pid, 0)
        with open(self.said, "rb") as said:
            return said.read() == b"done\n"


class Disk:
    """A file that holds a file system, mounted on a folder."""

    def __init__(self, folder, kind):
        self.file, self.copy, self.folder = folder / "disk", folder / "copy", folder / "mounted"
        self.folder.mkdir()
        with self.file.open("wb") as file:
            file.truncate(SMALLEST_DISK[kind] << 20)
        make = [f"mkfs.{kind}", "-q", self.file]
        subprocess.run(make, check=True, stdout=subprocess.DEVNULL)

    def mount(self, file):
        subprocess.run(["mount", "-o", "loop", file, self.folder], check=True)

    def unmount(self):
        subprocess.run(["umount", self.folder], check=True)

    def cut_power(self):
        subprocess.run(["cp", "--sparse=always", self.file, self.copy], check=True)


def prepare(folder, earlier):
    for path in folder.glob("*.t*"):
        path.unlink()
    if earlier:
        (folder / NAME).write_bytes(earlier)
    os.sync()


def judge(folder, how, earlier, done):
    """What stands in the folder, in a word; an AssertionError when it may not."""
    path = folder / NAME
    text = path.read_bytes() if path.exists() else None
    left = len(list(folder.glob("*.tmp")))
    assert left <= 1, f"{left} temporary files"
    if done:
        assert text == NEW, f"it was done, and there is {text!r}"
    elif how == "save":
        assert text in (earlier, NEW), f"there is {text!r}"
    return "new" if text == NEW else "earlier" if text == earlier else "torn"


def try_everywhere(program, folder, disk):
    """`disk` is the one that is mounted on the folder, or None."""
    for name, (how, earlier) in CASES.items():
        kills, cuts = Counter(), Counter()
        stops, ended = 0, False
        while not ended:
            if disk:
                disk.mount(disk.file)
            prepare(folder, earlier)
            save = Save([program, how, str(folder / NAME), NEW.decode()], stops)
            if disk:
                disk.cut_power()
            done, ended = save.kill(), save.ended
            kills[judge(folder, how, earlier, done)] += 1
            if disk:
                disk.unmount()
                disk.mount(disk.copy)
                cuts[judge(folder, how, earlier, done)] += 1
                disk.unmount()
            stops += 1
        print(f"  {name}: killed at {stops} places, {dict(kills)}", end="")
        print(f"; power cut there, {dict(cuts)}" if disk else "", flush=True)


def main(program, file_systems):
    with tempfile.TemporaryDirectory(prefix="falanges-") as place:
        print("without a cut of power")
        (Path(place) / "folder").mkdir()
        try_everywhere(program, Path(place) / "folder", None)
    for kind in file_systems:
        print(kind)
        with tempfile.TemporaryDirectory(prefix="falanges-") as place:
            disk = Disk(Path(place), kind)
            try:
                try_everywhere(program, disk.folder, disk)
            finally:
                if disk.folder.is_mount():
                    disk.unmount()


if __name__ == "__main__":
    if len(sys.argv) < 2 or not set(sys.argv[2:]) <= set(SMALLEST_DISK):
        sys.exit(__doc__)
    main(sys.argv[1], sys.argv[2:])
