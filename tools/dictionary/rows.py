"""The rows of the table: one for each chosen pair, and the repeats."""

import collections

from choice import LARGEST_OTHER, ROWS
from facts import read_table

SAME_ID_REPEATS = 57  # further rows that bear the id of the first row of their pair


class Row:
    """A row of the dictionary; kind, flag and id are filled in by later steps."""

    def __init__(self, candidate, text, first=None, same_id=False):
        self.candidate = candidate
        self.group = candidate.group
        self.name = candidate.name
        self.text = text
        self.first = first        # the row that this one repeats
        self.same_id = same_id
        self.kind = None
        self.writable = None
        self.category = None
        self.table = None
        self.id = None


def make_rows(chosen, facts):
    """All rows: those of the pairs in the order of the choice, then the repeats."""
    kodak = facts.group_id("Kodak")
    in_group = collections.Counter()
    rows = []
    for candidate in chosen:
        group = facts.groups[candidate.group]
        in_group[candidate.group] += 1
        text = facts.spellings.get(candidate.pair, group.text)
        if candidate.group == kodak and in_group[kodak] > group.rows:
            text = group.key
        rows.append(Row(candidate, text))
    repeats = _listed_repeats(rows, facts)
    repeats += _tags_of_several_tables(rows, repeats, facts)
    return rows + repeats


def _listed_repeats(rows, facts):
    repeats = []
    for line in facts.repeats:
        group = facts.group_id(line["group"])
        firsts = [row for row in rows if row.group == group and line["name"] in ("*", row.name)]
        if not firsts:
            raise SystemExit(f"repeats.tsv: no row {line['group']} {line['name']}")
        for first in firsts:
            for _ in range(int(line["times"])):
                repeats.append(Row(first.candidate, line["text"] or first.text, first, line["id"] == "same"))
    return repeats


def _tags_of_several_tables(rows, listed, facts):
    """A tag that several tables of ExifTool define in one group has a second row; those that people edit come last."""
    fixed = {(row.group, row.name) for row in facts.fixed} | {repeat.first.candidate.pair for repeat in listed}
    size = collections.Counter(row.text for row in rows + listed)
    same_id_left = SAME_ID_REPEATS - sum(repeat.same_id for repeat in listed)
    left = ROWS - len(rows) - len(listed)
    tables = {row: len({tag.table for tag in row.candidate.tags}) for row in rows}
    repeats = []
    edited = {row: facts.groups[row.group].editing < 3 and any(tag.writable for tag in row.candidate.tags)
              for row in rows}
    for row in sorted(rows, key=lambda each: (tables[each] < 2, edited[each], -tables[each], each.group, each.name)):
        if len(repeats) == left:
            break
        if row.candidate.pair in fixed or row.candidate.needed or facts.groups[row.group].rows:
            continue
        if row.name == "Rating" or row.candidate.undocumented or size[row.text] >= LARGEST_OTHER:
            continue
        repeats.append(Row(row.candidate, row.text, row, len(repeats) < same_id_left))
        size[row.text] += 1
    if len(repeats) != left:
        raise SystemExit(f"{len(repeats)} repeated tags instead of {left}")
    return repeats


def classify(rows, facts):
    """Category and source table of each row, by its group and ExifTool's table."""
    places = {}
    for line in read_table("categories.tsv"):
        group = facts.group_id(line["group"])
        places[(group, line["source"])] = (int(line["category"]), int(line["table"]))
    for row in rows:
        sources = ["repeats"] if row.first else []
        sources += [row.candidate.source, "*"]
        row.category, row.table = next(places[row.group, source] for source in sources if (row.group, source) in places)
    used = {(row.category, row.table) for row in rows}
    unused = [f"{category} ({facts.keys[group]} {source})" for (group, source), (category, table) in places.items()
              if (category, table) not in used]
    if unused:
        raise SystemExit("categories without a row: " + ", ".join(unused))
