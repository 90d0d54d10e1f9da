#!/usr/bin/env python3
"""Makes the resource of special days: the names under which each is known.

generate_special_days.py [--check]
"""

from resources import deliver, members, one_a_line, rows

LANGUAGES = ["en"]

# Names that are plurals of ordinary things first: people count years and cards.
ORDINARY = {"new years", "valentines"}


def main():
    table = rows("specialdays.tsv")
    for language in LANGUAGES:
        days = []
        for row in table:
            if row["language"] != language:
                continue
            days.append({"type": row["type"],
                         "aliases": [alias for alias in members(row["aliases"]) if alias not in ORDINARY]})
        deliver({"SpecialDays": one_a_line(days)}, language)


if __name__ == "__main__":
    main()
