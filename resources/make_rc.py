#!/usr/bin/env python3
"""Checks the texts of all languages against ResourceIds.h and writes them in the forms a build needs.

  make_rc.py --rc OUT                  string tables of all languages, for the resource compiler
  make_rc.py --cpp OUT --language en   lines {0xF201, "text in UTF-8"}, of one language
  make_rc.py --ids OUT                 lines {0xF201, "IDS_VOTE_STARTED", "placeholders"},

Every problem found is printed as FILE:LINE: what is wrong, and then the exit status is 1 and nothing is written.
"""

import argparse
import re
import sys
from pathlib import Path
from typing import NamedTuple

HERE = Path(__file__).resolve().parent


class Language(NamedTuple):
    rc: str  # operands of the LANGUAGE statement
    code_page: str  # the report is written in it, so every character must exist there


LANGUAGES = {
    "en": Language("LANG_ENGLISH, SUBLANG_ENGLISH_US", "cp1252"),
    "zh-Hans": Language("LANG_CHINESE, SUBLANG_CHINESE_SIMPLIFIED", "gbk"),
}

ESCAPES = {"n": "\n", "t": "\t", "s": " ", "\\": "\\"}
DEFINE = re.compile(r"#define\s+(\w+)\s+(0x[0-9A-F]+)\s*(?://\s*(.*))?$")
PLACEHOLDER = re.compile(r"%[-+ #0-9.*]*(?:I64|hh?|ll?)?[a-zA-Z]|%%")


class Id(NamedTuple):
    name: str
    number: int
    placeholders: list[str]


class Problems:
    """What is wrong with the sources, in the order found."""

    def __init__(self) -> None:
        self.lines: list[str] = []

    def add(self, path: Path, line: int, what: str) -> None:
        self.lines.append(f"{path}:{line}: {what}")


def read_lines(path: Path, problems: Problems) -> list[str]:
    try:
        return path.read_text(encoding="utf-8").split("\n")
    except UnicodeDecodeError as error:
        line = path.read_bytes()[: error.start].count(b"\n") + 1
        problems.add(path, line, "this isn't UTF-8")
        return []


def read_ids(header: Path, problems: Problems) -> dict[str, Id]:
    """The string ids of the header by name. The placeholders are those that the id's remark begins with."""
    ids: dict[str, Id] = {}
    numbers: dict[int, str] = {}
    for number, line in enumerate(read_lines(header, problems), 1):
        match = DEFINE.match(line)
        if not match:
            if line.startswith("#define"):
                problems.add(header, number, "expected #define NAME 0xNUMBER")
            continue
        name, value, remark = match[1], int(match[2], 16), match[3] or ""
        if not name.startswith("IDS_"):
            continue
        if name in ids:
            problems.add(header, number, f"{name} is defined twice")
        elif value in numbers:
            problems.add(header, number, f"{name} has the number of {numbers[value]}")
        else:
            leading = re.match(r"(?:%[a-z]\s*)*", remark)[0]
            ids[name] = Id(name, value, leading.split())
            numbers[value] = name
    return ids


def unescape(text: str) -> str:
    def replace(match: re.Match) -> str:
        if match[1] not in ESCAPES:
            raise ValueError(f"unknown escape \\{match[1]}")
        return ESCAPES[match[1]]

    return re.sub(r"\\(.?)", replace, text)


def check_text(text: str, id: Id, language: Language) -> str | None:
    """What is wrong with a text, if anything."""
    if not text:
        return f"the text of {id.name} is empty"
    control = next((c for c in text if (c < " " and c not in "\n\t") or c > "\uffff"), None)
    if control:
        return f"{id.name} holds the character U+{ord(control):04X}, which can't be shown everywhere"
    try:
        text.encode(language.code_page)
    except UnicodeEncodeError as error:
        return f"{id.name} holds '{text[error.start]}', which the code page {language.code_page} lacks"
    found = PLACEHOLDER.findall(text)
    if [p for p in found if p != "%%"] != id.placeholders:
        wanted = " ".join(id.placeholders) or "none"
        return f"{id.name} has the placeholders {' '.join(found) or 'none'}, expected {wanted}"
    return None


