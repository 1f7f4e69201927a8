"""Reads the two script sets of database/ far enough to compare them: tables, procedures, arguments, result columns."""

import re
from dataclasses import dataclass, field

TOKEN = re.compile(r"--[^\n]*|/\*.*?\*/|N?'(?:[^']|'')*'|@@?\w+|:\w+|[\w$]+(?:\.\d+)?|\[[^\]]*\]|<>|<=|>=|\S",
                   re.DOTALL)


def tokens_of(text):
    """The words and signs of a text, without its comments; a quoted text is one token."""
    return [token for token in TOKEN.findall(text) if not token.startswith(("--", "/*"))]


@dataclass
class Batch:
    place: str
    line: int
    database: str
    text: str


@dataclass
class Procedure:
    name: str
    parameters: list  # of (name, kind), where the kind is text, number, bit or date as far as it is told
    results: list = field(default_factory=list)  # the columns of every select that answers rows
    place: str = ""


def batches_of(file):
    """The batches of a script, as a sender of scripts parts them: by lines that say GO."""
    database, batch, start = "master", [], 1
    for number, line in enumerate(file.read_text(encoding="utf-8").splitlines() + ["GO"], 1):
        if line.strip().upper() != "GO":
            batch.append(line)
            continue
        text = "\n".join(batch)
        if used := re.search(r"^USE (\w+);", text, re.MULTILINE):
            database = used.group(1)
        if text.strip():
            yield Batch(file.name, start, database, text)
        batch, start = [], number + 1


def in_parentheses(tokens, at):
    """The tokens between the parenthesis at `at` and the one that closes it, and where that stands."""
    depth = 0
    for end in range(at, len(tokens)):
        depth += {"(": 1, ")": -1}.get(tokens[end], 0)
        if depth == 0:
            return tokens[at + 1:end], end
    raise ValueError("a parenthesis is not closed: " + " ".join(tokens[at:at + 12]))


def parted(tokens):
    """The tokens between the commas outside of parentheses."""
    parts, depth = [[]], 0
    for token in tokens:
        depth += {"(": 1, ")": -1}.get(token, 0)
        if token == "," and depth == 0:
            parts.append([])
        else:
            parts[-1].append(token)
    return parts if parts != [[]] else []


def tables_of(text, qualified):
    """Tables that a text creates, with their columns and the first word of each column's type. `qualified` turns the
    name as it is written into database.table."""
    found = {}
    tokens = tokens_of(text)
    for at in range(len(tokens) - 2):
        if [token.upper() for token in tokens[at:at + 2]] != ["CREATE", "TABLE"]:
            continue
        opening = tokens.index("(", at)
        body, _ = in_parentheses(tokens, opening)
        columns = {part[0]: part[1].lower() for part in parted(body) if part[0].upper() not in ("PRIMARY", "FOREIGN")}
        found[qualified("".join(tokens[at + 2:opening]))] = columns
    return found


FOLLOWING = {"WHERE", "ON", "INNER", "LEFT", "JOIN", "ORDER", "UNION", "GROUP", "SET", "ELSE", "END", "INDEXED"}


def sources_of(tokens, tables, qualified):
    """What a select reads: its aliases with their tables' columns."""
    sources, at = {}, 0
    while at < len(tokens):
        if tokens[at].upper() in ("FROM", "JOIN") and at + 1 < len(tokens) and tokens[at + 1] != "(":
            end = at + 2
            while end + 1 < len(tokens) and tokens[end] == ".":
                end += 2
            table = qualified("".join(tokens[at + 1:end]))
            end += end < len(tokens) and tokens[end].upper() == "AS"
            named = end < len(tokens) and re.fullmatch(r"\w+", tokens[end]) and tokens[end].upper() not in FOLLOWING
            sources[tokens[end] if named else table] = list(tables.get(table, {}))
            at = end
        else:
            at += 1
    return sources


def result_of(tokens, tables, qualified):
    """The columns that the select at the beginning of these tokens answers; nothing when it only sets variables."""
    ends = [at for at, token in enumerate(tokens)
            if token.upper() == "FROM" and tokens[:at].count("(") == tokens[:at].count(")")]
    listed = parted(tokens[1:ends[0]] if ends else tokens[1:])
    if any(part[0].startswith("@") and part[1:2] == ["="] for part in listed):
        return None
    sources = sources_of(tokens, tables, qualified)
    columns = []
    for part in listed:
        if part[-1] == "*":
            columns += sources[part[0]] if len(part) > 1 else next(iter(sources.values()))
        else:
            columns.append(part[-1])
    return columns
