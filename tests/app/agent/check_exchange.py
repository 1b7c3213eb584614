#!/usr/bin/python3
"""Plays the exchange that the documentation shows, and compares what the program says.

check_exchange.py PROGRAM DOCUMENT

The lines of the block that begins with "$ quillmere agent serve": "> " is sent, "< " must come, "$ quillmere …"
is run beside. Identifiers and times are others each time; each must come back wherever the document shows it.
"""
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

program, document = sys.argv[1:]
block = re.search(r"```text\n\$ quillmere agent serve\n(.*?)```", pathlib.Path(document).read_text(), re.S).group(1)
lines = block.splitlines()
assert len(lines) > 5, "no exchange"
CHANGING = re.compile(r"[0-9A-F]{8}(?:-[0-9A-F]{4}){3}-[0-9A-F]{12}|\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ|(?<=\")\d+\.\d+\.\d+(?=\")")
real = {}


def as_shown(said, shown):
    """What was said, with the identifiers and times of the document."""
    found, expected = CHANGING.findall(said), CHANGING.findall(shown)
    assert len(found) == len(expected), f"shown: {shown}\nsaid:  {said}"
    for now, then in zip(found, expected):
        assert real.setdefault(then, now) == now or "T" in then, f"another identifier: {said}"
        said = said.replace(now, then, 1)
    return said


def as_now(shown):
    return CHANGING.sub(lambda match: real.get(match.group(), match.group()), shown)


with tempfile.TemporaryDirectory() as place:
    os.environ["XDG_STATE_HOME"] = place + "/kept"
    command = [program, "--directory", place + "/files"]
    with subprocess.Popen(command + ["agent", "serve"], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True) as server:
        for line in lines:
            if line.startswith("> "):
                json.loads(line[2:])
                server.stdin.write(as_now(line[2:]) + "\n")
                server.stdin.flush()
            elif line.startswith("< "):
                said = as_shown(server.stdout.readline().rstrip("\n"), line[2:])
                assert said == line[2:], f"shown: {line[2:]}\nsaid:  {said}"
            elif line.startswith("$ quillmere "):
                subprocess.run(command + shlex.split(line)[2:], check=True, stdout=subprocess.DEVNULL)
        server.stdin.close()
        assert server.stdout.read() == "", "more than is shown"
    assert server.returncode == 0
print("The exchange is as shown.")
