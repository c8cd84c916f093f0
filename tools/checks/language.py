#!/usr/bin/env python3
"""Checks the English of comments and documents, the links of documents, and the subject of the last commit.

    tools/checks/language.py [--count] [--subject TEXT] [FILE...]

Prints one line for each fault and ends with 1 if there is any. --count prints the number of faults per folder instead.
Reads comments, prose, and the string literals of C++ that have several words. Code blocks and words in the form of code are
left out.
"""
import ast
import io
import re
import subprocess
import sys
import tokenize
from collections import Counter
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
LONGEST_SENTENCE = 25  # words
LONGEST_SUBJECT = 72   # characters

# Words that have to be decoded, and the words to use instead.
WORDS = (
    (r"what", "name the thing, or 'which'"),
    (r"who(?:so)?ever", "'any caller that', 'every reader'"),
    (r"behind", "'after', 'below', 'through'"),
    (r"beside", "'next to', 'in addition to', 'in parallel with'"),
    (r"stands?|stood|standing", "'is', 'is in', 'is stored in'"),
    (r"lies|lay", "'is', 'is in', 'is stored in'"),
    (r"tells?|telling|told", "'reports', 'says', 'is reported'"),
    (r"as \w+(?: \w+)? ha(?:s|ve) it", "'as X does', 'like X'"),
    (r"(?<!there\s)(?:is|are|was|were) no(?! longer| more| less)", "'is not a', 'there is no'"),
    (r"parted", "'separated'"),
    (r"of its life|lives?|lived", "'exists', 'while in scope'"),
    (r"shall", "'must', 'can'"),
    (r"may not", "'must not', 'might not'"),
    (r"(?:take[sn]?|took|taking) (?:it |them |that |one )?for", "'treats as'"),
    (r"rooms?", "'module'"),
    (r"floors?", "'layer'"),
    (r"errands?", "'scenario'"),
    (r"struck|strikes?|striking", "'injected', 'fails'"),
    (r"fates?|befalls?|befallen", "'outcome'"),
    (r"judges?|judged", "'checker', 'checks'"),
    (r"eyes?", "'observer'"),
    (r"desks?", "'driver'"),
    (r"doors?", "'entry point', 'interface'"),
    (r"heard|hears?|listened to", "'receives'"),
    (r"knocks?|knocked", "'connects'"),
    (r"shown out|turned away", "'is closed', 'is rejected'"),
    (r"hand(?:s|ed)? (?:\w+ )?over", "'passes', 'gives'"),
    (r"for want of", "'because there is no'"),
    (r"nobody|everybody|somebody", "name the subject"),
    (r"whence|thence|thereof|hitherto|thus", "a plain word"),
    (r"comes? to (?!\d|the|a |an )\w+|goes? out|gone out", "the plain verb"),
    (r"mend(?:s|ed|ing)?", "'fix'"),
)
WORD = re.compile("|".join(f"(?P<w{n}>\\b(?:{words})\\b)" for n, (words, _) in enumerate(WORDS)), re.I)
OPENING = re.compile(r"(?:What|Whoever|The one that)\b")

# Terms of the field that contain a word of the list, and questions.
ALLOWED = re.compile(r"\b(?:stand-ins?|standby|keep-alive)\b|\bWhat\b[^.\n]*\?", re.I)

# Words in the form of code: paths, names with marks or capitals inside, options, and everything in quotes.
CODE = re.compile(r"""`[^`]*`|"[^"]*"|\[[^\]]*\]\([^)]*\)|\S*[_/\\=<>:]\S*[^\s.,;:!?()]|\b\w+\.(?:h|cpp|py|sh|txt|md|c)\b"""
                  r"""|\b\w+\(\)|\b[a-z]+[A-Z]\w*|\b[A-Z]{2,}\b|--?\w[\w-]*""")

HASH = {".py", ".sh", ".cmake", ".txt", ""}


def comment_blocks(lines):
    """Joins comments on consecutive lines. Takes (line, column, text, alone) and gives (line, text)."""
    blocks, last = [], None
    for line, text, alone in lines:
        if blocks and alone and last and last[0] == line - 1 and last[1]:
            blocks[-1][1].append(text)
        else:
            blocks.append((line, [text]))
        last = (line, alone)
    return [(line, "\n".join(texts)) for line, texts in blocks]


