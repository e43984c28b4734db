#!/usr/bin/env python3
"""Checks every kind of packet of the outputs, field by field, by programs that are not ours.

    check-outputs.py PROBE

PROBE is korvane-net-probe. tshark captures and decodes what it sends by sACN (data, synchronisation,
discovery, termination), Art-Net (data, synchronisation, poll; to a node that answers) and DDP; olad
takes what it sends through OLA's client library. All this happens in a network of its own.
Exit status as of check-network.py.
"""

import collections
import pathlib
import shutil
import socket
import struct
import subprocess
import sys
import tempfile
import threading
import time

from network_checks import OWN_ADDRESS, SKIPPED, isolate
from network_receivers import Ola, Skip, start

SHOW = ["20", "60", "1200"]  # passes, ms between them, ms of quiet
FIELDS = ["ip.dst", "udp.dstport", "udp.srcport", "udp.length", "_ws.expert", "_ws.malformed",
          "acn.root_vector", "acn.framing_vector", "acn.cid", "acn.dmx.source_name",
          "acn.dmx.priority", "acn.dmx.reserved", "acn.dmx.sync", "acn.dmx.sequence_number",
          "acn.dmx.seq_number", "acn.dmx.universe", "acn.dmx.options", "acn.dmx.options.p",
          "acn.dmx.discovery.framing_vector", "artnet.header.opcode", "artnet.header.protver",
          "artnet.output.sequence", "artnet.output.universe", "artnet.output.length",
          "artnet.poll.talktome", "artnet.poll.diag_priority", "artnet.sync.aux1",
          "udp.payload"]


def known(fields):
    """Those of the fields that this tshark knows."""
    listed = subprocess.run(["tshark", "-G", "fields"], capture_output=True, text=True).stdout
    names = {line.split("\t")[2] for line in listed.splitlines() if line.startswith("F\t")}
    return [field for field in fields if field in names or field.startswith("_ws.")]


class Capture:
    def __init__(self, folder):
        self.file = str(folder / "packets.pcapng")
        self.tshark = start(["tshark", "-q", "-i", "lo", "-i", "lamps", "-f", "udp", "-w", self.file],
                            stderr=subprocess.PIPE, text=True)
        for line in self.tshark.stderr:
            if "Capturing" in line:
                break
        time.sleep(1)

    def packets(self):
        time.sleep(1)
        self.tshark.send_signal(2)
        self.tshark.wait()
        fields = known(FIELDS)
        columns = [part for name in fields for part in ("-e", name)]
        lines = subprocess.run(
            ["tshark", "-n", "-r", self.file, "--enable-heuristic", "acn",
             "-o", "acn.dmx_enable:TRUE", "-T", "fields", *columns],
            capture_output=True, text=True).stdout.splitlines()
        packets = [collections.defaultdict(str, zip(fields, line.split("\t"))) for line in lines]
        return [p for p in packets if "," not in p["ip.dst"]]  # two: a router's answer that quotes


class Node(threading.Thread):
    """An Art-Net node with one output at port address 19, that answers polls."""

    def __init__(self, address):
        super().__init__(daemon=True)
        self.socket = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        self.socket.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
        self.socket.bind((address, 0))
        self.address = address
        self.start()

    def run(self):
        reply = bytearray(239)
        reply[0:10] = b"Art-Net\0\x00\x21"
        reply[10:14] = socket.inet_aton(self.address)
        reply[18], reply[19] = 0, 1
        reply[44:55] = b"Left pixels"
        reply[173], reply[174], reply[190] = 1, 0x80, 3
        for _ in range(40):
            self.socket.sendto(bytes(reply), (OWN_ADDRESS, 6454))
            time.sleep(0.1)


def run(probe, target):
    done = subprocess.run([probe, target, *SHOW], capture_output=True, text=True)
    if done.returncode:
        sys.exit(f"FAIL {target}: {done.stderr}")
    return done.stderr


def u16(data, at):
    return struct.unpack_from(">H", data, at)[0]


