#!/usr/bin/env python3
"""Prints one table of ratios, ours over the anchor, from the results of the benchmark programs.

usage: ratios.py DIRECTORY        with files as `PROGRAM.json`, written by --benchmark_out
"""

import json
import pathlib
import statistics
import sys

# (program, what is measured, ours, anchors of which the fastest counts, their name, goal, stretch)
GOALS = [
    ("submaster_hash", "10,000 submaster identities", "identityHash",
     ["opensslOneShot"], "OpenSSL, one shot", 1.5, 1.25),
    ("submaster_hash", "10,000 submaster identities", "identityHash",
     ["opensslFetched"], "OpenSSL, prepared", 3.0, None),
    ("submaster_hash_portable", "the same, no SHA instructions", "identityHash",
     ["opensslOneShot"], "OpenSSL, one shot", 2.0, None),
    ("add_ports", "addPorts, 100,000 ports", "addPortsAndVisit/100000",
     ["mapsAndVisit/100000"], "hash maps", 4.0, 2.5),
    ("add_ports", "addPorts, 100,000 ports", "addPortsAndVisit/100000",
     ["mapsAndRecordsAndVisit/100000"], "hash maps and records", 2.0, 1.3),
    ("add_ports", "the same, not read back", "addPorts/100000",
     ["maps/100000"], "hash maps", 4.0, 2.5),
    ("add_ports", "the same, not read back", "addPorts/100000",
     ["mapsAndRecords/100000"], "hash maps and records", 2.0, 1.3),
    ("design_save", "save, new file", "saveNewFile",
     ["klayout_write_oasis", "klayout_write_oasis_blocks"], "KLayout, OASIS", 0.12, 0.08),
    ("design_save", "save, new file", "saveNewFile", ["flatNewFile"], "flat new file", 2.0, 1.2),
    ("design_save", "save, old file replaced", "saveOverOldFile",
     ["flatTemporaryAndRename"], "flat temporary + rename", 1.5, None),
    ("design_save_on_disk", "save to disk, new file", "saveNewFile",
     ["flatTemporaryAndRename"], "flat, flushed", None, None),
    ("design_save_on_disk", "save to disk, replaced", "saveOverOldFile",
     ["flatTemporaryAndRename"], "flat, flushed", 1.5, None),
    ("design_open", "open and visit every box", "openAndVisit",
     ["klayoutReadGds2"], "KLayout reads GDS2", 0.10, 0.05),
    ("design_open", "open and visit every box", "openAndVisit",
     ["flatReadAndBuild"], "flat read + build", 0.65, 0.3),
    ("design_open", "open and visit every box", "openAndVisit",
     ["flatReadInPlace"], "flat read, in place", 5.0, 2.0),
    ("pcell_evaluation", "evaluate, 1,000 shapes, 200 times", "evaluateAndVisit/1000",
     ["klayoutReadGds2/1000"], "KLayout reads GDS2", 0.12, 0.08),
    ("pcell_evaluation", "evaluate, 1,000 shapes, 200 times", "evaluateAndVisit/1000",
     ["flatReadAndBuild/1000"], "flat read + build", 2.5, 1.7),
    ("pcell_evaluation", "evaluate, 100,000 shapes, 4 times", "evaluateAndVisit/100000",
     ["klayoutReadGds2/100000"], "KLayout reads GDS2", 0.06, 0.03),
    ("pcell_evaluation", "evaluate, 100,000 shapes, 4 times", "evaluateAndVisit/100000",
     ["flatReadAndBuild/100000"], "flat read + build", 2.0, 1.0),
    ("brokered_evaluation", "1,000 brokered evaluations, no file", "brokeredEvaluation",
     ["rawPipe"], "the same bytes on pipes", 1.15, 1.08),
    ("brokered_shapes", "broker, 1,000 shapes, 200 times", "evaluateAndVisit/broker",
     ["evaluateAndVisit/here"], "plug-in in this process", None, None),
    ("description", "description, 1,100,000 shapes", "describe",
     ["appendByHand"], "the same, appended by hand", 1.8, 1.3),
    ("description", "description, 1,100,000 shapes", "describe",
     ["libxml"], "libxml2", 0.25, 0.18),
    ("message_lines", "1,000,000 new lines", "addNew/1000000",
     ["insertNew/1000000"], "std::unordered_set", 0.6, 0.5),
    ("message_lines", "1,000,000 known lines", "addKnown/1000000",
     ["insertNew/1000000"], "std::unordered_set, new", None, None),
    ("message_lines", "1,000 lines, 1,000 times", "addRepeated/1000000",
     ["insertNew/1000000"], "std::unordered_set, new", 0.15, 0.12),
    ("library_lists", "100,000 definitions in 101 files", "openAndFlatten",
     ["readAndSplit"], "files and tokenizer", 6.0, 4.0),
    ("library_lists", "100,000 definitions in 101 files", "openAndFlatten",
     ["readAndList"], "the same and a list of pairs", 2.0, 1.4),
    ("design_size", "file, bytes for a shape", "file",
     ["klayout_size_gds2"], "GDS2", 0.35, None),
    ("design_size", "file, bytes for a shape", "file",
     ["klayout_size_oasis"], "OASIS, not compressed", None, 1.0),
    ("design_size", "memory, bytes for a shape", "memory",
     ["klayout_memory_gds2"], "KLayout", 1.6, 1.2),
]

