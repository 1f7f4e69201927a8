#!/usr/bin/env python3
"""Fails when an include of the source tree points against the order of the layers.

Usage: include_direction.py ROOT, where ROOT holds src/ and perhaps tests/. Prints one line per fault and exits with 1
when there is any, so that the boundaries hold without anybody watching them.
"""

import re
import sys
from pathlib import Path

# The rooms, each with what it may include besides itself, by the beginning of the path. Rooms that stand side by side
# know nothing of each other.
GROUND = ["base/"]
ABOVE_PORTS = [*GROUND, "ports/"]
SESSION = [*ABOVE_PORTS, "ado/", "com/", "ui/"]
DATA = [*SESSION, "session/"]
SEARCH = [*DATA, "data/"]
REGISTRATION = [*SEARCH, "search/", "reports/"]
ALLOWED = {
    "base": [],
    "ado": GROUND,
    "com": GROUND,
    "ports": GROUND,
    "demonstration": [*GROUND, "ado/"],
    "setup": [*GROUND, "ado/", "demonstration/"],
    "ui": ABOVE_PORTS,
    "script": [*ABOVE_PORTS, "ui/"],
    "session": SESSION,
    "data": DATA,
    "reports": SEARCH,
    "search": [*SEARCH, "reports/"],
    "registration": REGISTRATION,
    "visits": REGISTRATION,
    "component": [*REGISTRATION, "registration/", "visits/", "script/"],
    "codesearch": [*GROUND, "ado/", "com/", "ui/"],
    "host": [*GROUND, "ado/", "com/", "com/connection_object.h", "component/init_dll.h", "component/environment.h",
             "script/desktop_module.h", "adapters/settings/ini_store.h",
             "adapters/sqlite/create_database.h", "adapters/sqlite/care/maintenance.h", "adapters/sqlite/care/shell.h",
             "setup/server_setup.h",
             # what the doctor looks at
             "adapters/report/engine_module.h", "adapters/sqlite/care/procedure_check.h", "adapters/sqlite/provider.h",
             "data/connection_settings.h", "data/statements.h", "ports/camera/camera_module.h", "ports/settings/store.h",
             "reports/papers.h", "reports/photograph.h",
             # what an administrator turns on and off
             "session/feature_flags.h"],
    "adapters/image": ABOVE_PORTS,
    "adapters/qt": [*ABOVE_PORTS, "ui/", "script/"],
    "adapters/report": [*ABOVE_PORTS, "ado/"],
    "adapters/scripted": [*ABOVE_PORTS, "ui/", "script/"],
    "adapters/settings": ABOVE_PORTS,
    "adapters/sqlite": [*GROUND, "ado/", "demonstration/"],
}
PROVIDER = [*GROUND, "ado/"]  # an adapter that is not named above
TOPS = {room.split("/")[0] for room in ALLOWED}

# Libraries that only some folders may know.
LIBRARIES = [
    ("Qt", re.compile(r"Q[A-Z]\w*|Qt\w*/.*"), ["src/adapters/qt/", "tests/adapters/qt/", "tests/host/"]),
    ("pictures", re.compile(r"stb/.*"), ["src/adapters/image/"]),
    ("bar codes", re.compile(r"zint\.h"), ["src/adapters/report/"]),
    ("markup", re.compile(r"pugixml\.hpp|kainjow/.*"), ["src/adapters/report/"]),
    ("SQLite", re.compile(r"sqlite3\w*\.h"), ["src/adapters/sqlite/", "tests/adapters/sqlite/", "tests/component/"]),
]

# Headers of the operating system: in the core only src/base/os/ may know them.
SYSTEM = re.compile(r"(sys|arpa|net|netinet|linux)/.*|(unistd|fcntl|dlfcn|pwd|grp|signal|dirent|poll|termios|pthread|windows)\.h")
CORE = ["base", "ado", "com", "ports", "demonstration", "setup", "ui", "script", "session", "data", "search", "reports", "registration", "visits",
        "component", "codesearch"]

INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]')
SUFFIXES = {".h", ".hpp", ".cpp", ".inc"}


