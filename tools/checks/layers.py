#!/usr/bin/env python3
"""Checks the includes of src/ against the table of modules.

    tools/checks/layers.py [--write-graph]

Fails on an include that the table does not allow, an unused entry of the table, and a cycle of files. Fails on two files
with the same stem, two types with the same name in namespace orv, and a file that is too long. In the system's folders, fails
on a library's header, and on a catch outside logging/trap.cpp. Fails if the graph in docs/architecture.md differs from the
table; --write-graph writes it there.
"""
import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
SRC = ROOT / "src"
DOCUMENT = ROOT / "docs/architecture.md"
LONGEST_FILE = 400  # lines
STANDARD = set("""algorithm any array atomic bit cctype charconv chrono climits cmath compare concepts condition_variable
cstddef cstdint cstdio cstdlib cstring ctime deque exception filesystem fstream functional initializer_list iomanip ios
iostream istream iterator limits list locale map memory mutex new numbers numeric optional ostream queue random ranges
ratio regex set source_location span sstream stack stdexcept streambuf string string_view system_error thread tuple
type_traits typeindex typeinfo unordered_map unordered_set utility valarray variant vector version""".split())


def read_table():
    modules = {}
    for line in (ROOT / "tools/checks/modules.txt").read_text().splitlines():
        if line and not line.startswith("#"):
            module, _, lower = line.partition(":")
            modules[module.strip()] = lower.split()
    return modules


def table_faults(modules):
    """A module can name only modules above it in the table, so that there is no cycle of modules."""
    above, faults = set(), []
    for module, lower in modules.items():
        faults += [f"modules.txt: {module} names {other}, which is not above it"
                   for other in lower if other not in above and other != "*"]
        above.add(module)
    return faults


def draw_graph(modules):
    """Draws the modules by layer. Each line names the highest modules that a module uses."""
    lower = {module: set(modules) - {module} if others == ["*"] else set(others) for module, others in modules.items()}
    layers = {}
    for module in modules:
        layers[module] = 1 + max((layers[other] for other in lower[module]), default=0)
    lines = ["layer  module                 uses"]
    for module in sorted(modules, key=lambda name: (-layers[name], name)):
        highest = [other for other in lower[module] if not any(other in lower[third] for third in lower[module])]
        lines.append(f"{layers[module]:5}  {module:22} {' '.join(sorted(highest))}".rstrip())
    return "".join(f"    {line}\n" for line in lines)


def graph_faults(modules, write):
    """Compares the graph in the document with the table, or writes it there."""
    text = DOCUMENT.read_text(encoding="utf-8")
    before, begin, rest = text.partition("<!-- graph -->\n")
    _, end, after = rest.partition("<!-- end of graph -->\n")
    current = f"{before}{begin}\n{draw_graph(modules)}\n{end}{after}"
    if write:
        DOCUMENT.write_text(current, encoding="utf-8")
        return []
    return [] if text == current else ["docs/architecture.md: another graph than the table's; run layers.py --write-graph"]


def find_module(path):
    return str(Path(path).parent)


def read_includes(path):
    text = path.read_text(encoding="utf-8")
    own = re.findall(r'^#include "([^"]+)"', text, re.M)
    foreign = re.findall(r"^#include <([^>]+)>", text, re.M)
    return own, foreign


# Matches the marks that open or close a scope or end a declaration. Comments and literals match as a whole.
TOKEN = re.compile(r"""//[^\n]*|/\*.*?\*/|R"\(.*?\)"|"(?:\\.|[^"\\\n])*"|'(?:\\.|[^'\\\n])'|^\#(?:[^\n]*\\\n)*[^\n]*|[{};]""",
                   re.M | re.S)
SCOPE = re.compile(r"^(?:inline )?namespace(?: (\w+))?$")
TYPE = re.compile(r"(?:^|\W)(?:struct|class|union|enum(?: class| struct)?) (\w+)(?: final)?(?: :(?!:).*)?$")
ALIAS = re.compile(r"^(?:template <.*> )?using (\w+) = ")


