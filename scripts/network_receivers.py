"""The receivers of the network check: tshark and the lighting server olad."""

import atexit
import dataclasses
import json
import os
import pathlib
import re
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import time
import urllib.parse
import urllib.request

SLOTS = 512
MARK_PORT = 9  # a packet to this port marks the begin and the end of a capture


class Skip(Exception):
    """Nothing can be checked on this machine."""


def start(command, **options):
    """Starts a program that ends with this script at the latest."""
    process = subprocess.Popen(command, **options)
    atexit.register(lambda: (process.terminate(), process.wait()))
    return process


@dataclasses.dataclass
class Packet:
    time: float
    to: str
    port: int
    universe: int
    sequence: int
    slots: bytes
    terminated: bool
    fixed: dict  # fields that must have one value in every packet


FIELDS = ["frame.time_epoch", "ip.dst", "udp.dstport", "data.data", "_ws.expert", "ip.ttl",
          "acn.cid", "acn.dmx.source_name", "acn.dmx.priority", "acn.dmx.start_code2",
          "acn.dmx.count", "acn.pdu.length", "acn.dmx.options", "acn.dmx.universe",
          "acn.dmx.seq_number", "acn.dmx.data",
          "artnet.header.opcode", "artnet.header.protver", "artnet.output.physical",
          "artnet.output.length", "artnet.output.universe", "artnet.output.sequence",
          "dmx_chan.data_filter"]
FIXED = {
    5568: {"_ws.expert": "", "ip.ttl": "64", "acn.dmx.source_name": "Korvane",
           "acn.dmx.priority": "100", "acn.dmx.start_code2": "0", "acn.dmx.count": "513",
           "acn.pdu.length": "622,600,523"},
    6454: {"_ws.expert": "", "artnet.header.opcode": "0x5000", "artnet.header.protver": "14",
           "artnet.output.physical": "0", "artnet.output.length": "512"},
}


def acn_slots(text):
    """The values in the dissector's table: a head line, then lines like "001-020: 00 FF | ..."."""
    lines = text.split(",")[1:]
    return bytes.fromhex("".join(re.sub(r"^\S+:|[ |]", "", line) for line in lines))


def decoded(line):
    """The packet of one line of columns, or None for one that tshark did not understand."""
    field = dict(zip(FIELDS, line))
    port = int(field["udp.dstport"])
    common = {"time": float(field["frame.time_epoch"]), "to": field["ip.dst"], "port": port,
              "fixed": {name: field[name] for name in FIXED.get(port, {})}}
    if field["acn.dmx.data"]:
        options = int(field["acn.dmx.options"])
        if options & ~0x40:
            return None
        common["fixed"]["acn.cid"] = field["acn.cid"]
        return Packet(universe=int(field["acn.dmx.universe"]), terminated=options == 0x40,
                      sequence=int(field["acn.dmx.seq_number"]),
                      slots=acn_slots(field["acn.dmx.data"]), **common)
    if field["dmx_chan.data_filter"]:
        return Packet(universe=int(field["artnet.output.universe"]), terminated=False,
                      sequence=int(field["artnet.output.sequence"]),
                      slots=bytes.fromhex(field["dmx_chan.data_filter"]), **common)
    return None


