#!/usr/bin/python3
"""Checks includes, namespaces and links against the tables of docs/architecture.md: floors.py SOURCE [LINKS]

A row `folder | holds | may include` allows a folder the folders named in its last column, and what those may
include. Every include must be allowed and no folder may reach itself. In app/, a file is in the namespace of its
folder, and the CMake target of a folder has the links of its row and the sources of its folder. LINKS is the
directory in which CMake leaves them, one file a target (app/CMakeLists.txt).
"""
import pathlib
import re
import sys

source = pathlib.Path(sys.argv[1])
problems = []


def table():
    rows = {}
    for line in (source / "docs/architecture.md").read_text().splitlines():
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        if len(cells) == 3 and re.fullmatch(r"`(core|app)/[\w/]+`", cells[0]):
            folder = cells[0].strip("`")
            if folder in rows:
                problems.append(f"docs/architecture.md: {folder} has two rows")
            rows[folder] = re.findall(r"`((?:core|app)/[\w/]+)`", cells[2])
    return rows


def reachable(rows, folder, path=()):
    """All folders below one. Reports a circle or an unknown folder as a problem of the table."""
    below = set()
    for next_folder in rows[folder]:
        if next_folder not in rows:
            problems.append(f"docs/architecture.md: {folder} may include {next_folder}, which has no row")
        elif next_folder in path:
            problems.append(f"docs/architecture.md: {' > '.join((*path, next_folder))} is a circle")
        else:
            below |= {next_folder} | reachable(rows, next_folder, (*path, next_folder))
    return below


def folder_of(rows, path):
    """The most specific row whose folder contains a file; None if there is none."""
    return max((row for row in rows if path.startswith(row + "/")), key=len, default=None)


def included(path, text):
    """The repository files that a file includes, as paths in the repository."""
    for target in re.findall(r"^[ \t]*#[ \t]*(?:include|include_next|import)\b[ \t]*(.*)$", text, re.MULTILINE):
        written = re.match(r'"([^"]+)"|<([^>]+)>', target)
        if not written:
            problems.append(f"{path} includes {target}, which is no name of a file")
            continue
        in_quotes, in_brackets = written.groups()
        name = in_quotes or in_brackets
        is_ours = any((source / "app" / file).exists() for file in (name, f"{name}.in"))
        if {".", ".."} & set(name.split("/")):
            problems.append(f"{path} includes {name}, which is not the path from app/ or core/")
        elif in_brackets and name.startswith("quillmere/"):
            yield "core/" + name.removeprefix("quillmere/")
        elif in_quotes and is_ours:
            yield "app/" + name
        elif in_quotes:
            problems.append(f"{path} includes {name}, which is not in app/")
        elif is_ours:
            problems.append(f"{path} includes {name} in angle brackets, which are for other projects and core/")


def namespace_of(folder):
    return "quillmere::" + folder.removeprefix("app/").replace("/", "::")


def check_namespaces(path, text, folder, below):
    """A file may also specialise a template of the library, and declare names of the folders below its own."""
    own = namespace_of(folder)
    opened = set(re.findall(r"^\s*(?:inline )?namespace (quillmere[\w:]*)", text, re.MULTILINE))
    allowed = {"quillmere"} | {namespace_of(other) for other in below if other.startswith("app/")}
    mine = {name for name in opened if f"{name}::".startswith(f"{own}::")}
    for name in opened - mine - allowed:
        problems.append(f"{path} is in {name}, but its folder is {own}")
    if opened and not mine:
        problems.append(f"{path} is not in {own}")


def check_links(links, folder, allowed_folders):
    """The file has a line each: links, links of the interface, sources."""
    library = "quillmere_" + folder.removeprefix("app/").replace("/", "_")
    wanted = {
        "QuillmereCore::QuillmereCore" if name.startswith("core/") else "quillmere_" + name[4:].replace("/", "_")
        for name in allowed_folders
    }
    private, public, sources = (links / f"{library}.txt").read_text().splitlines()
    linked = set(re.findall(r"quillmere_\w+|QuillmereCore(?:::QuillmereCore)?", f"{private};{public}"))
    linked -= {"quillmere_options", "quillmere_quick_build"}
    if linked != wanted:
        problems.append(f"{library} links {sorted(linked)}, but docs/architecture.md allows {sorted(wanted)}")
    for name in sources.split(";"):
        is_made_by_cmake = "/CMakeFiles/" in name  # in unity builds
        if ".." in name or (name.startswith("/") and not is_made_by_cmake):
            problems.append(f"{library} compiles {name}, which is not in {folder}")


rows = table()
below = {row: reachable(rows, row, (row,)) for row in rows}
files = [file for top in ("core", "app") for file in sorted((source / top).rglob("*")) if file.is_file()]
seen = 0
for file in files:
    path = str(file.relative_to(source))
    text = file.read_text(errors="replace")
    folder = folder_of(rows, path)
    if path == "core/quillmere.hpp":
        continue
    if folder is None:
        if file.suffix in (".hpp", ".cpp"):
            problems.append(f"{path} is in no folder of docs/architecture.md")
        continue
    if path.startswith("app/"):
        check_namespaces(path, text, folder, below[folder])
    for other in included(path, text):
        seen += 1
        target = folder_of(rows, other)
        if target is None and other == "core/quillmere.hpp" and path.startswith("app/"):
            continue
        if target != folder and target not in below[folder]:
            problems.append(f"{path} includes {other}, which {folder} may not")

for folder in (row for row in rows if row.startswith("app/") and len(sys.argv) > 2):
    check_links(pathlib.Path(sys.argv[2]), folder, rows[folder])

if len(rows) < 15 or seen < 500:
    problems.append(f"only {len(rows)} folders and {seen} includes were found: this test searches in the wrong places")
for problem in sorted(set(problems)):
    print(problem)
sys.exit(1 if problems else 0)
