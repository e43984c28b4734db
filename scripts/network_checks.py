"""The checks of what a sender sent, as its receivers saw it."""

import dataclasses
import json
import os
import shutil
import subprocess
import sys

from network_receivers import FIXED, SLOTS, Capture, Ola, Skip

SKIPPED = 77
ISOLATED = "KORVANE_ISOLATED_NETWORK"
OWN_ADDRESS = "10.77.0.1"


@dataclasses.dataclass(frozen=True)
class Target:
    text: str  # what the sender is given
    universe: int
    to: str  # where its packets go
    port: int
    ola_plugin: str
    most_quiet: float  # seconds without a packet after which receivers give up

    @property
    def sacn(self):
        return self.port == 5568


TARGETS = [
    Target("sacn:7", 7, "239.255.0.7", 5568, "E1.31", 2.5),
    Target("sacn:300@127.0.0.1", 300, "127.0.0.1", 5568, "", 2.5),
    Target("artnet:9", 9, "255.255.255.255", 6454, "ArtNet", 4.0),
    Target("artnet:32767@127.0.0.1", 32767, "127.0.0.1", 6454, "", 4.0),
]


# A network of our own


def isolate():
    """Runs this script anew, in a network name space that holds nothing but what we make."""
    if ISOLATED not in os.environ:
        if not shutil.which("unshare") or not shutil.which("ip"):
            raise Skip("unshare or ip is missing (Debian packages: util-linux, iproute2)")
        user = [] if os.geteuid() == 0 else ["--user", "--map-current-user", "--keep-caps"]
        command = ["unshare", *user, "--net"]
        if subprocess.run([*command, "true"], capture_output=True).returncode:
            raise Skip("no right to make a network of its own; run it as root")
        os.environ[ISOLATED] = "1"
        os.execvp("unshare", [*command, sys.executable, *sys.argv])
    for change in ("link set lo up", "link add lamps type veth peer name wire",
                   f"addr add {OWN_ADDRESS}/24 dev lamps", "link set wire up", "link set lamps up",
                   "route add default dev lamps"):
        done = subprocess.run(["ip", *change.split()], capture_output=True, text=True)
        if done.returncode:
            raise Skip(f"ip {change}: {done.stderr.strip()}")


# What was sent, as the sender tells it


@dataclasses.dataclass
class Told:
    states: list  # frames that the sender was in, one after another
    all_passes: bool = False  # whether each of them must arrive
    to_the_end: bool = True  # whether the sender ended in the last of them


def states_of(text):
    """The frame before the first pass and after each pass."""
    states, frame = [bytes(SLOTS)], bytearray(SLOTS)
    for line in text.splitlines():
        reply = json.loads(line) if line.startswith("{") else {}
        for name, *arguments in reply.get("calls", []):
            if name == "UserInteraction":
                states.append(bytes(frame))
            elif name == "SetChannel":
                channel, value = arguments
                if 1 <= channel <= SLOTS:
                    frame[channel - 1] = value
                states[-1] = bytes(frame)
    return states


def without_repeats(frames):
    return [f for i, f in enumerate(frames) if i == 0 or f != frames[i - 1]]


# The checks: each returns what is wrong, or None


def frames_follow(frames, told):
    """The frames are states of the sender in their order, and the last one is the last state."""
    frames, states = without_repeats(frames), without_repeats(told.states)
    at = 0
    for number, frame in enumerate(frames):
        while at < len(states) and states[at] != frame:
            at += 1
        if at == len(states):
            return f"frame {number} of {len(frames)} is no state that the sender was in then"
    if not frames or (told.to_the_end and frames[-1] != states[-1]):
        return "the last frame is not the sender's last state"
    missing = set(states[1:]) - set(frames)
    if told.all_passes and missing:
        return f"{len(missing)} of {len(states) - 1} passes did not arrive"
    return None


def fields_are_right(packets, target):
    fixed = packets[0].fixed | FIXED[target.port]  # the CID is any, but always the same
    for packet in packets:
        wrong = [f"{name} is '{value}'" for name, value in packet.fixed.items()
                 if value != fixed[name]]
        if wrong:
            return ", ".join(wrong)
        if (packet.to, packet.universe, len(packet.slots)) != (target.to, target.universe, SLOTS):
            return f"universe {packet.universe} to {packet.to} with {len(packet.slots)} slots"
    return None


