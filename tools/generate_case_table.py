#!/usr/bin/env python3
"""Writes src/base/case_table.inc: Unicode's simple one-to-one case mappings as ranges.

    tools/generate_case_table.py [FOLDER] > src/base/case_table.inc

FOLDER holds UnicodeData.txt and Blocks.txt, as Debian's package unicode-data installs them. Needed only to move to
another Unicode version; the build uses the committed table.
"""

import pathlib
import re
import sys

UPPER_FIELD = 12
LOWER_FIELD = 13
HIGHEST_ASCII = 0x7F
HIGHEST_SHORT = 0xFFFF


def read_version(folder):
    first_line = (folder / "Blocks.txt").read_text(encoding="utf-8").splitlines()[0]
    return re.fullmatch(r"# Blocks-([0-9.]+)\.txt", first_line).group(1)


def read_mappings(folder, field):
    """The pairs (code point, distance to its mapping), ascending, ASCII left out."""
    mappings = []
    for line in (folder / "UnicodeData.txt").read_text(encoding="utf-8").splitlines():
        fields = line.split(";")
        point = int(fields[0], 16)
        if point <= HIGHEST_ASCII or not fields[field]:
            continue
        mapped = int(fields[field], 16)
        if (point <= HIGHEST_SHORT) != (mapped <= HIGHEST_SHORT):
            raise SystemExit(f"U+{point:04X}: the mapping changes the length in UTF-16")
        mappings.append((point, mapped - point))
    return sorted(mappings)


def to_ranges(mappings):
    """Runs of one distance whose points follow each other in steps of one, or of two as where both cases alternate."""
    ranges = []
    for point, distance in mappings:
        if ranges:
            first, last, step, known = ranges[-1]
            follows = point - last == step if first != last else point - last in (1, 2)
            if follows and distance == known:
                ranges[-1] = (first, point, point - last, distance)
                continue
        ranges.append((point, point, 1, distance))
    return ranges


def write_table(name, ranges):
    print(f"\nconstexpr std::array<CaseRange, {len(ranges)}> {name}{{{{")
    for first, last, step, distance in ranges:
        print(f"    {{0x{first:04X}, 0x{last:04X}, {step}, {distance}}},")
    print("}};")


def main():
    folder = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else "/usr/share/unicode")
    print(f"// Simple case mappings of Unicode {read_version(folder)}, ASCII left out.")
    print("// Made from the Unicode Character Database by tools/generate_case_table.py; not edited by hand.")
    write_table("UpperRanges", to_ranges(read_mappings(folder, UPPER_FIELD)))
    write_table("LowerRanges", to_ranges(read_mappings(folder, LOWER_FIELD)))


if __name__ == "__main__":
    main()
