"""Faults of a T-SQL script that can be told without a server: those of its grammar, and names that nothing declares."""

import json
import re
import shutil
import subprocess

import sql_scripts as sql

# Words of the language that stand where a column could.
WORDS = set("""ADD ALL ALTER AND AS ASC BEGIN BETWEEN BREAK BY CASE CATCH COLLATE COMMIT CREATE DECLARE DEFAULT DELETE DESC
    DROP ELSE END EXEC EXISTS FOR FROM FUNCTION GO GRANT IF IN INNER INSERT INTO IS JOIN LEFT LIKE LOGIN MEMBER NOT NULL
    ON OPTION OR ORDER OUTPUT PRIMARY PRINT PROCEDURE RECOMPILE RETURN RETURNS ROLE ROLLBACK SELECT SET TABLE THEN
    THROW TO TRANSACTION TRIGGER TRY UNION UNIQUE UPDATE USE USER VALUES VIEW WHEN WHERE WHILE WITH NOCOUNT KEY
    INDEX REFERENCES AFTER INSERTED INT BIGINT BIT DATE DATETIME NVARCHAR DECIMAL MAX DAY
    LATIN1_GENERAL_BIN2 DBO""".split())


def variable_faults(batch, tokens):
    declared = set()
    for at, token in enumerate(tokens):
        if not token.startswith("@") or token.startswith("@@"):
            continue
        name = token.lower()
        if re.fullmatch(r"(?i)nvarchar|int|bigint|bit|date|datetime|decimal|table", "".join(tokens[at + 1:at + 2])):
            declared.add(name)  # nothing but a declaration has a type behind it
        elif name not in declared:
            yield f"{batch.place}:{batch.line}: {token} is not declared"


def insert_faults(batch, tokens, tables, named):
    for at, token in enumerate(tokens):
        if token.upper() != "INTO" or tokens[at + 1].startswith("@"):
            continue
        opening = tokens.index("(", at)
        table = named("".join(tokens[at + 1:opening]))
        listed, closing = sql.in_parentheses(tokens, opening)
        columns = [part[0] for part in sql.parted(listed)]
        yield from (f"{batch.place}:{batch.line}: {table} has no column {column}"
                    for column in columns if column not in tables.get(table, {}))
        while tokens[closing + 1].upper() in ("VALUES", ",") and tokens[closing + 2] == "(":
            values, closing = sql.in_parentheses(tokens, closing + 2)
            if len(sql.parted(values)) != len(columns):
                yield (f"{batch.place}:{batch.line}: {len(columns)} columns and {len(sql.parted(values))} values of "
                       f"{table}")


def column_faults(batch, tokens, tables, named):
    text = " ".join(tokens)
    sources = sql.sources_of(tokens, tables, named)
    for written in re.findall(r"(?:UPDATE|INTO|ON|TABLE) ((?:\w+ \. )*tb\w+)", text):
        sources[written] = list(tables.get(named(written.replace(" ", "")), {}))
    if "inserted" in tokens or " TRIGGER " in text:
        sources["i"] = sources.get("i") or list(tables["patient_data.tbmaster"])
    known = {column for columns in sources.values() for column in columns} | {"FirstName", "MiddleName"}
    aliases = {after for before, after in zip(tokens, tokens[1:]) if before.upper() == "AS"}
    for before, token, after in zip(["", *tokens], tokens, [*tokens[1:], ""]):
        if not re.fullmatch(r"[A-Za-z_]\w*", token) or token.upper() in WORDS or token in aliases:
            continue
        if before != "." and after not in ("(", ".") and token not in known:
            yield f"{batch.place}:{batch.line}: nothing is called {token}"
    for alias, column in re.findall(r"\b(\w+) \. (\w+)\b", text):
        if sources.get(alias) and column not in sources[alias]:
            yield f"{batch.place}:{batch.line}: {alias} has no column {column}"


def name_faults(batch, tables, named):
    """Every variable is declared, every column stands in the schema, as many values are written as columns are named."""
    tokens = sql.tokens_of(batch.text)
    yield from variable_faults(batch, tokens)
    yield from insert_faults(batch, tokens, tables, named)
    if tokens[0] == "CREATE" and tokens[1] in ("PROCEDURE", "TRIGGER", "VIEW"):
        yield from column_faults(batch, tokens, tables, named)


class Unavailable(Exception):
    """The grammar is not here and cannot be had."""


def parser_in(sources, build):
    """The folder with the grammar, installed from its registry once for every state of the lock file."""
    folder = build / "tsql-grammar"
    locked = (sources / "package-lock.json").read_bytes()
    done = folder / "installed-lock.json"
    if done.exists() and done.read_bytes() == locked:
        return folder
    if shutil.which("npm") is None:
        raise Unavailable("npm is missing (Debian packages nodejs and npm)")
    folder.mkdir(parents=True, exist_ok=True)
    for name in ("package.json", "package-lock.json"):
        shutil.copy(sources / name, folder)
    answer = subprocess.run(["npm", "ci", "--no-audit", "--no-fund"], cwd=folder, capture_output=True, text=True,
                            check=False)
    if answer.returncode != 0:
        raise Unavailable("npm cannot fetch antlr4ts and antlr4ts-sql: " + answer.stderr[-300:])
    done.write_bytes(locked)
    return folder


def faults(batches, sources, build):
    """What the grammar of the language finds."""
    if shutil.which("node") is None:
        raise Unavailable("node is missing (Debian package nodejs)")
    folder = parser_in(sources, build)
    asked = json.dumps([{"place": batch.place, "line": batch.line, "text": batch.text} for batch in batches])
    shutil.copy(sources / "tsql_grammar.js", folder)
    answer = subprocess.run(["node", folder / "tsql_grammar.js"], input=asked, capture_output=True, text=True,
                            check=False)
    if answer.returncode != 0:
        raise SystemExit("The grammar of T-SQL fails: " + answer.stderr[-1000:])
    return answer.stdout.splitlines()
