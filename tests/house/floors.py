#!/usr/bin/python3
"""Checks includes and links against the tables of docs/architecture.md: floors.py SOURCE

A row `folder | holds | may include` allows a folder the folders named in its last column, and what those may
include. Every include must be allowed and no folder may reach itself. In app/, the links of a folder's CMake
target must be those of its row.
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
            rows[cells[0].strip("`")] = re.findall(r"`((?:core|app)/[\w/]+)`", cells[2])
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


def included(rows, path):
    """The repository files that a file includes, as paths in the repository."""
    for name, in_brackets in re.findall(r'#include (?:"([^"]+)"|<quillmere/([^>]+)>)', path.read_text()):
        if in_brackets:
            yield "core/" + in_brackets
        elif (source / "app" / name).exists() or (source / "app" / f"{name}.in").exists():
            yield "app/" + name
        else:
            problems.append(f"{path.relative_to(source)} includes {name}, which is not in app/")


rows = table()
below = {row: reachable(rows, row, (row,)) for row in rows}
files = [file for top in ("core", "app") for file in sorted((source / top).rglob("*.[hc]pp"))]
seen = 0
for file in files:
    path = str(file.relative_to(source))
    folder = folder_of(rows, path)
    if path == "core/quillmere.hpp":
        continue
    if folder is None:
        problems.append(f"{path} is in no folder of docs/architecture.md")
        continue
    for other in included(rows, file):
        seen += 1
        target = folder_of(rows, other)
        if target is None and other == "core/quillmere.hpp" and path.startswith("app/"):
            continue
        if target != folder and target not in below[folder]:
            problems.append(f"{path} includes {other}, which {folder} may not")

for folder in (row for row in rows if row.startswith("app/")):
    library = "quillmere_" + folder.removeprefix("app/").replace("/", "_")
    lists = (source / folder / "CMakeLists.txt").read_text()
    links = re.search(rf"target_link_libraries\({library}\b([^)]*)\)", lists)
    linked = set(re.findall(r"\bquillmere_\w+|QuillmereCore::QuillmereCore", links.group(1))) if links else set()
    allowed = {
        "QuillmereCore::QuillmereCore" if name.startswith("core/") else "quillmere_" + name[4:].replace("/", "_")
        for name in rows[folder]
    }
    if linked != allowed:
        problems.append(f"{library} links {sorted(linked)}, but docs/architecture.md allows {sorted(allowed)}")

if len(rows) < 15 or seen < 500:
    problems.append(f"only {len(rows)} folders and {seen} includes were found: this test searches in the wrong places")
for problem in sorted(set(problems)):
    print(problem)
sys.exit(1 if problems else 0)
