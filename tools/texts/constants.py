"""The headers with the constants: one for each room, named after it."""

import textwrap

WIDTH = 112


def declaration(text):
    note = f"/// {text.note}".replace("\n", " ")
    comment = textwrap.wrap(note, WIDTH, subsequent_indent="/// ") if text.note else []
    return [*comment, f"inline constexpr int {text.constant} = {text.number};"]


def header(room, texts):
    lines = ["// Made of babel/texts.tsv by tools/texts: add a text there.", "#pragma once", "",
             f"/// Numbers of the language file's strings that belong to {room}.", f"namespace {room}::text {{", ""]
    for text in texts:
        lines += declaration(text)
    return "\n".join([*lines, "", f"}}  // namespace {room}::text", ""])


def faults(names, texts):
    """The rooms of texts that have no header: names are the headers, as "edit/EditTexts.h"."""
    known = {name.partition("/")[0] for name in names}
    return [f"{text.key}: there is no header for {text.room}; name one in babel/CMakeLists.txt"
            for text in texts if text.room and text.room not in known]


def headers(names, texts):
    """The contents by file name; a room without texts has an empty header."""
    rooms = {name: name.partition("/")[0] for name in names}
    return {name: header(room, [text for text in texts if text.room == room]) for name, room in rooms.items()}


def key_table(texts):
    """The rows of a table of TextKey."""
    return "".join(f'{{{text.number}, "{text.key}"}},\n' for text in texts)
