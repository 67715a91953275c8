"""Ids that stay as they are in the committed table."""

import collections

from numbering import DESCENTS, FIRST_FREE_FOR_FILE, IDS, count_descents, find_followers, folded, in_order, number


def keep_ids(rows, facts, committed):
    """Gives each row the id that it has in the committed table, and new rows free ids. The rows in table order.

    committed: (id, group, name) of each row. Free ids are chosen so that the names of the table rise as before.
    """
    followers = find_followers(rows, facts)
    following = {row for group in followers.values() for row in group}
    slots = [None] * IDS
    known = collections.defaultdict(list)
    for place, group, name in committed:
        if place not in known[group, name]:
            known[group, name].append(place)
    fixed = {(each.group, each.name): each.id for each in facts.fixed}
    new_rows = []
    for row in rows:
        if row in following:
            continue
        places = known[row.group, row.name]
        place = fixed.get((row.group, row.name)) if row.first is None else None
        if place is None and places:
            place = places.pop(0)
        if place is None or slots[place] is not None:
            new_rows.append(row)
        else:
            slots[place] = row
    new_rows.sort(key=lambda row: (row.group, folded(row)))
    _place_new_rows(slots, new_rows, facts)
    _restore_descents(slots, new_rows, facts)
    number(slots, followers)
    return in_order(slots, followers)


def _may_stand(row, place, facts):
    return place >= FIRST_FREE_FOR_FILE or not (row.writable and row.group == facts.group_id("File"))


def _neighbour(slots, place, direction):
    place += direction
    while 0 <= place < IDS and slots[place] is None:
        place += direction
    return slots[place] if 0 <= place < IDS else None


def _added(slots, place, row):
    """How many neighbours more are out of order when the row stands at a free place."""
    before, after = _neighbour(slots, place, -1), _neighbour(slots, place, 1)
    broken = sum((bool(before) and folded(before) > folded(row), bool(after) and folded(row) > folded(after)))
    return broken - bool(before and after and folded(before) > folded(after))


def _strangers(slots, place, row):
    """How many of the two neighbours would be of another group."""
    neighbours = (_neighbour(slots, place, -1), _neighbour(slots, place, 1))
    return sum(each is None or each.group != row.group for each in neighbours)


def _free_places(slots, row, facts):
    return [place for place in range(IDS) if slots[place] is None and _may_stand(row, place, facts)]


def _place_new_rows(slots, new_rows, facts):
    for row in new_rows:
        best = min(_free_places(slots, row, facts),
                   key=lambda place: (_added(slots, place, row), _strangers(slots, place, row), place))
        slots[best] = row


def _restore_descents(slots, new_rows, facts):
    """Moves new rows to other free ids until the number of neighbours out of order is the fixed one again."""
    for row in new_rows:
        left = DESCENTS - count_descents(row for row in slots if row)
        if left == 0:
            return
        old = slots.index(row)
        slots[old] = None
        now = _added(slots, old, row)
        slots[min(_free_places(slots, row, facts),
                  key=lambda place: (abs(left + now - _added(slots, place, row)), place != old, place))] = row
    left = DESCENTS - count_descents(row for row in slots if row)
    if left:
        raise SystemExit(f"{DESCENTS - left} neighbours out of order instead of {DESCENTS}: the committed ids cannot be"
                         " kept; number anew with --renumber, which changes ids that users' settings hold")
