#!/usr/bin/env python3
"""Holds the scripts of a server and those of the embedded database together, and the former to what no server is at
hand to say of them.

Usage: database_test.py ROOT BUILD. Prints one line per fault and exits with 1 when there is any.
"""

import re
import sys
from pathlib import Path

import grammar
import sql_scripts as sql

# What stands on a server alone: how patients are looked for (functions of the program do it in the embedded database),
# the numbers that a session has drawn and the save it is at (temporary there), and the version (a property of the file
# there).
ONLY_SERVER_COLUMNS = {"SearchMiddle", "SearchPHIC", "SearchGSIS", "SearchSSS"}
ONLY_SERVER_TABLES = {"patient_data.tbdrawnnumber", "patient_data.tbdeskversion", "patient_data.tbauditedsave"}
KINDS = {"text": {"nvarchar"}, "integer": {"int", "bigint"}, "date": {"date"}, "datetime": {"datetime"}, "bit": {"bit"},
         "real": {"decimal"}}
PARAMETERS = {"text": {"nvarchar"}, "number": {"int", "decimal"}, "bit": {"bit"}, "date": {"nvarchar"}}

SKIPPED = 77

NAMED = re.compile(r"(?i)(\bfrom |\bupdate |\bdelete |)\b(Patient_Data|Build_File|billing)\.\.(\w+)")
CREATED = re.compile(r"\s*(?:--[^\n]*\n)*CREATE PROCEDURE dbo\.(\w+)\n(.*?)\nAS\nBEGIN\n", re.DOTALL)


def embedded_name(name):
    """Patient_Data_tbMaster as patient_data.tbmaster."""
    for database in ("Patient_Data", "Build_File", "billing"):
        if name.startswith(database + "_"):
            return f"{database}.{name[len(database) + 1:]}".lower()
    return name.lower()


def server_namer(database):
    """Turns dbo.tbMaster and Build_File.dbo.tbCoDoctor into patient_data.tbmaster and build_file.tbcodoctor."""
    def named(name):
        parts = name.lower().split(".")
        return f"{parts[-3] if len(parts) == 3 else database.lower()}.{parts[-1]}"
    return named


class Embedded:
    def __init__(self, folder):
        schema = (folder / "schema.sql").read_text(encoding="utf-8")
        self.tables = sql.tables_of(schema, embedded_name)
        self.procedures = [self.procedure(file) for file in sorted((folder / "procedures").glob("*.sql"))]

    def procedure(self, file):
        text = file.read_text(encoding="utf-8")
        database = re.search(r"^-- database: (\w+)", text, re.MULTILINE)
        heading = re.search(r"^-- parameters:(.*)$", text, re.MULTILINE).group(1)
        name = f"{database.group(1) if database else 'Patient_Data'}.{file.stem.split('.')[0]}"
        parameters = [tuple(part.split()) for part in heading.split(",") if part.strip()]
        output = re.search(r"^-- output: (\w+)", text, re.MULTILINE)
        if output:
            parameters.append((output.group(1), "text"))
        found = sql.Procedure(name.lower(), parameters, place=file.name)
        last = ([part for part in re.split(r";\n", text) if sql.tokens_of(part)] or [""])[-1]
        if (tokens := sql.tokens_of(last))[:1] == ["SELECT"] and not output:
            found.results = [sql.result_of(tokens, self.tables, embedded_name)]
        return found


class Server:
    def __init__(self, folder):
        self.batches = [batch for file in sorted(folder.glob("*.sql")) for batch in sql.batches_of(file)]
        self.tables, self.procedures = {}, []
        for batch in self.batches:
            self.tables.update(sql.tables_of(batch.text, server_namer(batch.database)))
            if view := re.match(r"\s*(?:--[^\n]*\n)*CREATE VIEW dbo\.(\w+) AS\n", batch.text):
                tokens = sql.tokens_of(batch.text[view.end():])
                columns = sql.result_of(tokens, self.tables, server_namer(batch.database))
                self.tables[f"{batch.database}.{view.group(1)}".lower()] = dict.fromkeys(columns, "")
        for batch in self.batches:
            if started := CREATED.match(batch.text):
                self.procedures.append(self.procedure(batch, started))

    def procedure(self, batch, started):
        name = f"{batch.database}.{started.group(1)}".lower()
        parameters = [(part[0][1:], part[1].lower()) for part in sql.parted(sql.tokens_of(started.group(2)))]
        found = sql.Procedure(name, parameters, place=f"{batch.place}: {started.group(1)}")
        if "SET NOCOUNT ON;" != batch.text[started.end():].splitlines()[0].strip():
            raise SystemExit(f"{found.place}: does not begin with SET NOCOUNT ON")
        # A select that answers rows begins a line of the body; what it is a part of stands before it on the line.
        for statement in re.split(r";\n", batch.text[started.end():]):
            beginning = re.search(r"^ *SELECT\b.*", statement, re.DOTALL | re.MULTILINE)
            if beginning and statement[:beginning.start()].count("(") == statement[:beginning.start()].count(")") \
                    and "INSERT INTO" not in statement:
                columns = sql.result_of(sql.tokens_of(beginning.group()), self.tables, server_namer(batch.database))
                found.results += [columns] if columns else []
        return found


