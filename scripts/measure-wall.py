#!/usr/bin/env python3
"""Measures a wall of 50 by 50 lamps on fifteen universes of sACN, both decks Fluid at full speed.

    measure-wall.py [--seconds N] [--starts N] [--busy N] [--values N] BIN

BIN is the folder of the programs, as in build/release/bin. korvane-play plays the show into a terminal
of its own and sends it, synchronised, to a receiver of this script (sacn_receiver.py):

  - the first packet: the time from the start of the program, over --starts starts (20);
  - --seconds (60) of play: pictures a second, the gaps between pictures and between packets, the share
    of a core, the memory; --busy processes (0) take what they can of the processor meanwhile;
  - no torn picture: each universe has come once before a release;
  - --values times (5) korvane-console plays the show for some seconds, and every lamp of the picture
    that it sent last is compared with its frame by its map.

Exit status 1 if a picture was torn, a value was wrong or a packet out of sequence.
"""

import argparse
import json
import os
import pathlib
import pty
import re
import resource
import signal
import statistics
import subprocess
import sys
import tempfile
import threading
import time

from sacn_receiver import Port, Receiver, Release, parse

SIDE = 50
UNIVERSES = 15
SYNCHRONISATION = 999
FLUID = ["True", "7", "Fluid", "1971210", "13158600", "100", "100", "7"]
SHOW = ["show", "V1.0", "0.5", "1", "1", "1", "0", "0", "0", "A0", *FLUID, "B0", *FLUID,
        "X0", "0", "fade", "3", "0"]
BUSY = "while True: pass"


def write_lines(path, lines):
    path.write_bytes("".join(line + "\r\n" for line in lines).encode())


def write_show(folder, show=SHOW):
    """The show and its grid, 170 lamps a universe."""
    codes = []
    for lamp in range(SIDE * SIDE):
        first = lamp // 170 * 512 + lamp % 170 * 3 + 1
        codes.append(f"{first},{first + 1},{first + 2}")
    write_lines(folder / "wall.Korvane", show)
    write_lines(folder / "wall.korvaneconf", ["wall", f"{SIDE},{SIDE},False", *codes])
    return folder / "wall.Korvane"


def target(port):
    return f"sacn:1-{UNIVERSES}@127.0.0.1:{port.number},sync={SYNCHRONISATION},end=hold"


class OnTerminal:
    """A program on a terminal of its own, whose text is read and thrown away."""

    def __init__(self, command):
        command = [str(part) for part in command]
        self.began = time.time()
        self.pid, self.terminal = pty.fork()
        if self.pid == 0:
            os.execv(command[0], command)
        threading.Thread(target=self.drain, daemon=True).start()

    def drain(self):
        try:
            while os.read(self.terminal, 65536):
                pass
        except OSError:
            pass

    def core(self):
        """Seconds of the processor so far."""
        fields = pathlib.Path(f"/proc/{self.pid}/stat").read_text().rpartition(")")[2].split()
        return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")

    def mebibytes(self):
        status = pathlib.Path(f"/proc/{self.pid}/status").read_text()
        return int(re.search(r"VmHWM:\s+(\d+)", status)[1]) / 1024

    def end(self):
        os.kill(self.pid, signal.SIGTERM)
        os.waitpid(self.pid, 0)
        os.close(self.terminal)


class Wall:
    """What came: the times of pictures and packets, and what was wrong."""

    def __init__(self):
        self.receiver = Receiver()
        self.pictures, self.packets, self.new = [], [], []
        self.count = {}  # packets of each universe since the last release
        self.torn = 0

    def take(self, packet, when):
        content = parse(packet)
        self.receiver.take(packet, when)
        if isinstance(content, Release):
            return self.released(when)
        if content is None or content.terminated:
            return None
        self.packets.append(when)
        self.count[content.universe] = self.count.get(content.universe, 0) + 1

    def released(self, when):
        self.pictures.append(when)
        if len(self.count) != UNIVERSES or set(self.count.values()) != {1}:
            self.torn += 1
        self.count = {}
        shown = dict(self.receiver.shown)
        if not self.new or shown != self.new[-1][1]:
            self.new.append((when, shown))
            if len(self.new) > 2:
                self.new[-3] = (self.new[-3][0], None)


def percentile(values, part):
    return sorted(values)[min(len(values) - 1, int(len(values) * part))]


