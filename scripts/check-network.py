#!/usr/bin/env python3
"""Checks the network output by receivers that are not ours.

    check-network.py [--all-passes] COMMAND...

COMMAND is a sender that plays some passes, is quiet for at least 2.7 s, and ends. It runs once for
each target below, which takes the place of the argument {target}. It tells its passes on standard
output as korvane-console does, in lines that are JSON objects with "calls":

    {"ok": true, "calls": [["UserInteraction"], ["SetChannel", 1, 255], ["SetChannel", 2, 0]]}

tshark captures and decodes the packets, and the lighting server olad records the frames that it
understood. --all-passes asks that every pass arrives; leave it out for a sender with more than 44
passes a second, of which the latest suffice.

All this happens in a network of its own, with a pretended Ethernet, so no real lamp is disturbed.
Needed: tshark, iproute2, and the right to make a network name space; ola for all checks.
Exit status: 0 all is well, 1 a check failed, 2 wrong usage, 77 nothing could be checked here.
"""

import sys
import tempfile

from network_checks import TARGETS, Told, run_isolated, states_of
from network_receivers import start


def play(command, all_passes):
    """Runs the sender for all targets at once."""
    outputs = {target: tempfile.TemporaryFile("w+") for target in TARGETS}
    senders = {target: start([part.replace("{target}", target.text + ",end=hold") for part in command],
                             stdout=output) for target, output in outputs.items()}
    for target, sender in senders.items():
        if sender.wait():
            sys.exit(f"FAIL {target.text}: the sender ended with status {sender.returncode}")
    for output in outputs.values():
        output.seek(0)
    return {target: Told(states_of(output.read()), all_passes)
            for target, output in outputs.items()}


def main(arguments):
    all_passes = arguments[:1] == ["--all-passes"]
    command = arguments[1:] if all_passes else arguments
    if not any("{target}" in part for part in command):
        print(__doc__, file=sys.stderr)
        return 2
    return run_isolated(lambda _: play(command, all_passes))


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
