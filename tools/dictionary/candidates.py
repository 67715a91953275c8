"""All pairs of group and name that could have a row."""

import collections
import fnmatch
import re

from facts import NOT_SEEN, read_table

UNDOCUMENTED = re.compile(r"(.*)_0x([0-9a-f]{4,})$")
MOST_MISSING = 6  # numbers between two that ExifTool or files name, for them to be thought likely
SERIES = 8        # names of a group that differ in their digits only, from which they count as numbered
DIGITS = re.compile(r"[0-9]+")


def _prefix(table):
    """What ExifTool makes names of numbers with, of a table."""
    return table.replace("::", "_").removesuffix("_Main")


class Candidate:
    """A pair of group and name: what ExifTool's tables say of it, and what files show."""

    def __init__(self, group, name, seen):
        self.group = group
        self.name = name
        self.seen = seen
        self.tags = []        # entries of ExifTool's tables; empty when it makes up the name while it reads
        self.position = 0     # in the order in which the group's names were found
        self.needed = False   # has a row whatever else is dropped
        self.shown = seen.files > 0 or seen.reference > 0  # by some file
        self.shown_elsewhere = False  # in a group that has the same tags
        self.stray = False    # a misspelt name that is kept
        self.filler = False   # only taken where a group needs more rows than ExifTool knows names
        self.hole = False     # a number without a name in a table that ExifTool prints whole
        self.number = 0       # in a table of which a camera writes every number up to some one
        self.numbered = False  # one of a long series of names
        self.rate = 0.0       # how many models show a tag of the same source table, on average; of a hole, how many
                              # show the numbers beside it

    @property
    def pair(self):
        return (self.group, self.name)

    @property
    def source(self):
        return self.tags[0].table if self.tags else ""

    @property
    def undocumented(self):
        return UNDOCUMENTED.match(self.name) is not None

    @property
    def nameless(self):
        """ExifTool reads a number or a place there and knows no meaning."""
        return self.undocumented or "Unknown" in self.name

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
        self._add_between()
        self._mark_series()
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
            self.by_pair[candidate.pair] = candidate
            self.by_group[group].append(candidate)
        candidate.tags.extend(tags)
        return candidate

    def _add_filler(self, group, name):
        if (group, name) not in self.by_pair:
            self.add(group, name).filler = True

    def _add_made_up(self, group, prefix, number, why):
        name = f"{prefix}_0x{number:04x}"
        if why == "size":
            self._add_filler(group, name)
        else:
            made_up = self.add(group, name)
            made_up.hole, made_up.number = True, number

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
        self._named = collections.defaultdict(dict)  # candidates by ExifTool's prefix of a table and their number there
        for tag in tags:
            group = self.facts.group_of_exiftool(tag.group)
            if tag.id.isdigit():
                self._named[_prefix(tag.table)][int(tag.id)] = self.by_pair.get((group, tag.name))
        for row in read_table("undocumented.tsv"):
            group, named = self.facts.group_id(row["group"]), self._named[row["prefix"]]
            for number in range(int(row["first"], 16), int(row["last"], 16) + 1):
                if number not in named:
                    self._add_made_up(group, row["prefix"], number, row["why"])
            if row["why"] == "whole":
                for number in sorted(named, reverse=True):  # of several numbers the lowest counts
                    named[number].number = number

    def _add_between(self):
        """Numbers without a name between two that have one, in tables of which files show such numbers: another camera
        fills them."""
        shown = collections.defaultdict(dict)
        for candidate in list(self.by_pair.values()):
            match = UNDOCUMENTED.match(candidate.name)
            if match and candidate.seen.files:
                shown[candidate.group, match[1]][int(match[2], 16)] = candidate
        for (group, prefix), numbers in shown.items():
            named = self._named[prefix]
            known = {number: each for number, each in named.items() if each and each.group == group} | numbers
            ordered = sorted(known)
            for low, high in zip(ordered, ordered[1:]):
                for number in range(low + 1, high) if high - low <= MOST_MISSING + 1 else ():
                    if number not in named:
                        between = self.add(group, f"{prefix}_0x{number:04x}")
                        between.hole = True
                        between.rate = min(known[low].seen.models, known[high].seen.models)

    def _mark_series(self):
        for members in self.by_group.values():
            plain = [each for each in members if not each.undocumented and DIGITS.search(each.name)]
            alike = collections.Counter(DIGITS.sub("#", each.name) for each in plain)
            for candidate in plain:
                candidate.numbered = alike[DIGITS.sub("#", candidate.name)] >= SERIES

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
