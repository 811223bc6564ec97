"""Include arrows run downwards only.

Each folder's CMakeLists.txt says what its logic is made of and which folders and libraries it uses; a
file of the logic may include its own folder, those, and the standard library. Windows may include
anything; a folder without windows has no file at all that includes Qt. Includes between our files never
run in a circle, the windows' .cpp files apart, which open each other.
"""

import pathlib
import re
import sys

FOLDERS = ["base", "cards", "keys", "settings", "study", "authoring", "printing", "shell",
           "convert"]
INCLUDE = re.compile(r'^\s*#include\s+(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)
LOGIC = re.compile(r"quib_add_logic\((.*?)\)", re.DOTALL)
TEST_ONLY = ("tests/",)
# What the headers of other people's libraries begin with, by the name that LIBRARIES gives.
LIBRARY_HEADERS = {
    "CLI11::CLI11": "CLI/",
    "fmt::fmt": "fmt/",
    "libcsv": "csv.h",
    "nlohmann_json::nlohmann_json": "nlohmann/",
}


def logic_of(cmake_text):
    """(sources, used folders, libraries) of a folder's quib_add_logic call."""
    parts = {"SOURCES": set(), "USES": set(), "LIBRARIES": set()}
    match = LOGIC.search(cmake_text)
    into = None
    for word in match.group(1).split()[1:] if match else ():
        if word in parts:
            into = parts[word]
        elif into is not None:
            into.add(word)
    return tuple(parts.values())


def includes_of(path):
    for match in INCLUDE.finditer(path.read_text(encoding="utf-8")):
        yield match.group(1), match.group(2)


def logic_files(root, folder):
    """The folder's logic: its listed sources, and the headers that no window source stands beside."""
    sources, uses, libraries = logic_of(cmake_of(root, folder))
    stems = {pathlib.Path(source).stem for source in sources}
    files = []
    for path in sorted((root / folder).iterdir()):
        if path.suffix == ".cpp" and path.name in sources:
            files.append(path)
        elif path.suffix == ".h":
            if path.stem in stems or not path.with_suffix(".cpp").exists():
                files.append(path)
    return files, uses, libraries


def cmake_of(root, folder):
    return (root / folder / "CMakeLists.txt").read_text(encoding="utf-8")


def is_window_header(root, name):
    path = root / name
    folder = path.parent.name
    if not path.exists() or folder not in FOLDERS:
        return False
    return path not in logic_files(root, folder)[0]


def wrong_arrows(root):
    """One line for each include of the logic that it may not have."""
    for folder in FOLDERS:
        if not (root / folder / "CMakeLists.txt").exists():
            continue
        files, uses, libraries = logic_files(root, folder)
        allowed = uses | {folder}
        for path in files:
            for ours, system in includes_of(path):
                where = path.relative_to(root)
                if system and system.startswith("Q"):
                    yield f"{where}: logic includes <{system}>"
                for library, header in LIBRARY_HEADERS.items():
                    if (system or ours).startswith(header) and library not in libraries:
                        yield f"{where}: {folder} does not name {library}"
                if not ours:
                    continue
                target = ours.split("/")[0]
                if target not in allowed:
                    yield f"{where}: {folder} may not include {ours}"
                elif is_window_header(root, ours):
                    yield f"{where}: logic includes the window {ours}"
                if ours.startswith(TEST_ONLY):
                    yield f"{where}: includes {ours}, which is for tests"


def toolkit_in_programs(root):
    """One line for each include of Qt in a folder that has no windows."""
    for folder in FOLDERS:
        if not (root / folder / "CMakeLists.txt").exists() or "quib_add_windows" in cmake_of(root, folder):
            continue
        for path in sorted((root / folder).glob("*.[ch]*")):
            for ours, system in includes_of(path):
                if (system or "").startswith("Q") or (ours and is_window_header(root, ours)
                                                      and not ours.startswith(folder + "/")):
                    yield f"{path.relative_to(root)}: includes {system or ours} in a folder without windows"
        if re.search(r"\bQt\d*::|quib_windows", cmake_of(root, folder)):
            yield f"{folder}/CMakeLists.txt: links the toolkit in a folder without windows"


def header_circles(root):
    """One line for each circle of includes between headers."""
    graph = {}
    for folder in FOLDERS:
        for path in sorted((root / folder).glob("*.h")):
            name = f"{folder}/{path.name}"
            graph[name] = [ours for ours, _ in includes_of(path) if ours]
    done, open_names = set(), []

    def visit(name):
        if name in open_names:
            yield "a circle: " + " -> ".join(open_names[open_names.index(name):] + [name])
            return
        if name in done or name not in graph:
            return
        open_names.append(name)
        for target in graph[name]:
            yield from visit(target)
        open_names.pop()
        done.add(name)

    for name in graph:
        yield from visit(name)


def main():
    root = pathlib.Path(sys.argv[1])
    complaints = [*wrong_arrows(root), *toolkit_in_programs(root), *header_circles(root)]
    print("\n".join(complaints))
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
