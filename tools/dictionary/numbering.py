"""Ids and table order of the rows.

Ids rise with the table order. A group, or a record of IPTC, is a run of rows in name order, which the fixed ids anchor;
what does not fit between two of them stands where there is room. So the names of the table rise, but for a number of
places that is fixed too.
"""

import collections

IDS = 14033
DESCENTS = 505              # neighbours whose names are out of order
SHARED_ID = 1151            # ReferenceBlackWhite of IFD0 lends its id to the row of IFD1
FIRST_FREE_FOR_FILE = 318   # a lower number of an editable File row could be taken for a file property


def folded(row):
    return row.name.lower()


def sort_key(row):
    return (folded(row), row.name, row.first is not None)


def count_descents(rows):
    names = [folded(row) for row in rows]
    return sum(left > right for left, right in zip(names, names[1:]))


class Numbering:
    """Numbers the rows anew."""

    def __init__(self, rows, facts):
        self.rows = rows
        self.facts = facts
        self.iptc = facts.group_id("IPTC")
        self.slots = [None] * IDS
        self.followers = collections.defaultdict(list)  # rows that bear the id of another row
        self._place_fixed()
        self._make_pools()
        self._fill_between_fixed()
        self._fill_beside_fixed()
        self._fill_gaps()
        number(self.slots, self.followers)

    def table(self):
        return in_order(self.slots, self.followers)

    def _block(self, row):
        return (row.group, row.category) if row.group == self.iptc else (row.group, 0)

    def _place_fixed(self):
        first = {row.candidate.pair: row for row in self.rows if row.first is None}
        for fixed in self.facts.fixed:
            self.slots[fixed.id] = first[fixed.group, fixed.name]
        self.fixed_ids = sorted(fixed.id for fixed in self.facts.fixed)
        self.followers.update(find_followers(self.rows, self.facts))

    def _make_pools(self):
        """The rows of each block that have no id yet, by name."""
        placed = {row for row in self.slots if row} | {row for rows in self.followers.values() for row in rows}
        self.pools = collections.defaultdict(list)
        self.late = []  # rows for the end of the table
        file_group = self.facts.group_id("File")
        for row in sorted((row for row in self.rows if row not in placed), key=sort_key):
            if row.group == file_group and row.writable:
                self.late.append(row)
            else:
                self.pools[self._block(row)].append(row)

    def _place(self, rows, start):
        for offset, row in enumerate(rows):
            self.slots[start + offset] = row
        taken = set(rows)
        for block in {self._block(row) for row in rows}:
            self.pools[block] = [row for row in self.pools[block] if row not in taken]

    def _anchored_runs(self):
        """Fixed ids in order, those of one block that follow each other together."""
        runs = []
        for number in self.fixed_ids:
            block = self._block(self.slots[number])
            if not runs or runs[-1][0] != block:
                runs.append((block, []))
            runs[-1][1].append(number)
        return runs

    def _fill_between_fixed(self):
        """Rows whose names lie between those of two fixed ids; then the ends of a run that starts anew."""
        pairs = [(block, low, high) for block, ids in self._anchored_runs() for low, high in zip(ids, ids[1:])]
        for block, low, high in pairs:
            first, last, room = folded(self.slots[low]), folded(self.slots[high]), high - low - 1
            if first <= last:
                fitting = [row for row in self.pools[block] if first <= folded(row) <= last][:room]
                self._place(fitting, high - len(fitting))
        for block, low, high in pairs:
            first, last, room = folded(self.slots[low]), folded(self.slots[high]), high - low - 1
            if first > last:
                tail = [row for row in self.pools[block] if folded(row) >= first][:room]
                self._place(tail, low + 1)
                room -= len(tail)
                head = [row for row in self.pools[block] if folded(row) <= last][-room:] if room else []
                self._place(head, high - len(head))

    def _fill_beside_fixed(self):
        """Before the first fixed id of a run the names below it; behind the last one the others of its block."""
        runs = self._anchored_runs()
        for index in range(len(runs) + 1):
            low = runs[index - 1][1][-1] if index else -1
            high = runs[index][1][0] if index < len(runs) else IDS
            room = high - low - 1
            if index < len(runs) and room:
                head = [row for row in self.pools[runs[index][0]] if folded(row) <= folded(self.slots[high])][-room:]
                self._place(head, high - len(head))
                room -= len(head)
            if index and room:
                block = runs[index - 1][0]
                tail = [row for row in self.pools[block] if folded(row) >= folded(self.slots[low])][:room]
                self._place(tail, low + 1)
                room -= len(tail)
                comes_again = any(other == block for other, _ in runs[index:])
                rest = [] if comes_again else self.pools[block][:room]
                self._place(rest, low + 1 + len(tail))

    def _fill_gaps(self):
        """The other blocks go into the gaps in the catalogue's order, split at first only where a gap ends."""
        queue = [self.pools[block] for block in sorted(self.pools) if self.pools[block]]
        gaps = self._open_gaps(sum(map(len, queue)) + len(self.late))
        best = self._lay_out(queue, gaps)
        descents = count_descents(in_order(best, self.followers))
        tried = set()
        while descents != DESCENTS:
            split = self._split_largest(queue, gaps, descents, tried) if descents < DESCENTS else None
            if split is None:
                raise SystemExit(f"{descents} neighbours out of order instead of {DESCENTS}")
            queue, best, descents = split
        self.slots = best

    def _open_gaps(self, wanted):
        """Lists of free ids for that many rows. The smallest gaps stay empty."""
        gaps = []
        for number in range(IDS):
            if self.slots[number] is None:
                if not gaps or gaps[-1][-1] != number - 1:
                    gaps.append([])
                gaps[-1].append(number)
        surplus = sum(map(len, gaps)) - wanted
        for gap in sorted(gaps, key=len):
            closed = min(surplus, len(gap))
            del gap[len(gap) - closed:]
            surplus -= closed
        return [gap for gap in gaps if gap]

    def _lay_out(self, queue, gaps):
        slots = list(self.slots)
        waiting = [list(run) for run in queue]
        late = list(self.late)
        for gap in gaps:
            at = 0
            while at < len(gap):
                room = len(gap) - at
                fitting = next((run for run in waiting[:25] if len(run) <= room), None)
                if fitting is not None:
                    waiting.remove(fitting)
                    part = fitting
                elif waiting:
                    part, waiting[0] = waiting[0][:room], waiting[0][room:]
                else:
                    part, late = late[:room], late[room:]
                for row in part:
                    slots[gap[at]] = row
                    at += 1
        return slots

    def _split_largest(self, queue, gaps, descents, tried):
        """Divides a run in two, the largest that allows it: a source table, or what files show, from the rest."""
        for run in sorted(queue, key=len, reverse=True):
            largest = collections.Counter(row.candidate.source for row in run).most_common(1)[0][0]
            for criterion in (lambda row: row.candidate.source == largest, lambda row: row.candidate.shown,
                              lambda row: row.writable, lambda row: row.candidate.undocumented):
                parts = [[row for row in run if criterion(row)], [row for row in run if not criterion(row)]]
                attempt = (parts[0][0] if parts[0] else None, len(parts[0]), len(run))
                if not all(parts) or attempt in tried:
                    continue
                tried.add(attempt)
                at = next(index for index, each in enumerate(queue) if each is run)
                trial = queue[:at] + parts + queue[at + 1:]
                slots = self._lay_out(trial, gaps)
                found = count_descents(in_order(slots, self.followers))
                if descents < found <= DESCENTS:
                    return trial, slots, found
        return None


def find_followers(rows, facts):
    """The rows that bear the id of another row, by that row."""
    first = {row.candidate.pair: row for row in rows if row.first is None}
    followers = collections.defaultdict(list)
    for row in rows:
        if row.same_id:
            followers[row.first].append(row)
    lender = next(first[fixed.group, fixed.name] for fixed in facts.fixed if fixed.id == SHARED_ID)
    followers[lender].append(first[facts.group_id("IFD1"), lender.name])
    return followers


def in_order(slots, followers):
    """The table: rows by id, each followed by those that bear its id."""
    table = []
    for row in slots:
        if row is not None:
            table.append(row)
            table.extend(followers.get(row, ()))
    return table


def number(slots, followers):
    """Writes the ids into the rows. Of two rows of one pair the repeat comes second, since look-ups take the first."""
    places = {row: place for place, row in enumerate(slots) if row is not None}
    for row, place in places.items():
        if row.first is not None and place < places.get(row.first, -1):
            slots[places[row.first]], slots[place] = row, row.first
    for place, row in enumerate(slots):
        if row is not None:
            row.id = place
            for follower in followers.get(row, ()):
                follower.id = place
