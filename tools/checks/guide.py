#!/usr/bin/env python3
"""Checks that the code and the administrator's guide in both languages know the same names.

    tools/checks/guide.py [REPOSITORY]

The names of a page are the words in the form of code in the first column of its tables: settings, failure codes, commands,
variables. Prints one line for each fault and ends with 1 when there is any.
"""

import pathlib
import re
import sqlite3
import sys

GUIDES = ("docs/operating", "docs/ja/operating")
# Texts for the operator, which the clerk's manual explains.
WITHOUT_CODES = ("validation/rules/", "adapters/text/message_table.cpp", "adapters/text/string_check.cpp")
READERS = "asRead|treated|orIfEmpty|withBackslash|value|PF_GetProFile"


class Code:
    def __init__(self, repository):
        files = [file for folder in ("src", "programs", "tools") for file in (repository / folder).rglob("*")]
        self.texts = {file.relative_to(repository).as_posix(): re.sub(r"//[^\n]*", "", file.read_text(encoding="utf-8"))
                      for file in sorted(files) if file.suffix in (".h", ".cpp")}

    def found(self, pattern, folder="src/"):
        return {name for file, text in self.texts.items() if file.startswith(folder) for name in re.findall(pattern, text)}

    def listed(self, pattern, table):
        """The names in the table that begins with this text, such as `kStates =`."""
        texts = [text.partition(table)[2].partition("});")[0] for text in self.texts.values() if table in text]
        return {name for text in texts for name in re.findall(pattern, text)}

    def variables(self):
        return self.found(r'(?:getenv|qEnvironmentVariable)\("(ORV_\w+)"')

    def settings(self):
        keys = self.found(rf'(?:{READERS})\([^"{{]*"[A-Z]+", "(\w+)"')
        keys |= self.found(r'(?:\bfolder|vimbl\w+|ofTerminal)\("(\w+)"', "src/config/")
        keys |= self.found(r'netValue\([^"{]*"(\w+)"', "src/config/")
        keys |= self.found(r'\{"[A-Z]{2,3}", "(\w+Dir)"\}', "src/config/")
        return keys | {prefix + "STARTPARA" for prefix in self.found(r'ORV_STARTPARA\("(\w+)"')}

    def store_names(self):
        return self.listed(r'\{"([a-z]+)",', "kCommands =") | self.listed(r'"(\w+)",', "kAllowed =")

    def codes(self):
        named = self.found(r'"([A-Z]{3,6}\d{2,5}|[A-Z]{5,6}:(?:\d\d)?)"')
        named -= {code for name in WITHOUT_CODES for code in self.found(r'"(\w+)"', "src/" + name)}
        named -= {code for code in named if re.fullmatch(r"GIF\d\d", code)}  # the signs of a file
        numbers = self.listed(r"= (\d+),", "Failure : int {")
        # The guide has the remainder of a longer number.
        results = {getattr(sqlite3, name) % 256 for name in self.found(r"\{(SQLITE_\w+), Failure")}
        states = self.listed(r'\{"(\w+)", Failure', "kStates =")
        return named | numbers | {f"DB{engines}" for engines in results | states}


def names_in(page):
    rows = [line for line in page.read_text(encoding="utf-8").splitlines() if line.startswith("|")]
    return {name for row in rows for name in re.findall(r"`([\w:]+)`", row.split("|")[1])}


def is_of_engine(code):
    """A number of the store's engine, or a whole code of photos: the code is joined from its parts there."""
    return re.fullmatch(r"DB\d+|IMGERR:\d{3,}", code) is not None


def main():
    repository = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parents[2])
    code = Code(repository)
    pages = {"install.md": code.variables(), "settings.md": code.settings(), "store.md": code.store_names(),
             "troubleshooting.md": code.codes()}
    faults = []
    for page, known in pages.items():
        described = [names_in(repository / guide / page) for guide in GUIDES]
        faults += [f"{page}: no name is seen in the code"] if not known else []
        for guide, names, others in zip(GUIDES, described, reversed(described)):
            faults += [f"{guide}/{page}: {name} is missing" for name in sorted((known | others) - names)]
            faults += [f"{guide}/{page}: the code does not know {name}" for name in sorted(names - known)
                       if not is_of_engine(name)]
    for fault in faults:
        print(f"guide: {fault}")
    return 1 if faults else 0


sys.exit(main())
