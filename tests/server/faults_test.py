#!/usr/bin/env python3
"""What the test server is told to do wrong, it does, and the database holds what it should.

Usage: faults_test.py SERVER DESK
"""

import re
import stat
import sys
import threading
import time
from concurrent.futures import ThreadPoolExecutor

import pyodbc

from fixture import PASSWORD, Server, odbc_settings

NAME = "select LastName from Patient_Data..tbMaster where HospNum = '00000001'"
RENAME = "update Patient_Data..tbMaster set LastName = '%s' where HospNum = '00000001'"
DRAW = "exec Patient_Data..sp_aopd_GetNewOPDID"
RUNS_IT = ("drop-after", "drop-within", "garbage")  # the statement is run before the answer goes wrong
FAULTS = ("drop-before", "drop-after", "drop-within", "never", "garbage", "garbage:raw", "error:1205", "error:50000,NO")


def connect(server, password=PASSWORD, autocommit=False, patience=1):
    settings = odbc_settings(server.port, password) + f";Timeout={patience}"  # without it, a commit waits for ever
    connection = pyodbc.connect(settings, autocommit=autocommit, timeout=patience)
    connection.timeout = patience
    return connection


def stored(server):
    return server.sql("select LastName from Patient_Data_tbMaster where HospNum = '00000001'")


def failure(attempt):
    """What a client meets: the number of an error, "lost" where the connection fails, nothing when it goes well."""
    try:
        attempt()
    except pyodbc.Error as error:
        numbers = [int(number) for number in re.findall(r"\((\d+)\)", str(error))]
        own = [number for number in numbers if not 20000 <= number < 30000]  # those between are the client's
        return str(own[0]) if own and own[0] != 0 else "lost"
    return ""


def steps_of_a_transaction(fault):
    kind, _, argument = fault.partition(":")
    expected = argument.split(",")[0] if kind == "error" else "lost"
    with Server(*sys.argv[1:]) as server:
        for step in ("update", "select", "commit"):
            before, after = stored(server), f"N{time.monotonic_ns()}"
            connection = connect(server)
            cursor = connection.cursor()
            server.tell(f"fault {kind}@{step}" + (f":{argument}" if argument else ""))
            steps = {"update": lambda: cursor.execute(RENAME % after),
                     "select": lambda: cursor.execute(NAME).fetchall(), "commit": connection.commit}
            met = {name: failure(attempt) for name, attempt in steps.items()}
            failure(connection.close)
            assert met[step] == expected, (fault, step, met)
            assert all(not met[name] for name in list(steps)[:list(steps).index(step)]), (fault, step, met)
            others_go_on = fault == "error:50000,NO" and step == "select"  # nothing else fails then
            kept = step == "commit" and kind in RUNS_IT or others_go_on
            assert stored(server) == (after if kept else before), (fault, step, met)


def logins(server):
    assert failure(lambda: connect(server, password="wrong")) == "18456"
    for fault, met in (("error@login#*:4060", "4060"), ("drop-before@login#*", "lost"), ("never@login desk#*", "lost")):
        server.tell(f"fault {fault}")
        assert failure(lambda: connect(server)) == met, fault
        server.tell("clear")
        connect(server).close()


def counting_and_slowness(server):
    cursor = connect(server, autocommit=True, patience=5).cursor()
    for fault, times in (("error@3:50001", [3]), ("error@tbMASTER#2:50001", [2]), ("error@*:50001", [1, 2, 3, 4])):
        server.tell(f"fault {fault}")
        met = [failure(lambda: cursor.execute(NAME)) for _ in range(4)]
        assert met == ["50001" if time in times else "" for time in range(1, 5)], (fault, met)
        server.tell("clear")
    server.tell("fault slow@select:200")
    start = time.monotonic()
    cursor.execute(NAME)
    assert cursor.fetchone() and time.monotonic() - start >= 0.2
    server.tell("drop")
    assert failure(lambda: cursor.execute(NAME)) == "lost"


def attention(server):
    """A statement that the client gives up is over, and the connection goes on: one that sleeps, and one that waits."""
    holder, waiter = connect(server), connect(server, autocommit=True, patience=2)
    holder.cursor().execute(RENAME % "HELD")
    cursor = waiter.cursor()
    server.tell("fault slow@select:60000")
    for statement in (NAME, RENAME % "WAITED"):
        assert failure(lambda text=statement: cursor.execute(text)) == "lost"
        start = time.monotonic()
        assert cursor.execute(NAME).fetchone() != ("WAITED",) and time.monotonic() - start < 2
    holder.commit()
    assert stored(server) == "HELD"


def many_connections(server, clients=30, draws=10):
    numbers = []

    def draw():
        connection = connect(server, autocommit=True, patience=60)
        for _ in range(draws):
            numbers.append(connection.execute(DRAW).fetchone()[0])

    threads = [threading.Thread(target=draw) for _ in range(clients)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert len(set(numbers)) == clients * draws, f"{len(numbers)} numbers, {len(set(numbers))} different ones"


def log_of_statements(server):
    assert stat.S_IMODE((server.path / "log").stat().st_mode) == 0o600
    before = len(server.received())
    connection = connect(server, autocommit=True)
    connection.execute("select 'Ñ''' as a\n, 'b\\' as b")
    assert server.received()[before:] == ["login desk LABORATORY", "select 'Ñ''' as a\\n, 'b\\\\' as b"]
    assert PASSWORD not in (server.path / "log").read_text(encoding="utf-8")


if __name__ == "__main__":
    with ThreadPoolExecutor() as waiting:
        list(waiting.map(steps_of_a_transaction, FAULTS))
    with Server(*sys.argv[1:]) as running:
        for case in (logins, counting_and_slowness, attention, many_connections, log_of_statements):
            case(running)
            running.tell("clear")
    with Server(*sys.argv[1:], "--require-encryption") as running:
        assert failure(lambda: connect(running)) == "lost"
    with Server(*sys.argv[1:], "--fault", "error@login#*:4060") as running:
        assert failure(lambda: connect(running)) == "4060"