def lower(names):
    return [name.lower() for name in names]


def table_faults(embedded, server):
    for name in embedded.tables.keys() ^ set(table for table, columns in server.tables.items()
                                             if not table.endswith(".vwdoctor")) ^ ONLY_SERVER_TABLES:
        yield f"table {name} stands in one script set alone"
    for name, columns in embedded.tables.items():
        theirs = {column: kind for column, kind in server.tables.get(name, {}).items()
                  if column not in ONLY_SERVER_COLUMNS}
        if sorted(columns) != sorted(theirs):
            yield f"table {name}: columns differ: {sorted(set(columns) ^ set(theirs))}"
        for column in columns.keys() & theirs.keys():
            if theirs[column] not in KINDS[columns[column]]:
                yield f"table {name}: {column} is {columns[column]} there and {theirs[column]} here"


def procedure_faults(embedded, server):
    ours = {procedure.name: procedure for procedure in server.procedures}
    for name in {procedure.name for procedure in embedded.procedures} ^ ours.keys():
        yield f"procedure {name} stands in one script set alone"
    for theirs in embedded.procedures:
        same = ours.get(theirs.name)
        if same is None:
            continue
        variants = [each for each in embedded.procedures if each.name == theirs.name]
        longest = max(len(each.parameters) for each in variants)
        if len(same.parameters) != longest:
            yield f"{same.place}: {len(same.parameters)} arguments and {longest} there"
        for (name, kind), (our_name, our_kind) in zip(theirs.parameters, same.parameters):
            told_apart = len(variants) > 1 and our_name.startswith("Argument")
            if name.lower() != our_name.lower() and not told_apart:
                yield f"{same.place}: @{our_name} stands where {name} does in {theirs.place}"
            if our_kind not in PARAMETERS[kind.rstrip("?")] and not told_apart:
                yield f"{same.place}: @{our_name} is {our_kind}, and {kind} in {theirs.place}"
        if len(variants) > 1:
            continue
        for columns in same.results or [[]]:
            if lower(columns) != lower((theirs.results or [[]])[0]):
                yield f"{same.place}: answers {columns}, and {theirs.results} in {theirs.place}"


def argument_of(expression, position):
    """The position of the one argument that an expression is made of; nothing for any other expression."""
    named = re.fullmatch(r"(?:RTRIM \( )?[:@](\w+)(?: \))?", " ".join(expression), re.IGNORECASE)
    return position.get(named.group(1).lower()) if named else None


def written_by_embedded(variant, folder, tables):
    """Which argument a procedure writes into which column, as (table, column): position."""
    text = (folder / variant.place).read_text(encoding="utf-8")
    text = re.sub(r"-- include: (\S+)", lambda part: (folder / part.group(1)).read_text(encoding="utf-8"), text)
    position = {name.lower(): at for at, (name, _) in enumerate(variant.parameters)}
    tokens, written = sql.tokens_of(text), {}
    for at in [at for at, token in enumerate(tokens) if token.upper() == "INTO"]:
        table, closing = embedded_name(tokens[at + 1]), at + 1
        columns = list(tables.get(table, {}))
        if tokens[at + 2] == "(":
            listed, closing = sql.in_parentheses(tokens, at + 2)
            columns = [part[0] for part in sql.parted(listed)]
        if tokens[closing + 1] == "VALUES":
            for column, value in zip(columns, sql.parted(sql.in_parentheses(tokens, closing + 2)[0])):
                written[table.split(".")[-1], column.lower()] = argument_of(value, position)
    return written


