#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Applies each deliberate fault in faults.py, rebuilds, runs ctest and records which tests fail.

A maintainer's tool, not part of ctest: a run rebuilds the tree once per fault and takes about
as many minutes as there are faults. The source file is restored after every fault, also when
the run is interrupted.

    tests/mutation/run_faults.py [--build build] [--only id ...] [--out results.tsv]

The package tests are left out: they check the installed files, and every fault is in code
that other tests exercise first.
"""
import argparse
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
from faults import FAULTS  # noqa: E402


def run(command, **kwargs):
    return subprocess.run(command, cwd=ROOT, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          text=True, **kwargs)


def failing_tests(build):
    result = run(["ctest", "--test-dir", build, "-E", "^package_", "-j2", "--timeout", "120"])
    if result.returncode == 0:
        return []
    failed = pathlib.Path(ROOT, build, "Testing/Temporary/LastTestsFailed.log")
    names = [line.split(":", 1)[1].strip() for line in failed.read_text().splitlines() if ":" in line]
    return names or ["(ctest failed without naming a test)"]


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", default="build")
    parser.add_argument("--only", nargs="*")
    parser.add_argument("--out", default="-")
    args = parser.parse_args()

    faults = [f for f in FAULTS if not args.only or f[0] in args.only]
    out = sys.stdout if args.out == "-" else open(args.out, "w")
    if run(["cmake", "--build", args.build]).returncode != 0:
        sys.exit("The unchanged tree does not build.")
    if failing_tests(args.build):
        sys.exit("The unchanged tree fails its tests; faults would be measured against noise.")
    for name, path, before, after in faults:
        source = ROOT / path
        original = source.read_text()
        if original.count(before) != 1:
            print(f"{name}\tstale: the text is not in {path} exactly once", file=out, flush=True)
            continue
        try:
            source.write_text(original.replace(before, after))
            if run(["cmake", "--build", args.build]).returncode != 0:
                caught = ["(does not build)"]
            else:
                caught = failing_tests(args.build)
        finally:
            source.write_text(original)
        print(f"{name}\t{' '.join(caught) if caught else 'MISSED'}", file=out, flush=True)
    run(["cmake", "--build", args.build])


if __name__ == "__main__":
    main()
