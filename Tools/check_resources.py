#!/usr/bin/env python3
"""Checks the resource files of a language against their schemas, the identifiers of the sources, and each other.

Usage: check_resources.py [--resources DIRECTORY] [--self-test]

Prints a line for each finding and fails if there is any. The directory is an .lproj; without it, the English one is
checked. `--self-test` breaks the files one way after the other, in memory, and fails where a fault goes unnoticed.
"""

import copy
import json
import pathlib
import re
import sys
from collections import defaultdict

from resources import DATA, RESOURCES, ROOT, members, rows

SOURCES = ROOT / "TavrineCore"

TEXT, TEXTS, NUMBER = "a text", "a list of texts", "a number"
# Of each file that is a list: what its entries must hold, and what they may.
SCHEMAS = {
    "Airports": ({"name": TEXT, "iata_code": TEXT, "coordinates": TEXT, "cityIdentifier": TEXT}, {"elevation": NUMBER}),
    "Cities": ({"identifier": TEXT, "name": TEXT, "country": TEXT, "elevation": NUMBER, "population": TEXT,
                "longitude": TEXT, "latitude": TEXT, "timezone_id": TEXT}, {"aliases": TEXTS}),
    "Countries": ({"name": TEXT, "capital": TEXT, "capitalCityTimezoneID": TEXT}, {"aliases": TEXTS}),
    "States": ({"name": TEXT, "capital": TEXT, "capitalCityTimezoneID": TEXT}, {"aliases": TEXTS}),
    "CurrencyDescriptions": ({"symbol": TEXT, "aliases": TEXTS}, {"identifier": TEXT, "equivalence": NUMBER}),
    "FunctionDescriptions": ({"identifier": TEXT, "prototypeExpressions": TEXTS}, {}),
    "LocalizedUnitShorthands": ({"identifier": TEXT, "aliases": TEXTS}, {}),
    "SpecialDays": ({"type": TEXT, "aliases": TEXTS}, {}),
    "UnitDescriptions": ({"symbol": TEXT, "aliases": TEXTS, "identifier": TEXT}, {"equivalence": NUMBER}),
}
FIXTURES = ("LocalizedFixtures", "LocalizedFixtureShorthands")
OBJECTS = {"DefaultCurrencyRates": {"date", "base", "rates"}, "PlaceWords": None, "TimeZoneAbbrieviations": None,
           **{name: {"fixtures"} for name in FIXTURES}}


def is_of(kind, value):
    if kind == TEXTS:
        return isinstance(value, list) and all(isinstance(member, str) for member in value)
    if kind == NUMBER:
        return isinstance(value, (int, float, str)) and not isinstance(value, bool)
    return isinstance(value, str)


class Vocabulary:
    """What the sources know by name."""

    def __init__(self):
        self.functions = set(self.names("Customization/Functions/FunctionIdentifier.def", r"\((\w+)"))
        self.units = set(self.names("Parsing/Primitives/UnitIdentifier.def", r"^UNIT_IDENTIFIER\((\w+)"))
        self.fixtures = {raw.replace('\\"', '"'): name for name, raw in self.names(
            "Customization/Fixtures/Fixture.def", r'^FIXTURE\((\w+), "((?:\\.|[^"\\])*)"') if raw != name}
        self.fixture_of_key = dict(self.names("Customization/Fixtures/LocalizableFixture.def",
                                              r"^LOCALIZABLE_FIXTURE\((\w+), (\w+)\)"))
        self.days = set(self.names("Parsing/Primitives/SpecialDay.cpp", r'^    "(\w+)",$'))
        unit_types = self.names("Parsing/Primitives/UnitType.def", r"^UNIT_TYPE\((\w+)")
        self.gaps = set(self.names("Parsing/Tokens/PrototypeTypePlaceholders.cpp", r'^    \{"(__\w+)"'))
        self.gaps |= {f"__{name}" for name in unit_types} | {f"__{name}_expression" for name in unit_types}
        names = re.search(r"standardFunctionNames[^{]*\{([^}]*)\}",
                          self.text("Customization/Functions/TraditionalFunctionList.h"))
        self.calls = set(re.findall(r'"(\w+)"', names[1]))
        self.word_groups = self.groups()

    @staticmethod
    def text(path):
        return (SOURCES / path).read_text(encoding="utf-8")

    @classmethod
    def names(cls, path, pattern):
        return [found for line in cls.text(path).splitlines() if not line.startswith("//")
                for found in re.findall(pattern, line)]

    def groups(self):
        """The words that the phrases of some functions swap: pairs of the functions and the words."""
        text = self.text("Customization/Functions/FunctionVariantsGenerator.cpp")
        order = self.names("Customization/Functions/FunctionIdentifier.def", r"\((\w+)")
        sets = {}
        for name, first, last in re.findall(r"FunctionIdentifierSet (\w+) =\s*FunctionIdentifierSet::fromTo\((\w+), (\w+)\)",
                                            text):
            sets[name] = set(order[order.index(first):order.index(last) + 1])
        groups = []
        for functions, words in re.findall(r"^    \{(\{[^}]*\}|\w+),\s*\{([^}]*)\}\},$", text, re.MULTILINE):
            named = re.findall(r"\w+", functions)
            members_of = set().union(*(sets.get(name, {name}) for name in named))
            groups.append((members_of, re.findall(r'"([^"]*)"', words)))
        return groups

    def variants(self, identifier, phrase):
        """The phrase and what the generator makes of it."""
        phrases = [phrase]
        for functions, words in self.word_groups:
            pattern = rf"(?<![^ ]){re.escape(words[0])}(?![^ ])"
            if identifier in functions and re.search(pattern, phrase):
                phrases += [re.sub(pattern, word, old, count=1) for word in words[1:] for old in list(phrases)]
        return phrases


