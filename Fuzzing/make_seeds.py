#!/usr/bin/env python3
"""Makes seeds and dictionaries for the fuzz targets from the corpus of the tests and the vocabulary.

Usage: make_seeds.py CORPUS RESOURCES OUTPUT

Writes OUTPUT/<target>/<seed> and OUTPUT/<target>.dict. Nothing of it is kept in the repository: it follows the corpus.
"""

import hashlib
import json
import pathlib
import re
import sys

# In the order in which the targets know them: the character for a locale is its place behind "-", the remainder of
# which by their number is 0.
LOCALES = ["en_US", "de_DE", "fr_FR", "es_ES", "ru_RU", "zh_CN", "en_IN", "de_CH", "ja_JP"]
FIRST_LOCALE = ord("-")
USUAL_FLAGS, ALL_FLAGS = b"0", b"1"
LINES_OF_A_PAGE = 20


def unescaped(text):
    values = {"t": b"\t", "n": b"\n"}

    def value(match):
        return bytes([int(match[2], 16)]) if match[2] else values.get(match[1].decode(), match[1])

    return re.sub(rb"\\(x([0-9A-Fa-f]{2})|.)", value, text.encode())


def corpus_lines(folder):
    """Pairs of the byte that picks the locale, and the line."""
    for path in sorted(folder.glob("*.tsv")):
        locale = "en_US"
        for row in path.read_text(encoding="utf-8").splitlines():
            if row.startswith("@"):
                words = row[1:].split()
                locale = {"locale": words[-1], "defaults": "en_US"}.get(words[0], locale)
            elif "\t" in row and not row.startswith("#"):
                place = LOCALES.index(locale) if locale in LOCALES else 0
                yield bytes([FIRST_LOCALE + place]), unescaped(row.split("\t")[0])


def phrases_of(resources):
    """The phrases of the functions, in the order in which the target numbers them."""
    for path in sorted(resources.rglob("FunctionDescriptions.json")):
        for entry in json.loads(path.read_text(encoding="utf-8")):
            yield from entry["prototypeExpressions"]


def write_seeds(folder, seeds):
    folder.mkdir(parents=True, exist_ok=True)
    names = set()
    for seed in seeds:
        name = hashlib.sha1(seed).hexdigest()[:16]
        (folder / name).write_bytes(seed)
        names.add(name)
    for old in folder.iterdir():
        if old.name not in names:
            old.unlink()


def write_dictionary(path, words):
    def entry(word):
        text = "".join(chr(b) if 32 <= b < 127 and b not in b'"\\' else f"\\x{b:02X}" for b in word)
        return f'"{text}"\n'

    path.write_text("".join(entry(word) for word in sorted(words) if word), encoding="ascii")


def chosen(phrases, number):
    """The bytes that choose a whole phrase: its number, no word left out, and a value for each of its gaps."""
    gaps = sum(word.startswith("__") or word[0].isdigit() for word in phrases[number].split())
    return bytes([number % 256, number // 256, 0, *range(gaps)])


def main():
    corpus, resources, output = map(pathlib.Path, sys.argv[1:4])
    lines = list(corpus_lines(corpus))
    write_seeds(output / "LineFuzzer", [where + flags + line for where, line in lines for flags in (USUAL_FLAGS, ALL_FLAGS)])
    phrases = list(phrases_of(resources))
    # Every tenth phrase, whole, and with the one behind it by its side.
    pairs = [chosen(phrases, i) + b"\0" + chosen(phrases, i + 1) for i in range(0, len(phrases) - 1, 10)]
    write_seeds(output / "PhraseFuzzer", [bytes([FIRST_LOCALE]) + USUAL_FLAGS + pair for pair in pairs])
    chunks = [lines[i:i + LINES_OF_A_PAGE] for i in range(0, len(lines), LINES_OF_A_PAGE)]
    write_seeds(output / "PageFuzzer", [page[0][0] + USUAL_FLAGS + b"\n".join(line for _, line in page) for page in chunks])

    files = [path.read_bytes() for path in sorted(resources.rglob("*.json"))]
    smallest = sorted(files, key=len)[:8]
    write_seeds(output / "JsonFuzzer", smallest)
    fixtures = [path.read_bytes() for path in sorted(resources.rglob("LocalizedFixture*.json"))]
    write_seeds(output / "FixturesFuzzer", fixtures)

    words = {word for _, line in lines for word in line.split() if len(word) < 20}
    words.update(word.encode() for phrase in phrases for word in phrase.split() if not word.startswith("__"))
    keys = set()
    for file in fixtures:
        for key, spellings in json.loads(file)["fixtures"].items():
            keys.add(f'"{key}"'.encode())
            words.update(spelling.encode() for spelling in spellings)
    for target in ("LineFuzzer", "PageFuzzer"):
        write_dictionary(output / f"{target}.dict", words)
    syntax = [b"{", b"}", b"[", b"]", b",", b":", b"null", b"true", b"false", b"\\u", b"\\ud83d\\ude00", b"1e5", b"-0"]
    write_dictionary(output / "JsonFuzzer.dict", syntax)
    write_dictionary(output / "FixturesFuzzer.dict", {b'"fixtures"', *keys, *syntax})


if __name__ == "__main__":
    main()
