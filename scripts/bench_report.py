#!/usr/bin/env python3
"""Prints the medians of a benchmark run, their ratios to the reference loop, and how they stand to the budgets.

Usage: bench_report.py BUDGETS.tsv REPORT.json...

A row of the budgets is "name, budget, note": the budget is in nanoseconds of an iteration, or, where the name is
"benchmark:counter", in the unit of that counter.
"""

import csv
import json
import statistics
import sys

REFERENCE = "BM_Reference"
NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


def medians(path):
    """Medians over the repetitions by name; counters stand under "benchmark:counter"."""
    with open(path, encoding="utf-8") as file:
        report = json.load(file)
    known = {
        "name", "run_name", "run_type", "family_index", "per_family_instance_index", "repetitions", "repetition_index",
        "threads", "iterations", "real_time", "cpu_time", "time_unit", "label", "error_occurred", "error_message",
    }
    samples = {}
    for run in report["benchmarks"]:
        if run.get("run_type") != "iteration":
            continue
        name = run["run_name"].removesuffix("/real_time")
        if run.get("error_occurred"):
            sys.exit(f"{name}: {run.get('error_message')}")
        clock = "real_time" if run["run_name"].endswith("/real_time") else "cpu_time"
        if clock in run:
            samples.setdefault(name, []).append(run[clock] * NANOSECONDS[run["time_unit"]])
        for counter in run.keys() - known:
            samples.setdefault(f"{name}:{counter}", []).append(run[counter])
    return {name: statistics.median(values) for name, values in samples.items()}


def budgets(path):
    with open(path, encoding="utf-8", newline="") as file:
        lines = (line for line in file if not line.startswith("#"))
        rows = csv.DictReader(lines, delimiter="\t", quoting=csv.QUOTE_NONE)
        return {row["name"]: (float(row["budget"]), row["note"]) for row in rows}


def main():
    limits = budgets(sys.argv[1])
    measured = {}
    for report in sys.argv[2:]:
        measured |= medians(report)
    reference = measured.pop(REFERENCE)

    width = max(map(len, [*measured, *limits, REFERENCE]))
    print(f"{'benchmark':{width}} {'median':>14} {'x reference':>12} {'budget':>12}")
    print(f"{REFERENCE:{width}} {reference:14,.1f} {1:12.4f}")
    for name, value in measured.items():
        is_time = ":" not in name
        ratio = f"{value / reference:12.4f}" if is_time else f"{'':12}"
        line = f"{name:{width}} {value:14,.1f} {ratio}"
        if name in limits:
            budget, note = limits[name]
            verdict = "met" if value <= budget else "EXCEEDED"
            line += f" {budget:12,.1f} {verdict:8} {note}"
        print(line.rstrip())

    unmeasured = [name for name in limits if name not in measured]
    if unmeasured:
        print("\nBudgets without a figure in this run: " + ", ".join(unmeasured))
    exceeded = [name for name, (budget, _) in limits.items() if measured.get(name, 0) > budget]
    held = len(limits) - len(unmeasured) - len(exceeded)
    print(f"\n{held} budgets met, {len(exceeded)} exceeded. Times are nanoseconds, medians over the repetitions.")


if __name__ == "__main__":
    main()
