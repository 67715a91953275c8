#!/usr/bin/env python3
"""Writes the table of the tag dictionary. See README.md."""

import argparse
import pathlib
import sys

import rows_file
from candidates import Candidates
from choice import Choice, coverage
from exiftool_tables import read_tags, version
from facts import Facts
from keeping import keep_ids
from measuring import measure
from numbering import Numbering
from rows import classify, make_rows
from values import Values

COMMITTED_WITH = "12.57"  # the ExifTool of the committed table
SKIPPED = 77

DATA = pathlib.Path(__file__).resolve().parents[2] / "src" / "tags" / "data"


def build(rows_path, renumber):
    """The rows in table order, and the facts and pairs they come from."""
    facts = Facts(DATA / "GroupCatalogueRows.inc")
    candidates = Candidates(facts, read_tags())
    chosen = Choice(candidates).chosen()
    rows = make_rows(chosen, facts)
    Values(rows, facts, candidates.ratings)
    classify(rows, facts)
    if renumber:
        return Numbering(rows, facts).table(), facts, chosen
    return keep_ids(rows, facts, rows_file.read_ids(rows_path)), facts, chosen


def report(table, facts, chosen):
    total, found = coverage(chosen, facts)
    print(f"{len(table)} rows, {len(chosen)} pairs, {sum(each.filler for each in chosen)} of them filler")
    print(f"found of what the collection's files show: {sum(found.values()) / sum(total.values()):.1%}")
    worst = sorted(total, key=lambda group: found[group] - total[group])[:5]
    print("most is missing in " + ", ".join(f"{facts.keys[group]} ({total[group] - found[group]})" for group in worst))


def main():
    parser = argparse.ArgumentParser(description="Writes the table of the tag dictionary.")
    parser.add_argument("--output", type=pathlib.Path, default=DATA / "TagDictionaryRows.inc",
                        help="the table, which is read first so that ids stay as they are")
    parser.add_argument("--renumber", action="store_true", help="give all rows new ids, but for the fixed ones")
    parser.add_argument("--check", action="store_true", help="write nothing; status 1 when the table would change")
    parser.add_argument("--measure", action="store_true",
                        help="write nothing; what a choice by one half of the files finds in the other half; status 1 "
                             "when that is too little")
    arguments = parser.parse_args()
    if (arguments.check or arguments.measure) and version() != COMMITTED_WITH:
        print(f"the committed table is of ExifTool {COMMITTED_WITH}; this is {version()}")
        return SKIPPED
    if arguments.measure:
        return 0 if measure(DATA / "GroupCatalogueRows.inc", read_tags()) else 1
    table, facts, chosen = build(arguments.output, arguments.renumber)
    report(table, facts, chosen)
    if arguments.check:
        same = arguments.output.read_text(encoding="utf-8") == rows_file.text_of(table)
        print("unchanged" if same else "the table would change")
        return 0 if same else 1
    rows_file.write(arguments.output, table)
    return 0


if __name__ == "__main__":
    sys.exit(main())
