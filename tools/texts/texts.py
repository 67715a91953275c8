#!/usr/bin/env python3
"""Makes what the build needs of babel/texts.tsv, and checks it on the way; docs/texts.md tells how to add a text.

    texts.py headers  BABEL FOLDER NAME... the headers with the constants, one a folder of src, as edit/EditTexts.h
    texts.py language BABEL NUMBER FILE    the Linguist file that is packed for a language
    texts.py keys     BABEL FILE           the table of all numbers and their keys
    texts.py controls BABEL SRC FILE       the table of the controls that the dialogs use, which the forms must have
    texts.py update   BABEL NUMBER         BABEL/NUMBER.ts for the translator: keeps what is translated, adds what is new
    texts.py check    BABEL                only the checks

BABEL is the folder of texts.tsv, menus.xml, ribbon.xml, forms and the translations. What is wrong is told line by line
on the error stream; the exit status is then 1 and nothing is written.
"""

import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

import constants  # noqa: E402
import controls  # noqa: E402
import forms  # noqa: E402
import linguist  # noqa: E402
import rows  # noqa: E402


def write_if_changed(path, content):
    """An unchanged header keeps its time, so that nothing is compiled again for another room's text."""
    if os.path.exists(path):
        with open(path, encoding="utf-8") as stream:
            if stream.read() == content:
                return
    os.makedirs(os.path.dirname(path) or ".", exist_ok=True)
    with open(path, "w", encoding="utf-8") as stream:
        stream.write(content)


def stop_at(faults):
    for fault in faults:
        print(fault, file=sys.stderr)
    if faults:
        sys.exit(1)


def language_faults(babel, texts, form_texts):
    faults = []
    for number in linguist.languages(babel):
        faults += linguist.faults(linguist.path_of(babel, number), texts, form_texts)
    return faults


def main(arguments):
    command, babel, rest = arguments[0], arguments[1], arguments[2:]
    texts, faults = rows.read(os.path.join(babel, "texts.tsv"))
    faults += rows.reference_faults(babel, texts)
    if command == "headers":
        folder, names = rest[0], rest[1:]
        stop_at(faults + constants.faults(names, texts))
        for name, content in constants.headers(names, texts).items():
            write_if_changed(os.path.join(folder, name), content)
        return
    if command == "keys":
        stop_at(faults)
        write_if_changed(rest[0], constants.key_table(texts))
        return
    if command == "controls":
        used, control_faults = controls.read(rest[0])
        stop_at(control_faults + controls.faults(used, os.path.join(babel, "forms")))
        write_if_changed(rest[1], controls.table(used))
        return
    form_texts, form_faults = forms.texts_of(os.path.join(babel, "forms"))
    faults += form_faults
    if command == "update":
        stop_at(faults)
        path = linguist.path_of(babel, rest[0])
        write_if_changed(path, linguist.merged(path, rest[0], texts, form_texts))
        return
    stop_at(faults + language_faults(babel, texts, form_texts))
    if command == "language":
        path = linguist.path_of(babel, rest[0])
        write_if_changed(rest[1], linguist.merged(path, rest[0], texts, form_texts))


if __name__ == "__main__":
    if len(sys.argv) < 3 or sys.argv[1] not in ("headers", "keys", "language", "controls", "update", "check"):
        sys.exit(__doc__)
    main(sys.argv[1:])
