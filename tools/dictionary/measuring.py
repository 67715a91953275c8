"""How much of what files show has a row, of files by which the rows were not chosen."""

import collections
import random

from candidates import Candidates
from choice import Choice, coverage
from facts import Facts, Seen, read_table

DEALS = 3     # of the files into two halves
LEAST = 0.96  # of what files show that the choice has not seen, whichever way they are divided


def measure(catalogue, tags):
    """Prints what choices by one part of the files find in the other. Whether all find as much as they should."""
    cameras = [Facts(catalogue, (part,)) for part in ("first", "second")]
    good = _both_ways("other cameras", [cameras], tags)
    good &= _both_ways("other files", [_deal(catalogue, random.Random(seed)) for seed in range(DEALS)], tags)
    facts = Facts(catalogue)
    choice = Choice(Candidates(facts, tags))
    for what, shown in (("the first collection", cameras[0]), ("the second", cameras[1]), ("both", facts)):
        print(f"the sizes of the groups allow of {what}: {_reachable(choice, shown):.1%}")
    return good


def _share(total, found):
    return sum(found.values()) / sum(total.values())


def _both_ways(what, divisions, tags):
    shares = [[_share(*coverage(Choice(Candidates(chosen_by, tags)).chosen(), counted_on))
               for chosen_by, counted_on in (parts, reversed(parts))] for parts in divisions]
    means = [sum(each) / len(each) for each in zip(*shares)]
    print(f"found in {what} than those of the choice: " + " and ".join(f"{mean:.2%}" for mean in means))
    return min(means) >= LEAST


def _deal(catalogue, chance):
    """Two halves of all files. Of the files only the counts are known: tags of a group that are equally many everywhere
    are taken to be shown by the same files, and each of these comes into the one half or the other."""
    halves = [Facts(catalogue), Facts(catalogue)]
    for each in halves:
        each.seen = {}
    dealt = {}
    for row in read_table("seen-in-files.tsv"):
        pair = (halves[0].group_id(row["group"]), row["tag"])
        files, models, more = (int(row[column]) for column in ("files", "models", "more"))
        alike = (pair[0], files, models, more)
        if alike not in dealt:
            dealt[alike] = [sum(chance.random() < 0.5 for _ in range(number)) for number in (files, more)]
        for half, (some, others) in zip(halves, (dealt[alike], [files - dealt[alike][0], more - dealt[alike][1]])):
            # A camera is known to a half that has one of its files.
            known = min(some, round(models * (1 - 0.5 ** (files / models)) + 0.5)) if models else 0
            if some + others or int(row["reference"]):
                half.seen[pair] = Seen(some + others, known + others, int(row["reference"]), row["form"])
    return halves


def _reachable(choice, facts):
    """The share of a choice that knows the files that it is counted on."""
    counts = collections.defaultdict(list)
    for (group, _), seen in facts.seen.items():
        counts[group].append(seen.files)
    best = sum(sum(sorted(each, reverse=True)[:choice.ceiling(group)]) for group, each in counts.items())
    return best / sum(map(sum, counts.values()))
