"""What the generators of resources share: raw tables in, JSON files out."""

import json
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
DATA = ROOT / "Tools" / "data"
RESOURCES = ROOT / "Resources" / "TavrineCore_TavrineCore.resources"


def rows(name):
    """The rows of a raw table as dictionaries; columns are separated by tabs, the first line names them."""
    lines = (DATA / name).read_text(encoding="utf-8").splitlines()
    header = lines[0].split("\t")
    result = []
    for number, line in enumerate(lines[1:], start=2):
        cells = line.split("\t")
        if len(cells) != len(header):
            sys.exit(f"{name}:{number}: {len(cells)} cells instead of {len(header)}")
        result.append(dict(zip(header, cells)))
    return result


def members(cell):
    """The members of a list cell."""
    return [member for member in cell.split("|") if member]


def one_a_line(value):
    """A list or an object as JSON, one element or member a line, so that differences can be read."""
    def text(part):
        return json.dumps(part, ensure_ascii=False, separators=(",", ":"))
    if isinstance(value, list):
        return "[\n" + ",\n".join(text(element) for element in value) + "\n]\n"
    return "{\n" + ",\n".join(f"{text(key)}:{text(member)}" for key, member in value.items()) + "\n}\n"


def deliver(files, language="en"):
    """Writes the files (name to text) into the language's directory; with --check only compares them to those that are
    there and fails where they differ."""
    check = "--check" in sys.argv[1:]
    stale = []
    for name, text in files.items():
        path = RESOURCES / f"{language}.lproj" / f"{name}.json"
        if not check:
            path.write_text(text, encoding="utf-8")
        elif not path.exists() or path.read_text(encoding="utf-8") != text:
            stale.append(path.name)
    if stale:
        sys.exit("not what the generator makes: " + ", ".join(stale))
