"""Linguist files (.ts): numbered texts as messages with an id, texts of the forms in the context of their dialog."""

import glob
import os
import re
import xml.etree.ElementTree as xml
from xml.sax.saxutils import escape, quoteattr

import rows

# The codes of the languages by their numbers.
CODES = {7: "de", 9: "en", 10: "es", 11: "fi", 12: "fr", 16: "it", 19: "nl", 21: "pl", 29: "sv"}
ENGLISH = 9


def path_of(babel, number):
    return os.path.join(babel, f"{int(number):04d}.ts")


def languages(babel):
    """The numbers of the languages that are translated."""
    names = (os.path.basename(path) for path in glob.glob(os.path.join(babel, "*.ts")))
    return [int(match.group(1)) for match in map(re.compile(r"(\d{4})\.ts").fullmatch, sorted(names)) if match]


def translations(path):
    """(context or number, source): (translation, its type), of the messages that have one."""
    found = {}
    if not os.path.exists(path):
        return found
    for context in xml.parse(path).getroot().iter("context"):
        for message in context.iter("message"):
            translation = message.find("translation")
            if translation is None or not (translation.text or "").strip():
                continue
            owner = int(message.get("id")) if message.get("id") else context.findtext("name", "")
            found[owner, message.findtext("source", "")] = (translation.text, translation.get("type", ""))
    return found


def faults(path, texts, form_texts):
    """What is wrong with a translation: places that differ from English, and texts that English no longer has."""
    english = {(text.number, text.english) for text in texts}
    english |= {(text.context, text.source) for text in form_texts}
    result = []
    try:
        translated = translations(path)
    except xml.ParseError as error:
        return [f"{path}: {error}"]
    for (owner, source), (translation, kind) in translated.items():
        if kind in ("vanished", "obsolete"):
            continue
        where = f"{path}: {owner} \"{source}\""
        if (owner, source) not in english:
            result.append(f"{where}: English has no such text; texts.py update brings the translation up to date")
        result += rows.placeholder_faults(where, translation, rows.placeholders(source))
    return result


def message(number, source, note, old):
    owner = "" if number is None else f" id=\"{number}\""
    translation, kind = old or ("", "unfinished")
    kind = f" type={quoteattr(kind)}" if kind else ""
    lines = [f"    <message{owner}>", f"        <source>{escape(source)}</source>"]
    if note:
        lines.append(f"        <extracomment>{escape(note)}</extracomment>")
    return [*lines, f"        <translation{kind}>{escape(translation)}</translation>", "    </message>"]


def note_of(text, english):
    if text.key == "tip":
        return f"tool tip of \"{english.get(text.number - rows.TIP_NUMBERS, '')}\""
    return text.note


def merged(path, number, texts, form_texts):
    """The Linguist file of a language: every text there is, with the translations of path as far as they fit."""
    old = translations(path)
    english = {text.number: text.english for text in texts}
    changed = {owner: translation for (owner, _), (translation, kind) in old.items()
               if isinstance(owner, int) and kind not in ("vanished", "obsolete")}
    code = CODES.get(int(number), "")
    lines = ["<?xml version=\"1.0\" encoding=\"utf-8\"?>", "<!DOCTYPE TS>",
             f"<TS version=\"2.1\" language=\"{code}\" sourcelanguage=\"en\">", "<context>", "    <name></name>"]
    for text in texts:
        known = old.get((text.number, text.english))
        if known is None and text.number in changed:
            known = (changed[text.number], "unfinished")
        lines += message(text.number, text.english, note_of(text, english), known)
    lines.append("</context>")
    for context in sorted({text.context for text in form_texts}):
        lines += ["<context>", f"    <name>{escape(context)}</name>"]
        for text in form_texts:
            if text.context == context:
                lines += message(None, text.source, text.note, old.get((context, text.source)))
        lines.append("</context>")
    return "\n".join([*lines, "</TS>", ""])
