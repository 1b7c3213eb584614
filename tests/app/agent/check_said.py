#!/usr/bin/python3
"""Holds what the server said in the tests against JSON Schemas (2020-12), with a validator nobody here wrote.

check_said.py DIRECTORY

Every line of every transcript fits the messages of the protocol, in the form that the version of its request
has; the structured content of a tool fits the output schema that the tool's list gives it. Every summary fits
the summary's schema, and no summary that is broken at any one place does.
"""
import copy
import json
import pathlib
import sys

import jsonschema

HERE = pathlib.Path(__file__).parent
MESSAGES = json.loads((HERE / "messages.schema.json").read_text())
VERSION_KEY = "io.modelcontextprotocol/protocolVersion"
CACHEABLE = {"server/discover", "tools/list", "resources/list", "resources/templates/list", "resources/read"}


def validator(schema):
    jsonschema.Draft202012Validator.check_schema(schema)
    return jsonschema.Draft202012Validator(schema)


def definition(name):
    return jsonschema.Draft202012Validator({"$ref": "#/$defs/" + name, "$defs": MESSAGES["$defs"]})


DEFINITIONS = {name: definition(name.replace("/", "~1")) for name in MESSAGES["$defs"]}


class Conversation:
    """One client's requests, by id, so that each answer is known for what it is."""

    def __init__(self):
        self.requests = {}
        self.version = "2025-11-25"
        self.output_schemas = {}

    def hear_client(self, line):
        try:
            message = json.loads(line.decode())
        except (ValueError, RecursionError):
            return
        if isinstance(message, dict) and isinstance(message.get("method"), str):
            self.requests[json.dumps(message.get("id"))] = message

    def hear_server(self, line):
        assert line == line.decode("ascii").encode(), "beyond ASCII"
        message = json.loads(line)
        DEFINITIONS["response"].validate(message)
        if "result" in message:
            self.check_result(self.requests[json.dumps(message["id"])], message["result"])

    def check_result(self, request, result):
        method = request["method"]
        params = request.get("params") or {}
        is_stateless = VERSION_KEY in params.get("_meta", {})
        DEFINITIONS[method].validate(result)
        DEFINITIONS["stateless" if is_stateless else "withHandshake"].validate(result)
        if is_stateless:
            assert ("ttlMs" in result) == (method in CACHEABLE), method
            DEFINITIONS["cacheable"].validate(result) if method in CACHEABLE else None
        if method == "initialize":
            self.version = result["protocolVersion"]
        has_structures = is_stateless or self.version >= "2025-06-18"
        if method == "tools/call":
            self.check_call(params["name"], result, has_structures)
        for tool in result.get("tools", []):
            assert ("outputSchema" in tool) == ("title" in tool) == has_structures
        titled = result.get("resources", []) + ([result["serverInfo"]] if method == "initialize" else [])
        for item in titled:
            assert ("title" in item) == has_structures

    def check_call(self, name, result, has_structures):
        if result.get("isError"):
            assert "structuredContent" not in result
            return
        assert ("structuredContent" in result) == has_structures
        if has_structures:
            assert json.loads(result["content"][0]["text"]) == result["structuredContent"]
            if name in OUTPUT:
                OUTPUT[name].validate(result["structuredContent"])


def output_schemas(transcripts):
    """Of the real tools, from whatever conversation listed them."""
    for transcript in transcripts:
        for line in transcript.read_bytes().splitlines():
            if line.startswith(b'< ') and b'"outputSchema"' in line and b'"ask_question"' in line:
                tools = json.loads(line[2:])["result"]["tools"]
                return {tool["name"]: validator(tool["outputSchema"]) for tool in tools}
    raise SystemExit("no conversation lists the tools")


def broken(value, schema_free=()):
    """Every value that differs from this one at one place, with what was done to it."""
    if isinstance(value, dict):
        for key in value:
            without = {name: member for name, member in value.items() if name != key}
            yield "without " + key, without, key
            for what, other, _ in broken(value[key]):
                yield key + "." + what, {**value, key: other}, None
        yield "with one more", {**value, "unheard_of": 1}, None
    elif isinstance(value, list):
        for index, item in enumerate(value):
            for what, other, _ in broken(item):
                yield f"[{index}]." + what, value[:index] + [other] + value[index + 1:], None
        yield "with another", value + [5], None
    yield "is another thing", ([] if not isinstance(value, list) else "x"), None


OPTIONAL = {"answer", "block_outcome_id", "completed_at", "ended_at", "paused_at", "planned_start", "reflection",
            "review", "scheduled_start_triggered_at"}
WRONG = [
    ("id", "9f1c2a4e-0b7d-4c55-8e21-000000000133"), ("updated_at", "2026-11-15T15:00:00.5Z"),
    ("workflow_state", "asleep"), ("schema_version", 2), ("remaining_seconds", 1.5), ("interruptible", None),
]


def check_summaries(place):
    check = validator(json.loads((place / "schema.json").read_text()))
    summaries = sorted((place / "summaries").glob("*.json"))
    states = set()
    count = 0
    for path in summaries:
        summary = json.loads(path.read_text())
        check.validate(summary)
        states.add(summary["workflow_state"])
        for what, other, _ in broken(summary):
            name = what.rsplit(".", 1)[-1]
            if name.startswith("without ") and name[len("without "):] in OPTIONAL:
                continue
            assert not check.is_valid(other), f"{path.name} {what}"
            count += 1
        for key, value in WRONG:
            place_of_key = summary if key in summary else summary["block"] or {}
            if key in place_of_key:
                other = copy.deepcopy(summary)
                (other if key in summary else other["block"])[key] = value
                assert not check.is_valid(other), f"{path.name} {key}"
        if summary["workflow_state"] != "focusing":
            assert not check.is_valid({**summary, "interruptible": False}), path.name
            if summary["workflow_state"] != "breaking":
                assert not check.is_valid({**summary, "remaining_seconds": 5}), path.name
    assert states == {"idle", "blockPlanning", "sessionPlanning", "focusing", "sessionReview", "breaking",
                      "blockReview", "complete"}, states
    print(f"{len(summaries)} summaries fit, {count} broken ones do not")


place = pathlib.Path(sys.argv[1])
transcripts = sorted((place / "transcripts").glob("*.txt"))
OUTPUT = output_schemas(transcripts)
lines = 0
for transcript in transcripts:
    conversation = Conversation()
    for line in transcript.read_bytes().split(b"\n"):
        try:
            if line.startswith(b"> "):
                conversation.hear_client(line[2:])
            elif line.startswith(b"< "):
                conversation.hear_server(line[2:])
                lines += 1
        except Exception as error:
            raise SystemExit(f"{transcript.name}: {line[:300]!r}\n{error}")
assert lines > 300, lines
print(f"{lines} lines of {len(transcripts)} conversations fit")
check_summaries(place)