def rate_is_kept(packets):
    for first, last in zip(packets, packets[44:]):
        if last.time - first.time < 0.999:
            return f"45 packets in {last.time - first.time:.4f} s"
    return None


def sequence_counts(packets, target):
    first = 0 if target.sacn else 1
    for before, packet in zip(packets, packets[1:]):
        expected = first if before.sequence == 255 else before.sequence + 1
        if packet.sequence != expected:
            return f"{packet.sequence} after {before.sequence}"
    return None


def keep_alives(packets):
    """The gaps of the quiet time, longer than those of repeats."""
    return [b.time - a.time for a, b in zip(packets, packets[1:])
            if a.slots == b.slots and b.time - a.time > 0.5 and not b.terminated]


def is_kept_alive(packets, target):
    gaps = keep_alives(packets)
    if len(gaps) < 2:
        return f"{len(gaps)} keep-alives; the sender must be quiet for 2.7 s"
    if not 0.75 < min(gaps) < 1.0:  # a busy machine may be late now and then, but not always
        return f"the shortest wait for a keep-alive is {min(gaps):.3f} s"
    longest = max(b.time - a.time for a, b in zip(packets, packets[1:]))
    if longest > target.most_quiet:
        return f"no packet for {longest:.3f} s"
    return None


def ends_cleanly(packets, target):
    expected = [False] * (len(packets) - 3) + [target.sacn] * 3
    terminated = [packet.terminated for packet in packets]
    if terminated != expected:
        return f"terminated: {sum(terminated)} packets, at the end {terminated[-4:]}"
    return None


def results(target, packets, told):
    """Pairs of what was checked and what is wrong with it."""
    passes = len(without_repeats(told.states)) - 1
    if not passes:
        return [("the sender tells its passes", "it told none")]
    if len(packets) < 4:
        return [("packets arrive", f"{len(packets)} came")]
    shown = len(without_repeats([p.slots for p in packets]))
    span = packets[-1].time - packets[0].time
    gaps = ", ".join(f"{gap:.3f}" for gap in keep_alives(packets))
    ends = "terminated three times" if target.sacn else "without a farewell"
    return [
        (f"{len(packets)} packets are well formed", fields_are_right(packets, target)),
        (f"{shown} frames show the states of {passes} passes in their order",
         frames_follow([p.slots for p in packets], told)),
        (f"at most 44 packets in any second ({len(packets)} in {span:.2f} s)",
         rate_is_kept(packets)),
        ("sequence numbers count", sequence_counts(packets, target)),
        (f"kept alive while nothing changes (every {gaps} s)", is_kept_alive(packets, target)),
        (f"the stream ends {ends}", ends_cleanly(packets, target)),
    ]


def check(play):
    """Captures what `play` has sent and prints the report; the exit status. `play` is given the
    capture, and tells for each target what was sent to it."""
    capture = Capture()
    ola = Ola(TARGETS) if shutil.which("olad") and shutil.which("ola_recorder") else None
    sent = play(capture)
    recorded = ola.stop() if ola else {}
    packets, unknown = capture.stop()

    report = [("all packets", "tshark understands them", unknown[0] if unknown else None)]
    for target in TARGETS:
        told = sent[target]
        mine = [p for p in packets if (p.to, p.port) == (target.to, target.port)]
        report += [(target.text, *r) for r in results(target, mine, told)]
        if ola and target.ola_plugin:
            frames = recorded.get(target.universe, [])
            report.append((target.text, f"olad recorded {len(without_repeats(frames))} frames",
                           frames_follow(frames, dataclasses.replace(told, all_passes=False))))
    for where, what, wrong in report:
        print(f"FAIL {where}: {what}: {wrong}" if wrong else f"ok   {where}: {what}")
    if not ola:
        print("skip olad is missing (Debian package: ola)")
    return 1 if any(wrong for *_, wrong in report) else 0


def run_isolated(play):
    """The check in a network of its own; the exit status."""
    try:
        isolate()
        return check(play)
    except Skip as reason:
        print(f"skip {reason}")
        return SKIPPED