class Checker:
    def __init__(self, files, vocabulary):
        self.files = files
        self.vocabulary = vocabulary
        self.findings = []

    def tell(self, name, finding):
        self.findings.append(f"{name}.json: {finding}")

    def findings_of_all(self):
        if self.check_schemas():
            self.check_identifiers()
            self.check_phrases()
            self.check_clashes()
        return self.findings

    # --- Shapes -------------------------------------------------------------------------------------------------------

    def check_schemas(self):
        """Whether the files are sound enough for the other checks."""
        for name in sorted(self.files.keys() - SCHEMAS.keys() - OBJECTS.keys()):
            self.tell(name, "a file that nobody reads")
        for name in sorted((SCHEMAS.keys() | OBJECTS.keys()) - self.files.keys()):
            self.tell(name, "is missing")
        for name, (needed, allowed) in SCHEMAS.items():
            if name in self.files:
                self.check_entries(name, needed, allowed)
        for name, keys in OBJECTS.items():
            value = self.files.get(name, {})
            if not isinstance(value, dict):
                self.tell(name, "is no object")
            elif keys is not None and name in self.files and value.keys() != keys:
                self.tell(name, f"holds {sorted(value)} instead of {sorted(keys)}")
        for name in FIXTURES:
            fixtures = self.files.get(name, {}).get("fixtures", {}) if not self.findings else {}
            for key, words in fixtures.items():
                if not is_of(TEXTS, words):
                    self.tell(name, f"{key} is not {TEXTS}")
        return not self.findings

    def check_entries(self, name, needed, allowed):
        entries = self.files[name]
        if not isinstance(entries, list) or not all(isinstance(entry, dict) for entry in entries):
            self.tell(name, "is no list of objects")
            return
        for number, entry in enumerate(entries, start=1):
            for key in sorted(needed.keys() - entry.keys()):
                self.tell(name, f"entry {number} has no {key}")
            for key, value in entry.items():
                kind = needed.get(key) or allowed.get(key)
                if kind is None:
                    self.tell(name, f"entry {number} has an unknown {key}")
                elif not is_of(kind, value):
                    self.tell(name, f"entry {number}: {key} is not {kind}")

    # --- Names --------------------------------------------------------------------------------------------------------

    def check_identifiers(self):
        def check(name, key, known):
            for entry in self.files[name]:
                if entry[key] not in known:
                    self.tell(name, f"unknown {key} {entry[key]}")

        check("FunctionDescriptions", "identifier", self.vocabulary.functions)
        check("UnitDescriptions", "identifier", self.vocabulary.units)
        check("LocalizedUnitShorthands", "identifier", self.vocabulary.units)
        check("SpecialDays", "type", self.vocabulary.days)
        for name in FIXTURES:
            for key in self.files[name]["fixtures"].keys() - self.vocabulary.fixture_of_key.keys():
                self.tell(name, f"unknown key {key}")
        cities = {city["identifier"] for city in self.files["Cities"]}
        for airport in self.files["Airports"]:
            if airport["cityIdentifier"] not in cities:
                self.tell("Airports", f"{airport['iata_code']} lies in an unknown city, {airport['cityIdentifier']}")
        symbols = {currency["symbol"] for currency in self.files["CurrencyDescriptions"]}
        for symbol in self.files["DefaultCurrencyRates"]["rates"].keys() - symbols:
            self.tell("DefaultCurrencyRates", f"a rate of unknown money, {symbol}")

    # --- Phrases ------------------------------------------------------------------------------------------------------

    def check_phrases(self):
        name = "FunctionDescriptions"
        entries = self.files[name]
        for identifier in sorted(self.vocabulary.functions - {entry["identifier"] for entry in entries
                                                              if entry["prototypeExpressions"]}):
            self.tell(name, f"no phrase calls {identifier}")
        owners = {}
        for entry in entries:
            identifier = entry["identifier"]
            for phrase in entry["prototypeExpressions"]:
                self.check_phrase(name, identifier, phrase)
                spellings = self.vocabulary.variants(identifier, phrase)
                if self.same_gaps(phrase) in owners:
                    self.tell(name, f'"{phrase}" of {identifier} is never reached: {owners[self.same_gaps(phrase)]}')
                for spelling in spellings:
                    owners.setdefault(self.same_gaps(spelling), f'"{phrase}" of {identifier} stands before it')

    @staticmethod
    def same_gaps(phrase):
        """Phrases that differ in the numbers of their gaps alone match the same lines."""
        return re.sub(r"\d+", "10", phrase)

    def check_phrase(self, name, identifier, phrase):
        where = f'"{phrase}" of {identifier}'
        if phrase != " ".join(phrase.split()) or not phrase:
            self.tell(name, f"{where} has blanks too many, or nothing else")
        for gap in re.findall(r"__\w+", phrase):
            if gap not in self.vocabulary.gaps:
                self.tell(name, f"{where} has an unknown gap, {gap}")
        words = re.sub(r"__\w+", " ", phrase)
        if words != words.lower():
            self.tell(name, f"{where} has capital letters, which lines in small letters don't match")
        for letter in '"#=':
            if letter in words:
                self.tell(name, f"{where} holds {letter}, which makes something else of the line")
        typed = set(re.findall(r"__\w+", phrase)) - {"__any_word", "__decimal"}
        if not typed and not re.search(r"[\w!]", re.sub(r"\d", "", words)):
            self.tell(name, f"{where} is all gaps that take anything")
        for fixture in self.fixtures_with_numbers():
            if re.search(rf"(?<!\w){re.escape(fixture)}(?!\w)", phrase):
                self.tell(name, f'{where} has no gap in "{fixture}", which is a word of the vocabulary')

    def fixtures_with_numbers(self):
        if not hasattr(self, "_numbered"):
            self._numbered = [word for name in FIXTURES for words in self.files[name]["fixtures"].values()
                              for word in words if " " in word and re.search(r"\d", word)]
        return self._numbered

    # --- Words --------------------------------------------------------------------------------------------------------

    def meanings(self):
        """Every word of the vocabulary with what it means. Units tell "mW" from "MW", so letters count as they are."""
        meanings = defaultdict(set)
        for raw, fixture in self.vocabulary.fixtures.items():
            meanings[raw].add(f"fixture {fixture}")
        for name in FIXTURES:
            for key, words in self.files[name]["fixtures"].items():
                for word in words:
                    meanings[word].add(f"fixture {self.vocabulary.fixture_of_key.get(key, key)}")
        for unit in self.files["UnitDescriptions"]:
            for word in [unit["symbol"], *unit["aliases"]]:
                meanings[word].add(f"unit {unit['identifier']}")
        for unit in self.files["LocalizedUnitShorthands"]:
            for word in unit["aliases"]:
                meanings[word].add(f"shorthand {unit['identifier']}")
        for currency in self.files["CurrencyDescriptions"]:
            for word in [currency["symbol"], *currency["aliases"]]:
                meanings[word].add(f"unit {currency['symbol']}")
        for day in self.files["SpecialDays"]:
            for word in day["aliases"]:
                meanings[word].add(f"day {day['type']}")
        for call in self.vocabulary.calls:
            meanings[call].add(f"function {call}")
        return meanings

    def check_clashes(self):
        known = {row["word"]: set(members(row["meanings"])) for row in rows("known-clashes.tsv")}
        meanings = self.meanings()
        for word, found in sorted(meanings.items()):
            if len(found) > 1 and not found <= known.get(word, set()):
                self.findings.append(f'"{word}" means {" and ".join(sorted(found))}')
        by_letters = defaultdict(set)
        for word, found in meanings.items():
            by_letters[word.lower()] |= found
        for file in ("Cities", "Countries", "States"):
            for place in self.files[file]:
                for name in [place["name"], *place.get("aliases", [])]:
                    # Places in capitals are codes, which are told from words by their capitals.
                    found = by_letters.get(name.lower(), set())
                    if found and (name != name.upper() or len(name) > 2) and not found <= known.get(name.lower(), set()):
                        self.findings.append(f'"{name}" is a place, and means {" and ".join(sorted(found))}')
        for name, key in (("UnitDescriptions", "identifier"), ("CurrencyDescriptions", "symbol"), ("SpecialDays", "type")):
            for entry in self.files[name]:
                for word in {word for word in entry["aliases"] if entry["aliases"].count(word) > 1}:
                    self.tell(name, f'"{word}" stands twice under {entry[key]}')


