#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The ovt-common developers
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Compares two coverage.json files written by scripts/coverage.sh: prints the covered line
counts of both and every line covered before but not after (the lines that lost their last test).
Exits 1 when a line was lost."""
import itertools
import json
import sys


def covered(path):
    counts = {}
    with open(path) as f:
        for entry in json.load(f)["files"]:
            for line in entry["lines"]:
                if line.get("gcovr/noncode"):
                    continue
                key = (entry["file"], line["line_number"])
                counts[key] = counts.get(key, 0) + line["count"]
    return counts


if len(sys.argv) != 3:
    sys.exit("usage: coverage-diff.py BEFORE.json AFTER.json")
before, after = covered(sys.argv[1]), covered(sys.argv[2])
lost = sorted(k for k, n in before.items() if n and not after.get(k))
gained = sorted(k for k, n in after.items() if n and not before.get(k))
print(f"before: {sum(1 for n in before.values() if n)} of {len(before)} lines covered; "
      f"after: {sum(1 for n in after.values() if n)} of {len(after)}; lost {len(lost)}, gained {len(gained)}")
for path, keys in itertools.groupby(lost, key=lambda k: k[0]):
    print(f"  lost {path}: {', '.join(str(k[1]) for k in keys)}")
sys.exit(1 if lost else 0)
