"""What a screen reader finds in the program's windows: their texts, word for word, and what can be
used. Speaks the desktop's message bus itself, since Python has no library of its own for it."""

import os
import socket
import struct
import subprocess

ACCESSIBLE = "org.a11y.atspi.Accessible"
ROOT = "/org/a11y/atspi/accessible/root"
STATE_ENABLED = 1 << 8
STATE_FOCUSED = 1 << 12
STATE_SHOWING = 1 << 25


class BusError(Exception):
    """The other side refused, or is gone, or does not have what was looked for."""


def _pad(data, size):
    return data + b"\0" * (-len(data) % size)


def _text(value):
    raw = value.encode()
    return struct.pack("<I", len(raw)) + raw + b"\0"


class _Reader:
    """Takes values off a message, each where the bus aligns it."""

    SIZES = {"y": (1, "B"), "b": (4, "I"), "n": (2, "h"), "q": (2, "H"), "i": (4, "i"),
             "u": (4, "I"), "x": (8, "q"), "t": (8, "Q"), "d": (8, "d")}

    def __init__(self, data):
        self.data, self.place = data, 0

    def align(self, size):
        self.place += -self.place % size

    def values(self, signature):
        found = []
        while signature:
            value, signature = self.value(signature)
            found.append(value)
        return found

    def value(self, signature):
        """One value, and the rest of the signature."""
        kind, rest = signature[0], signature[1:]
        if kind in self.SIZES:
            size, code = self.SIZES[kind]
            self.align(size)
            value = struct.unpack_from("<" + code, self.data, self.place)[0]
            self.place += size
            return value, rest
        if kind in "so":
            return self._take(self.value("u")[0]), rest
        if kind == "g":
            return self._take(self.value("y")[0]), rest
        if kind == "v":
            return self.value(self.value("g")[0])[0], rest
        if kind in "({":
            self.align(8)
            end = self._end(signature)
            return tuple(self.values(signature[1 : end - 1])), signature[end:]
        if kind == "a":
            return self._array(rest)
        raise BusError(f"unknown type {kind}")

    def _take(self, length):
        text = self.data[self.place : self.place + length].decode()
        self.place += length + 1
        return text

    def _array(self, signature):
        length = self.value("u")[0]
        self.align(8 if signature[0] in "({xtd" else 4 if signature[0] in "aiusob" else 1)
        end, found = self.place + length, []
        while self.place < end:
            found.append(self.value(signature)[0])
        return found, signature[self._end(signature):]

    @classmethod
    def _end(cls, signature):
        """Where the first complete type of a signature ends."""
        if signature[0] == "a":
            return 1 + cls._end(signature[1:])
        if signature[0] not in "({":
            return 1
        depth = 0
        for place, kind in enumerate(signature):
            depth += (kind in "({") - (kind in ")}")
            if depth == 0:
                return place + 1
        raise BusError("an unfinished signature")


class Bus:
    """A connection to a message bus, which takes none but its own user."""

    def __init__(self, address, user=None):
        path = address.split("path=", 1)[1].split(",", 1)[0]
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.settimeout(20)
        me = os.geteuid()
        try:
            if user is not None:
                os.seteuid(user)
            self.socket.connect(path)
            self.socket.sendall(b"\0AUTH EXTERNAL " + str(os.geteuid()).encode().hex().encode() +
                                b"\r\n")
        finally:
            os.seteuid(me)
        if not self.socket.recv(4096).startswith(b"OK"):
            raise BusError("the bus refuses")
        self.socket.sendall(b"BEGIN\r\n")
        self.serial = 0
        self.name = self.bus("Hello")[0]

    def bus(self, member, *strings):
        return self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                         member, *strings)

    def call(self, name, path, interface, member, *arguments, signature=None):
        """Calls a method with strings and integers; returns its results."""
        signature = signature or "s" * len(arguments)
        body = b""
        for kind, argument in zip(signature, arguments):
            body = _pad(body, 4) + (_text(argument) if kind == "s"
                                    else struct.pack("<i", argument))
        fields = b""
        for code, kind, value in ((1, "o", path), (2, "s", interface), (3, "s", member),
                                  (6, "s", name), (8, "g", signature)):
            value = bytes([len(value)]) + value.encode() + b"\0" if kind == "g" else _text(value)
            fields = _pad(fields, 8) + bytes([code, 1]) + kind.encode() + b"\0" + value
        self.serial += 1
        head = struct.pack("<cBBBIII", b"l", 1, 0, 1, len(body), self.serial, len(fields)) + fields
        self.socket.sendall(_pad(head, 8) + body)
        return self._answer(self.serial)

    def _answer(self, serial):
        while True:
            start = self._receive(16)
            length, _, fields_length = struct.unpack("<III", start[4:])
            fields = self._receive(fields_length + -fields_length % 8)
            body = self._receive(length)
            reader = _Reader(struct.pack("<I", fields_length) + b"\0" * 4 + fields)
            # The array's elements start at a multiple of eight in the message as in here.
            reader.place = 8
            known = {}
            while reader.place < 8 + fields_length:
                (code, value), _ = reader.value("(yv)")
                known[code] = value
            if known.get(5) != serial:
                continue  # a signal, or the answer to a call that was given up
            if start[1] == 3:
                raise BusError(known.get(4))
            return _Reader(body).values(known.get(8, ""))

    def _receive(self, size):
        data = b""
        while len(data) < size:
            more = self.socket.recv(size - len(data))
            if not more:
                raise BusError("the bus is gone")
            data += more
        return data


