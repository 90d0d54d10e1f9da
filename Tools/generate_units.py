#!/usr/bin/env python3
"""Makes UnitDescriptions.json and LocalizedUnitShorthands.json from Tools/data.

Usage: generate_units.py [OUTPUT_DIRECTORY]

Without a directory the files of the resource folder are replaced. The symbols come from the unit tables of the
library, so that what is printed can always be typed.
"""

import json
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
DATA = ROOT / "Tools" / "data"
PRIMITIVES = ROOT / "TavrineCore" / "Parsing" / "Primitives"
RESOURCES = ROOT / "Resources" / "TavrineCore_TavrineCore.resources" / "en.lproj"

# Two units are shown as "g" and two as "MPG". Whoever comes last owns the symbol when it is typed.
EMITTED_FIRST = ("gravity", "milesPerImperialGallon")


def identifiers():
    """All raw names in the order of the library."""
    text = (PRIMITIVES / "UnitIdentifier.def").read_text(encoding="utf-8")
    return re.findall(r"^UNIT_IDENTIFIER\((\w+), \w+\)", text, re.MULTILINE)


def symbols():
    """Raw name → display symbol."""
    result = {}
    for path in sorted((PRIMITIVES / "Units").glob("*.h")):
        rows = re.findall(r'\{UnitIdentifier::(\w+), ("(?:[^"\\]|\\.)*"),', path.read_text(encoding="utf-8"))
        result.update((name, json.loads(symbol)) for name, symbol in rows)
    return result


def aliases():
    """Raw name → words, in the order of the table."""
    result = {}
    with open(DATA / "units-en-aliases.tsv", encoding="utf-8") as table:
        next(table)
        for line in table:
            identifier, alias, _form, flags, _note = line.rstrip("\n").split("\t")
            if {"avoid", "long"}.isdisjoint(flags.split(",")):
                result.setdefault(identifier, []).append(alias)
    return result


def descriptions():
    symbol_of = symbols()
    words_of = aliases()
    order = [*EMITTED_FIRST, *(name for name in identifiers() if name not in EMITTED_FIRST)]
    result = []
    for name in order:
        if name not in words_of:
            continue
        words = [word for word in words_of[name] if word != symbol_of[name]]
        result.append({"symbol": symbol_of[name], "aliases": words, "identifier": name})
    return result


def write(directory, name, entries):
    lines = ",\n".join(json.dumps(entry, ensure_ascii=False) for entry in entries)
    (directory / name).write_text("[\n" + lines + "\n]\n", encoding="utf-8")


def main():
    directory = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else RESOURCES
    write(directory, "UnitDescriptions.json", descriptions())
    write(directory, "LocalizedUnitShorthands.json", [])


if __name__ == "__main__":
    main()
