"""The rows of texts.tsv: number, key, English text, note for translators."""

import os
import re
import xml.etree.ElementTree as xml
from dataclasses import dataclass

# What a key can be beside the name of a constant: texts that are found by the number of a command, by that number and
# 100,000 more, by the ribbon's markup and by the menus.
PLAIN_KEYS = ("command", "tip", "ribbon", "menu")
TIP_NUMBERS = 100_000
CONSTANT = re.compile(r"([a-z]+)::(k[A-Z][A-Za-z0-9]*)")
PLACEHOLDER = re.compile(r"%(?:%|(?:[1-9]\$)?[sdu])")
ESCAPES = {"\\n": "\n", "\\t": "\t", "\\\\": "\\"}


@dataclass(frozen=True)
class Text:
    number: int
    key: str
    english: str
    note: str

    @property
    def room(self):
        return self.key.partition("::")[0] if "::" in self.key else None

    @property
    def constant(self):
        return self.key.partition("::")[2]


def placeholders(text):
    """The places of a text in their order, "%%" left out; "%2$s" is the second one wherever it stands."""
    found = [place for place in PLACEHOLDER.findall(text) if place != "%%"]
    if any("$" in place for place in found):
        found.sort(key=lambda place: place[1:2])
        return ["%" + place[-1] for place in found]
    return found


def placeholder_faults(where, text, expected):
    """What is wrong with the places of a text that must take the values of another one."""
    found = PLACEHOLDER.findall(text)
    numbers = sorted(place[1] for place in found if "$" in place)
    faults = []
    if numbers and (len(numbers) != len([place for place in found if place != "%%"]) or
                    numbers != [str(at) for at in range(1, len(numbers) + 1)]):
        faults.append(f"{where}: either all places are numbered, from 1 on, or none")
    elif placeholders(text) != expected:
        faults.append(f"{where}: the places are {placeholders(text) or 'none'}, not {expected or 'none'}")
    return faults


def unescaped(field):
    return re.sub(r"\\[nt\\]", lambda match: ESCAPES[match.group()], field)


def row_faults(where, text):
    faults = []
    if not text.english.strip():
        faults.append(f"{where}: the text is empty")
    if text.key not in PLAIN_KEYS and not CONSTANT.fullmatch(text.key):
        faults.append(f"{where}: the key '{text.key}' is neither room::kName nor one of {', '.join(PLAIN_KEYS)}")
    if (text.key == "tip") != (text.number >= TIP_NUMBERS):
        faults.append(f"{where}: the texts from {TIP_NUMBERS} on are the tool tips, and no others")
    if placeholders(text.note) != placeholders(text.english):
        faults.append(f"{where}: the note must say what each of {placeholders(text.english) or 'no places'} stands for, "
                      f"but speaks of {placeholders(text.note) or 'none'}")
    return faults


def read(path):
    """The texts in the order of their numbers, and what is wrong with them."""
    texts, faults, keys = [], [], {}
    with open(path, encoding="utf-8") as lines:
        for at, line in enumerate(lines, 1):
            where = f"{path}:{at}"
            line = line.rstrip("\n")
            if not line or line.startswith("#"):
                continue
            fields = line.split("\t")
            if len(fields) not in (3, 4) or not fields[0].isdecimal():
                faults.append(f"{where}: a row is number, key, English and note, with tabs between them")
                continue
            text = Text(int(fields[0]), fields[1], unescaped(fields[2]), unescaped(fields[3]) if fields[3:] else "")
            faults += row_faults(where, text)
            if texts and text.number <= texts[-1].number:
                faults.append(f"{where}: the number {text.number} stands after {texts[-1].number}; numbers ascend, each "
                              "once")
            if text.room and text.key in keys:
                faults.append(f"{where}: {text.key} is already the number {keys[text.key]}")
            keys[text.key] = text.number
            texts.append(text)
    return texts, faults


def reference_faults(babel, texts):
    """The numbers that the ribbon and the menus name and that are no texts."""
    numbers = {text.number for text in texts}
    faults = []
    for name in ("ribbon.xml", "menus.xml"):
        path = os.path.join(babel, name)
        for element in xml.parse(path).getroot().iter():
            for attribute in ("text", "foldText"):
                value = element.get(attribute)
                if value is not None and not (value.isdecimal() and int(value) in numbers):
                    faults.append(f"{path}: {attribute}=\"{value}\" is not the number of a text")
    return faults
