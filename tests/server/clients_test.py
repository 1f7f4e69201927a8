#!/usr/bin/env python3
"""Clients that share no code with the test server, or with each other, read the same from it.

Usage: clients_test.py SERVER DESK CLIENT [NPM_FOLDER], where CLIENT is tsql, pytds or tedious.
"""

import datetime
import os
import re
import shutil
import socket
import subprocess
import sys
import threading
from pathlib import Path

from fixture import DATABASE, LONG, PASSWORD, USER, Server

MASTER = "Patient_Data..tbMaster"
ROWS = f"select HospNum, LastName, MiddleName, BirthDate, FileNum, Occupation from {MASTER} where HospNum = "
NAME = f"select LastName from {MASTER} where HospNum = '00000001'"
RENAME = f"update {MASTER} set LastName = '%s' where HospNum = '00000001'"
TYPES = ("select cast(1 as bit) as a, 7 as b, cast(12345678901 as bigint) as c, cast('-12.50' as money) as d, "
         "cast('12.345' as decimal(18,3)) as e, cast('1.5' as float) as f, cast('Ñandú' as varchar(20)) as g, "
         "cast(N'Ñandú 漢' as nvarchar(max)) as h, cast(null as int) as i, cast('2026-11-25 10:11:12' as datetime2(0)) as j, "
         "cast('1899-12-31' as datetime) as k")
TWO_SETS = "select 1 as a; select N'two' as b"
DRAW = "exec Patient_Data..sp_adm_GetNewHospNum"

EXPECTED = [
    f"00000001|NUÑEZ|-|1935-02-28|7|{LONG}",
    "00000002|O`HARA|Ü|2004-02-29|-|-",
    "1|7|12345678901|-12.5|12.345|1.5|Ñandú|Ñandú 漢|-|2026-11-25 10:11:12|1899-12-31",
    "1", "two",
    "error 2812", "error 208", "error 18456",
    "00000021",
    "NUÑEZ", "PEÑA",
]


def shown(value):
    """A cell as all clients are to have it: "-" for null, numbers without zeros that say nothing, dates by ISO."""
    if isinstance(value, datetime.datetime):
        value = value.isoformat(sep=" ")
    text = "-" if value is None or value in ("NULL", "") else str(int(value)) if isinstance(value, bool) else str(value)
    if re.fullmatch(r"[A-Z][a-z]{2} .* .*[AP]M", text):  # tsql's own
        text = str(datetime.datetime.strptime(" ".join(text.split()), "%b %d %Y %I:%M%p"))
    text = re.sub(r"^(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d)\.0+$", r"\1", text).removesuffix(" 00:00:00")
    return re.sub(r"\.?0+$", "", text) if re.fullmatch(r"-?\d+\.\d+", text) else text


def line(cells):
    return "|".join(shown(cell) for cell in cells)


class Tsql:
    """A program that takes batches of text; what it cannot bind is asked for in the batch itself."""

    def converse(self, port):
        for number in "12":
            yield from self.ask(port, ROWS + f"'0000000{number}'")
        yield from self.ask(port, TYPES)
        yield from self.ask(port, TWO_SETS)
        yield from self.ask(port, "Patient_Data..sp_nope '1'")
        yield from self.ask(port, "select a from Patient_Data..tbNope")
        yield from self.ask(port, NAME, password="wrong")
        yield from self.ask(port, DRAW)
        yield from self.ask(port, "begin transaction", RENAME % "LOST", "rollback transaction", NAME)
        yield from self.ask(port, "begin transaction", RENAME % "PEÑA", "commit transaction", NAME)

    @staticmethod
    def ask(port, *batches, password=PASSWORD):
        command = ["tsql", "-o", "qfh", "-H", "127.0.0.1", "-p", str(port), "-U", USER, "-P", password, "-D", DATABASE]
        answer = subprocess.run(command, input="".join(batch + "\ngo\n" for batch in batches), capture_output=True, text=True,
                                timeout=30, check=False, env={**os.environ, "LC_ALL": "C.UTF-8"})
        yield from (line(row.split("\t")) for row in answer.stdout.splitlines() if row.strip())
        yield from (f"error {number}" for number in re.findall(r"Msg (\d+) ", answer.stderr + answer.stdout))