def read_texts(path: Path, ids: dict[str, Id], language: Language, problems: Problems) -> dict[str, str]:
    """The texts of one language by name; complete, unless a problem was added."""
    texts: dict[str, str] = {}
    lines = read_lines(path, problems)
    for number, line in enumerate(lines, 1):
        line = line.strip(" \t\r")
        if not line or line.startswith("#"):
            continue
        name, equals, text = (part.strip(" \t") for part in line.partition("="))
        if not equals:
            problems.add(path, number, "expected NAME = text")
        elif name not in ids:
            problems.add(path, number, f"{name} isn't a string of ResourceIds.h")
        elif name in texts:
            problems.add(path, number, f"{name} stands here for the second time")
        else:
            try:
                texts[name] = unescape(text)
                wrong = check_text(texts[name], ids[name], language)
            except ValueError as error:
                texts[name] = text
                wrong = f"{name}: {error}"
            if wrong:
                problems.add(path, number, wrong)
    if lines:
        for name in (name for name in ids if name not in texts):
            problems.add(path, len(lines), f"{name} is missing")
    return texts


def quote_rc(text: str) -> str:
    text = text.replace("\\", "\\\\").replace("\n", "\\n").replace("\t", "\\t")
    return '"' + text.replace('"', '""') + '"'


def quote_cpp(text: str) -> str:
    text = text.replace("\\", "\\\\").replace("\n", "\\n").replace("\t", "\\t")
    return '"' + text.replace('"', '\\"') + '"'


def write_rc(ids: dict[str, Id], texts: dict[str, dict[str, str]]) -> str:
    out = ["#include <winresrc.h>", ""]
    for language, by_name in texts.items():
        out += [f"LANGUAGE {LANGUAGES[language].rc}", "STRINGTABLE", "BEGIN"]
        out += [f"  {name} {quote_rc(by_name[name])}" for name in ids]
        out += ["END", ""]
    return "\n".join(out)


def write_cpp(ids: dict[str, Id], texts: dict[str, str]) -> str:
    return "".join(f"{{0x{id.number:04X}, {quote_cpp(texts[id.name])}}},\n" for id in ids.values())


def write_ids(ids: dict[str, Id]) -> str:
    return "".join(f'{{0x{id.number:04X}, "{id.name}", "{" ".join(id.placeholders)}"}},\n' for id in ids.values())


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--header", type=Path, default=HERE / "ResourceIds.h")
    parser.add_argument("--texts", type=Path, default=HERE / "texts", help="folder of LANGUAGE.txt files")
    parser.add_argument("--rc", type=Path, metavar="OUT")
    parser.add_argument("--cpp", type=Path, metavar="OUT")
    parser.add_argument("--ids", type=Path, metavar="OUT")
    parser.add_argument("--language", choices=LANGUAGES, default="en")
    options = parser.parse_args()

    problems = Problems()
    ids = read_ids(options.header, problems)
    texts = {}
    for name, language in LANGUAGES.items():
        path = options.texts / f"{name}.txt"
        if path.is_file():
            texts[name] = read_texts(path, ids, language, problems)
        else:
            problems.add(path, 1, "the file is missing")
    for path in sorted(options.texts.glob("*.txt")):
        if path.stem not in LANGUAGES:
            problems.add(path, 1, "make_rc.py doesn't list this language")
    if problems.lines:
        print("\n".join(problems.lines), file=sys.stderr)
        return 1

    for path, content in (
        (options.rc, lambda: write_rc(ids, texts)),
        (options.cpp, lambda: write_cpp(ids, texts[options.language])),
        (options.ids, lambda: write_ids(ids)),
    ):
        if path:
            path.write_text(content(), encoding="utf-8", newline="\n")
    return 0


if __name__ == "__main__":
    sys.exit(main())
