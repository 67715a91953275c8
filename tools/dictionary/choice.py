"""Which pairs of group and name have a row."""

import collections

ROWS = 13741
PAIRS = 13576        # the other 165 rows repeat a pair
LARGEST_OTHER = 278  # rows of one group text, but for those whose number is fixed

LEAST = 3      # names of a group beside those it needs: whoever opens such a file meets some that are known
LIKELY = 0.2   # models that show a tag of the table, on average, from which an unseen one is thought likely
OFTEN = 10     # the same for what is only read: of that files show nearly all that they hold
PASSED = 0.3   # what a model counts that shows a made-up or numbered name, against a plain one

NEEDED, WRITTEN, SEEN, LIKELY_SEEN, REFERENCE, UNTRIED, HOLE, RARE, KNOWN, FILLER = range(10)


def is_written(candidate, group):
    """Whether people may want to write it: of the groups that dialogs offer."""
    if group.editing > 3 or group.care == "few" or candidate.name.startswith("MakerNote"):
        return False
    if not any(tag.writable for tag in candidate.tags):
        return False
    if group.key == "IFD0" and all(tag.group != "IFD0" for tag in candidate.tags):
        return False  # at home in another directory
    # Elsewhere a field of a structure is written with its structure.
    return group.editing < 3 or group.care == "whole" or not candidate.has_flag("Flattened")


def is_likely(candidate):
    """Whether files that nobody has shown yet may well hold it: others of its table turn up."""
    if candidate.shown_elsewhere:
        return True
    if any(tag.writable for tag in candidate.tags) or candidate.undocumented and candidate.tags:
        return candidate.rate >= LIKELY
    return candidate.rate >= OFTEN


def step(candidate, group):
    """When the candidate gets its turn."""
    if candidate.needed:
        return NEEDED
    if candidate.filler:
        return FILLER
    if is_written(candidate, group):
        return WRITTEN
    if candidate.seen.files:
        return SEEN
    if candidate.shown:  # by reference files only
        of_one_file = bool(group.alike) and not candidate.seen.reference  # as the many tracks of one recording
        rare = group.care == "rest" or candidate.nameless or candidate.numbered or of_one_file
        return RARE if rare else REFERENCE
    if candidate.hole:
        return HOLE if candidate.rate else UNTRIED
    if candidate.name.startswith("MakerNote"):
        return KNOWN  # a block that ExifTool prints whole only where it cannot read it
    if is_likely(candidate):
        return LIKELY_SEEN
    # Of a table that files show they have shown most of what is only read. One that no file has shown yet may come
    # whole with the next camera or program.
    if candidate.rate == 0 and (group.care == "camera" or any(tag.writable for tag in candidate.tags)):
        return UNTRIED
    return KNOWN


def rank(candidate, group):
    """Sorts a group's candidates, best first."""
    share = PASSED if candidate.nameless or candidate.numbered else 1
    return (step(candidate, group),
            -candidate.seen.models * share, -candidate.seen.files,
            candidate.number,
            0 if candidate.seen.files else -candidate.rate * share,
            candidate.undocumented,
            candidate.has_flag("Flattened"),
            candidate.has_flag("Unknown"),
            candidate.numbered,
            -candidate.rate,
            -len({tag.table for tag in candidate.tags}),
            candidate.position)


