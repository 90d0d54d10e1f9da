#!/usr/bin/env python3
"""Makes the vocabulary of units from the raw table in Tools/data:

  UnitDescriptions.json          symbol and words of every unit
  LocalizedUnitShorthands.json   words that mean a time where lines are about the future

The symbols come from the unit tables of the library, so that what is printed can always be typed. With --check nothing
is written; the exit status tells whether the committed files are what the table gives.
"""

import json
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
DATA = ROOT / "Tools" / "data"
PRIMITIVES = ROOT / "TavrineCore" / "Parsing" / "Primitives"
RESOURCES = ROOT / "Resources" / "TavrineCore_TavrineCore.resources" / "en.lproj"

# Units of one symbol: whoever comes last owns it when it is typed. Whom the library knows as the owner by itself
# ("pt", "gal") may stand anywhere.
EMITTED_FIRST = ("gravity", "milesPerImperialGallon")

# Flags of the table that leave a word out: "avoid" marks words that mean something else beside a number far more
# often ("5 are left", "5 lb in kg", "5 us states"), "long" names of more tokens than a name may have. The other flags
# mark what is kept: no other reading of "5 bars" or "3 points" gives a better answer.
LEFT_OUT_FLAGS = {"avoid", "long"}

# Against the flags of the table.
LEFT_OUT = {
    "gpa",  # a grade point average; "GPa" stays
    "turns",  # like "turn", a verb: "Ann, 5, turns 6"
}
KEPT = {
    "A",  # the article is only written so where no number stands before it
    "uS",  # nobody else is written so, since "us" is left out
    # Long, but put together from "m/s" and a power.
    "m/s^2",
    "m/sec^2",
    "ft/s^2",
    "ft/sec^2",
}

# A line about the future counts minutes and weeks where others measure metres and watts.
SHORTHANDS = (
    ("minutes", ["m"]),
    ("weeks", ["w"]),
)


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


def is_kept(alias, flags):
    if alias in LEFT_OUT:
        return False
    return alias in KEPT or LEFT_OUT_FLAGS.isdisjoint(flags.split(","))


def aliases():
    """Raw name → words, in the order of the table."""
    result = {}
    owner = {}
    with open(DATA / "units-en-aliases.tsv", encoding="utf-8") as table:
        next(table)
        for line in table:
            identifier, alias, _form, flags, _note = line.rstrip("\n").split("\t")
            if alias in owner:
                sys.exit(f"{alias!r} stands for both {owner[alias]} and {identifier}")
            owner[alias] = identifier
            words = result.setdefault(identifier, [])
            if is_kept(alias, flags):
                words.append(alias)
    return result


def descriptions():
    symbol_of = symbols()
    words_of = aliases()
    names = [name for name in identifiers() if not name.startswith("currency") and name != "undefined"]
    if set(names) != set(words_of):
        sys.exit(f"without words, or without a unit: {sorted(set(names) ^ set(words_of))}")
    order = [*EMITTED_FIRST, *(name for name in names if name not in EMITTED_FIRST)]
    return [
        {
            "symbol": symbol_of[name],
            # The symbol among them, where it is the name in full ("coulombs").
            "aliases": words_of[name],
            "identifier": name,
        }
        for name in order
    ]


def shorthands():
    return [{"aliases": words, "identifier": name} for name, words in SHORTHANDS]


def array(entries):
    """One entry a line, so that a difference can be read."""
    return "[\n" + ",\n".join(json.dumps(entry, ensure_ascii=False) for entry in entries) + "\n]\n"


def main():
    files = {
        RESOURCES / "UnitDescriptions.json": array(descriptions()),
        RESOURCES / "LocalizedUnitShorthands.json": array(shorthands()),
    }
    if "--check" in sys.argv[1:]:
        stale = [path.name for path, text in files.items() if path.read_text(encoding="utf-8") != text]
        sys.exit(f"not as the table has it: {', '.join(stale)}" if stale else 0)
    for path, text in files.items():
        path.write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main()
