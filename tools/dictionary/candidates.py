"""All pairs of group and name that could have a row."""

import collections
import fnmatch
import re

from facts import NOT_SEEN, read_table

UNDOCUMENTED = re.compile(r"_0x[0-9a-f]{4,}$")


class Candidate:
    """A pair of group and name: what ExifTool's tables say of it, and what files show."""

    def __init__(self, group, name, seen):
        self.group = group
        self.name = name
        self.seen = seen
        self.tags = []        # entries of ExifTool's tables; empty when it makes up the name while it reads
        self.position = 0     # in the order in which the group's names were found
        self.needed = False   # has a row whatever else is dropped
        self.shown = seen.files > 0  # by some file
        self.shown_elsewhere = False  # in a group that has the same tags
        self.stray = False    # a misspelt name that is kept
        self.filler = False   # only taken where a group needs more rows than ExifTool knows names
        self.rate = 0.0       # of how many models a file shows a tag of the same source table, on average

    @property
    def pair(self):
        return (self.group, self.name)

    @property
    def source(self):
        return self.tags[0].table if self.tags else ""

    @property
    def undocumented(self):
        return UNDOCUMENTED.search(self.name) is not None

    def has_flag(self, flag):
        return bool(self.tags) and all(flag in tag.flags for tag in self.tags)


class Candidates:
    """The candidates by pair. Names come from ExifTool's tables first, then from files, then from data/."""

    def __init__(self, facts, tags):
        self.facts = facts
        self.by_pair = {}
        self.by_group = collections.defaultdict(list)
        self._by_table = collections.defaultdict(list)
        for tag in tags:
            self._by_table[tag.table].append(tag)
        self._add_tables(tags)
        for pair in facts.seen:
            self.add(*pair)
        for row in facts.fixed:
            self.add(row.group, row.name).needed = True
        self._add_copies()
        self._add_more_names()
        self._add_undocumented(tags)
        for row in read_table("xml-names.tsv"):
            self._add_filler(facts.group_id(row["group"]), row["name"])
        self._rate()
        for groups in facts.alike.values():
            shown = {each.name for group in groups for each in self.by_group[group] if each.shown}
            for group in groups:
                for candidate in self.by_group[group]:
                    candidate.shown_elsewhere = candidate.name in shown

    def add(self, group, name, tags=()):
        candidate = self.by_pair.get((group, name))
        if candidate is None:
            candidate = Candidate(group, name, self.facts.seen.get((group, name), NOT_SEEN))
            candidate.position = len(self.by_group[group])
            candidate.needed = candidate.seen.reference > 0
            self.by_pair[candidate.pair] = candidate
            self.by_group[group].append(candidate)
        candidate.tags.extend(tags)
        return candidate

    def _add_filler(self, group, name):
        if (group, name) not in self.by_pair:
            self.add(group, name).filler = True

    def _add_tables(self, tags):
        for tag in tags:
            group = self.facts.group_of_exiftool(tag.group)
            if group is not None and tag.name:
                self.add(group, tag.name, [tag])

    def _names_of_source(self, kind, names):
        """(name, tags) for each name of a source of copied-names.tsv."""
        if kind == "table":
            for table in names:
                for tag in self._by_table[table]:
                    yield tag.name, [tag]
        for key in names if kind in ("group", "seen") else ():
            for candidate in list(self.by_group[self.facts.group_id(key)]):
                if kind == "group" or candidate.shown:
                    yield candidate.name, candidate.tags

    def _add_copies(self):
        for row in read_table("copied-names.tsv"):
            kind, *sources = row["source"].split()
            wanted = row["names"].split()
            left_out = [pattern[1:] for pattern in wanted if pattern.startswith("-")]
            found = collections.OrderedDict()
            for name, tags in self._names_of_source(kind, sources):
                found.setdefault(name, []).extend(tags)
            for key in row["groups"].split():
                for name, tags in found.items():
                    if not ("*" in wanted or name in wanted) or not name:
                        continue
                    if any(fnmatch.fnmatchcase(name, pattern) for pattern in left_out):
                        continue
                    candidate = self.add(self.facts.group_id(key), name)
                    if not candidate.tags:
                        candidate.tags.extend(tags)

    def _add_more_names(self):
        self.ratings = set()
        for row in read_table("more-names.tsv"):
            candidate = self.add(self.facts.group_id(row["group"]), row["name"])
            candidate.needed |= row["why"] not in ("no table", "sample file")
            candidate.shown |= row["why"] == "sample file"
            candidate.stray = row["why"] == "stray character"
            if row["why"] == "rating":
                self.ratings.add(candidate.pair)

    def _add_undocumented(self, tags):
        known = collections.defaultdict(set)
        for tag in tags:
            known[tag.table.replace("::", "_")].add(tag.id)
        for row in read_table("undocumented.tsv"):
            for number in range(int(row["first"], 16), int(row["last"], 16) + 1):
                if str(number) not in known[row["prefix"]]:
                    self._add_filler(self.facts.group_id(row["group"]), f"{row['prefix']}_0x{number:04x}")

    def _rate(self):
        """A tag that no file has shown is the likelier to turn up the more the rest of its table does in its group."""
        models, size = collections.Counter(), collections.Counter()
        for candidate in self.by_pair.values():
            for table in {tag.table for tag in candidate.tags}:
                models[candidate.group, table] += candidate.seen.models
                size[candidate.group, table] += 1
        for candidate in self.by_pair.values():
            tables = {tag.table for tag in candidate.tags}
            candidate.rate = max((models[candidate.group, table] / (size[candidate.group, table] + 2)
                                  for table in tables), default=0.0)