# Growth: how the ratio at many stands to that at few.
# (program, what is measured, ours, anchor, its name, few, many, goal)
GROWTH = [
    ("add_ports", "growth from 25,000 ports", "addPortsAndVisit", "mapsAndVisit", "hash maps",
     25000, 100000, 1.2),
    ("message_lines", "growth from 100,000 lines", "addNew", "insertNew", "std::unordered_set",
     100000, 1000000, 1.2),
]

# Peak memory of the description, for each byte of its text.
PEAK = ("description", "memory", 1.1)

# Evaluations in one repetition of the broker's line.
BROKERED = ("brokered_shapes", "evaluateAndVisit/broker", 200)

MILLISECONDS = {"ns": 1e-6, "us": 1e-3, "ms": 1.0, "s": 1e3}


def samples(directory):
    """Figures of single repetitions by (program, benchmark)."""
    found = {}
    for file in sorted(directory.glob("*.json")):
        for run in json.loads(file.read_text())["benchmarks"]:
            if run["run_type"] != "iteration":
                continue
            name = "/".join(part for part in run["run_name"].split("/")
                            if part != "manual_time" and not part.startswith(("iter", "rep")))
            figure = run.get("bytesPerShape")
            if figure is None:
                figure = run["real_time"] * MILLISECONDS[run["time_unit"]]
            found.setdefault((file.stem, name), []).append(figure)
    return found


def number(value, digits=2):
    return "" if value is None else f"{value:.{digits}f}"


def verdict(ratio, goal, stretch):
    if stretch is not None and ratio <= stretch:
        return "stretch"
    if goal is None:
        return ""
    return "met" if ratio <= goal else "missed"


def rows(medians):
    for program, what, ours, anchors, name, goal, stretch in GOALS:
        mine = medians.get((program, ours))
        theirs = [medians[program, a] for a in anchors if (program, a) in medians]
        if mine is None or not theirs:
            yield what, name, number(mine), "-", "-", number(goal), number(stretch), "not measured"
            continue
        ratio = mine / min(theirs)
        yield (what, name, number(mine), number(min(theirs)), number(ratio, 3), number(goal),
               number(stretch), verdict(ratio, goal, stretch))
    for program, what, ours, anchor, name, few, many, goal in GROWTH:
        if any((program, f"{each}/{n}") not in medians
               for each in (ours, anchor) for n in (few, many)):
            continue
        small, large = (medians[program, f"{ours}/{n}"] / medians[program, f"{anchor}/{n}"]
                        for n in (few, many))
        yield (what, name, number(large), number(small), number(large / small, 3), number(goal),
               "", verdict(large / small, goal, None))
    program, name, goal = PEAK
    if (program, name) in medians:
        peak = medians[program, name]
        yield ("description, peak memory", "its text", "", "", number(peak, 3), number(goal), "",
               verdict(peak, goal, None))


def main():
    found = samples(pathlib.Path(sys.argv[1]))
    medians = {key: statistics.median(figures) for key, figures in found.items()}
    table = [("workload", "anchor", "ours", "anchor's", "ratio", "goal", "stretch", "")]
    table += rows(medians)
    widths = [max(len(row[i]) for row in table) for i in range(len(table[0]))]
    for row in table:
        cells = [row[i].ljust(widths[i]) if i < 2 else row[i].rjust(widths[i])
                 for i in range(len(row) - 1)]
        print("  ".join(cells + [row[-1]]).rstrip())
    program, ours, times = BROKERED
    if (program, ours) in medians:
        each = medians[program, ours] / times
        print(f"\nThe broker: {1000 / each:.0f} evaluations with 1,000 shapes a second.")
    print(f"\nMedians of {min(map(len, found.values()), default=0)} repetitions or more; "
          "milliseconds, or bytes for a shape.")


if __name__ == "__main__":
    main()
