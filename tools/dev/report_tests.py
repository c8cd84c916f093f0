#!/usr/bin/env python3
"""report_tests.py PRESET [CTEST-ARGUMENT...]: runs the tests of a preset.

Prints a line per test as it ends, then the log of each failed test, and last 'N passed, N failed'.
"""
import os
import re
import subprocess
import sys
import xml.etree.ElementTree as ET

WIDTH = 100
RESULT = re.compile(r"^ *(\d+)/(\d+) Test +#\d+: (\S+) [ .]*(\S.*?) +([\d.]+) sec")


def shortened(text, width):
    """Shortens a long text in the middle."""
    if len(text) <= width:
        return text
    return text[: width // 3] + "…" + text[len(text) - (width - width // 3 - 1):]


def format_line(number, total, name, outcome, seconds):
    start = f"[{number:>{len(total)}}/{total}] {'ok    ' if outcome == 'Passed' else 'FAILED'} {float(seconds):6.1f} s  "
    return start + shortened(name, WIDTH - len(start))


def run(preset, arguments, junit):
    """Prints each result when it is available. Returns CTest's exit code and its lines that are not about one test."""
    command = ["ctest", "--preset", preset, "--output-junit", junit, *arguments]
    rest = []
    with subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace") as ctest:
        for line in ctest.stdout:
            result = RESULT.match(line)
            if result:
                print(format_line(*result.groups()), flush=True)
            else:
                rest.append(line)
    return ctest.returncode, rest


def main(preset, *arguments):
    junit = os.path.abspath(f"build/{preset}/tests.xml")
    if os.path.exists(junit):
        os.remove(junit)
    code, rest = run(preset, arguments, junit)
    if not os.path.exists(junit):
        sys.exit("".join(rest))
    cases = list(ET.parse(junit).getroot().iter("testcase"))
    failed = [case for case in cases if case.get("status") != "run"]
    for case in failed:
        print(f"\n==== {case.get('name')}\n{case.findtext('system-out') or ''}".rstrip())
    print(f"\n{len(cases) - len(failed)} passed, {len(failed)} failed")
    sys.exit(1 if failed or not cases else code)


if __name__ == "__main__":
    main(*sys.argv[1:])
