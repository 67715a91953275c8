"""The value kind and the writable flag of each row."""

import collections
import re

from candidates import UNDOCUMENTED
from exiftool_tables import refused_edits
from facts import read_table

DATE, INTEGER, TEXT, RATING, LIST, BINARY, RATIONAL = 0, 1, 2, 3, 4, 6, 7
KINDS = {"date": DATE, "integer": INTEGER, "text": TEXT, "rating": RATING, "list": LIST, "binary": BINARY,
         "rational": RATIONAL}

PAYLOADS = frozenset("""PreviewImage PreviewPNG PreviewTIFF ThumbnailImage ThumbnailTIFF JpgFromRaw OtherImage CoverArt
    Picture MPImage2 MPImage3 TiffMeteringImage UnknownThumbnail MediaData StartOfItem PhotoshopThumbnail
    PhotoshopBGRThumbnail EmbeddedImage RawThermalImage ScreenNail""".split())
DATE_NAME = re.compile(r"Date(Time)?(Original|Digitized)?$|Date(Created|Time|Sent|Acquired|Stamp)"
                       r"|TimeCreated$|TimeSent$|(?<!GPS)TimeStamp$")
DATE_TYPES = frozenset("string ? date digits int32u int64u rational64u".split())
NUMERIC = re.compile(r"u?int|integer|digits|unsigned|signed")
PLAIN_NUMBER = re.compile(r"int\d+u|integer|digits")
BINARY_NAME = re.compile(r"^MakerNote|(Image|Thumbnail|Data|Profile)$|Preview(?!.*(Size|Start|Length))|Table|Unknown")
WINDOWS_TEXT = re.compile(r"XP(Title|Comment|Author|Keywords|Subject)$")  # stored as bytes, shown as text
STRUCTURES_TO_EDIT = re.compile(r"Artwork|LocationCreated|LocationShown|Person|Registry|Organi[sz]ation"
                                r"|Licensor|CopyrightOwner|ImageCreator|ImageSupplier|Region|CreatorContact"
                                r"|Creator(Address|City|Country|PostalCode|Region|Work)")

OFFERED_AT_LEAST = 4  # every group of the tag pickers has something to offer


def is_date(candidate):
    form = candidate.seen.form
    if form == "date":
        return not candidate.undocumented
    if form or not DATE_NAME.search(candidate.name):
        return candidate.name in ("TimeCreated", "TimeSent")
    return not candidate.tags or any(tag.type in DATE_TYPES for tag in candidate.tags)


def natural_kind(candidate):
    """The kind that the tag's format asks for, whatever the number of rows of each kind."""
    form, tags = candidate.seen.form, candidate.tags
    if candidate.name == "Rating":
        return RATING
    if form == "binary" or candidate.name in PAYLOADS or (candidate.undocumented and not form):
        return BINARY
    if is_date(candidate):
        return DATE
    if not tags:
        return INTEGER if form == "integer" else TEXT
    if any("Binary" in tag.flags for tag in tags):
        return BINARY
    if any(tag.has_values for tag in tags):
        return LIST
    if WINDOWS_TEXT.match(candidate.name):
        return TEXT
    if all(tag.type in ("undef", "binary") for tag in tags):
        return BINARY if BINARY_NAME.search(candidate.name) and not form else TEXT
    if all(tag.type.startswith("rational") for tag in tags):
        return RATIONAL
    if any(NUMERIC.match(tag.type) for tag in tags):
        several = all(tag.count and tag.count != "1" for tag in tags)
        return TEXT if several or form == "text" else INTEGER
    return TEXT


def is_plain_number(candidate):
    """A whole number that can be typed as it stands."""
    written = [tag for tag in candidate.tags if tag.writable]
    return all(PLAIN_NUMBER.match(tag.type) and not tag.count for tag in written)