def read(directory):
    files = {}
    for path in sorted(directory.glob("*.json")):
        try:
            files[path.stem] = json.loads(path.read_text(encoding="utf-8"))
        except (ValueError, UnicodeError) as error:
            sys.exit(f"{path.name}: {error}")
    return files


def self_test(files, vocabulary):
    """Each fault in sound files must be told."""
    def phrase(text, identifier="halfOf"):
        return lambda broken: broken["FunctionDescriptions"].append(
            {"identifier": identifier, "prototypeExpressions": [text]})

    def without(identifier):
        def remove(broken):
            broken["FunctionDescriptions"] = [entry for entry in broken["FunctionDescriptions"]
                                              if entry["identifier"] != identifier]
        return remove

    faults = [
        ("an unknown identifier", "unknown identifier halveOf", phrase("halve 10 now", "halveOf")),
        ("a function without a phrase", "no phrase calls isPrime", without("isPrime")),
        ("an unknown gap", "__percantage", phrase("some __percantage of 10")),
        ("a phrase twice", "never reached", phrase("half of 10")),
        ("a phrase twice but for its number", "never reached", phrase("half of 7")),
        ("a phrase that is a variant", "never reached", phrase("50 is what percent of 10", "isWhatPercentOf")),
        ("blanks", "blanks too many", phrase("half  off 10")),
        ("capitals", "capital letters", phrase("Half off 10")),
        ("gaps alone", "all gaps", phrase("10 : 10")),
        ("a gap that a fixture takes", "no gap", phrase("put 10 into base 10")),
        ("a missing key", "has no aliases", lambda broken: broken["UnitDescriptions"][0].pop("aliases")),
        ("an unknown key", "unknown alias", lambda broken: broken["UnitDescriptions"][0].update(alias=[])),
        ("a wrong type", "is not a list of texts", lambda broken: broken["SpecialDays"][0].update(aliases="eve")),
        ("a missing file", "is missing", lambda broken: broken.pop("Cities")),
        ("an unknown fixture", "unknown key plusses",
         lambda broken: broken["LocalizedFixtures"]["fixtures"].update(plusses=["plus"])),
        ("two meanings", "means", lambda broken: broken["UnitDescriptions"][0]["aliases"].append("dollars")),
        ("a word twice", "stands twice",
         lambda broken: broken["SpecialDays"][0]["aliases"].append(broken["SpecialDays"][0]["aliases"][0])),
        ("an airport nowhere", "unknown city", lambda broken: broken["Airports"][0].update(cityIdentifier="0")),
        ("a place under a word", "is a place", lambda broken: broken["Cities"][0].update(name="dollars")),
        ("a rate of no money", "unknown money",
         lambda broken: broken["DefaultCurrencyRates"]["rates"].update(XQQ=1.5)),
    ]
    known = set(Checker(files, vocabulary).findings_of_all())
    unnoticed = []
    for title, finding, breaking in faults:
        broken = {name: copy.deepcopy(value) if len(value) < 2000 else list(map(dict, value))
                  for name, value in files.items()}
        breaking(broken)
        fresh = set(Checker(broken, vocabulary).findings_of_all()) - known
        if not any(finding in line for line in fresh):
            unnoticed.append(title)
    if unnoticed:
        sys.exit("not noticed: " + ", ".join(unnoticed))


def main():
    arguments = sys.argv[1:]
    directory = RESOURCES / "en.lproj"
    if "--resources" in arguments:
        directory = pathlib.Path(arguments[arguments.index("--resources") + 1])
    vocabulary = Vocabulary()
    if len(vocabulary.word_groups) < 10 or len(vocabulary.functions) < 100 or len(vocabulary.days) < 10:
        sys.exit("the tables in the sources are not where they used to be")
    files = read(directory)
    if "--self-test" in arguments:
        self_test(files, vocabulary)
        return
    findings = Checker(files, vocabulary).findings_of_all()
    if findings:
        sys.exit("\n".join(findings))


if __name__ == "__main__":
    main()
