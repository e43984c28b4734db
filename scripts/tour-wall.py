#!/usr/bin/env python3
"""Wires a wall from nothing as a person does, with a real pointer on a display of its own, and counts.

    tour-wall.py KORVANE [FOLDER]

16 by 9 lamps, a snake of GRB strip, 80 lamps a universe: from the first window to light on both
universes by sACN. FOLDER gets the pictures of the way, wall-1.png and on (default: docs/pictures).
What the lamps get is compared with what they should. All happens in a network of its own.
Exit status 1 if the lamps got anything else, 77 if it can't be done here.
"""

import os
import pathlib
import shutil
import socket
import struct
import subprocess
import sys
import tempfile
import time

from network_checks import OWN_ADDRESS, SKIPPED, isolate
from network_receivers import Skip, start
from sacn_receiver import Port, Receiver

NEEDED = {"Xvfb": "xvfb", "openbox": "openbox", "xdotool": "xdotool", "import": "imagemagick"}
COLS, ROWS, LAMPS_OF_UNIVERSE = 16, 9, 80

# What the person does: in a window, a click at a place, or an entry of a list that is typed. The
# places are those of the window's own size.
DESK, NEW, WIRING, OUTPUTS = "Korvane", "untitled - Korvane", "Wiring", "Outputs"
STEPS = [
    (DESK, (794, 247), None, "Wiring"),
    (WIRING, (137, 60), "16", "Columns : 16"),
    (WIRING, (291, 60), "9", "Rows : 9"),
    (WIRING, (361, 187), "rows", "Along : rows"),
    (WIRING, (162, 228), "GRB", "Colours : GRB"),
    (WIRING, (264, 269), "a number", "A universe : a number of lamps"),
    (WIRING, (377, 310), "80", "Lamps : 80"),
    (WIRING, (38, 309), None, "Snake"),
    "wall-1",
    (WIRING, (971, 732), None, "Apply"),
    (WIRING, (1133, 732), None, "Close"),
    (DESK, (888, 247), None, "Outputs ..."),
    (OUTPUTS, (40, 197), None, "Add"),
    (OUTPUTS, (180, 196), None, "On"),
    "wall-2",
    (OUTPUTS, (1223, 558), None, "Close"),
    (DESK, (794, 247), None, "Wiring"),
    (WIRING, (463, 636), None, "Test"),
    "lamp",
    "wall-3",
    (WIRING, (1133, 732), None, "Close"),
    (DESK, (391, 83), None, "New"),
    (NEW, (419, 396), None, "Cut left"),
    (NEW, (60, 706), None, "Output on"),
    "lamps",
    (NEW, (153, 349), "Fire", "the kind of the left effect: Fire"),
    "wall-4",
]


def run(*command):
    return subprocess.run(command, capture_output=True, text=True).stdout


class Person:
    def __init__(self, folder):
        self.folder = folder
        self.seen = set()
        self.clicks = self.keys = 0
        self.began = time.monotonic()

    def window(self, name):
        for _ in range(100):
            found = run("xdotool", "search", "--onlyvisible", "--name", f"^{name}$").split()
            if found:
                if name not in self.seen:
                    time.sleep(1.5)  # to look at it
                    self.seen.add(name)
                return found[-1]
            time.sleep(0.1)
        sys.exit(f"FAIL there is no window {name}")

    def do(self, name, place, entry, what):
        run("xdotool", "mousemove", "--window", self.window(name), *map(str, place))
        time.sleep(0.3)  # a hand
        run("xdotool", "click", "1")
        self.clicks += 1
        time.sleep(0.7)
        if entry:
            run("xdotool", "type", "--delay", "60", entry)
            time.sleep(0.2)
            run("xdotool", "key", "Return")
            self.keys += len(entry) + 1
            time.sleep(0.5)
        print(f"{self.clicks:3} {what}" + (f" (typed: {entry}, Enter)" if entry else ""))

    def photograph(self, name):
        time.sleep(1)
        window = run("xdotool", "getactivewindow").strip()
        run("import", "-window", window, str(self.folder / f"{name}.png"))


def groups():
    port = Port(5568, address="")
    for universe in (1, 2):
        port.socket.setsockopt(socket.IPPROTO_IP, socket.IP_ADD_MEMBERSHIP,
                               struct.pack("4s4s", socket.inet_aton(f"239.255.0.{universe}"),
                                           socket.inet_aton(OWN_ADDRESS)))
    return port


RED = bytes([0, 255, 0])  # green comes first in GRB


def shown(port):
    """What lamps on both universes show."""
    receiver = Receiver()
    end = time.monotonic() + 3
    while time.monotonic() < end:
        came = port.packet(0.5)
        if came:
            receiver.take(*came)
    return receiver.shown


def wall_of(*reds):
    """So many red lamps on each universe."""
    return {u + 1: (RED * count).ljust(512, b"\0") for u, count in enumerate(reds)}


EXPECTED = {"lamp": wall_of(1, 0),
            "lamps": wall_of(LAMPS_OF_UNIVERSE, COLS * ROWS - LAMPS_OF_UNIVERSE)}


def display(folder):
    read, write = os.pipe()
    start(["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x800x24", "-nolisten", "tcp"],
          pass_fds=[write], stderr=subprocess.DEVNULL)
    os.environ["DISPLAY"] = ":" + os.read(read, 20).decode().strip()
    os.environ |= {"XDG_CONFIG_HOME": folder, "HOME": folder, "XDG_RUNTIME_DIR": folder,
                   "LC_ALL": "C.UTF-8"}
    start(["openbox"], stderr=subprocess.DEVNULL)
    time.sleep(1)


def main(arguments):
    if len(arguments) not in (1, 2):
        print(__doc__, file=sys.stderr)
        return 2
    try:
        for program, package in NEEDED.items():
            if not shutil.which(program):
                raise Skip(f"{program} is missing (Debian package: {package})")
        isolate()
    except Skip as reason:
        print(f"skip {reason}")
        return SKIPPED
    docs = pathlib.Path(__file__).resolve().parent.parent / "docs" / "pictures"
    pictures = pathlib.Path(arguments[1]).resolve() if arguments[1:] else docs
    port = groups()
    with tempfile.TemporaryDirectory(prefix="korvane-tour-") as folder:
        display(folder)
        start([arguments[0], "--project", folder + "/untitled"], stderr=subprocess.DEVNULL)
        person = Person(pictures)
        person.window(DESK)
        time.sleep(2)
        person.began = time.monotonic()
        wrong = 0
        for step in STEPS:
            if step in EXPECTED:
                took = time.monotonic() - person.began
                well = shown(port) == EXPECTED[step]
                wrong += not well
                person.began += time.monotonic() - person.began - took
                print(f"    {'ok  ' if well else 'FAIL'} what the lamps show; {person.clicks} clicks, "
                      f"{person.keys} keys, {took:.0f} s")
            elif isinstance(step, str):
                person.photograph(step)
            else:
                person.do(*step)
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