class Capture:
    def __init__(self):
        if not shutil.which("tshark"):
            raise Skip("tshark is missing (Debian package: tshark)")
        ports = " or ".join(f"udp dst port {port}" for port in (*FIXED, MARK_PORT))
        wanted = f"({ports}) and not udp src port 6454"  # from there olad tells that it is there
        wanted += " and not dst host 239.255.250.214"  # sACN's discovery has a check of its own
        columns = [part for name in FIELDS for part in ("-e", name)]
        self.folder = tempfile.TemporaryDirectory(prefix="korvane-capture-")
        self.output = pathlib.Path(self.folder.name, "lines")
        self.errors = pathlib.Path(self.folder.name, "errors")
        with self.output.open("w") as lines, self.errors.open("w") as errors:
            self.tshark = start(
                ["tshark", "-l", "-n", "-f", wanted, "-i", "lo", "-i", "lamps", "-T", "fields",
                 "--enable-heuristic", "acn", "-o", "acn.dmx_enable:TRUE",
                 "-o", "acn.dmx_display_zeros:TRUE", "-o", "acn.dmx_display_leading_zeros:TRUE",
                 *columns], stdout=lines, stderr=errors)
        self.marks = 0
        self.mark()

    def lines(self):
        """The columns of the packets captured so far."""
        *whole, _ = self.output.read_text().split("\n")
        return [line.split("\t") for line in whole]

    def packets(self):
        """The packets that were captured so far and understood."""
        lines = (line for line in self.lines() if line[2] != str(MARK_PORT))
        return [packet for packet in map(decoded, lines) if packet]

    def mark(self):
        """Sends marks to both networks until new ones have been captured: all before them is."""
        self.marks += 1
        text = b"mark %d" % self.marks
        with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as sender:
            sender.setsockopt(socket.SOL_SOCKET, socket.SO_BROADCAST, 1)
            for _ in range(200):
                sender.sendto(text, ("127.0.0.1", MARK_PORT))
                sender.sendto(text, ("255.255.255.255", MARK_PORT))
                time.sleep(0.05)
                seen = {line[1] for line in self.lines() if line[3] == text.hex()}
                if len(seen) == 2:
                    return
                if self.tshark.poll() is not None:
                    break
        raise Skip("tshark can't capture: " + self.errors.read_text().strip())

    def stop(self):
        """All packets, in the order of their times, and the lines that were not understood."""
        self.mark()
        self.tshark.send_signal(signal.SIGINT)
        self.tshark.wait()
        lines = [line for line in self.lines() if line[2] != str(MARK_PORT)]
        packets = [(decoded(line), line) for line in lines]
        unknown = [line for packet, line in packets if packet is None]
        return sorted((p for p, _ in packets if p), key=lambda p: p.time), unknown


class Ola:
    """The lighting server, without a plug-in for hardware, that records what it receives. Its
    recorder may miss the first frames."""

    HTTP = "http://127.0.0.1:9090/"
    NEEDED = {"ola-e131.conf": "enabled = true\ninput_ports = 1\noutput_ports = 0\n",
              "ola-artnet.conf": "enabled = true\n"}
    OTHERS = ("dummy espnet ftdidmx gpio karate kinet milinst nanoleaf opendmx openpixelcontrol "
              "osc pathport renard sandnet shownet spi stageprofi uartdmx usbdmx usbserial").split()

    def __init__(self, targets):
        self.targets = [target for target in targets if target.ola_plugin]
        self.temporary = tempfile.TemporaryDirectory(prefix="korvane-ola-")
        self.folder = pathlib.Path(self.temporary.name)
        for plugin in self.OTHERS:
            (self.folder / f"ola-{plugin}.conf").write_text("enabled = false\n")
        for name, text in self.NEEDED.items():
            (self.folder / name).write_text(text)
        self.user = {}
        if os.geteuid() == 0:  # olad refuses to run as root
            self.user = {"user": "nobody", "group": "nogroup", "extra_groups": []}
            for path in (self.folder, *self.folder.iterdir()):
                shutil.chown(path, "nobody", "nogroup")
        self.olad = self.run("olad", "-c", str(self.folder), "-l", "1")
        self.patch()
        self.show = self.folder / "show"
        universes = ",".join(str(target.universe) for target in self.targets)
        self.recorder = self.run("ola_recorder", "-r", str(self.show), "-u", universes)

    def run(self, *command):
        log = open(self.folder / f"{command[0]}.log", "w")
        return start(command, stdout=log, stderr=subprocess.STDOUT, **self.user)

    def ask(self, path, **form):
        data = urllib.parse.urlencode(form).encode() if form else None
        return json.load(urllib.request.urlopen(self.HTTP + path, data=data, timeout=5))

    def ports(self):
        for _ in range(100):
            try:
                ports = self.ask("json/get_ports")
            except OSError:
                ports = []
            if len({port["device"] for port in ports}) == len(self.NEEDED):
                return ports
            time.sleep(0.1)
        sys.exit("FAIL olad did not start: " + (self.folder / "olad.log").read_text())

    def patch(self):
        ports = self.ports()
        for target in self.targets:
            for port in ports:
                if port["device"].startswith(target.ola_plugin) and not port["is_output"]:
                    self.ask("new_universe", id=target.universe, name=target.text,
                             add_ports=port["id"])

    def stop(self):
        """The frames of each universe in the order in which they arrived."""
        for process in (self.recorder, self.olad):
            process.send_signal(signal.SIGINT)
            process.wait()
        frames = {}
        for line in self.show.read_text().splitlines():
            universe, _, values = line.partition(" ")
            if "," in values:
                slots = bytes(int(value) for value in values.split(","))
                frames.setdefault(int(universe), []).append(slots.ljust(SLOTS, b"\0"))
        return frames