def layer_of(path):
    """The layer that a path below src/ belongs to; each adapter is one of its own."""
    parts = path.split("/")
    return "/".join(parts[:2]) if parts[0] == "adapters" else parts[0]


def allowed_in(layer):
    return ALLOWED.get(layer, PROVIDER if layer.startswith("adapters/") else None)


def may_include(path, included):
    layer = layer_of(path)
    if layer_of(included) == layer or any(included.startswith(start) for start in allowed_in(layer) or []):
        return True
    # The composition root takes the adapters by their public headers, which stand directly in the adapter's folder.
    return layer == "component" and included.startswith("adapters/") and included.count("/") == 2


def resolved(source, path, included):
    """An include as a path below src/; one that is written relative to the file that holds it counts as well."""
    beside = (source / path).parent / included
    if not (source / included).exists() and beside.exists():
        return beside.resolve().relative_to(source.resolve()).as_posix()
    return included


def includes_of(file):
    for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
        found = INCLUDE.match(line)
        if found:
            yield number, found.group(1)


def files_below(folder):
    return sorted(file for file in folder.rglob("*") if file.suffix in SUFFIXES)


def library_faults(root):
    for file in files_below(root / "src") + files_below(root / "tests"):
        place = file.relative_to(root).as_posix()
        for number, included in includes_of(file):
            for name, header, homes in LIBRARIES:
                if header.fullmatch(included) and not any(place.startswith(home) for home in homes):
                    yield f"{place}:{number}: {name} is not for this folder: <{included}>"


def system_faults(graph):
    for path in sorted(graph):
        for number, included in graph[path]:
            if SYSTEM.fullmatch(included) and layer_of(path) in CORE and not path.startswith("base/os/"):
                yield f"src/{path}:{number}: the operating system is for src/base/os/ alone: <{included}>"


def direction_faults(source, graph):
    for path in sorted(graph):
        for number, included in graph[path]:
            if included.split("/")[0] not in TOPS or may_include(path, included):
                continue
            yield f"src/{path}:{number}: {layer_of(path)} must not include {included}"


def cycle_faults(graph):
    """Each cycle once, found by walking the includes in depth."""
    done = set()

    def walk(path, trail):
        if path in trail:
            yield "include cycle: " + " -> ".join(trail[trail.index(path):] + [path])
            return
        if path in done or path not in graph:
            return
        for _, included in graph[path]:
            yield from walk(included, trail + [path])
        done.add(path)

    for path in sorted(graph):
        yield from walk(path, [])


def folder_cycle_faults(graph):
    """Each circle of folders once, with an include for every step of its road."""
    folder_of = lambda path: path.rpartition("/")[0]
    roads = {}
    for path in sorted(graph):
        for number, included in graph[path]:
            if included in graph and folder_of(included) != folder_of(path):
                roads.setdefault(folder_of(path), {}).setdefault(folder_of(included), f"src/{path}:{number}")
    done = set()

    def walk(folder, trail):
        if folder in trail:
            circle = trail[trail.index(folder):] + [folder]
            steps = ", ".join(roads[one][other] for one, other in zip(circle, circle[1:]))
            yield f"folder cycle: {' -> '.join(circle)} ({steps})"
            return
        if folder in done:
            return
        for other in roads.get(folder, {}):
            yield from walk(other, trail + [folder])
        done.add(folder)

    for folder in sorted(roads):
        yield from walk(folder, [])


def faults(root):
    source = root / "src"
    graph = {}
    for file in files_below(source):
        path = file.relative_to(source).as_posix()
        graph[path] = [(number, resolved(source, path, included)) for number, included in includes_of(file)]
        if allowed_in(layer_of(path)) is None:
            yield f"src/{path}: the layer {layer_of(path)} is not known"
    if not graph:
        yield f"{source}: no sources found"
    yield from direction_faults(source, graph)
    yield from library_faults(root)
    yield from system_faults(graph)
    yield from cycle_faults(graph)
    yield from folder_cycle_faults(graph)


if __name__ == "__main__":
    found = list(faults(Path(sys.argv[1])))
    print("\n".join(found))
    sys.exit(1 if found else 0)