def find_types(text):
    """Returns the names of the types that a file defines in namespace orv and in the named namespaces inside it."""
    names, scopes, before, start = [], [], "", 0
    for token in TOKEN.finditer(text):
        before = " ".join((before + text[start:token.start()]).split())
        start, mark = token.end(), token.group()
        outside = all(scope for scope in scopes) and scopes[:1] == ["orv"]
        if mark == "{":
            space, kind = SCOPE.match(before), TYPE.search(before)
            if kind and outside:
                names.append(kind[1])
            scopes.append(space[1] if space else None)
        elif mark == "}" and scopes:
            scopes.pop()
        elif mark == ";" and outside and ALIAS.match(before):
            names.append(ALIAS.match(before)[1])
        before = before if mark[0] not in "{};" else ""
    return names


def code_files(root, *folders):
    return sorted(p for folder in folders for p in (root / folder).rglob("*") if p.suffix in (".h", ".cpp", ".py"))


def length_faults(root):
    lengths = {file: len(file.read_text(encoding="utf-8").splitlines())
               for file in code_files(root, "src", "programs", "tests", "tools")}
    return [f"{file.relative_to(root)}: {length} lines; {LONGEST_FILE} are allowed"
            for file, length in lengths.items() if length > LONGEST_FILE]


def type_faults(root):
    """Two types with the same name are undefined behaviour, and no other tool reports them reliably."""
    homes = {}
    for file in (p for p in code_files(root, "src", "programs", "tools") if p.suffix != ".py"):
        for name in find_types(file.read_text(encoding="utf-8")):
            homes.setdefault(name, set()).add(str(file.relative_to(root)))
    return [f"two types named orv::{name}: {', '.join(sorted(files))}" for name, files in homes.items() if len(files) > 1]


def circle_from(start, graph, done):
    """Returns a cycle of includes that is reached from `start`, or None."""
    path, stack = [], [(start, iter(graph.get(start, ())))]
    path.append(start)
    while stack:
        _, rest = stack[-1]
        step = next(rest, None)
        if step is None:
            done.add(path.pop())
            stack.pop()
        elif step in path:
            return path[path.index(step):] + [step]
        elif step not in done:
            path.append(step)
            stack.append((step, iter(graph.get(step, ()))))
    return None


def include_faults(modules, graph):
    """Compares the includes between modules with the table, in both directions."""
    allowed = {(module, other) for module, lower in modules.items() for other in lower if other != "*"}
    faults, used = [], set()
    for name, own in graph.items():
        module = find_module(name)
        for other in own:
            edge = module, find_module(other)
            used.add(edge)
            if edge[0] != edge[1] and modules.get(module) != ["*"] and edge not in allowed:
                faults.append(f"{name}: includes {other}, which {module} must not")
    return faults + [f"modules.txt: {module} names {other}, which it does not include"
                     for module, other in sorted(allowed - used)]


def main():
    modules, graph, stems = read_table(), {}, {}
    faults = table_faults(modules) + graph_faults(modules, "--write-graph" in sys.argv[1:])
    files = sorted(p for p in SRC.rglob("*") if p.suffix in (".h", ".cpp"))
    for file in files:
        name = str(file.relative_to(SRC))
        module = find_module(name)
        free = module == "app" or module.startswith("adapters")
        own, foreign = read_includes(file)
        graph[name] = own
        stems.setdefault((file.stem, file.suffix), []).append(name)
        if module not in modules:
            faults.append(f"{name}: the folder {module} is not in the table")
        if not free:
            faults += [f"{name}: includes <{header}>" for header in foreign if header not in STANDARD]
            if "catch (" in file.read_text(encoding="utf-8") and name != "logging/trap.cpp":
                faults.append(f"{name}: catches; only logging/trap.cpp does")
    faults += include_faults(modules, graph)
    faults += [f"two files with the stem: {', '.join(names)}" for names in stems.values() if len(names) > 1]
    faults += type_faults(ROOT) + length_faults(ROOT)
    done = set()
    for name in graph:
        circle = circle_from(name, graph, done) if name not in done else None
        if circle:
            faults.append("cycle of files: " + " -> ".join(circle))
            break
    print("\n".join(faults) or f"layers: {len(files)} files in {len(modules)} modules, no fault")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