CPP = re.compile(r"""(?P<line>//[^\n]*)|(?P<block>/\*.*?\*/)|R"(?P<mark>[^(\s]*)\((?P<raw>.*?)\)(?P=mark)\"""" +
                 r"""|"(?P<text>(?:\\.|[^"\\\n])*)"|(?<![0-9a-fA-F])'(?:\\.|[^'\\\n])+'""", re.S)
WORDS_OF_TEXT = re.compile(r"[A-Za-z]{2,} [A-Za-z]{2,}")


def cpp_comments(text):
    found = []
    for token in CPP.finditer(text):
        body = token["line"] or token["block"]
        if body and not re.match(r"// (?:namespace|NOLINT)", body):
            line = text.count("\n", 0, token.start()) + 1
            alone = not text[text.rfind("\n", 0, token.start()) + 1:token.start()].strip()
            body = re.sub(r"^//[/!<]* ?", "", body) if token["line"] else re.sub(r"^\s*\* ?", "", body[2:-2].strip("*< \n"), flags=re.M)
            found.append((line, "" if body.startswith("  ") else body, alone))
    return comment_blocks(found)


def cpp_texts(text):
    found = ((token.start(), token["text"] or token["raw"] or "") for token in CPP.finditer(text))
    return [(text.count("\n", 0, at) + 1, body) for at, body in found if WORDS_OF_TEXT.search(body)]


def python_comments(text):
    found = []
    for token in tokenize.generate_tokens(io.StringIO(text).readline):
        if token.type == tokenize.COMMENT and not token.string.startswith("#!"):
            found.append((token.start[0], token.string.lstrip("# "), not token.line[:token.start[1]].strip()))
    blocks = comment_blocks(found)
    for node in ast.walk(ast.parse(text)):
        if isinstance(node, (ast.Module, ast.ClassDef, ast.FunctionDef)) and ast.get_docstring(node):
            blocks.append((node.body[0].lineno, ast.get_docstring(node)))
    return blocks


def hash_comments(text):
    """The comments of shell and CMake files: whole lines, and ends of lines after two blanks."""
    found, ends = [], None
    for number, line in enumerate(text.split("\n"), 1):
        if ends:
            ends = None if line.strip() == ends else ends
            continue
        document = re.search(r"<<-?'?(\w+)'?", line)
        ends = document[1] if document else None
        comment = re.match(r"(\s*)#(?!!)\s?(.*)", line) or re.search(r"(\S.*?)  +# (.*)", line)
        if comment:
            found.append((number, comment[2], not comment[1].strip()))
    return comment_blocks(found)


def prose(text):
    """The paragraphs, list entries and table rows of a Markdown file."""
    text = re.sub(r"^```.*?^```", lambda code: re.sub(r"[^\n]", "", code[0]), text, flags=re.M | re.S)
    text = re.sub(r"<!--.*?-->", lambda code: re.sub(r"[^\n]", "", code[0]), text, flags=re.S)
    blocks, number = [], 0
    for line in text.split("\n"):
        number += 1
        listed = re.match(r"\s*(?:[-*]|\d+\.) ", line)
        if line.startswith("    ") and not listed and not (blocks and blocks[-1][2]):
            continue
        if line.startswith("|"):
            blocks += [(number, [cell], False) for cell in line.strip("|").split("|")]
            blocks.append((number, [], False))
        elif not line.strip() or line.startswith("#") or listed:
            blocks.append((number, [re.sub(r"^[#\s]*(?:[-*] |\d+\. )?", "", line)], bool(listed)))
        elif blocks and blocks[-1][1]:
            blocks[-1][1].append(line)
        else:
            blocks.append((number, [line], False))
    return [(line, "\n".join(texts)) for line, texts, _ in blocks]


def manual_text(text):
    """The text of a manual page, without examples. Fonts are dropped; other macros end a paragraph."""
    text = re.sub(r"^\.nf$.*?^\.fi$", lambda code: re.sub(r"[^\n]", "", code[0]), text, flags=re.M | re.S)
    return re.sub(r"^\..*", "", re.sub(r"^\.[BIR]{1,2} ", "", text, flags=re.M), flags=re.M)


def read_blocks(path):
    text = path.read_text(encoding="utf-8")
    if path.suffix in (".h", ".cpp", ".c"):
        return cpp_comments(text) + cpp_texts(text)
    if path.suffix == ".py":
        return python_comments(text)
    if path.suffix == ".1":
        return prose(manual_text(text))
    return prose(text) if path.suffix == ".md" else hash_comments(text)


