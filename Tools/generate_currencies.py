#!/usr/bin/env python3
"""Makes the vocabulary of money from the raw tables in Tools/data:

  CurrencyDescriptions.json   code and words of every currency
  DefaultCurrencyRates.json   units of a currency per US dollar, with the date of the rates
  ConsumerPriceIndex.inc      US consumer prices by year

With --check nothing is written; the exit status tells whether the committed files are what the tables give.
"""

import csv
import json
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
DATA = ROOT / "Tools" / "data"
RESOURCES = ROOT / "Resources" / "TavrineCore_TavrineCore.resources" / "en.lproj"
CURRENCIES = ROOT / "TavrineCore" / "Customization" / "Currencies"

# Words that stand beside numbers with another meaning too often to be money: "3 gold medals", "800 lumens", "Sat 5",
# "1080p", "5 real friends". Longer names of the same money remain ("ounces of gold", "reals", "sats").
ORDINARY_WORDS = {
    "avalanche", "colon", "cordoba", "córdoba", "ethers", "gold", "lumen", "lumens", "p", "polygon", "polygons", "real",
    "ripples", "sat", "silver", "stellar", "tethers", "uf",
}

# Signs that no locale gives to another currency. The others ("$", "¥", "£", "kr") are the business of
# the symbol settings.
UNCONTESTED_SIGNS = {
    "₳", "؋", "֏", "₼", "৳", "₡", "Ð", "E£", "₾", "₵", "GH₵", "⃀", "៛", "₭", "L£", "Ł", "元", "CN¥", "₲", "₺", "ɱ", "¢",
}


# Signs that two use: the one that is traded more.
OWNERS_OF_SIGNS = {"C$": "CAD", "₡": "CRC"}


def table(name):
    with open(DATA / name, encoding="utf-8", newline="") as file:
        return list(csv.DictReader(file, delimiter="\t", quoting=csv.QUOTE_NONE))


def members(cell):
    return [member for member in cell.split("|") if member]


def is_dollar_sign(symbol):
    """"BZ$": letters and a dollar sign, unlike any word."""
    return len(symbol) > 1 and symbol.endswith("$") and symbol[:-1].isalpha()


def aliases_of(row):
    own_name = [row["name"].lower(), row["plural"].lower()] if row["kind"] != "metal" else []
    own_signs = [s for s in members(row["symbols"]) if OWNERS_OF_SIGNS.get(s, row["code"]) == row["code"]]
    signs = [s for s in own_signs if s in UNCONTESTED_SIGNS]
    dollars = [s.lower() for s in own_signs if is_dollar_sign(s)]
    words = [a for a in own_name + members(row["aliases"]) + dollars + signs if a not in ORDINARY_WORDS]
    # A historical name is told from the present one by its years, which nobody types.
    words = [w for w in words if "(" not in w]
    return list(dict.fromkeys(w for w in words if w not in (row["code"], row["code"].lower())))


def descriptions():
    return [{"symbol": row["code"], "aliases": aliases_of(row)} for row in table("currencies.tsv")]


def descriptions_text():
    rows = [json.dumps(entry, ensure_ascii=False) for entry in descriptions()]
    return "[\n" + ",\n".join(rows) + "\n]\n"


def rates_text():
    rows = table("currency-rates.tsv")
    dates = sorted({row["date"] for row in rows})
    if len(dates) != 1:
        raise SystemExit("rates of several days: " + ", ".join(dates))
    # Rates are decimals: their digits are copied, never read as floating point.
    lines = [f'    {json.dumps(row["code"])}: {row["per_usd"]}' for row in rows]
    return f'{{\n  "date": "{dates[0]}",\n  "base": "USD",\n  "rates": {{\n' + ",\n".join(lines) + "\n  }\n}\n"


def prices_text():
    rows = table("us-cpi.tsv")
    years = [int(row["year"]) for row in rows]
    if years != list(range(years[0], years[0] + len(years))):
        raise SystemExit("a year is missing from the price index")
    lines = [f'{{{row["year"]}, {row["cpi"]}}},' for row in rows]
    return "// Made by Tools/generate_currencies.py: year and annual average, 1982 to 1984 = 100.\n" + "\n".join(lines) + "\n"


def check_sources():
    rows = table("currencies.tsv")
    owners = {}
    for row in rows:
        for alias in aliases_of(row):
            if owners.setdefault(alias, row["code"]) != row["code"]:
                raise SystemExit(f'"{alias}" belongs to {owners[alias]} and {row["code"]}')
    known = {row["code"] for row in rows if row["kind"] != "fractional"}
    rated = {row["code"] for row in table("currency-rates.tsv")}
    if known != rated:
        raise SystemExit("without rate or name: " + ", ".join(sorted(known ^ rated)))


def main():
    check_sources()
    files = {
        RESOURCES / "CurrencyDescriptions.json": descriptions_text(),
        RESOURCES / "DefaultCurrencyRates.json": rates_text(),
        CURRENCIES / "ConsumerPriceIndex.inc": prices_text(),
    }
    stale = [path for path, text in files.items() if not path.exists() or path.read_text(encoding="utf-8") != text]
    if "--check" in sys.argv[1:]:
        for path in stale:
            print(f"{path.name} is not what the tables give; run Tools/generate_currencies.py")
        return 1 if stale else 0
    for path in stale:
        path.write_text(files[path], encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())