def written_by_server(procedure, batch, is_longest):
    """The same for a call with all arguments of a server's procedure, or with those alone that it cannot be without."""
    position = {name.lower(): at for at, (name, _) in enumerate(procedure.parameters)}
    chosen = re.findall(r"DECLARE @(\w+) \S+ = CASE WHEN @\w+ = 1 THEN @?(\w+) ELSE\s+(?:@?(\w+) END;|\()", batch.text)
    for name, longest, shortest in chosen:
        position[name.lower()] = position.get((longest if is_longest else shortest).lower())
    for name, argument in re.findall(r"DECLARE @(\w+) datetime = dbo\.OPD_Moment\(@(\w+),", batch.text):
        position[name.lower()] = position[argument.lower()]
    written = {}
    for table, columns, values in re.findall(r"INTO dbo\.(\w+) \((.*?)\)\s+VALUES \((.*?)\);", batch.text):
        for column, value in zip(columns.split(", "), sql.parted(sql.tokens_of(values))):
            written[table.lower(), column.lower()] = argument_of(value, position)
    for table, assignments in re.findall(r"UPDATE dbo\.(\w+) SET(.*?)WHERE", batch.text, re.DOTALL):
        for column, value in re.findall(r"(\w+) = (?:RTRIM\(|COALESCE\(|CASE WHEN )?(@\w+)", assignments):
            written[table.lower(), column.lower()] = argument_of([value], position)
    return written


def writing_faults(embedded, server, folder):
    """Each argument goes into the same column, also where hospitals call a procedure with lists of two lengths."""
    batches = {f"{batch.database}.{created.group(1)}".lower(): batch for batch in server.batches
               if (created := CREATED.match(batch.text))}
    ours = {procedure.name: procedure for procedure in server.procedures}
    compared = 0
    for variant in embedded.procedures:
        same = ours[variant.name]
        there = written_by_embedded(variant, folder, embedded.tables)
        here = written_by_server(same, batches[variant.name], len(variant.parameters) == len(same.parameters))
        for key in [key for key in there if there[key] is not None]:
            compared += 1
            if key not in here:
                yield f"{same.place}: writes no {key[1]}, as {variant.place} does"
            elif here[key] is not None and there[key] != here[key]:
                yield (f"{same.place}: writes argument {here[key] + 1} into {key[1]} where {variant.place} writes "
                       f"{there[key] + 1}")
    if compared < 190:
        yield f"only {compared} columns could be compared with the arguments that are written into them"


def audit_faults(embedded, server, folder):
    """Both sets note the changes of the same columns, and with each the argument that is written into it."""
    noted = re.compile(r"SELECT N?'(\w+)'(?: AS What)?,\s+(?:CAST\(|CONVERT\(nvarchar\(10\), )?"
                       r"(?:(?:ISNULL|coalesce)\()?(\w+).*?[:@](\w+)", re.IGNORECASE | re.DOTALL)

    def of(text):
        return {(what, column, value.lower().replace("born", "birthdate"))
                for what, column, value in noted.findall(text)}
    there = set().union(*(of(file.read_text(encoding="utf-8")) for file in folder.glob("*.sql*")))
    here = set().union(*(of(batch.text) for batch in server.batches if CREATED.match(batch.text)))
    for what, column, value in sorted(there ^ here):
        yield f"the change of {what} is noted in one script set alone, or otherwise: {column}, {value}"
    for what, column, value in sorted(there):
        if not what.lower() == column.lower() == value:
            yield f"the change of {what} is noted as that of {column} into {value}"
    if len(there) < 55:
        yield f"the changes of {len(there)} columns alone are noted"
    for batch in server.batches:
        yield from (f"{batch.place}:{batch.line}: desks get a right to what only auditors read"
                    for _ in re.findall(r"GRANT SELECT(?! \(AuditID, HospNum, Session, UserID\)).*tbMasterAudit TO opd_desk",
                                        batch.text))


def own_faults(server, root):
    for batch in server.batches:
        yield from grammar.name_faults(batch, server.tables, server_namer(batch.database))
    here = {batch.text[batch.text.index("CREATE FUNCTION"):] for batch in server.batches
            if "CREATE FUNCTION dbo.OPD_Folded" in batch.text}
    if len(here) != 1:
        yield "OPD_Folded differs from one database to the other"
    granted = set(re.findall(r"GRANT EXECUTE ON dbo\.(\w+)", (root / "database/sqlserver/14-rights.sql").read_text()))
    for name in {procedure.name.split(".")[1] for procedure in server.procedures} - set(lower(granted)):
        yield f"14-rights.sql grants nobody {name}"


