#!/usr/bin/env python3
"""report_wine.py PRESET [PATTERN]: runs the test programs of a preset for Windows under wine.

Prints a line per program, then the log of each failed test, and last 'N passed, N failed'. A test that ends its program counts
as failed, and the program continues with the tests after it.
"""
import contextlib
import os
import re
import subprocess
import sys
import xml.etree.ElementTree as ET
from pathlib import Path

WINE = "tools/dev/wine.sh"
LEFT_OUT = "tests/left_out_on_windows.txt"
SERVER = Path("build/dev/tools/private_server/server_for_tests")
LONGEST = 3600  # seconds
BEGIN = re.compile(r"^\[ RUN      \] (\S+)", re.M)


def read_names(program):
    """Returns the full names of the tests of a program."""
    listed = subprocess.run([WINE, program, "--gtest_list_tests"], stdout=subprocess.PIPE, text=True, check=True).stdout
    names, suite = [], ""
    for line in listed.splitlines():
        word = line.split("#")[0].rstrip()
        if word.endswith(".") and not word.startswith(" "):
            suite = word
        elif word.startswith("  ") and "DISABLED_" not in word:
            names.append(suite + word.strip())
    return names


def run(program, names, place):
    """Runs tests in one process. Returns the names of those that passed, the logs of those that failed, and the rest."""
    report = place / "report.xml"
    report.unlink(missing_ok=True)
    environment = {**os.environ, "GTEST_FILTER": ":".join(names)}
    process = subprocess.run([WINE, program, f"--gtest_output=xml:{report.relative_to(Path.cwd())}"], env=environment,
                             stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace", timeout=LONGEST)
    if report.exists():
        cases = list(ET.parse(report).getroot().iter("testcase"))
        failed = {f"{case.get('classname')}.{case.get('name')}": "\n".join(f.text for f in case.iter("failure"))
                  for case in cases if case.find("failure") is not None}
        skipped = {f"{case.get('classname')}.{case.get('name')}" for case in cases if case.find("skipped") is not None}
        return [name for name in names if name not in failed and name not in skipped], failed, []
    begun = BEGIN.findall(process.stdout)
    last = begun[-1] if begun else names[0]
    log = process.stdout[process.stdout.rfind("[ RUN "):]
    passed = re.findall(r"^\[       OK \] (\S+)", process.stdout, re.M)
    failed = {name: "failed before the program ended" for name in begun if name not in passed}
    return passed, {**failed, last: f"the program ended ({process.returncode})\n{log}"}, names[names.index(last) + 1:]


def left_out():
    """Returns the tests that cannot run under wine, as program and name."""
    lines = Path(LEFT_OUT).read_text(encoding="utf-8").splitlines()
    return {tuple(line.split(": ")[:2]) for line in lines if line and not line.startswith("#")}


@contextlib.contextmanager
def database_server():
    """Runs a database server of this system for the tests of the store tool."""
    with subprocess.Popen([SERVER], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True) as server:
        os.environ["ORV_TEST_SERVER"] = server.stdout.readline().strip().replace("sslrootcert=/", "sslrootcert=Z:/")
        yield
        server.stdin.close()


def report(preset, pattern):
    without = left_out()
    place = Path.cwd() / "build" / preset
    passed, failed = 0, {}
    for program in sorted(place.glob("tests/*_tests.exe")):
        names = [name for name in read_names(program) if pattern in f"{program.stem}.{name}" and (program.stem, name) not in without]
        count = len(names)
        fine, bad = 0, 0
        while names:
            good, faults, names = run(program, names, place)
            fine += len(good)
            bad += len(faults)
            failed.update({f"{program.stem}: {name}": log for name, log in faults.items()})
        passed += fine
        skipped = count - fine - bad
        print(f"{program.stem}: {fine} of {count}" + (f", {skipped} skipped" if skipped else ""), flush=True)
    for name, log in failed.items():
        print(f"\n==== {name}\n{log}".rstrip())
    print(f"\nLeft out, for the reasons in {LEFT_OUT}: {len(without)}")
    print(f"{passed} passed, {len(failed)} failed")
    return 1 if failed or not passed else 0


def main(preset, pattern=""):
    with database_server() if preset == "windows" else contextlib.nullcontext():
        return report(preset, pattern)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