class Choice:
    """Fills the table: groups of fixed size, what files show, what people write, what files may show, and the rest."""

    def __init__(self, candidates):
        self.facts = candidates.facts
        self.ratings = candidates.ratings
        self.ranked = {}
        for number, members in candidates.by_group.items():
            group = self.facts.groups[number]
            self._need_every_category(members, group)
            self.ranked[number] = self._distinct(sorted(members, key=lambda each: rank(each, group)))
        self.sizes = {number: self._least(number) for number in self.ranked}
        self._grow(LIKELY_SEEN)
        for last_step in (REFERENCE, UNTRIED, HOLE, RARE):
            self._grow_by_maker(last_step)
        self._grow_in_turn(KNOWN)
        if sum(self.sizes.values()) != PAIRS:
            raise SystemExit(f"{sum(self.sizes.values())} pairs instead of {PAIRS}: change data/groups.tsv")

    def chosen(self):
        """The candidates with a row, in the order of the groups and best first."""
        return [candidate for group in sorted(self.ranked) for candidate in self.ranked[group][:self.sizes[group]]]

    def _need_every_category(self, members, group):
        """A category of a part of the group keeps at least its best row."""
        sources = self.facts.sources[group.key]
        parts = {source: [each for each in members if each.source == source] for source in sources}
        if sources and group.key in self.facts.mixed:
            parts["*"] = [each for each in members if each.source not in sources]
        for source, part in parts.items():
            if not part:
                raise SystemExit(f"categories.tsv: ExifTool has no table {source} in {group.key}")
            min(part, key=lambda each: rank(each, group)).needed = True

    def _distinct(self, members):
        """Without the names that differ in case only, which no look-up would find, and without further ratings."""
        kept, folded = [], set()
        for candidate in members:
            if candidate.name == "Rating" and candidate.pair not in self.ratings:
                continue
            if candidate.name.lower() in folded and not candidate.needed:
                continue
            folded.add(candidate.name.lower())
            kept.append(candidate)
        return kept

    def ceiling(self, group):
        """The most rows that the group can have, repeats aside."""
        known = self.facts.groups[group]
        if not known.rows:
            return known.most or LARGEST_OTHER
        if known.key == "Kodak":
            return known.rows + LARGEST_OTHER  # a second spelling takes the rest
        return known.rows - self.facts.repeats_within_size.get(group, 0)

    def _least(self, group):
        """Needed rows, rows that files show, and the whole of a fixed size."""
        known, ranked = self.facts.groups[group], self.ranked[group]
        if known.rows:
            size = self.ceiling(group) if known.key != "Kodak" else known.rows
            real = sum(not candidate.filler for candidate in ranked)
            if len(ranked) < size:
                raise SystemExit(f"{known.key}: {len(ranked)} names for {size} rows")
            return max(size, min(real, self.ceiling(group)))
        seen = sum(step(candidate, known) <= SEEN for candidate in ranked)
        real = sum(not candidate.filler for candidate in ranked)
        needed = sum(candidate.needed for candidate in ranked)
        return max(min(seen, LARGEST_OTHER), min(real, needed + LEAST))

    def _room(self, group, last_step):
        """How many names of the steps up to that one the group could take more, not beyond its ceiling."""
        known = self.facts.groups[group]
        wanted = sum(step(candidate, known) <= last_step for candidate in self.ranked[group])
        return max(0, min(wanted, self.ceiling(group)) - self.sizes[group])

    def _grow(self, last_step):
        """Takes every candidate up to that step for which its group has room."""
        for number in self.ranked:
            self.sizes[number] += self._room(number, last_step)

    def _by_maker(self):
        """The groups, those first of whose maker or family the most models are known: NikonSettings goes by Nikon."""
        most = {self.facts.keys[group].lower(): max((each.seen.models for each in ranked), default=0)
                for group, ranked in self.ranked.items()}
        weight = {group: max(models for key, models in most.items() if self.facts.keys[group].lower().startswith(key))
                  for group in self.ranked}
        return sorted(self.ranked, key=lambda group: (-weight[group], group))

    def _grow_by_maker(self, last_step):
        """One group after the other gets its candidates up to that step, until the table is full."""
        left = PAIRS - sum(self.sizes.values())
        for group in self._by_maker():
            more = min(left, self._room(group, last_step))
            self.sizes[group] += more
            left -= more

    def _grow_in_turn(self, last_step):
        """Each group gets its next names up to that step, the shortest first, until the table is full."""
        level = 0
        left = PAIRS - sum(self.sizes.values())
        room = {number: self._room(number, last_step) for number in sorted(self.ranked)}
        while left > 0 and any(room.values()):
            level += 1
            for number in room:
                more = max(0, min(level - self.sizes[number], room[number], left))
                self.sizes[number] += more
                room[number] -= more
                left -= more


def coverage(chosen, facts):
    """Of what the collection's files show, the share that has a row."""
    rows = {(candidate.group, candidate.name.lower()) for candidate in chosen}
    total, found = collections.Counter(), collections.Counter()
    for (group, name), seen in facts.seen.items():
        total[group] += seen.files
        if (group, name.lower()) in rows:
            found[group] += seen.files
    return total, found
