#!/usr/bin/env python3
"""Writes the data of the label library. See README.md."""

import argparse
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.append(str(ROOT / "tools" / "dictionary"))

from candidates import Candidates  # noqa: E402: found through the path above
from exiftool_tables import version  # noqa: E402
from facts import Facts  # noqa: E402
from label_files import files_of  # noqa: E402
from library import Library, read_rows  # noqa: E402
from tag_texts import LANGUAGES, read_notes, read_tag_texts  # noqa: E402

COMMITTED_WITH = "12.57"  # the ExifTool of the committed files
SKIPPED = 77

DATA = ROOT / "src" / "tags" / "data"


def build():
    tags = read_tag_texts()
    candidates = Candidates(Facts(DATA / "GroupCatalogueRows.inc"), tags)
    return Library(read_rows(DATA / "TagDictionaryRows.inc"), candidates, tags, read_notes())


def report(library, texts):
    named = sum(entry.tag is not None for entry in library.entries)
    print(f"{len(library.entries)} tags, {named} of them in ExifTool's tables, {len(library.lists)} lists, "
          f"{sum(bool(entry.note) for entry in library.entries)} notes")
    for language in LANGUAGES:
        labels = sum("" in library.translated[language].get(row.name, {}) for row in library.rows)
        print(f"{language}: labels of {labels} tags")
    for name, text in texts.items():
        print(f"{name}: {len(text.encode()):,} bytes")


def main():
    parser = argparse.ArgumentParser(description="Writes the data of the label library.")
    parser.add_argument("--output", type=pathlib.Path, default=DATA / "labels", help="the folder of the files")
    parser.add_argument("--check", action="store_true", help="write nothing; status 1 when a file would change")
    arguments = parser.parse_args()
    if arguments.check and version() != COMMITTED_WITH:
        print(f"the committed files are of ExifTool {COMMITTED_WITH}; this is {version()}")
        return SKIPPED
    library = build()
    texts = files_of(library)
    report(library, texts)
    if arguments.check:
        changed = [name for name, text in texts.items()
                   if (arguments.output / name).read_text(encoding="utf-8") != text]
        print("would change: " + ", ".join(changed) if changed else "unchanged")
        return 1 if changed else 0
    arguments.output.mkdir(parents=True, exist_ok=True)
    for name, text in texts.items():
        (arguments.output / name).write_text(text, encoding="utf-8", newline="\n")
    return 0


if __name__ == "__main__":
    sys.exit(main())
