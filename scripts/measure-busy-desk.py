#!/usr/bin/env python3
"""Measures what the lamps get from the desk while its window is busy.

    measure-busy-desk.py [--seconds N] [--busy N] KORVANE

The desk plays a wall of 50 by 50 lamps on a display of its own and sends it to fifteen universes of
sACN, synchronised: Fluid at full speed on the left, a painting on the right. Meanwhile, again and
again, the pointer drags over the 50 by 50 painting for eight seconds, a modal file dialog stands open
for three, and the show is saved to a disk that takes 1.5 seconds to write a file, in which the window
does nothing. --busy processes (2) take what they can of the processor. The gaps between the packets of
a universe are what the lamps feel; new pictures come from the window and wait for it.
Exit status 1 if a picture was torn, a packet out of sequence, or a universe without a packet for 2.5 s.
"""

import argparse
import importlib
import os
import pathlib
import random
import subprocess
import sys
import tempfile
import threading
import time

from network_receivers import start
from sacn_receiver import Port

wall = importlib.import_module("measure-wall")
tour = importlib.import_module("tour-wall")

SLOW_DISK = r"""
#define _GNU_SOURCE
#include <dlfcn.h>
#include <time.h>
int fsync(int fd) {
  struct timespec wait = {1, 500000000};
  nanosleep(&wait, 0);
  return ((int (*)(int))dlsym(RTLD_NEXT, "fsync"))(fd);
}
"""
PAINT = ["True", "2", "Painting", f"{wall.SIDE},{wall.SIDE}",
         *(str(cell % 256) for cell in range(wall.SIDE * wall.SIDE))]
SHOW = ["show", "V1.0", "0.5", "1", "1", "1", "0", "0", "0", "A0", *wall.FLUID, "B0", *PAINT,
        "X0", "0", "fade", "3", "0"]
MOST_QUIET = 2.5


def xdotool(*words):
    subprocess.run(["xdotool", *map(str, words)], capture_output=True)


def right_list(desk):
    """A place in the list of the right deck: above the buttons at the foot of the desk's window."""
    size = dict(line.split("=") for line in
                tour.run("xdotool", "getwindowgeometry", "--shell", desk).split())
    return int(size["WIDTH"]) - 150, int(size["HEIGHT"]) - 180


class Busy(threading.Thread):
    """A person who does what keeps the window busy."""

    def __init__(self):
        super().__init__(daemon=True)
        self.done = dict.fromkeys(("drags", "dialogs", "saves"), 0)
        self.going = True

    def run(self):
        person = tour.Person(None)
        desk = person.window("wall.? - Korvane")
        painting = None
        while self.going and not painting:  # a machine that is busy takes its time
            xdotool("mousemove", "--window", desk, *right_list(desk), "click", 1, "key", "Return")
            time.sleep(3)
            found = tour.run("xdotool", "search", "--onlyvisible", "--name", "^Paint")
            painting = found.split()[-1] if found else None
        while self.going:
            self.drag(painting)
            xdotool("key", "ctrl+o")
            time.sleep(3)
            xdotool("key", "Escape")
            self.done["dialogs"] += 1
            time.sleep(0.5)
            xdotool("key", "ctrl+s")
            self.done["saves"] += 1
            time.sleep(4)

    def drag(self, window):
        xdotool("windowactivate", window, "mousemove", "--window", window, 400, 250,
                "mousedown", 1)
        end = time.monotonic() + 8
        while self.going and time.monotonic() < end:
            xdotool("mousemove", "--window", window, random.randint(250, 650),
                    random.randint(100, 450))
            time.sleep(0.01)
        xdotool("mouseup", 1)
        self.done["drags"] += 1


def slow_disk(folder):
    source, library = folder / "slow.c", folder / "slow.so"
    source.write_text(SLOW_DISK)
    subprocess.run(["cc", "-shared", "-fPIC", "-o", library, source, "-ldl"], check=True)
    return str(library)


def measure(korvane, seconds, folder):
    show = wall.write_show(folder, SHOW)
    library = slow_disk(folder)
    tour.display(str(folder))
    port, came = Port(), wall.Wall()
    desk = start([korvane, "--show", show, "--output", wall.target(port), "--dmx"],
                 env=os.environ | {"LD_PRELOAD": library}, stderr=subprocess.DEVNULL)
    person = Busy()
    person.start()
    quiet, last = 0.0, {}
    end = time.time() + seconds
    while time.time() < end and desk.poll() is None:
        packet = port.packet(10)
        if packet is None:
            break
        came.take(*packet)
        content = wall.parse(packet[0])
        if isinstance(content, wall.Release) or content is None:
            continue
        quiet = max(quiet, packet[1] - last.get(content.universe, packet[1]))
        last[content.universe] = packet[1]
    alive = desk.poll() is None
    person.going = False
    desk.terminate()
    while packet := port.packet(1):
        came.take(*packet)
    desk.wait()
    ends = ", ".join(f"{count} {what}" for what, count in person.done.items())
    print(f"{seconds} s of the desk, load average {os.getloadavg()[1]:.1f}: {ends}")
    wall.tell_gaps("packets to the wall", came.packets)
    wall.tell_gaps("released pictures, repeats among them", came.pictures)
    wall.tell_gaps("new pictures", [when for when, _ in came.new])
    print(f"longest time of a universe without a packet: {1000 * quiet:.0f} ms")
    print(f"torn pictures: {came.torn}; packets out of sequence: {came.receiver.dropped}; "
          f"terminated at the end: {len(came.receiver.ended)} universes")
    alive = alive and all(person.done.values())
    return 0 if alive and not came.torn and not came.receiver.dropped and quiet < MOST_QUIET else 1


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("--seconds", type=int, default=600)
    parser.add_argument("--busy", type=int, default=2)
    parser.add_argument("korvane")
    options = parser.parse_args()
    for _ in range(options.busy):
        start([sys.executable, "-c", wall.BUSY])
    with tempfile.TemporaryDirectory(prefix="korvane-busy-") as folder:
        return measure(options.korvane, options.seconds, pathlib.Path(folder))


if __name__ == "__main__":
    sys.exit(main())
