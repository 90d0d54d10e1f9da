#!/usr/bin/env python3
"""Makes the resource of time zone abbreviations: hours from GMT, as text.

generate_timezone_abbreviations.py [--check]
"""

from resources import deliver, one_a_line, rows

# Abbreviations that are ordinary words and yet in use for places where many people live. They count in capitals.
KEPT_WORDS = {"art", "cat", "cot", "eat", "met", "pet", "vet", "west", "wet", "wit"}


def main():
    result = {row["abbreviation"]: row["offset_hours"]
              for row in rows("timezone-abbreviations.tsv")
              if not row["ambiguous"] or row["abbreviation"] in KEPT_WORDS}
    deliver({"TimeZoneAbbrieviations": one_a_line(result)})


if __name__ == "__main__":
    main()
