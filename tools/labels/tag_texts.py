"""What the installed ExifTool has to say for people about its tags: labels, lists of values, notes."""

import collections
import pathlib
import re
import subprocess
import xml.etree.ElementTree as ElementTree

LANGUAGES = ("de", "fr", "es")

# The first fields are those of tools/dictionary's Tag, so that its candidates can be made of these. label is
# English, translations by language; values: (code, English text, texts by language); several: the values are those of
# the numbers in one tag, one after the other; topic: the family 2 group.
TagText = collections.namedtuple(
    "TagText", "table group id name type count writable flags has_values label translations values several topic")


def read_tag_texts():
    """All tags of `exiftool -listx -f`, in its order."""
    listing = subprocess.Popen(["exiftool", "-f", "-listx"], stdout=subprocess.PIPE)
    tags = []
    for _, table in ElementTree.iterparse(listing.stdout):
        if table.tag == "table":
            tags.extend(_tag_text(table, tag) for tag in table.findall("tag"))
            table.clear()
    if listing.wait() != 0 or not tags:
        raise SystemExit("exiftool -f -listx failed")
    return tags


def read_notes():
    """The English note of each (table, tag id, name) that has one, as a sentence."""
    script = pathlib.Path(__file__).with_name("notes.pl")
    run = subprocess.run(["perl", str(script)], capture_output=True, encoding="utf-8", check=True)
    notes = {}
    for line in run.stdout.splitlines():
        table, tag_id, name, note = line.split("\t")
        notes.setdefault((table, tag_id, name), _sentence(note))
    return notes


def label_of_name(name):
    """A label for a name that no table has: its words, as ExifTool sets them apart."""
    label = name[:1].upper() + name[1:].replace("_", " ")
    number = re.search(r" (0x[\da-f]+)$", label, re.IGNORECASE)
    if number:
        label = label[:number.start()]
    label = re.sub(r"([a-z])([A-Z\d])", r"\1 \2", label)
    label = re.sub(r"([A-Z])([A-Z][a-z])", r"\1 \2", label)
    label = re.sub(r"(\d)([A-Z]\S)", r"\1 \2", label)
    return label + number[0] if number else label


def _texts(element, kind):
    """The text by language; English is always there."""
    texts = {each.get("lang"): re.sub(r"[\t\r\n]+", " ", each.text or "").strip() for each in element.findall(kind)}
    return texts["en"], {language: texts[language] for language in LANGUAGES if language in texts}


def _tag_text(table, tag):
    lists = tag.findall("values")
    values = []
    for key in (key for each in lists for key in each.findall("key")):
        text, translations = _texts(key, "val")
        values.append((key.get("id"), text, translations))
    label, translations = _texts(tag, "desc")
    return TagText(table.get("name"), tag.get("g1") or table.get("g1"), tag.get("id"), tag.get("name"),
                   tag.get("type") or "?", tag.get("count"), tag.get("writable") == "true",
                   frozenset((tag.get("flags") or "").split(",")), bool(lists), label, translations, tuple(values),
                   len(lists) > 1, tag.get("g2") or table.get("g2"))


def _sentence(note):
    """A note without its markup."""
    while re.search(r"[A-Z]<[^<>]*>", note):
        note = re.sub(r"L<([^<>|]*)\|[^<>]*>", r"\1", note)
        note = re.sub(r"E<gt>", "\u203a", re.sub(r"E<lt>", "\u2039", note))
        note = re.sub(r"[A-Z]<([^<>]*)>", r"\1", note)
    note = note.replace("\u203a", ">").replace("\u2039", "<").strip().rstrip(".")
    note = re.sub(r"\bspec(ification)?\b\.?", "standard", note)
    if re.match(r"[a-z]+\b", note):
        note = note[0].upper() + note[1:]
    return note + "."
