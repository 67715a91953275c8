"""The facts that the generator works from: the tables in data/ and the catalogue of groups."""

import collections
import pathlib
import re

DATA = pathlib.Path(__file__).parent / "data"

Group = collections.namedtuple("Group", "key text exiftool rows most care editing alike")
FixedRow = collections.namedtuple("FixedRow", "id name group text kind writable")
Seen = collections.namedtuple("Seen", "files models reference form")
NOT_SEEN = Seen(0, 0, 0, "")


def read_table(name):
    """The rows of a data file as dictionaries. Lines that begin with '# ' are comments."""
    lines = (DATA / name).read_text(encoding="utf-8").split("\n")
    lines = [line for line in lines if line and not line.startswith("# ")]
    header = lines[0].split("\t")
    rows = [line.split("\t") for line in lines[1:]]
    for row in rows:
        if len(row) != len(header):
            raise SystemExit(f"{name}: {len(row)} columns instead of {len(header)} in {row}")
    return [dict(zip(header, row)) for row in rows]


def read_catalogue(path):
    """GroupId of each key in lower case, and the key of each GroupId. The first of two equal keys counts."""
    ids, keys = {}, {}
    for key, number in re.findall(r'\{u"\[(.*)\]", (\d+)\}', path.read_text(encoding="utf-8")):
        ids.setdefault(key.lower(), int(number))
        keys[int(number)] = key
    return ids, keys


class Facts:
    """Everything that is known beside ExifTool's own tables. collections: whose counts of files are used."""

    def __init__(self, catalogue_path, collections_used=("first", "second")):
        self.group_ids, self.keys = read_catalogue(catalogue_path)
        self.groups = {}
        self._aliases = {}
        self.alike = collections.defaultdict(list)  # groups whose files show the same tags
        for row in read_table("groups.tsv"):
            group = Group(row["group"], row["text"], row["exiftool"], int(row["rows"] or 0), int(row["most"] or 0),
                          row["care"], float(row["editing"]), row["alike"])
            self.groups[self.group_id(group.key)] = group
            if group.alike:
                self.alike[group.alike].append(self.group_id(group.key))
            if group.exiftool:
                self._aliases[group.exiftool.lower()] = group.key
        self.fixed = [FixedRow(int(row["id"]), row["name"], self.group_id(row["group"]), row["text"],
                               int(row["kind"]), int(row["writable"])) for row in read_table("fixed-rows.tsv")]
        self.seen = {}
        for row in read_table("seen-in-files.tsv"):
            files = {"first": int(row["files"]), "second": int(row["more"])}
            # The models of the second collection are not known.
            models = {"first": int(row["models"]), "second": int(row["more"])}
            seen = Seen(sum(files[each] for each in collections_used), sum(models[each] for each in collections_used),
                        int(row["reference"]), row["form"])
            if seen.files or seen.reference:
                self.seen[self.group_id(row["group"]), row["tag"]] = seen
        self.repeats = read_table("repeats.tsv")
        self.repeats_within_size = collections.Counter()
        for row in self.repeats:
            if not row["text"] and row["name"] != "*":
                self.repeats_within_size[self.group_id(row["group"])] += int(row["times"])
        self.sources = collections.defaultdict(set)  # tables whose tags have a category or a table number of their own
        self.mixed = set()  # groups with a category for the tags of all other tables
        for row in read_table("categories.tsv"):
            if row["source"] == "*":
                self.mixed.add(row["group"])
            elif row["source"] != "repeats":
                self.sources[row["group"]].add(row["source"])
        self.spellings = {(self.group_id(row["group"]), row["name"]): row["text"]
                          for row in read_table("spellings.tsv")}

    def group_id(self, key):
        return self.group_ids[key.lower()]

    def group_of_exiftool(self, name):
        """The GroupId of ExifTool's family 1 group, or None when the catalogue lacks it."""
        name = self._aliases.get(name.lower(), name)
        return self.group_ids.get(name.lower())
