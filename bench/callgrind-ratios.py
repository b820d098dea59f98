#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The ovt-common developers
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Runs a benchmark under callgrind and prints the instructions of its marked stretches.

    bench/callgrind-ratios.py build-rel/bench/element/bench_element 20000 1
    bench/callgrind-ratios.py build-rel/bench/treenode/bench_treenode 10000

Each stretch the benchmark marks (bench/benchphase.h) is dumped on its own; a stretch measured
several times counts with its smallest figure. A stretch named "<what> | <reference>" is also
set against the stretch named "<reference>", and the ratio printed.
"""
import glob
import os
import subprocess
import sys
import tempfile


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    with tempfile.TemporaryDirectory() as scratch:
        out = os.path.join(scratch, "callgrind.out")
        subprocess.run(["valgrind", "--tool=callgrind", "--dump-instr=no",
                        "--callgrind-out-file=" + out] + sys.argv[1:], check=True,
                       stderr=subprocess.DEVNULL)
        counts = {}
        order = []
        for path in sorted(glob.glob(out + ".*"), key=lambda p: int(p.rsplit(".", 1)[1])):
            name, total = None, None
            with open(path) as dump:
                for line in dump:
                    if line.startswith("desc: Trigger: Client Request: "):
                        name = line.split(": ", 3)[-1].strip()
                    elif line.startswith("totals:") or line.startswith("summary:"):
                        total = int(line.split()[1])
            if name is None or total is None:
                continue
            if name not in counts:
                order.append(name)
                counts[name] = total
            counts[name] = min(counts[name], total)
    print("%-52s %16s %16s %8s" % ("stretch", "instructions", "reference", "ratio"))
    for name in order:
        what, _, reference = name.partition(" | ")
        if reference and reference in counts:
            print("%-52s %16d %16d %7.2fx" % (what, counts[name], counts[reference],
                                               counts[name] / counts[reference]))
        else:
            print("%-52s %16d" % (name, counts[name]))


if __name__ == "__main__":
    main()
