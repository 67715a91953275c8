"""The text of the files in src/tags/data/labels."""

import collections

from library import flags_of
from tag_texts import LANGUAGES

MADE_BY = "# Written by tools/labels/generate.py; run it again instead of editing here.\n"


def files_of(library):
    """The text of each file, by its name."""
    texts = {"tags.tsv": _tags(library), "lists.tsv": _lists(library)}
    for language in LANGUAGES:
        texts[f"{language}.tsv"] = _language(library.translated[language])
    return texts


def _line(*cells):
    for cell in cells:
        if any(ord(each) < 32 for each in cell):
            raise SystemExit(f"a control character in {cells}")
    return "\t".join(cells).rstrip("\t") + "\n"


def _tags(library):
    """Sections by ExifTool's table, which is named once."""
    sections = collections.defaultdict(list)
    for entry in library.entries:
        sections[entry.tag.table if entry.tag else ""].append(entry)
    text = [MADE_BY, "# @ and ExifTool's table, then its tags: id, label, tag id in that table, format, how many numbers,\n"
                     "# flags, list, topic, note. Flags: L several values, P cannot be removed, A another tag is preferred,\n"
                     "# U only written when named, M made with its group.\n"]
    for table in sorted(sections):
        text.append(_line("@" + table))
        for entry in sections[table]:
            tag = entry.tag
            cells = (tag.id, tag.type.replace("?", ""), tag.count or "", flags_of(tag),
                     str(entry.list) if entry.list else "", tag.topic) if tag else ()
            text.append(_line(str(entry.id), entry.label, *cells, *([entry.note] if entry.note else [])))
    return "".join(text)


def _lists(library):
    text = [MADE_BY, "# @ and the number of a list, then its values: code, text as ExifTool prints it. + and a number: so\n"
                     "# many more values are left out.\n"]
    for values, number in library.lists.items():
        text.append(_line("@" + str(number)))
        text.extend("=" + _line(code, label) for code, label in values.values)
        if values.left:
            text.append(_line("+" + str(values.left)))
    return "".join(text)


def _language(translated):
    text = [MADE_BY, "# @, a tag's name and its label, then the values of its lists: English, translated.\n"]
    for name in sorted(translated):
        texts = translated[name]
        text.append(_line("@" + name, texts.get("", "")))
        text.extend("=" + _line(english, texts[english]) for english in sorted(texts) if english)
    return "".join(text)
