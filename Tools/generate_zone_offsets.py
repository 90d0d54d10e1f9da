#!/usr/bin/env python3
"""Makes the table that the tests of time zones compare with: what the clocks showed, as Python's zoneinfo tells it.

generate_zone_offsets.py [--check]

Python reads the same zone files with other code. The zones and the years 1970 to 2020 are those whose rules nobody
has corrected for long, so that a machine with newer zone files makes the same table.
"""

import datetime
import pathlib
import random
import sys
import zoneinfo

TABLE = pathlib.Path(__file__).resolve().parent.parent / "Tests" / "Foundation" / "Data" / "zone-offsets.tsv"
ZONES = [
    "Africa/Johannesburg", "America/Argentina/Buenos_Aires", "America/Caracas", "America/Los_Angeles",
    "America/New_York", "America/Phoenix", "America/Sao_Paulo", "America/St_Johns", "Asia/Kathmandu", "Asia/Kolkata",
    "Asia/Tokyo", "Australia/Lord_Howe", "Australia/Sydney", "Europe/Berlin", "Europe/Dublin", "Europe/London",
    "Europe/Moscow", "Europe/Paris", "Pacific/Apia", "Pacific/Auckland",
]
END = int(datetime.datetime(2021, 1, 1, tzinfo=datetime.timezone.utc).timestamp())
DAY = 86_400
ANYWHERE = 12
CHANGES = 4


def clocks(zone, moment):
    """Seconds ahead of GMT, and the abbreviation."""
    local = datetime.datetime.fromtimestamp(moment, zone)
    return int(local.utcoffset().total_seconds()), local.tzname()


def changes(zone):
    """The first moments at which the clocks show something else, found by halving the days that hold them."""
    found = []
    for start in range(0, END - DAY, DAY):
        before, after = start, start + DAY
        if clocks(zone, before) == clocks(zone, after):
            continue
        while after - before > 1:
            middle = (before + after) // 2
            before, after = (middle, after) if clocks(zone, middle) == clocks(zone, start) else (before, middle)
        found.append(after)
    return found


def moments(zone, source):
    """Moments anywhere, and the two seconds around some changes."""
    result = {source.randrange(END) for _ in range(ANYWHERE)}
    known = changes(zone)
    for change in source.sample(known, min(CHANGES, len(known))):
        result |= {change - 1, change}
    return sorted(result)


def table():
    lines = ["zone\tseconds_since_1970\tseconds_from_gmt\tabbreviation"]
    source = random.Random(2026)
    for name in ZONES:
        zone = zoneinfo.ZoneInfo(name)
        lines += [f"{name}\t{moment}\t{clocks(zone, moment)[0]}\t{clocks(zone, moment)[1]}"
                  for moment in moments(zone, source)]
    return "\n".join(lines) + "\n"


def main():
    text = table()
    if "--check" not in sys.argv[1:]:
        TABLE.write_text(text, encoding="utf-8")
    elif not TABLE.exists() or TABLE.read_text(encoding="utf-8") != text:
        sys.exit(f"not what the generator makes: {TABLE.name}")


if __name__ == "__main__":
    main()