def borrowed_faults(server):
    """On Babelfish procedures reach tables with the rights of the desks, which have those that it takes and no more."""
    reaches = re.compile(r"(INSERT INTO|UPDATE|DELETE FROM|FROM|JOIN) (?:(\w+)\.)?dbo\.(?!OPD_)(\w+)")
    names = {"INSERT INTO": {"INSERT"}, "UPDATE": {"UPDATE", "SELECT"}, "DELETE FROM": {"DELETE", "SELECT"}}
    held, lent, needed = set(), set(), set()
    for batch in server.batches:
        for right, table in re.findall(r"GRANT (\w+)[^\n]* ON dbo\.(\w+) TO opd_desk", batch.text):
            (lent if "N'babelfish') IS NOT NULL" in batch.text else held).add((batch.database, table, right))
        if re.search(r"^CREATE (PROCEDURE|FUNCTION|TRIGGER)", batch.text, re.MULTILINE):
            for verb, database, table in reaches.findall(re.sub(r"--[^\n]*", "", batch.text)):
                needed |= {(database or batch.database, table, right) for right in names.get(verb, {"SELECT"})}
    yield from (f"on Babelfish desks lack the right to {right} {database}.{table}"
                for database, table, right in sorted(needed - held - lent))
    yield from (f"on Babelfish desks have a right to {right} {database}.{table} that nothing takes"
                for database, table, right in sorted(lent - needed) if right != "EXECUTE")


def contract_faults(server, root):
    """The contract that every database is held to asks each procedure."""
    asked = "".join(file.read_text(encoding="utf-8") for file in (root / "tests/contract").iterdir()).lower()
    for procedure in server.procedures:
        if not re.search(rf"\b{procedure.name.split('.')[1]}\b", asked):
            yield f"{procedure.place}: nothing in tests/contract asks it"


def statement_faults(server, root):
    """What the desk names stands on the server, and the role of the desks may do with it what the statement does."""
    rights = "".join(batch.text for batch in server.batches
                     if batch.place == "14-rights.sql" and "babelfish" not in batch.text)
    known = {procedure.name for procedure in server.procedures}
    rooms = [room for room in (root / "src").iterdir() if room.name not in ("adapters", "setup", "host")]
    texts = [file for room in rooms for file in room.rglob("*.cpp")] + [*(root / "Reports").glob("*.rpt")]
    for file in texts:
        for verb, database, name in NAMED.findall(file.read_text(encoding="utf-8")):
            full = f"{database}.{name}".lower()
            if full not in known and full not in server.tables:
                yield f"{file.name}: {database}..{name} stands in no script"
            right = {"update ": "UPDATE", "delete ": "DELETE"}.get(verb.lower(), "SELECT")
            if full in server.tables and not re.search(rf"(?i)GRANT {right} ON dbo\.{name} TO opd_desk", rights):
                yield f"{file.name}: the role of the desks has no right to {right} {name}"


def list_faults(root):
    sys.path.insert(0, str(root / "tools"))
    import reference_sql
    file = root / "database/sqlserver/12-reference-data.sql"
    if file.read_text(encoding="utf-8") != reference_sql.script(root):
        yield f"{file.name} is not what tools/reference_sql.py makes of database/reference"


def main(root, build):
    embedded, server = Embedded(root / "database/embedded"), Server(root / "database/sqlserver")
    faults = [*table_faults(embedded, server), *procedure_faults(embedded, server),
              *writing_faults(embedded, server, root / "database/embedded/procedures"),
              *audit_faults(embedded, server, root / "database/embedded/procedures"), *own_faults(server, root),
              *borrowed_faults(server), *contract_faults(server, root), *statement_faults(server, root), *list_faults(root)]
    unparsed = None
    try:
        faults += grammar.faults(server.batches, Path(__file__).parent, build)
    except grammar.Unavailable as reason:
        unparsed = reason
    print("\n".join(faults) if faults else f"{len(server.batches)} batches, {len(server.procedures)} procedures, "
          f"{len(server.tables)} tables: no fault")
    if unparsed:
        print(f"Skipped: the scripts are not parsed, because the grammar of T-SQL cannot be installed: {unparsed}")
    return 1 if faults else SKIPPED if unparsed else 0


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1]), Path(sys.argv[2])))