def check_sacn(packets, check):
    mine = [p for p in packets if p["udp.dstport"] == "5568"]
    data = [p for p in mine if p["acn.dmx.universe"] and p["acn.dmx.source_name"] == "Left wall"
            and p["acn.dmx.priority"] == "120"]
    check("sACN data on three universes", len(data) > 60 and
          {p["acn.dmx.universe"] for p in data} == {"1", "2", "3"})
    check("each to its group", all(p["ip.dst"] == f"239.255.0.{p['acn.dmx.universe']}" for p in data))
    check("nothing malformed", not any(p["_ws.malformed"] or p["_ws.expert"] for p in mine))
    raw = [bytes.fromhex(p["udp.payload"]) for p in mine]
    check("one CID in packets of every kind",
          len({r[22:38] for r in raw}) == 1 and len({p["acn.cid"] for p in data}) == 1)
    heads = [(u16(r, 18) << 16 | u16(r, 20), u16(r, 40) << 16 | u16(r, 42), len(r)) for r in raw]
    sync = [r for r, head in zip(raw, heads) if head == (8, 1, 49)]
    discovery = [r for r, head in zip(raw, heads) if head[:2] == (8, 2)]
    check("every packet is data, synchronisation or discovery",
          len(sync) + len(discovery) + sum(head == (4, 2, 638) for head in heads) == len(raw))
    check("synchronisation names universe 9 and counts up", len(sync) > 20 and
          all(u16(r, 45) == 9 for r in sync) and
          all((b[44] - a[44]) % 256 == 1 for a, b in zip(sync, sync[1:])))
    check("lengths of synchronisation", all(u16(r, 16) == 0x7000 | 33 and u16(r, 38) == 0x7000 | 11
                                            for r in sync))
    check("discovery lists the universes", len(discovery) >= 1 and
          all(r[120:] == bytes([0, 1, 0, 2, 0, 3]) and len(r) == 126 and u16(r, 112) == 0x7000 | 14
              for r in discovery))
    check("discovery goes to 239.255.250.214", all(
        p["ip.dst"] == "239.255.250.214" for p, head in zip(mine, heads) if head[:2] == (8, 2)))
    terminated = [r for r, head in zip(raw, heads) if head[0] == 4 and r[112] & 0x40]
    check("three terminated packets a universe", len(terminated) == 9)
    check("data waits for universe 9 until the end",
          all(u16(r, 109) == (0 if r[112] & 0x40 else 9)
              for r, head in zip(raw, heads) if head[0] == 4))
    order = ["s" if head == (8, 1, 49) else str(u16(r, 113)) for r, head in zip(raw, heads)
             if head[0] == 4 and not r[112] & 0x40 or head == (8, 1, 49)]
    check("a picture is its universes and then their release",
          "".join(order) == "123s" * (len(order) // 4))


def check_artnet(packets, check, told):
    mine = [p for p in packets if p["udp.dstport"] == "6454" and p["artnet.header.opcode"]]
    kinds = collections.Counter(p["artnet.header.opcode"] for p in mine)
    check(f"Art-Net data, synchronisation and polls {dict(kinds)}",
          all(kinds[kind] for kind in ("0x5000", "0x5200", "0x2000")))
    check("nothing malformed", not any(p["_ws.malformed"] for p in mine))
    data = [p for p in mine if p["artnet.header.opcode"] == "0x5000"]
    check("data by unicast to the node, port address 19", data and
          {(p["ip.dst"], p["artnet.output.universe"]) for p in data} == {("10.77.0.2", "19")})
    check("512 values", {p["artnet.output.length"] for p in data} == {"512"})
    check("the node is listed by name and address",
          "found Left pixels at 10.77.0.2, universes 19 (net 0, sub-net 1, universe 3)" in told)


def check_ddp(packets, check):
    mine = [bytes.fromhex(p["udp.payload"]) for p in packets if p["udp.dstport"] == "4048"]
    check(f"DDP packets ({len(mine)})", len(mine) > 20)
    offset = 0
    for data in mine:
        flags, sequence, kind, destination, at, length = struct.unpack_from(">BBBBIH", data)
        push = bool(flags & 1)
        if (flags & 0xfe, kind, destination, at, length) != (0x40, 0x0b, 1, offset, len(data) - 10) \
                or not 1 <= sequence <= 15 or push != (at + length == 3000):
            check(f"DDP field by field: {data[:10].hex()}", False)
            return
        offset = 0 if push else offset + length
    check("DDP: 1,000 lamps in order, pushed at the last packet", offset == 0)


def check_ola(probe, check):
    if not shutil.which("olad") or not shutil.which("ola_recorder"):
        print("skip olad is missing (Debian package: ola)")
        return
    words = run(probe, "ola:7")
    check("without olad it is said in words", "olad can't be reached" in words)
    target = collections.namedtuple("Target", "universe ola_plugin text")(7, "E1.31", "wall")
    ola = Ola([target])
    words = run(probe, "ola:7,end=hold")
    frames = ola.stop().get(7, [])
    check(f"olad took {len(frames)} pictures through the client library",
          len({frame[:2] for frame in frames}) >= 15 and frames[-1][0] == 20)
    check("and nothing was wrong", "olad can't" not in words)


def main(arguments):
    if len(arguments) != 1:
        print(__doc__, file=sys.stderr)
        return 2
    try:
        isolate()
        if not shutil.which("tshark"):
            raise Skip("tshark is missing (Debian package: tshark)")
    except Skip as reason:
        print(f"skip {reason}")
        return SKIPPED
    subprocess.run("ip addr add 10.77.0.2/24 dev lo".split(), check=True)
    wrong = []

    def check(what, well):
        print(f"{'ok  ' if well else 'FAIL'} {what}")
        if not well:
            wrong.append(what)

    probe = str(pathlib.Path(arguments[0]).resolve())
    with tempfile.TemporaryDirectory(prefix="korvane-outputs-") as folder:
        capture = Capture(pathlib.Path(folder))
        run(probe, "sacn:1-3%lamps,sync=9,priority=120,source=Left wall")
        Node("10.77.0.2")
        told = run(probe, "artnet:19@nodes,sync=on")
        run(probe, "ddp@127.0.0.1")
        packets = capture.packets()
    check_sacn(packets, check)
    check_artnet(packets, check, told)
    check_ddp(packets, check)
    check_ola(probe, check)
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