class Pytds:
    """Over a wire that passes one byte at a time, and with the smallest packets."""

    def converse(self, port):
        import pytds
        self.port = drop_by_drop(port)
        connection = self.connect(pytds)
        cursor = connection.cursor()
        for number in "12":
            yield line(cursor.execute(ROWS + "%s", (f"0000000{number}",)).fetchone())
        yield line(cursor.execute(TYPES).fetchone())
        yield line(cursor.execute(TWO_SETS).fetchone())
        assert cursor.nextset()
        yield line(cursor.fetchone())
        for statement in ("Patient_Data..sp_nope '1'", "select a from Patient_Data..tbNope"):
            yield self.error(pytds, lambda text=statement: cursor.execute(text))
        yield self.error(pytds, lambda: self.connect(pytds, password="wrong"))
        yield line(cursor.callproc("Patient_Data..sp_adm_GetNewHospNum", [pytds.output(param_type=str)]))
        connection.rollback()
        cursor.execute(RENAME % "LOST")
        connection.rollback()
        yield line(cursor.execute(NAME).fetchone())
        cursor.execute(f"update {MASTER} set LastName = %s where HospNum = %s", ("PEÑA", "00000001"))
        connection.commit()
        yield line(cursor.execute(NAME).fetchone())

    def connect(self, pytds, **more):
        settings = {"password": PASSWORD, "blocksize": 512, "timeout": 20, "login_timeout": 20, **more}
        return pytds.connect("127.0.0.1", DATABASE, USER, port=self.port, **settings)

    @staticmethod
    def error(pytds, attempt):
        try:
            attempt()
        except pytds.Error as error:
            return f"error {error.number}"
        return "no error"


class Tedious:
    def __init__(self, folder):
        sources = Path(__file__).parent / "clients"
        self.folder = Path(folder)
        self.folder.mkdir(parents=True, exist_ok=True)
        before = [(self.folder / name).read_bytes() if (self.folder / name).exists() else None for name in NPM_FILES]
        for name in (*NPM_FILES, "tedious.js"):
            shutil.copy(sources / name, self.folder)
        after = [(self.folder / name).read_bytes() for name in NPM_FILES]
        if before == after and (self.folder / "node_modules" / "tedious").exists():
            return
        install = ["npm", "ci", "--no-audit", "--no-fund", "--fetch-retries=1"]
        if not shutil.which("npm") or subprocess.run(install, cwd=self.folder, check=False).returncode != 0:
            print("Skipped: tedious cannot be fetched here.")
            sys.exit(77)

    def converse(self, port):
        statements = [ROWS + "@number", TYPES, TWO_SETS, NAME, RENAME % "LOST",
                      f"update {MASTER} set LastName = @name where HospNum = @number"]
        answer = subprocess.run(["node", "tedious.js", str(port), USER, PASSWORD, DATABASE, *statements],
                                cwd=self.folder, capture_output=True, text=True, timeout=60, check=False)
        sys.stderr.write(answer.stderr)
        return (line(row.split("\t")) for row in answer.stdout.splitlines())


NPM_FILES = ("package.json", "package-lock.json")


def drop_by_drop(port):
    """A port that passes everything on to the other one, and back, a byte at a time."""
    listening = socket.create_server(("127.0.0.1", 0))

    def pass_on(source, target):
        while data := source.recv(4096):
            for byte in data:
                target.sendall(bytes([byte]))
        target.shutdown(socket.SHUT_WR)

    def serve():
        while True:
            client = listening.accept()[0]
            server = socket.create_connection(("127.0.0.1", port))
            for ends in ((client, server), (server, client)):
                ends[1].setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
                threading.Thread(target=pass_on, args=ends, daemon=True).start()

    threading.Thread(target=serve, daemon=True).start()
    return listening.getsockname()[1]


def main(program, desk, client, *more):
    clients = {"tsql": Tsql, "pytds": Pytds, "tedious": Tedious}
    with Server(program, desk) as server:
        read = list(clients[client](*more).converse(server.port))
    for expected, found in zip(EXPECTED, read):
        if client == "tsql":  # which shows no seconds
            expected = expected.replace("10:11:12", "10:11:00")
        assert expected == found, f"expected {expected}\nread     {found}"
    assert len(read) == len(EXPECTED), read


if __name__ == "__main__":
    main(*sys.argv[1:])
