#!/usr/bin/env python3
"""Writes the reference lists of database/reference as the script that fills a server with them.

Usage: reference_sql.py ROOT. Prints database/sqlserver/12-reference-data.sql; a test holds that file to the lists.
"""

import re
import sys
from pathlib import Path

ROWS_OF_A_BATCH = 500  # a server takes at most 1,000 rows of values in one statement

HEAD = """-- The reference files of the hospital, made from the lists of database/reference by tools/reference_sql.py.
-- A list goes into an empty table alone: what a hospital has made of it since stays. Its parts follow each other, so
-- that a run that was interrupted is completed by the next.
USE Build_File;
GO
"""


def columns_of(schema, table):
    body = re.search(rf"CREATE TABLE dbo\.{table} \((.*?)\n\);", schema, re.DOTALL).group(1)
    return re.findall(r"^  (\w+) (\w+)", body, re.MULTILINE)


def literal(value, kind):
    if kind == "int":
        return str(int(value))
    # Characters beyond ASCII by their numbers: no tool that sends the script can take them for others.
    quoted = value.replace("'", "''")
    return "N'" + re.sub(r"[^\x20-\x7e]", lambda c: f"' + NCHAR({ord(c.group())}) + N'", quoted) + "'"


def batches_of(table, columns, rows):
    for start in range(0, len(rows), ROWS_OF_A_BATCH):
        values = ",\n".join("  (" + ", ".join(literal(value, kind) for value, (_, kind) in zip(row, columns)) + ")"
                            for row in rows[start:start + ROWS_OF_A_BATCH])
        yield (f"IF (SELECT COUNT(*) FROM dbo.{table}) = {start}\n"
               f"INSERT INTO dbo.{table} ({', '.join(name for name, _ in columns)}) VALUES\n{values};\nGO\n")


def script(root):
    schema = (root / "database/sqlserver/03-build-file-tables.sql").read_text(encoding="utf-8")
    text = HEAD
    for file in sorted((root / "database/reference").glob("*.txt")):
        rows = [line.split("|") for line in file.read_text(encoding="utf-8").splitlines() if not line.startswith("#")]
        columns = columns_of(schema, file.stem)
        wrong = [row for row in rows if len(row) != len(columns)]
        if wrong:
            raise SystemExit(f"{file.name}: {wrong[0]} does not fit {columns}")
        text += "".join(batches_of(file.stem, columns, rows))
    return text


if __name__ == "__main__":
    sys.stdout.write(script(Path(sys.argv[1])))
