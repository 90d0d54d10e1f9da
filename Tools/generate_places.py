#!/usr/bin/env python3
"""Makes the resources of places: Cities, Countries, States, Airports, and PlaceWords, which tells from a word or two
whether a place may be meant at all, so that the tables themselves are read only when one is.

generate_places.py [--check]
"""

import base64
import collections
import re

from resources import deliver, members, one_a_line, rows

# Bits and probes of the filter: with some 14,000 keys one word in a thousand passes without being a key.
FILTER_BITS = 1 << 18
FILTER_PROBES = 6

# Codes and short names of more than one meaning, beside those that the tables mark: they are places when they are
# written in capitals, or behind "in", "at" or "to" in a line about times.
ORDINARY_ALIASES = {"us", "la", "ca", "il", "dc", "va", "ga", "fl", "kl", "sf", "bc", "id", "md", "nd", "sd", "nc",
                    "sc", "ri", "vt", "wi", "wv", "wy", "ny", "nj", "nh", "nv", "az", "ak", "ky", "tn", "tx", "qc", "hk",
                    "lao", "czech", "aussie", "hull", "saudi", "emirates", "congo", "rubi", "agri", "pila"}

# Marked as words, but in lines with sums, dates and times they are cities in any case.
CITIES_IN_ANY_CASE = {"anchorage", "angers", "bologna", "buffalo", "erode", "phoenix", "pueblo", "wellington"}

# Aliases that would take a common word from every line, or a city its name.
DROPPED_ALIASES = {"CAR", "Cali"}

# The states and provinces behind the cities that share their names with a larger one, by the codes of the post.
# Indiana, Ontario and Oregon are left out: "Columbus in", "London on" and "Portland or" begin something else.
POSTAL_CODES = {
    "Alabama": "AL", "Alaska": "AK", "Arizona": "AZ", "Arkansas": "AR", "California": "CA", "Colorado": "CO",
    "Connecticut": "CT", "Delaware": "DE", "Florida": "FL", "Georgia": "GA", "Hawaii": "HI", "Idaho": "ID",
    "Illinois": "IL", "Iowa": "IA", "Kansas": "KS", "Kentucky": "KY", "Louisiana": "LA", "Maine": "ME",
    "Maryland": "MD", "Massachusetts": "MA", "Michigan": "MI", "Minnesota": "MN", "Mississippi": "MS",
    "Missouri": "MO", "Montana": "MT", "Nebraska": "NE", "Nevada": "NV", "New Hampshire": "NH", "New Jersey": "NJ",
    "New Mexico": "NM", "New York": "NY", "North Carolina": "NC", "North Dakota": "ND", "Ohio": "OH",
    "Oklahoma": "OK", "Pennsylvania": "PA", "Rhode Island": "RI", "South Carolina": "SC", "South Dakota": "SD",
    "Tennessee": "TN", "Texas": "TX", "Utah": "UT", "Vermont": "VT", "Virginia": "VA", "Washington": "WA",
    "West Virginia": "WV", "Wisconsin": "WI", "Wyoming": "WY", "Alberta": "AB", "British Columbia": "BC",
    "Manitoba": "MB", "New Brunswick": "NB", "Newfoundland": "NL", "Nova Scotia": "NS", "Quebec": "QC",
    "Saskatchewan": "SK",
}

# A word as the lexer cuts it: letters, with single apostrophes and points between letters; digits; any other sign.
LEXEME = re.compile(r"[^\W\d_]+(?:['’.][^\W\d_]+)*['’]?|\d+|[^\s]")


# "U.K.", which the lexer cuts into a word and a point.
DOTTED = re.compile(r"(?:[A-Z]\.)+")


def lexemes(name):
    return [lexeme.lower() for lexeme in LEXEME.findall(name)]


def longest_first(names):
    """In the order of words, so that a name that begins another one comes behind it."""
    return sorted(names, key=lambda name: -len(lexemes(name)))


def aliases_of(row):
    aliases = [alias for alias in members(row["aliases"]) if alias not in DROPPED_ALIASES]
    if "," in row["name"]:  # the comma may be left out, so it can't be part of what is looked for
        aliases.append(row["name"].replace(",", ""))
    aliases += [alias[:-1] for alias in aliases if DOTTED.fullmatch(alias)]
    aliases += [f"{city} {code}" for state, code in POSTAL_CODES.items()
                for city in [row["name"].split(",")[0]] if f"{city} {state}" in aliases]
    # A place with aliases of several words is known by these alone.
    if any(len(lexemes(alias)) > 1 for alias in aliases) and len(lexemes(row["name"])) > 1 \
            and row["name"].replace(",", "") not in aliases and "dup" not in row["ambiguous"]:
        aliases.append(row["name"])
    return aliases