def sentences(text):
    """The sentences of a comment with the line each begins on. An empty line and a list entry end a sentence."""
    start = 0
    for end in re.finditer(r"[.:;!?][)\"']*(?=\s|$)|\n\s*\n|\n(?=\s*(?:[-*]|\d+\.) )|\Z", text):
        yield text.count("\n", 0, start), text[start:end.end()]
        start = end.end()


def block_faults(line, text):
    bare = ALLOWED.sub("", CODE.sub(lambda code: re.sub(r"[^\n]+", "X", code[0]), text))
    for found in WORD.finditer(bare):
        instead = WORDS[int(found.lastgroup[1:])][1]
        yield line + bare.count("\n", 0, found.start()), f"'{found[0]}': {instead}"
    opening = OPENING.match(bare)
    if opening:
        yield line, f"begins with '{opening[0]}'"
    for offset, sentence in sentences(bare):
        length = len(re.findall(r"[A-Za-z]['\w-]*", sentence))
        if length > LONGEST_SENTENCE:
            yield line + offset, f"a sentence of {length} words"


# Words in -ing, -ed and -s that are imperatives all the same.
IMPERATIVES = {"Bring", "String", "Sing", "Embed", "Need", "Feed", "Seed", "Speed", "Shed", "Pass", "Process", "Address", "Press",
               "Compress", "Express", "Suppress", "Bypass", "Focus", "Discuss", "Assess", "Access", "Guess", "Miss", "Dismiss"}
NOUNS = {"The", "A", "An", "This", "That", "It", "More", "New", "Some", "All", "No", "Also", "Now", "Because"}


def subject_faults(subject):
    first = subject.split(" ")[0]
    if len(subject) > LONGEST_SUBJECT:
        yield f"is {len(subject)} characters long, not at most {LONGEST_SUBJECT}"
    if not re.fullmatch(r"[A-Z][a-z-]+", first) or first in NOUNS or (
            re.search(r"(?:ing|ed|[^s]s|ss)$", first) and first not in IMPERATIVES):
        yield f"begins with '{first}', not with an imperative"
    if subject.endswith("."):
        yield "ends with a full stop"
    yield from (fault for _, fault in block_faults(1, subject))


def git(*arguments):
    return subprocess.run(["git", *arguments], cwd=ROOT, check=True, capture_output=True, text=True).stdout


def written_files():
    names = git("ls-files", "--cached", "--others", "--exclude-standard", "-z").split("\0")
    kept = [name for name in names if name in ("dev", ".ci/run") or Path(name).suffix in HASH - {""} | {".h", ".cpp", ".c", ".md", ".1"}]
    return [name for name in kept if (ROOT / name).is_file() and (
        not name.endswith(".txt") or name.endswith(("CMakeLists.txt", "modules.txt")))]


def link_faults(name, text):
    """Finds links of a document to files that do not exist."""
    for link in re.finditer(r"\]\((?!https?:)([^)#]+)[^)]*\)", text):
        if not (ROOT / name).parent.joinpath(link[1]).exists():
            yield f"{name}:{text.count(chr(10), 0, link.start()) + 1}: no file {link[1]}"


def main(arguments):
    if arguments[:1] == ["--subject"]:
        faults = [f"subject: {fault}" for fault in subject_faults(arguments[1])]
        print("\n".join(faults) or "subject: no fault")
        return 1 if faults else 0
    counting = arguments[:1] == ["--count"]
    names = arguments[1:] if counting else arguments
    faults, folders, read = [], Counter(), 0
    for name in names or written_files():
        read += 1
        if name.endswith(".md"):
            faults += link_faults(name, (ROOT / name).read_text(encoding="utf-8"))
        for line, text in read_blocks(ROOT / name):
            for at, fault in block_faults(line, text):
                faults.append(f"{name}:{at}: {fault}")
                folders["/".join(name.split("/")[:2 if not name.startswith("src/adapters") else 3]),
                        "sentence" if "sentence of" in fault else "word"] += 1
    if counting:
        for folder, kind in sorted(folders):
            print(f"{folders[folder, kind]:5} {kind:9} {folder}")
        print(len(faults))
        return 0
    if not names:
        subject = git("log", "-1", "--no-merges", "--format=%s").strip()
        faults += [f"subject of the last commit: {fault}" for fault in subject_faults(subject)]
    print("\n".join(faults) or f"language: {read} files, no fault")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
