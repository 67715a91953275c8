"""The texts of the dialog forms: those that a translator can translate, by the class of their dialog."""

import glob
import os
import xml.etree.ElementTree as xml
from dataclasses import dataclass


@dataclass(frozen=True)
class FormText:
    context: str
    source: str
    note: str


def strings(element, owner="", name=""):
    """Every translatable string under an element, with the widget and the property that it belongs to."""
    if element.tag == "widget":
        owner = element.get("name", "")
    if element.tag in ("property", "attribute"):
        name = element.get("name", "")
    if element.tag == "string" and element.get("notr") != "true" and (element.text or "").strip():
        yield element.text, owner, name
    for child in element:
        yield from strings(child, owner, name)


def texts_of(folder):
    """The texts of all forms, each once a context, and what is wrong with the forms."""
    found, faults = {}, []
    for path in sorted(glob.glob(os.path.join(folder, "*.ui"))):
        form = os.path.splitext(os.path.basename(path))[0]
        try:
            root = xml.parse(path).getroot()
        except xml.ParseError as error:
            faults.append(f"{path}: {error}")
            continue
        context = root.findtext("class", "")
        if not context:
            faults.append(f"{path}: the form names no class")
        for source, owner, name in strings(root):
            found.setdefault((context, source), FormText(context, source, f"form {form}, {name} of {owner}"))
    return list(found.values()), faults
