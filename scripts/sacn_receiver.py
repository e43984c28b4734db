"""A receiver of sACN by the rules of ANSI E1.31-2018, made from the public standard alone.

It keeps what lamps would show: packets out of sequence are dropped (6.7.2), the source with the highest
priority holds a universe (6.2.3), a source that ends its stream or is silent for 2.5 s is gone (6.2.6,
6.7.1), and data that names a synchronisation universe is shown when that is released (6.2.4).
"""

import dataclasses
import socket
import struct

DATA, EXTENDED = 4, 8
SYNCHRONISATION = 1
TERMINATED = 0x40
LOST = 2.5  # seconds
HEAD = bytes.fromhex("00100000") + b"ASC-E1.17\0\0\0"
SO_TIMESTAMPNS = 35


class Malformed(Exception):
    """A packet that breaks the standard."""


@dataclasses.dataclass
class Data:
    cid: bytes
    universe: int
    sequence: int
    priority: int
    options: int
    synchronisation: int
    slots: bytes

    @property
    def terminated(self):
        return bool(self.options & TERMINATED)


@dataclasses.dataclass
class Release:
    cid: bytes
    universe: int
    sequence: int


def length_at(packet, at):
    field, = struct.unpack_from(">H", packet, at)
    if field >> 12 != 7 or at + (field & 0xfff) != len(packet):
        raise Malformed(f"flags and length {field:04x} at {at} of {len(packet)} bytes")


def parse(packet):
    """The packet's content; None for discovery."""
    if packet[:16] != HEAD:
        raise Malformed("no ACN packet")
    length_at(packet, 16)
    length_at(packet, 38)
    cid = packet[22:38]
    root, = struct.unpack_from(">I", packet, 18)
    framing, = struct.unpack_from(">I", packet, 40)
    if root == EXTENDED:
        if framing != SYNCHRONISATION:
            return None
        if len(packet) != 49:
            raise Malformed(f"synchronisation of {len(packet)} bytes")
        return Release(cid, struct.unpack_from(">H", packet, 45)[0], packet[44])
    if root != DATA or framing != 2 or len(packet) != 638:
        raise Malformed(f"root {root}, framing {framing}, {len(packet)} bytes")
    length_at(packet, 115)
    if packet[117:125] != bytes.fromhex("02a1000000010201") or packet[125] != 0:
        raise Malformed("not 512 values of start code 0")
    priority, synchronisation, sequence, options, universe = struct.unpack_from(">BHBBH", packet, 108)
    if priority > 200 or not 1 <= universe <= 63999:
        raise Malformed(f"priority {priority}, universe {universe}")
    return Data(cid, universe, sequence, priority, options, synchronisation, packet[126:])


@dataclasses.dataclass
class Source:
    sequence: int
    priority: int
    time: float
    slots: bytes = b""


class Receiver:
    """What the lamps of all universes show. Time comes with the packets."""

    def __init__(self):
        self.sources = {}  # by universe, then CID
        self.waiting = {}  # data that waits for its release, by (CID, synchronisation), universe
        self.shown = {}  # universe: values
        self.dropped = 0
        self.ended = []  # (universe, CID) of streams that were terminated
        self.lost = []  # and of those that fell silent

    def take(self, packet, time):
        """Takes a packet. The universes whose lamps show it now, by their numbers."""
        self.forget(time)
        content = parse(packet)
        if isinstance(content, Release):
            held = self.waiting.pop((content.cid, content.universe), {})
            return [u for u, slots in held.items() if self.show(u, content.cid, slots)]
        return self.take_data(content, time) if content else []

    def take_data(self, data, time):
        sources = self.sources.setdefault(data.universe, {})
        known = sources.get(data.cid)
        ahead = (data.sequence - known.sequence + 128) % 256 - 128 if known else 1
        if -20 < ahead <= 0:
            self.dropped += 1
            return []
        if data.terminated:
            if sources.pop(data.cid, None):
                self.ended.append((data.universe, data.cid))
            return []
        sources[data.cid] = Source(data.sequence, data.priority, time,
                                   known.slots if known else b"")
        if data.synchronisation:
            self.waiting.setdefault((data.cid, data.synchronisation), {})[data.universe] = data.slots
            return []
        return [data.universe] if self.show(data.universe, data.cid, data.slots) else []

    def show(self, universe, cid, slots):
        sources = self.sources.get(universe, {})
        if cid not in sources:
            return False
        sources[cid].slots = slots
        if sources[cid].priority < max(source.priority for source in sources.values()):
            return False
        self.shown[universe] = slots
        return True

    def forget(self, time):
        for universe, sources in self.sources.items():
            for cid in [c for c, source in sources.items() if time - source.time > LOST]:
                del sources[cid]
                self.lost.append((universe, cid))


class Port:
    """A UDP port of this machine whose packets carry the time at which the system took them."""

    def __init__(self, port=0, group=None, address="127.0.0.1"):
        self.socket = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        self.socket.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
        self.socket.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 1 << 23)
        self.socket.setsockopt(socket.SOL_SOCKET, SO_TIMESTAMPNS, 1)
        self.socket.bind((address, port))
        self.number = self.socket.getsockname()[1]

    def packet(self, patience):
        """The next packet and its time in seconds; None if none comes in time."""
        self.socket.settimeout(patience)
        try:
            packet, extra, _, _ = self.socket.recvmsg(2000, 64)
        except TimeoutError:
            return None
        seconds, nanoseconds = struct.unpack("qq", extra[0][2][:16])
        return packet, seconds + nanoseconds / 1e9
