#!/usr/bin/env python3
"""Checks that outputs live through what happens to networks, and say it in words.

    check-faults.py CONSOLE [SECONDS]

In a network of its own korvane-console sends a picture that stands still, for SECONDS (120): it is kept
alive all the time. Meanwhile other outputs lose their route, their interface and their receiver, and
get them back; what they say is read from standard error. Exit status 1 for a fault, 77 if nothing can
be checked here.
"""

import socket
import subprocess
import sys
import tempfile
import threading
import time

from network_checks import OWN_ADDRESS, SKIPPED, isolate
from network_receivers import Skip, start
from sacn_receiver import Port, parse

PATIENCE = 10  # seconds for what must be said
MOST_QUIET = 1.0

wrong = []


def check(what, well):
    print(f"{'ok  ' if well else 'FAIL'} {what}", flush=True)
    if not well:
        wrong.append(what)


def ip(change):
    subprocess.run(["ip", *change.split()], check=True)


class Sender:
    """korvane-console with an output, on a red wall that stands still."""

    def __init__(self, console, target):
        self.lines = []
        self.folder = tempfile.TemporaryDirectory(prefix="korvane-faults-")
        self.program = start([console, "--base", self.folder.name + "/wall", "--clock", "real",
                              "--output", target], stdin=subprocess.PIPE, stdout=subprocess.DEVNULL,
                             stderr=subprocess.PIPE, text=True)
        self.program.stdin.write("click MatrixForm.active\nclick MatrixForm.fadeA\n")
        self.program.stdin.flush()
        threading.Thread(target=self.read, daemon=True).start()

    def read(self):
        for line in self.program.stderr:
            self.lines.append(line.strip())

    def says(self, words, after=0):
        """Whether a line with the words comes within a while."""
        end = time.monotonic() + PATIENCE
        while time.monotonic() < end:
            if any(words in line for line in self.lines[after:]):
                return True
            time.sleep(0.05)
        print(f"     it said {self.lines}")
        return False

    def end(self):
        self.program.terminate()
        self.program.wait()
        return self.program.returncode


def stands_still(console, seconds, result):
    port = Port()
    sender = Sender(console, f"sacn:7-8@127.0.0.1:{port.number}")
    time.sleep(2)
    while port.packet(0.01):
        pass
    last, longest, count, values = {}, 0, 0, set()
    end = time.time() + seconds
    while time.time() < end:
        came = port.packet(5)
        if came is None:
            break
        data = parse(came[0])
        longest = max(longest, came[1] - last.get(data.universe, came[1]))
        last[data.universe] = came[1]
        count += 1
        values.add((data.universe, data.slots))
    status = sender.end()
    result += [(f"a picture that stands still for {seconds} s: {count} packets, never {longest:.3f} s "
                "without one", count > seconds and longest < MOST_QUIET),
               ("its values stay", len(values) == 2), (f"nothing is said {sender.lines or str()}", not sender.lines),
               ("SIGTERM is told as the exit status", status == 128 + 15)]
    farewells = []
    while came := port.packet(0.3):
        farewells.append(parse(came[0]))
    ended = [d for d in farewells if d.terminated]
    dark = [d for d in farewells if not d.terminated and not any(d.slots)]
    result.append(("SIGTERM: dark, then three terminated packets a universe",
                   len(ended) == 6 and len(dark) >= 2))


def route_goes(console):
    sender = Sender(console, "sacn:1")
    time.sleep(1.5)
    ip("route del default dev lamps")
    check("a route that is gone is told", sender.says("Network is unreachable"))
    before = len(sender.lines)
    ip("route add default dev lamps")
    check("and when it is back", sender.says("works again", before))
    check("each once", len(sender.lines) == 2)
    sender.end()


def interface_goes(console):
    sender = Sender(console, "artnet:0%lamps")
    time.sleep(1.5)
    ip("link del lamps")
    check("an interface that is gone is told", sender.says("No such device"))
    before = len(sender.lines)
    ip("link add lamps type veth peer name wire")
    ip(f"addr add {OWN_ADDRESS}/24 dev lamps")
    ip("link set wire up")
    ip("link set lamps up")
    ip("route add default dev lamps")
    check("and when it is back", sender.says("works again", before))
    sender.end()


def receiver_goes(console):
    receiver = Port()
    number = receiver.number
    sender = Sender(console, f"ddp@127.0.0.1:{number}")
    check("a receiver gets packets", receiver.packet(5) is not None)
    receiver.socket.close()
    check("a port that refuses is told", sender.says("Connection refused"))
    before = len(sender.lines)
    receiver = Port(number)
    check("and when it is open again", sender.says("works again", before))
    check("it gets packets again", receiver.packet(5) is not None)
    sender.end()


def port_is_taken(console):
    with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as other:
        other.bind(("", 6454))
        sender = Sender(console, "artnet:0@nodes")
        check("a port that another program holds is told",
              sender.says("UDP port 6454 can't be listened on"))
        sender.end()


def others_send_too(console):
    sender = Sender(console, "sacn:20")
    time.sleep(1.5)  # it is the first one there
    stronger = Sender(console, "sacn:20,priority=150,source=Other desk")
    check("a stronger source on the same universe is named", sender.says(
        f"'Other desk' at {OWN_ADDRESS} sends universe 20 too, with the higher priority 150"))
    before = len(sender.lines)
    stronger.end()
    check("and when it has ended", sender.says("works again", before))
    sender.end()


def main(arguments):
    if len(arguments) not in (1, 2):
        print(__doc__, file=sys.stderr)
        return 2
    try:
        isolate()
    except Skip as reason:
        print(f"skip {reason}")
        return SKIPPED
    console, seconds = arguments[0], int(arguments[1]) if arguments[1:] else 120
    result = []
    still = threading.Thread(target=stands_still, args=(console, seconds, result))
    still.start()
    route_goes(console)
    receiver_goes(console)
    port_is_taken(console)
    others_send_too(console)
    interface_goes(console)
    still.join()
    for what, well in result:
        check(what, well)
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
