"""The library: for each row of the dictionary its tag of ExifTool's tables, for each list its number."""

import collections
import pathlib
import re

from tag_texts import LANGUAGES, label_of_name

# A read-only tag that is not chosen from its list shows it in its help only, where longer ones are cut.
LONGEST_IN_HELP = 40
FLAGS = (("List", "L"), ("Permanent", "P"), ("Avoid", "A"), ("Unsafe", "U"), ("Mandatory", "M"))

CHOICES = pathlib.Path(__file__).parent / "data" / "choices.tsv"
UNWRITABLE_CODE = re.compile(r"\\x[0-9a-f]{2}")  # bytes that no argument of a program can hold

Row = collections.namedtuple("Row", "id name text group kind writable")
Entry = collections.namedtuple("Entry", "id tag label list note")  # tag: None where ExifTool has none
List = collections.namedtuple("List", "values left")               # values: (code, text); left: how many are cut


def read_rows(path):
    """The rows of the dictionary, the first of each id."""
    form = re.compile(r'\{(\d+), u"([^"]*)", \d+, u"([^"]*)", (\d+), ValueKind::(\w+), (true|false),')
    rows = {}
    for found in form.finditer(path.read_text(encoding="utf-8")):
        row = Row(int(found[1]), found[2], found[3], int(found[4]), found[5], found[6] == "true")
        rows.setdefault(row.id, row)
    return [rows[each] for each in sorted(rows)]


def read_choices():
    """The values of choices.tsv, by group text and name."""
    lines = CHOICES.read_text(encoding="utf-8").splitlines()
    choices = collections.defaultdict(list)
    for line in [each for each in lines if not each.startswith("# ")][1:]:
        group, name, code, text = line.split("\t")
        choices[group, name].append((code, text))
    return choices


class Library:
    def __init__(self, rows, candidates, tags, notes):
        self.rows = rows
        self.notes = notes
        self.lists = {}  # List -> number
        self.translated = {language: collections.defaultdict(dict) for language in LANGUAGES}
        self._candidates = candidates
        self._choices = read_choices()
        self._by_name = {}
        for tag in tags:
            self._by_name.setdefault(tag.name, tag)
        self.entries = [self._entry(row) for row in rows]

    def _entry(self, row):
        tags = self._tags(row)
        tag = tags[0] if tags else None
        namesake = tag or self._by_name.get(clean(row.name))
        label = namesake.label if namesake else label_of_name(clean(row.name))
        found = self._list(row, tags)
        number = self.lists.setdefault(found, len(self.lists) + 1) if found.values else 0
        if (row.text, row.name) not in self._choices:
            self._translate_values(row, tags, found)
        if namesake:
            self._translate_label(row, namesake)
        note = self.notes.get((tag.table, tag.id, tag.name), "") if tag else ""
        return Entry(row.id, tag, label, number, note)

    def _tags(self, row):
        """ExifTool's tags of that row, the one that an edit would write first."""
        candidate = self._candidates.by_pair.get((row.group, row.name))
        if not candidate or not candidate.tags:
            candidate = self._candidates.by_pair.get((row.group, clean(row.name)))
        tags = candidate.tags if candidate else []
        return sorted(tags, key=lambda tag: (not tag.writable, "Avoid" in tag.flags))

    def _list(self, row, tags):
        kept_by_hand = self._choices.get((row.text, row.name))
        if kept_by_hand:
            return List(tuple(kept_by_hand), 0)
        if row.kind != "List":
            values = [(code, text) for code, text, _ in tags[0].values if code and text] if tags else []
            return List(tuple(values[:LONGEST_IN_HELP]), max(0, len(values) - LONGEST_IN_HELP))
        if row.writable:
            tags = tags[:1]
            if not tags[0].values or tags[0].several:
                raise SystemExit(f"{row.text} {row.name}: the tag that is written has no list; see choices.tsv")
        values = {}
        for tag in tags:
            for code, text, _ in tag.values:
                # Without code or text it could neither be chosen nor be found.
                if code and text and not (row.writable and UNWRITABLE_CODE.search(code)):
                    values.setdefault((code, text))
        return List(tuple(values), 0)

    def _translate_values(self, row, tags, found):
        texts = {text for _, text in found.values}
        for tag in tags:
            for _, text, translations in tag.values:
                for language, translation in translations.items():
                    if text in texts:
                        self.translated[language][row.name].setdefault(text, translation)

    def _translate_label(self, row, tag):
        for language, translation in tag.translations.items():
            self.translated[language][row.name].setdefault("", translation)


def clean(name):
    """A name without the stray characters that some rows keep."""
    return re.sub(r"\(App3\)$|[\s,)]+$", "", name)


def flags_of(tag):
    return "".join(letter for flag, letter in FLAGS if flag in tag.flags)
