#!/usr/bin/env python3
"""Measures the console as a whole program: the time from its start to its end over one line, and its memory over a page.

Usage: bench_console.py CONSOLE PAGE.txt REPORT.json [REPETITIONS]

Writes a report of the same form as that of the benchmark program.
"""

import array
import fcntl
import json
import os
import resource
import subprocess
import sys
import termios
import time

LINES = {
    "Console/PlainLine": "1 + 2",
    "Console/UnknownWords": "plums grow best in loamy soil",
    "Console/Place": "3pm in Paris to New York",
}


def seconds_over(console, text):
    """From start to exit over a text, by the clock and of the processor. Exit is part of it, which makes the figures a
    little worse than the first answer. The second one holds on a machine that others use too."""
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    start = time.perf_counter()
    # Without close_fds Python starts the program by vfork, and the size of this process doesn't count.
    subprocess.run([console], input=text, stdout=subprocess.DEVNULL, check=True, close_fds=False)
    elapsed = time.perf_counter() - start
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return elapsed, after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime


def milliseconds_over_twice_warm(console, page):
    """What the first pass over a page costs beyond two further passes, in time of the processor; the start is left out."""
    with open(page, "rb") as lines:
        text = lines.read()
    start, cold, both = (seconds_over(console, input_)[1] for input_ in (b"", text, text * 2))
    return ((cold - start) - 2 * (both - cold)) * 1000


def resident_megabytes_over(console, page):
    """The peak of the program itself. What the system tells after its end would include the Python that started it."""
    reader, writer = os.pipe()
    process = subprocess.Popen([console], stdin=reader, stdout=subprocess.DEVNULL)
    os.close(reader)
    with open(page, "rb") as lines:
        text = lines.read()
    while text:
        text = text[os.write(writer, text):]
    # Still alive, it has taken all lines, and sleeps in wait of more.
    waiting = array.array("i", [0])
    quiet = 0
    while quiet < 3:
        time.sleep(0.02)
        fcntl.ioctl(writer, termios.FIONREAD, waiting)
        with open(f"/proc/{process.pid}/stat", encoding="ascii") as stat:
            asleep = stat.read().rpartition(")")[2].split()[0] == "S"
        quiet = quiet + 1 if asleep and waiting[0] == 0 else 0
    with open(f"/proc/{process.pid}/status", encoding="ascii") as status:
        peak = next(int(row.split()[1]) for row in status if row.startswith("VmHWM"))
    os.close(writer)
    if process.wait() != 0:
        sys.exit(f"{console} ended with {process.returncode}")
    return peak / 1024


def main():
    console, page, report = sys.argv[1:4]
    repetitions = int(sys.argv[4]) if len(sys.argv) > 4 else 20
    runs = []
    for name, line in LINES.items():
        line = line.encode() + b"\n"
        seconds_over(console, line)  # brings the files into memory
        for _ in range(repetitions):
            elapsed, processor = seconds_over(console, line)
            runs.append({"run_name": name, "run_type": "iteration", "cpu_time": elapsed, "time_unit": "s",
                         "processorMilliseconds": processor * 1000})
    if os.path.exists(page):
        runs += [{"run_name": "Console/ColdPage", "run_type": "iteration",
                  "millisecondsOverTwiceWarm": milliseconds_over_twice_warm(console, page)} for _ in range(repetitions)]
        runs.append({"run_name": "Console/MixedPage", "run_type": "iteration",
                     "residentMegabytes": resident_megabytes_over(console, page)})
    with open(report, "w", encoding="utf-8") as file:
        json.dump({"benchmarks": runs}, file)


if __name__ == "__main__":
    main()