def tell_gaps(what, times):
    gaps = [1000 * (b - a) for a, b in zip(times, times[1:])]
    print(f"{what}: {len(times)}; gaps in ms: 50 % {percentile(gaps, .5):.1f}, "
          f"99 % {percentile(gaps, .99):.1f}, 99.9 % {percentile(gaps, .999):.1f}, "
          f"largest {max(gaps):.1f}")


def measure_starts(player, show, starts):
    port = Port()
    times = []
    for _ in range(starts):
        program = OnTerminal([player, "--output", target(port), show])
        came = port.packet(10)
        times.append(1000 * (came[1] - program.began) if came else float("inf"))
        program.end()
        while port.packet(0.2):
            pass
    print(f"first packet of {starts} starts: {min(times):.1f} to {max(times):.1f} ms, "
          f"median {statistics.median(times):.1f} ms")


def measure_play(player, show, seconds, busy):
    load = [subprocess.Popen([sys.executable, "-c", BUSY]) for _ in range(busy)]
    port, wall = Port(), Wall()
    program = OnTerminal([player, "--output", target(port), show])
    while len(wall.pictures) < 20:
        wall.take(*port.packet(10))
    core, began = program.core(), time.time()
    while time.time() - began < seconds:
        wall.take(*port.packet(10))
    share = (program.core() - core) / (time.time() - began)
    memory = program.mebibytes()
    program.end()
    for process in load:
        process.kill()
        process.wait()
    span = wall.new[-1][0] - wall.new[0][0]
    print(f"{seconds} s beside {busy} busy processes, load average {os.getloadavg()[1]:.1f}")
    print(f"player: {100 * share:.2f} % of a core, {memory:.1f} MiB at most, "
          f"{(len(wall.new) - 1) / span:.1f} new pictures a second")
    tell_gaps("new pictures", [when for when, _ in wall.new])
    tell_gaps("packets", wall.packets)
    tell_gaps("released pictures, repeats among them", wall.pictures)
    print(f"torn pictures: {wall.torn}; packets out of sequence: {wall.receiver.dropped}")
    return wall.torn + wall.receiver.dropped


def lamps_that_differ(shown, text):
    """How many values are not those of the console's frame by its map, and how many are lit."""
    replies = [json.loads(line) for line in text.splitlines()]
    frame = next(r["cells"] for r in replies if "cells" in r and "configured" not in r)
    codes = next(r["cells"] for r in replies if "configured" in r)
    wrong = lit = 0
    for colours, lamps in zip(frame, codes):
        for colour, lamp in zip(colours, lamps):
            for code, value in zip(lamp, bytes.fromhex(colour)):
                wrong += shown[(code - 1) // 512 + 1][(code - 1) % 512] != value
                lit += value > 0
    return wrong, lit


def check_values(console, show, times):
    wrong = 0
    for turn in range(times):
        port, receiver = Port(), Receiver()
        script = (f"answer {show}\nclick MatrixForm.load\nclick MatrixForm.active\n"
                  f"advance {1500 + 130 * turn}\nclick MatrixForm.active\nframe M\nmap\n")
        done = subprocess.run([console, "--base", show.with_suffix(""), "--clock", "real",
                               "--decimal", "point", "--output", target(port)],
                              input=script, capture_output=True, text=True)
        while came := port.packet(0.2):
            receiver.take(*came)
        differ, lit = lamps_that_differ(receiver.shown, done.stdout)
        wrong += differ + (lit == 0) + (done.returncode != 0)
        print(f"values of {3 * SIDE * SIDE} channels, {lit} of them lit: {differ} differ; "
              f"{len(receiver.ended)} universes were terminated")
    return wrong


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("--seconds", type=int, default=60)
    parser.add_argument("--starts", type=int, default=20)
    parser.add_argument("--busy", type=int, default=0)
    parser.add_argument("--values", type=int, default=5)
    parser.add_argument("bin", type=pathlib.Path)
    options = parser.parse_args()
    wrong = 0
    with tempfile.TemporaryDirectory(prefix="korvane-wall-") as folder:
        show = write_show(pathlib.Path(folder))
        bin_folder = options.bin.resolve()
        if options.starts:
            measure_starts(bin_folder / "korvane-play", show, options.starts)
        if options.seconds:
            wrong += measure_play(bin_folder / "korvane-play", show, options.seconds, options.busy)
        if options.values:
            wrong += check_values(bin_folder / "korvane-console", show, options.values)
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
