"""The tags that the installed ExifTool knows, and what it says to edits of them."""

import collections
import re
import subprocess
import xml.etree.ElementTree as ElementTree

Tag = collections.namedtuple("Tag", "table group id name type count writable flags has_values")


def version():
    return subprocess.run(["exiftool", "-ver"], capture_output=True, text=True, check=True).stdout.strip()


def read_tags():
    """All tags of `exiftool -listx -f`, in its order. group is the family 1 group."""
    listing = subprocess.Popen(["exiftool", "-f", "-listx"], stdout=subprocess.PIPE)
    tags = []
    for _, table in ElementTree.iterparse(listing.stdout):
        if table.tag != "table":
            continue
        for tag in table.findall("tag"):
            tags.append(Tag(table.get("name"), tag.get("g1") or table.get("g1"), tag.get("id"), tag.get("name"),
                            tag.get("type") or "?", tag.get("count"), tag.get("writable") == "true",
                            frozenset((tag.get("flags") or "").split(",")), tag.find("values") is not None))
        table.clear()
    if listing.wait() != 0 or not tags:
        raise SystemExit("exiftool -f -listx failed")
    return tags


def refused_edits(names):
    """Those of the names "Group:Tag" that ExifTool does not let anyone write. Nothing is written: there is no file."""
    arguments = "".join(f"-{name}=\n" for name in names)
    run = subprocess.run(["exiftool", "-@", "-", "no such file.jpg"], input=arguments, capture_output=True, text=True)
    refused = set()
    for line in run.stderr.splitlines():
        # A permanent tag can be changed, though not be deleted.
        if not line.startswith("Warning: ") or "Can't delete Permanent tag" in line:
            continue
        refused.update(re.findall(r"[\w-]+:[\w-]+", line.removeprefix("Warning: ")))
    return refused