class Thing:
    """Something on the screen, as a screen reader knows it."""

    def __init__(self, bus, name, path):
        self.bus, self.owner, self.path = bus, name, path

    def _call(self, member, *arguments, interface=ACCESSIBLE, signature=None):
        return self.bus.call(self.owner, self.path, interface, member, *arguments,
                             signature=signature)

    def _property(self, name, interface=ACCESSIBLE):
        return self._call("Get", interface, name, interface="org.freedesktop.DBus.Properties")[0]

    @property
    def name(self):
        return self._property("Name")

    @property
    def description(self):
        return self._property("Description")

    @property
    def role(self):
        return self._call("GetRoleName")[0]

    @property
    def states(self):
        low, high = self._call("GetState")[0]
        return low | high << 32

    @property
    def enabled(self):
        return bool(self.states & STATE_ENABLED)

    @property
    def focused(self):
        return bool(self.states & STATE_FOCUSED)

    @property
    def showing(self):
        return bool(self.states & STATE_SHOWING)

    @property
    def place(self):
        """Left, top, width and height on the screen."""
        return self._call("GetExtents", 0, interface="org.a11y.atspi.Component", signature="u")[0]

    @property
    def text(self):
        """What stands in a text field."""
        return self._call("GetText", 0, -1, interface="org.a11y.atspi.Text", signature="ii")[0]

    def press(self):
        """Does the first thing that this offers to do; it is asked for on return, not done."""
        self._call("DoAction", 0, interface="org.a11y.atspi.Action", signature="i")

    def children(self):
        return [Thing(self.bus, name, path) for name, path in self._call("GetChildren")[0]]

    def everything(self):
        """This and all inside it, but for the entries of lists."""
        yield self
        entries = self.role == "list"
        for child in self.children():
            if entries and child.role == "list item":
                return
            yield from child.everything()

    def all(self, role, name=None):
        """All of this role inside, with this name if one is given, that can be seen."""
        return [thing for thing in self.everything() if thing.role == role and
                (name is None or thing.name == name) and thing.showing]

    def one(self, role, name=None):
        found = self.all(role, name)
        if len(found) != 1:
            raise BusError(f"{len(found)} things are a {role} '{name}'")
        return found[0]


class ScreenReader:
    """A message bus of the desktop's own, on which the program tells what it shows."""

    def __init__(self, folder, environment, as_user=(), user=None):
        address = f"unix:path={folder}/session-bus"
        self.environment = {"DBUS_SESSION_BUS_ADDRESS": address,
                            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        self.daemon = subprocess.Popen(
            [*as_user, "dbus-daemon", "--session", "--nofork", "--nosyslog", "--print-address",
             "--address=" + address],
            env={**environment, **self.environment}, stdout=subprocess.PIPE,
            stderr=subprocess.DEVNULL, text=True)
        if not self.daemon.stdout.readline():
            raise BusError("dbus-daemon did not start")
        # Asking for the readers' bus starts it.
        try:
            session = Bus(address, user)
            self.bus = Bus(session.call("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus",
                                        "GetAddress")[0], user)
        except BaseException:
            self.daemon.terminate()
            raise

    def windows(self):
        """The windows that the program shows now, the newest last."""
        found = []
        for name in self.bus.bus("ListNames")[0]:
            if not name.startswith(":") or name == self.bus.name:
                continue
            try:
                if Thing(self.bus, name, ROOT).role == "application":
                    found += Thing(self.bus, name, ROOT).children()
            except BusError:
                continue  # no program with windows, or it has just ended
        return [window for window in found if window.showing]

    def window(self, title):
        """The newest window with this title; nothing when there is none."""
        return next((window for window in reversed(self.windows()) if window.name == title), None)

    def message(self):
        """The text of the message box that is open; nothing when there is none."""
        for window in reversed(self.windows()):
            if window.role == "alert message":
                return window.all("label")[0].name
        return None