def with_countries(cities):
    """"London Canada" as well as "London Ontario", where the country has but one of the name."""
    namesakes = collections.Counter((row["name"], row["country"]) for row in cities)
    for row in cities:
        if "dup" in row["ambiguous"] and row["aliases"] and namesakes[row["name"], row["country"]] == 1:
            alias = f'{row["name"]} {row["country"]}'
            row["aliases"] = "|".join(dict.fromkeys(members(row["aliases"]) + [alias]))
    return cities


def city(row):
    result = {"identifier": row["identifier"], "name": row["name"]}
    if row["country"]:
        result["country"] = row["country"]
    aliases = aliases_of(row)
    if aliases:
        result["aliases"] = longest_first(aliases)
    result["elevation"] = int(row["elevation"])
    result["population"] = row["population"]
    result["longitude"] = row["longitude"]
    result["latitude"] = row["latitude"]
    result["timezone_id"] = row["timezone"]
    return result


def region(row, zone_column):
    result = {"name": row["name"]}
    aliases = aliases_of(row)
    if aliases:
        result["aliases"] = longest_first(aliases)
    result["capital"] = row["capital"]
    result["capitalCityTimezoneID"] = row[zone_column]
    return result


def is_kept(row):
    """A small airport gives way to the word or the unit that its code spells; a large one is known by its code."""
    return row["size"] == "large" or not row["ambiguous"]


def airport(row):
    result = {"name": row["name"], "iata_code": row["iata"]}
    if row["elevation"]:
        result["elevation"] = float(row["elevation"])
    result["coordinates"] = f"{row['latitude']}, {row['longitude']}"
    result["cityIdentifier"] = row["city_identifier"]
    return result


def fnv1a(text):
    """64 bits."""
    value = 0xCBF29CE484222325
    for byte in text.encode("utf-8"):
        value = ((value ^ byte) * 0x100000001B3) & 0xFFFFFFFFFFFFFFFF
    return value


def filter_key(name):
    """A name of one lexeme, or the first two of a longer one."""
    return " ".join(lexemes(name)[:2])


def bloom_filter(keys):
    bits = bytearray(FILTER_BITS // 8)
    for key in keys:
        value = fnv1a(key)
        step = (value >> 32) | 1
        for probe in range(FILTER_PROBES):
            bit = (value + probe * step) % FILTER_BITS
            bits[bit // 8] |= 1 << bit % 8
    return base64.b64encode(bits).decode("ascii")


def code_set(codes):
    """One bit a code of three letters, in the order of the alphabet."""
    bits = bytearray((26 ** 3 + 7) // 8)
    for code in codes:
        index = 0
        for letter in code:
            index = index * 26 + ord(letter) - ord("A")
        bits[index // 8] |= 1 << index % 8
    return base64.b64encode(bits).decode("ascii")


def ordinary_words(cities, countries, states, airports):
    result = set(ORDINARY_ALIASES)
    result.update(row["name"].lower() for row in cities if "word" in row["ambiguous"])
    for row in countries:
        result.update(lowered for lowered in map(str.lower, members(row["ambiguous"])) if len(lexemes(lowered)) == 1)
    result.update(row["iata"].lower() for row in airports if row["ambiguous"])
    result.update(row["abbreviation"] for row in rows("timezone-abbreviations.tsv") if row["ambiguous"])
    return sorted(result - CITIES_IN_ANY_CASE)


def main():
    cities = with_countries(rows("cities.tsv"))
    countries = rows("countries.tsv")
    states = rows("states.tsv")
    airports = [row for row in rows("airports.tsv") if is_kept(row)]

    keys = set()
    for row in cities + countries + states:
        keys.update(filter_key(name) for name in [row["name"]] + aliases_of(row))
    words = {
        "filterBits": FILTER_BITS,
        "filterProbes": FILTER_PROBES,
        "places": bloom_filter(sorted(keys)),
        "airports": code_set(row["iata"] for row in airports),
        "ordinary": ordinary_words(cities, countries, states, airports),
    }
    deliver({
        "Cities": one_a_line([city(row) for row in cities]),
        "Countries": one_a_line([region(row, "capital_timezone") for row in countries]),
        "States": one_a_line([region(row, "timezone") for row in states]),
        "Airports": one_a_line([airport(row) for row in airports]),
        "PlaceWords": one_a_line(words),
    })


if __name__ == "__main__":
    main()
