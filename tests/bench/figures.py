#!/usr/bin/env python3
"""Runs the benchmarks of an optimised build and prints one table of medians beside their goals.

figures.py BUILD [OPTIONS FOR EACH BENCHMARK]
"""

import json
import os
import pathlib
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(ROOT))
sys.dont_write_bytecode = True
os.environ.setdefault("SDL_AUDIODRIVER", "dummy")

from tests.bench import process  # noqa: E402

BENCHMARKS = ["cards", "settings", "study", "authoring", "windows"]
MICROSECONDS = {"ns": 0.001, "us": 1, "ms": 1000, "s": 1_000_000}

# What is measured, its benchmark, the unit of the table, and the goal where there is one.
ROWS = [
    ("Next to painted, text", "NextToPainted", "ms", 5),
    ("Next to painted, sample picture", "NextToPaintedWithSamplePicture", "ms", 5),
    ("Next to painted, photograph of 12 megapixels", "NextToPaintedWithPhotograph", "ms", None),
    ("Reading a stack of 300 cards", "ReadStackOf300Cards", "us", 100),
    ("Writing it, without the disk", "WriteStackOf300Cards", "us", 300),
    ("Writing it, with the flush to disk", "WriteStackOf300CardsToDisk", "us", None),
    ("Reading 10 stacks", "ReadManyStacks/10", "ms", None),
    ("Reading 100 stacks", "ReadManyStacks/100", "ms", None),
    ("Reading 1,000 stacks", "ReadManyStacks/1000", "ms", None),
    ("A pass of 300 draws", "PassOf300Draws", "us", None),
    ("Search of 300 cards in vain", "SearchIn300Cards/0", "us", None),
    ("The same with Case Sensitive", "SearchIn300Cards/1", "us", None),
    ("Layout of 300 cards for print", "LayOut300Cards", "ms", None),
    ("Printing them to a PDF file", "Print300CardsToPdf", "ms", None),
    ("Selecting a topic", "SettingsOfElevenTopics/SelectTopic", "us", None),
    ("Writing a setting", "SettingsOfElevenTopics/WriteOneValue", "us", None),
]
WINDOW_GOAL = 50  # milliseconds


def run_benchmarks(build, options):
    """Each benchmark's median in microseconds."""
    medians = {}
    for name in BENCHMARKS:
        with tempfile.NamedTemporaryFile() as out:
            done = subprocess.run(
                [build / "tests" / "bench" / f"bench_{name}", "--benchmark_repetitions=5",
                 "--benchmark_enable_random_interleaving=true", f"--benchmark_out={out.name}",
                 "--benchmark_out_format=json", *options],
                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
            if done.returncode != 0:
                sys.exit(f"{done.stdout}\nbench_{name} ended with {done.returncode}")
            for run in json.load(out)["benchmarks"]:
                if run.get("aggregate_name") == "median":
                    medians[run["run_name"]] = run["real_time"] * MICROSECONDS[run["time_unit"]]
    return medians


def print_row(what, value, unit, goal):
    verdict = "" if goal is None else "met" if value <= goal else "MISSED"
    limit = "" if goal is None else f"{goal:g} {unit}"
    print(f"{what:48}{value:10.3g} {unit:4}{limit:>10}  {verdict}".rstrip())


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    medians = run_benchmarks(build, sys.argv[2:])
    with tempfile.TemporaryDirectory() as pictures:
        program = process.measure(build / "bin" / "quibcards",
                                  ROOT / "samples" / "spanish-300-words.QBC", pictures)

    print(f"{'What':48}{'Median':>10}{'':5}{'Goal':>10}")
    print_row("Start to the splash", program["splash"], "ms", None)
    print_row("Start to the main window, less the splash wait", program["main"], "ms", 80)
    print_row("Memory (PSS) with 1 stack of 300 cards", program["one_stack"], "MiB", 40)
    print_row("Memory (PSS) with 100 stacks of 300 cards", program["many_stacks"], "MiB", 40)
    for what, name, unit, goal in ROWS:
        if name in medians:
            print_row(what, medians[name] / MICROSECONDS[unit], unit, goal)
    for name, value in medians.items():
        if name.startswith("Open/"):
            print_row("Opening " + name.removeprefix("Open/"), value / 1000, "ms", WINDOW_GOAL)


if __name__ == "__main__":
    main()