class Values:
    """Deals kinds and flags out, so that each kind gets exactly its number of rows."""

    def __init__(self, rows, facts, ratings):
        self.facts = facts
        self.left = {(int(line["writable"]), KINDS[line["kind"]]): int(line["rows"])
                     for line in read_table("kinds.tsv")}
        self.rows = rows
        self.natural = {row: natural_kind(row.candidate) for row in rows}
        self.editable = self._find_editable()
        self.order = self._editing_order()
        self._deal_fixed(ratings)
        self._deal_binary()
        self._deal_editable()
        self._deal_read_only()
        if any(self.left.values()) or self._open():
            raise SystemExit(f"kinds do not come out: {self.left}")

    def _find_editable(self):
        """The first rows of tags that ExifTool writes under the row's own group text."""
        names = {f"{row.text}:{row.name}": row for row in self.rows
                 if row.first is None and row.name and any(tag.writable for tag in row.candidate.tags)
                 and row.group != self.facts.group_id("System")}
        refused = refused_edits(sorted(names))
        return {row for name, row in names.items() if name not in refused}

    def _editing_order(self):
        """Sort keys of the editable rows: what people edit first, of equals what more files show."""
        offered = collections.Counter()
        order = {}
        for row in sorted(self.editable, key=lambda each: (each.group, each.candidate.position)):
            turn = self._editing_turn(row)
            if self.facts.keys[row.group].startswith(("XMP", "File")) and not row.candidate.has_flag("Flattened"):
                offered[row.group] += 1
                if offered[row.group] <= OFFERED_AT_LEAST:
                    turn = min(turn, 1.5)
            order[row] = (turn, -row.candidate.seen.models, row.group, row.candidate.position)
        return order

    def _editing_turn(self, row):
        """The group's, later by what makes an edit of the tag rarer or riskier."""
        candidate = row.candidate
        flags = frozenset().union(*(tag.flags for tag in candidate.tags))
        group = self.facts.groups[row.group]
        turn = group.editing + (group.care == "few")
        of_structure = candidate.has_flag("Flattened") and not STRUCTURES_TO_EDIT.match(candidate.name)
        if of_structure:
            turn += 1.5
        if row.group == self.facts.group_id("IFD0") and all(tag.group != "IFD0" for tag in candidate.tags):
            turn += 1.5  # at home in another directory
        turn += 0.5 * ("Permanent" in flags) + 0.5 * bool(flags & {"Protected", "Unsafe", "Mandatory"})
        turn += 0.25 * ("Avoid" in flags)
        return turn - (0.5 if candidate.seen.models and not of_structure else 0)

    def _open(self):
        return [row for row in self.rows if row.kind is None]

    def _give(self, row, writable, kind):
        if self.left[writable, kind] == 0:
            return False
        self.left[writable, kind] -= 1
        row.writable, row.kind = writable, kind
        return True

    def _fill(self, writable, kind, rows):
        for row in rows:
            if row.kind is None and not self._give(row, writable, kind):
                return

    def _deal_fixed(self, ratings):
        first = {row.candidate.pair: row for row in self.rows if row.first is None}
        for fixed in self.facts.fixed:
            row = first[fixed.group, fixed.name]
            row.text = fixed.text
            if not self._give(row, fixed.writable, fixed.kind):
                raise SystemExit(f"no place for the kind of id {fixed.id}")
        kinds = {(self.facts.group_id(line["group"]), line["name"]): KINDS[line["kind"]]
                 for line in self.facts.repeats if line["kind"]}
        for row in self.rows:
            if row.first and row.candidate.pair in kinds:
                self._give(row, 0, kinds[row.candidate.pair])
        rated = [first[pair] for pair in sorted(ratings) if first[pair].kind is None]
        self._fill(1, RATING, [row for row in rated if row in self.editable])
        self._fill(0, RATING, rated)
        self._fill(0, TEXT, [row for row in self.rows if row.candidate.stray])

    def _deal_binary(self):
        """Documented binary data first; then tags of which nothing is known, those that no file shows before others."""
        rows = [row for row in self._open() if self.natural[row] == BINARY and row.first is None]
        rows.sort(key=lambda row: (row.candidate.undocumented, not row.candidate.filler, row.group,
                                   row.candidate.position))
        self._fill(1, BINARY, rows)

    def _deal_editable(self):
        rows = sorted((row for row in self._open() if row in self.editable and self.natural[row] != BINARY),
                      key=self.order.get)
        for kind in (DATE, LIST, RATIONAL):
            self._fill(1, kind, [row for row in rows if self.natural[row] == kind])
        self._fill(1, INTEGER, [row for row in rows if self.natural[row] == INTEGER and is_plain_number(row.candidate)])
        self._fill(1, TEXT, rows)
        for kind in (DATE, LIST, RATIONAL, INTEGER, TEXT):
            if self.left[1, kind]:
                raise SystemExit(f"{self.left[1, kind]} editable rows of kind {kind} too few")

    def _deal_read_only(self):
        """Rows of a kind that has no place left are numbers when ExifTool counts with them, else text."""
        by_evidence = sorted(self._open(),
                             key=lambda row: (-row.candidate.seen.models, row.group, row.candidate.position))
        for kind in (DATE, LIST, RATIONAL, INTEGER):
            self._fill(0, kind, [row for row in by_evidence if self.natural[row] == kind])
        numeric = [row for row in by_evidence if any(NUMERIC.match(tag.type) for tag in row.candidate.tags)]
        self._fill(0, INTEGER, [row for row in numeric if self.natural[row] != TEXT])
        self._fill(0, INTEGER, numeric)
        self._fill(0, INTEGER, [row for row in by_evidence if UNDOCUMENTED.search(row.name)])
        self._fill(0, TEXT, by_evidence)
