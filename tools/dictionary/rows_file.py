"""Reading and writing src/tags/data/TagDictionaryRows.inc."""

import re

KINDS = {0: "Date", 1: "Integer", 2: "Text", 3: "Rating", 4: "List", 6: "Binary", 7: "Rational"}
HEADER = """\
// The rows of the tag dictionary in table order: id, name, tableId, group, groupIndex, valueKind, writable, categoryId.
// Written by tools/dictionary/generate.py; change its data and run it again instead of editing here.
"""
ROW = re.compile(r'\{(\d+), u"([^"]*)", \d+, u"[^"]*", (\d+), ')


def write(path, table):
    path.write_text(text_of(table), encoding="utf-8", newline="\n")


def text_of(table):
    lines = [HEADER]
    for row in table:
        writable = "true" if row.writable else "false"
        lines.append(f'{{{row.id}, u"{row.name}", {row.table}, u"{row.text}", {row.group}, '
                     f'ValueKind::{KINDS[row.kind]}, {writable}, {row.category}}},\n')
    return "".join(lines)


def read_ids(path):
    """(id, groupIndex, name) of each row, in table order."""
    found = []
    for line in path.read_text(encoding="utf-8").splitlines():
        match = ROW.match(line)
        if match:
            found.append((int(match[1]), int(match[3]), match[2]))
    return found
