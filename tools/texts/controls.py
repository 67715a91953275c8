"""The controls that the dialogs use, as the FormControls.tsv of their folders say, and the forms that must have them."""

import glob
import os
import xml.etree.ElementTree as xml
from dataclasses import dataclass

NEEDS = ("must", "may")
OK, CANCEL = 1, 2


@dataclass(frozen=True)
class Control:
    form: int
    number: int
    class_name: str
    need: str
    where: str


def read(src):
    """The rows of all folders by form and number, and what is wrong with them."""
    rows, faults, seen = [], [], {}
    for path in sorted(glob.glob(os.path.join(src, "*", "FormControls.tsv"))):
        with open(path, encoding="utf-8") as lines:
            for at, line in enumerate(lines, 1):
                fields = line.rstrip("\n").split("\t")
                where = f"{path}:{at}"
                if not line.strip() or line.startswith("#"):
                    continue
                if len(fields) < 4 or not (fields[0].isdecimal() and fields[1].isdecimal()) or fields[3] not in NEEDS:
                    faults.append(f"{where}: a row is form, control, class and must or may, with tabs between them")
                    continue
                row = Control(int(fields[0]), int(fields[1]), fields[2], fields[3], where)
                if (row.form, row.number) in seen:
                    faults.append(f"{where}: control {row.number} of form {row.form} stands already in "
                                  f"{seen[row.form, row.number]}")
                seen[row.form, row.number] = where
                rows.append(row)
    return sorted(rows, key=lambda row: (row.form, row.number)), faults


def controls_of(form):
    """The classes of a form's numbered controls; OK and Cancel of a button box have the numbers 1 and 2."""
    found = {}
    for widget in xml.parse(form).getroot().iter("widget"):
        for prop in widget.findall("property"):
            if prop.get("name") == "controlId":
                found[int(prop.findtext("number", "0"))] = widget.get("class", "")
            if prop.get("name") == "standardButtons":
                for name, number in (("QDialogButtonBox::Ok", OK), ("QDialogButtonBox::Cancel", CANCEL)):
                    if name in (prop.findtext("set") or "").split("|"):
                        found.setdefault(number, "QPushButton")
    return found


def faults(rows, forms):
    """What the forms lack of what the dialogs use."""
    result, known = [], {}
    for row in rows:
        path = os.path.join(forms, f"{row.form}.ui")
        if path not in known:
            known[path] = controls_of(path) if os.path.exists(path) else None
        if known[path] is None:
            result.append(f"{row.where}: there is no form {path}")
        elif row.number not in known[path]:
            result.append(f"{row.where}: {path} has no control {row.number}")
        elif known[path][row.number] != row.class_name:
            result.append(f"{row.where}: control {row.number} of {path} is a {known[path][row.number]}, not a "
                          f"{row.class_name}")
    return result


def table(rows):
    """The rows as C++ sees them."""
    lines = ["// Made of src/*/FormControls.tsv by tools/texts: declare a control there."]
    lines += [f"{{{row.form}, {row.number}, \"{row.class_name}\", {str(row.need == 'must').lower()}}},"
              for row in rows]
    return "\n".join([*lines, ""])
