"""Which pairs of group and name have a row."""

import collections

ROWS = 13741
PAIRS = 13576        # the other 165 rows repeat a pair
LARGEST_OTHER = 278  # rows of one group text, but for those whose number is fixed


LIKELY = 0.2          # models that show a tag of the table, on average, from which an unseen one is thought likely
NAMES_A_TURN = {"camera": 4, "author": 2}

NEEDED, SEEN, WRITTEN, LIKELY_SEEN, DOUBTFUL, KNOWN, FILLER = range(7)


def step(candidate, group):
    """When the candidate gets its turn."""
    if candidate.needed:
        return NEEDED
    if candidate.filler:
        return FILLER
    if candidate.undocumented and candidate.seen.files == 1:
        return DOUBTFUL  # a number that a single file shows may come of damage
    if candidate.shown:
        return SEEN
    if candidate.name.startswith("MakerNote"):
        return KNOWN  # a block that ExifTool prints whole only where it cannot read it
    if group.editing < 3 and any(tag.writable for tag in candidate.tags):
        return WRITTEN
    return LIKELY_SEEN if candidate.rate >= LIKELY or candidate.shown_elsewhere else KNOWN


def rank(candidate, group):
    """Sorts a group's candidates, best first."""
    return (step(candidate, group),
            -candidate.seen.models, -candidate.seen.files,
            candidate.undocumented,
            candidate.has_flag("Flattened"),
            candidate.has_flag("Unknown"),
            -candidate.rate,
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
        self._grow(WRITTEN)
        self._grow(LIKELY_SEEN)
        self._grow(DOUBTFUL)
        self._grow_in_turn()
        if sum(self.sizes.values()) != PAIRS:
            raise SystemExit(f"{sum(self.sizes.values())} pairs instead of {PAIRS}: change data/groups.tsv")

    def chosen(self):
        """The candidates with a row, in the order of the groups and best first."""
        return [candidate for group in sorted(self.ranked) for candidate in self.ranked[group][:self.sizes[group]]]

    def _need_every_category(self, members, group):
        """A category of a part of the group keeps at least its best row."""
        for source in self.facts.sources[group.key]:
            part = [candidate for candidate in members if candidate.source == source]
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

    def _ceiling(self, group):
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
            size = self._ceiling(group) if known.key != "Kodak" else known.rows
            real = sum(not candidate.filler for candidate in ranked)
            if len(ranked) < size:
                raise SystemExit(f"{known.key}: {len(ranked)} names for {size} rows")
            return max(size, min(real, self._ceiling(group)))
        seen = sum(step(candidate, known) <= SEEN for candidate in ranked)
        needed = sum(candidate.needed for candidate in ranked)
        return max(needed, min(seen, LARGEST_OTHER))

    def _room(self, group):
        """How many names more the group could take: no filler, and not beyond its ceiling."""
        real = sum(not candidate.filler for candidate in self.ranked[group])
        return max(0, min(real, self._ceiling(group)) - self.sizes[group])

    def _grow(self, last_step):
        """Takes every candidate up to that step for which its group has room."""
        for number, members in self.ranked.items():
            group = self.facts.groups[number]
            wanted = sum(step(candidate, group) <= last_step for candidate in members)
            self.sizes[number] += max(0, min(self._room(number), wanted - self.sizes[number]))

    def _grow_in_turn(self):
        """Each group gets its next names, the shortest first, until the table is full."""
        level = 0
        left = PAIRS - sum(self.sizes.values())
        while left > 0:
            level += 1
            open_groups = [number for number in sorted(self.ranked) if self._room(number) > 0]
            if not open_groups:
                return
            for number in open_groups:
                allowed = NAMES_A_TURN.get(self.facts.groups[number].care, 1) * level
                more = max(0, min(allowed - self.sizes[number], self._room(number), left))
                self.sizes[number] += more
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
