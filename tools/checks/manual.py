#!/usr/bin/env python3
"""Checks the clerk's manual against the program: controls, limits, messages, rule texts. Checks the links of the manual and
of the administrator's guide.

    tools/checks/manual.py [REPOSITORY]

Prints one line for each fault and ends with 1 when there is any.
"""

import pathlib
import re
import sys

JAPANESE = re.compile(r"[぀-ヿ一-鿿]")
SHORTEST_TEXT = 4  # shorter literals are entries of lists, not texts for the operator
ANCHOR = re.compile(r'<a id="([^"]+)"></a>')


class Section:
    """A heading with its anchors and the text up to the next heading."""

    def __init__(self, page, anchors, title):
        self.page, self.anchors, self.title, self.lines = page, anchors, title, []

    @property
    def text(self):
        return "\n".join(self.lines).strip()


def read_sections(page):
    sections, anchors = [], []
    for line in page.read_text(encoding="utf-8").splitlines():
        if anchor := ANCHOR.fullmatch(line):
            anchors.append(anchor[1])
        elif line.startswith("#"):
            sections.append(Section(page.name, anchors, line.lstrip("# ")))
            anchors = []
        elif sections:
            sections[-1].lines.append(line)
    return sections


class Manual:
    def __init__(self, folder):
        self.folder = folder
        self.sections = [section for page in sorted(folder.glob("*.md")) for section in read_sections(page)]
        self.by_anchor = {anchor: section for section in self.sections for anchor in section.anchors}

    def rows(self, page):
        """The rows of the page's tables that say something in their last column."""
        lines = (self.folder / page).read_text(encoding="utf-8").splitlines()
        cells = [[cell.strip() for cell in line.strip("|").split("|")] for line in lines if line.startswith("|")]
        return [row for row in cells if len(row) > 1 and row[-1] and not set(row[-1]) <= set("-: ")]


def sources(repository, pattern):
    return [(file, file.read_text(encoding="utf-8")) for file in sorted(repository.glob(pattern))]


def inputs(repository):
    """The names of the controls on the screen that can have the focus or take a drop, and of the forms."""
    names = set()
    for _, text in sources(repository, "src/pages/layout/*_layout*.cpp"):
        names |= set(re.findall(r'\{"(\w+)",\s*-?\d', text))
    names = {name for name in names if not name.startswith("lbl_")} - {"pic_Logo", "pic_LeftLine", "pic_Info"}
    for _, text in sources(repository, "src/pages/forms/*.h"):
        names |= set(re.findall(r"struct (frm_\w+) :", text))
    return names


def check_controls(repository, manual):
    names = inputs(repository)
    faults = [f"no control {name} is seen" for name in ("txt_Company_Name", "cmd_Entry") if name not in names]
    for name in sorted(names):
        section = manual.by_anchor.get(name)
        if section is None or not section.text:
            faults.append(f"{name} has no section")
    for anchor, section in manual.by_anchor.items():
        if re.match(r"[a-z]{3}_", anchor) and anchor not in names:
            faults.append(f"{section.page}: {anchor} is not a control")
    return faults


def says(manual, section, words, follow=True):
    """Whether the section, or one that it refers to, has one of the words."""
    if any(word in section.text for word in words):
        return True
    referred = [manual.by_anchor.get(anchor) for anchor in re.findall(r"\(#(\w+)\)", section.text)]
    return follow and any(other and says(manual, other, words, False) for other in referred)


def check_limits(repository, manual):
    """Each field's section has its limit, and says of a required field that it is one."""
    faults = []
    for _, text in sources(repository, "src/pages/forms/frm_comp_inp*.h"):
        for name in re.findall(r'\*this, "(\w+)", \{.*\.back = kRequiredField', text):
            if "**入力が必要です。**" not in manual.by_anchor[name].text:
                faults.append(f"{name}: the section does not say that it is required")
        for name, least, most in re.findall(r'\*this, "(\w+)", \{.*\.least = ([\d.]+), \.most = ([\d.]+)', text):
            if not says(manual, manual.by_anchor[name], [f"{least}～{most}"]):
                faults.append(f"{name}: the section does not have its range, {least} to {most}")
        for name, unit, most in re.findall(r'\*this, "(\w+)", \{.*\.limit = (bytes|characters)\((\d+)\)', text):
            words = [f"{most}バイト）"] if unit == "bytes" else [f"{most}文字", f"{most}桁"]
            # A post code's field holds seven digits and a hyphen, in either unit.
            words += [f"半角{most}文字"] if "Post_Code" in name else []
            if not says(manual, manual.by_anchor[name], words):
                faults.append(f"{name}: the section does not have its limit, {most}")
    return faults


def plain(text):
    return re.sub(r"\s+", " ", text.replace("\\r\\n", " ")).strip()


def check_messages(repository, manual):
    faults = []
    table = (repository / "src/adapters/text/message_table.cpp").read_text(encoding="utf-8")
    ids = re.findall(r'\{"(\w{8})", Kind::', table)
    if not ids:
        faults.append("no message is seen")
    for identity in ids:
        section = manual.by_anchor.get(identity)
        if section is None or not section.text or section.page != "messages.md":
            faults.append(f"messages.md: no entry for {identity}")
    entries = [plain(" | ".join(row)) for row in manual.rows("messages.md")]
    entries += [plain(line) for section in manual.sections for line in section.lines if line.startswith("- ")]
    texts = sources(repository, "src/validation/rules/*.cpp") + sources(repository, "src/adapters/text/string_check.cpp")
    for file, text in texts:
        for literal in re.findall(r'"((?:[^"\\\n]|\\.)*)"', text):
            words = plain(literal)
            if JAPANESE.search(words) and len(words) >= SHORTEST_TEXT and not any(words in entry for entry in entries):
                faults.append(f"messages.md: no entry for the text of {file.name}: {words}")
    return faults


def check_links(manual):
    faults, linked = [], set()
    ids = [anchor for section in manual.sections for anchor in section.anchors]
    faults += [f"anchor {anchor} is there twice" for anchor in sorted({name for name in ids if ids.count(name) > 1})]
    for page in manual.folder.glob("*.md"):
        for image, target in re.findall(r"(!?)\[[^\]]*\]\(([^)]+)\)", page.read_text(encoding="utf-8")):
            file, _, anchor = target.partition("#")
            if page.name == "index.md" and not image:
                linked.add(file)
            if file and not (manual.folder / file).is_file():
                faults.append(f"{page.name}: dead link {target}")
            elif anchor and (anchor not in manual.by_anchor or manual.by_anchor[anchor].page != (file or page.name)):
                faults.append(f"{page.name}: dead link {target}")
    pages = {page.name for page in manual.folder.glob("*.md")} - {"index.md"}
    return faults + [f"index.md: no link to {page}" for page in sorted(pages - linked)]


def main():
    repository = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parents[2])
    manual = Manual(repository / "docs/ja/manual")
    faults = check_controls(repository, manual)
    faults += check_limits(repository, manual) if not faults else []
    faults += check_messages(repository, manual)
    faults += check_links(manual) + check_links(Manual(repository / "docs/ja/operating"))
    for fault in faults:
        print(f"manual: {fault}")
    return 1 if faults else 0


sys.exit(main())
