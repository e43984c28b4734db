#!/usr/bin/env python3
"""Checks the network output of the programs by receivers that are not ours.

    check-programs-network.py CONSOLE        korvane-console plays an example by the wall clock
    check-programs-network.py CONSOLE DESK   korvane plays a show without a screen, until SIGTERM

What arrives is compared with what the console tells of itself: the calls that its desk got, and its
frame under its map. For the desk, which tells nothing, the console plays the same show in virtual
time. See check-network.py for the rest.
"""

import json
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import time

from network_checks import (SLOTS, TARGETS, Told, keep_alives, run_isolated, states_of,
                            without_repeats)
from network_receivers import start

EXAMPLE = pathlib.Path(__file__).resolve().parent.parent / "examples" / "1-club-night"
OPENING = "answer {show}\nclick MatrixForm.load\nclick MatrixForm.active\n"

# A colour scroll, a fade to the other side, and at the end a picture that stands still.
EXAMPLE_SCRIPT = OPENING + """advance 2000
calls
click MatrixForm.AutoFadeB
advance 4500
click MatrixForm.fadeA
pick MatrixForm.efxAList 5
advance 3500
calls
frame Sent
map
"""

# Five colours for two seconds each on the left, a gradient on the right, mixed.
SHOW = ["show", "V1.0", "0.25", "1", "1", "1", "0", "0", "0",
        "A0", "True", "4", "Colours", "5", *"255 2 65280 2 16711680 2 8421504 2 65535 2".split(),
        "0", "0", "50", "50", "0",
        "B0", "True", "1", "Gradient", "16711680", "255", "5",
        "X0", "0", "fade", "3", "0"]
GRID_SIDE = 8
SHOW_SCRIPT = OPENING + "advance 60000\ncalls\n"
PATIENCE = 90  # seconds


def run_console(console, arguments, script):
    done = subprocess.run([console, *arguments], input=script, capture_output=True, text=True)
    if done.returncode:
        sys.exit(f"FAIL the console ended with status {done.returncode}: {done.stdout}")
    return done.stdout


# The console


def final_frame(text):
    """The slots that its `frame Sent` means by its `map`."""
    replies = [json.loads(line) for line in text.splitlines()]
    colours = next(r["cells"] for r in replies if "cells" in r and "configured" not in r)
    channels = next(r["cells"] for r in replies if "configured" in r)
    slots = bytearray(SLOTS)
    for colour_row, channel_row in zip(colours, channels):
        for colour, lamp in zip(colour_row, channel_row):
            for channel, value in zip(lamp, bytes.fromhex(colour)):
                if 1 <= channel <= SLOTS:
                    slots[channel - 1] = value
    return bytes(slots)


def play_console(console):
    script = tempfile.NamedTemporaryFile("w", suffix=".txt")
    script.write(EXAMPLE_SCRIPT.format(show=f"{EXAMPLE}.Korvane"))
    script.flush()
    outputs = {target: tempfile.TemporaryFile("w+") for target in TARGETS}
    senders = [start([console, "--base", str(EXAMPLE), "--clock", "real", "--decimal", "point",
                      "--output", target.text + ",end=hold", script.name], stdout=output)
               for target, output in outputs.items()]
    if any([sender.wait() for sender in senders]):
        sys.exit("FAIL a command of the console was not ok")
    told = {}
    for target, output in outputs.items():
        output.seek(0)
        text = output.read()
        states = states_of(text)
        if states[-1] != final_frame(text) or not any(states[-1]):
            sys.exit(f"FAIL {target.text}: the calls end otherwise than the frame")
        told[target] = Told(states)
    return told


# The desk


def write_show(folder):
    show = folder / "show.Korvane"
    show.write_bytes("".join(line + "\r\n" for line in SHOW).encode())
    lamps = range(GRID_SIDE * GRID_SIDE)
    grid = ["show", f"{GRID_SIDE},{GRID_SIDE},False",
            *(f"{3 * lamp + 1},{3 * lamp + 2},{3 * lamp + 3}" for lamp in lamps)]
    (folder / "show.korvaneconf").write_bytes("".join(line + "\r\n" for line in grid).encode())
    return show


def has_enough(capture):
    """Whether each target got a few frames of the show and a few keep-alives."""
    packets = capture.packets()
    mine = [[p for p in packets if (p.to, p.port) == (t.to, t.port)] for t in TARGETS]
    return all(len(without_repeats([p.slots for p in m])) > 4 and len(keep_alives(m)) > 4
               for m in mine)


def play_desk(console, desk, capture):
    with tempfile.TemporaryDirectory(prefix="korvane-show-") as folder:
        show = write_show(pathlib.Path(folder))
        states = states_of(run_console(
            console, ["--base", str(show.with_suffix("")), "--decimal", "point"],
            SHOW_SCRIPT.format(show=show)))
        quiet = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C"}
        desks = [start([desk, "--show", str(show), "--output", target.text, "--dmx"], env=quiet,
                       stderr=subprocess.DEVNULL) for target in TARGETS]
        end = time.monotonic() + PATIENCE
        while time.monotonic() < end and not has_enough(capture):
            time.sleep(0.5)
        for process in desks:
            process.send_signal(signal.SIGTERM)
        if any([process.wait() for process in desks]):
            sys.exit("FAIL the desk did not end well at SIGTERM")
    dark = bytes(len(states[0]))  # a desk that is asked to end leaves the lamps dark
    return {target: Told([*states, dark], to_the_end=False) for target in TARGETS}


def main(arguments):
    if len(arguments) == 1:
        return run_isolated(lambda _: play_console(*arguments))
    if len(arguments) == 2:
        return run_isolated(lambda capture: play_desk(*arguments, capture))
    print(__doc__, file=sys.stderr)
    return 2


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
