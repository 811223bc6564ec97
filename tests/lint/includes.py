"""No Qt outside windows/, and includes run downwards.

A room is a folder whose CMakeLists.txt calls quib_add_logic or quib_add_windows. Its files may include the
room itself, the rooms that its USES names, the standard library, and the libraries that it names; a room
of the windows may include Qt, and besides what it names what that uses in turn. USES never leads back to where
it came from, and neither do includes between files.
"""

import pathlib
import re
import sys

INCLUDE = re.compile(r'^\s*#include\s+(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)
ROOM = re.compile(r"quib_add_(logic|windows)\((\w+)\s(.*?)\)", re.DOTALL)
# What the headers of other people's libraries begin with, by the name that LIBRARIES gives.
LIBRARY_HEADERS = {
    "CLI11::CLI11": "CLI/",
    "fmt::fmt": "fmt/",
    "libcsv": "csv.h",
    "nlohmann_json::nlohmann_json": "nlohmann/",
    "PkgConfig::Sdl2": "SDL",
    "PkgConfig::SndFile": "sndfile",
}
OUTSIDE = {"build", "tests"}


class Room:
    def __init__(self, folder, words):
        self.folder = folder
        self.words = {"SOURCES": set(), "USES": set(), "LIBRARIES": set()}
        into = None
        for word in words:
            into = self.words.get(word, into) if word.isupper() else into
            if into is not None and word not in self.words:
                into.add(word)

    sources = property(lambda self: self.words["SOURCES"])
    uses = property(lambda self: self.words["USES"])
    libraries = property(lambda self: self.words["LIBRARIES"])
    is_windows = property(lambda self: self.folder.startswith("windows/"))


def rooms_of(root):
    """The rooms by their folders."""
    rooms = {}
    for path in sorted([*root.glob("*/CMakeLists.txt"), *root.glob("windows/*/CMakeLists.txt")]):
        folder = path.parent.relative_to(root).as_posix()
        match = ROOM.search(path.read_text(encoding="utf-8"))
        if match and folder not in OUTSIDE:
            rooms[folder] = Room(folder, match.group(3).split())
    return rooms


def files_of(root, room):
    return sorted(path for path in (root / room.folder).iterdir() if path.suffix in (".cpp", ".h"))


def includes_of(path):
    for match in INCLUDE.finditer(path.read_text(encoding="utf-8")):
        yield match.group(1), match.group(2)


def room_of(name):
    parts = name.split("/")
    return "/".join(parts[:2]) if parts[0] == "windows" else parts[0]


def below(rooms, folder):
    """The rooms that a room reaches by USES, itself not among them unless they lead back to it."""
    found, ahead = set(), list(rooms[folder].uses)
    while ahead:
        name = ahead.pop()
        if name in rooms and name not in found:
            found.add(name)
            ahead += rooms[name].uses
    return found


def wrong_arrows(root):
    """One line for each include that its room may not have."""
    rooms = rooms_of(root)
    for room in rooms.values():
        if room.folder in below(rooms, room.folder):
            yield f"{room.folder}/CMakeLists.txt: USES leads back to {room.folder}"
        for used in sorted(room.uses - rooms.keys()):
            yield f"{room.folder}/CMakeLists.txt: there is no room {used}"
        reached = below(rooms, room.folder) if room.is_windows else room.uses
        for path in files_of(root, room):
            where = path.relative_to(root)
            for ours, system in includes_of(path):
                if system and system.startswith("Q") and not room.is_windows:
                    yield f"{where}: includes <{system}> outside windows/"
                for library, header in LIBRARY_HEADERS.items():
                    if (system or ours).startswith(header) and library not in room.libraries:
                        yield f"{where}: {room.folder} does not name {library}"
                if ours and room_of(ours) not in {room.folder, *reached}:
                    yield f"{where}: {room.folder} may not include {ours}"


def toolkit_below(root):
    """One line for each room outside windows/ that links Qt or a room of the windows."""
    for room in rooms_of(root).values():
        text = (root / room.folder / "CMakeLists.txt").read_text(encoding="utf-8")
        if not room.is_windows and re.search(r"\bQt\d*::|quib_windows", text):
            yield f"{room.folder}/CMakeLists.txt: links the toolkit outside windows/"


def unnamed_sources(root):
    """One line for each source file that its room does not build, programs' own files apart."""
    for room in rooms_of(root).values():
        text = (root / room.folder / "CMakeLists.txt").read_text(encoding="utf-8")
        for path in files_of(root, room):
            if path.suffix == ".cpp" and not re.search(rf"\b{re.escape(path.name)}\b", text):
                yield f"{path.relative_to(root)}: is in no list of {room.folder}/CMakeLists.txt"


def circles(root):
    """One line for each circle of includes between files."""
    graph = {}
    for room in rooms_of(root).values():
        for path in files_of(root, room):
            name = path.relative_to(root).as_posix()
            graph[name] = [ours for ours, _ in includes_of(path) if ours]
    done, trail = set(), []

    def visit(name):
        if name in trail:
            yield "a circle: " + " -> ".join(trail[trail.index(name):] + [name])
            return
        if name in done or name not in graph:
            return
        trail.append(name)
        for target in graph[name]:
            yield from visit(target)
        trail.pop()
        done.add(name)

    for name in graph:
        yield from visit(name)


def complaints_about(root):
    return [*wrong_arrows(root), *toolkit_below(root), *unnamed_sources(root), *circles(root)]


def main():
    complaints = complaints_about(pathlib.Path(sys.argv[1]))
    print("\n".join(complaints))
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
