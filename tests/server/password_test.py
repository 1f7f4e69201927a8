#!/usr/bin/env python3
"""The password of a login stands in the settings file, which is its owner's alone, and nowhere else that others can look.

Usage: password_test.py SERVER DESK
"""

import os
import resource
import signal
import stat
import struct
import subprocess
import sys
from pathlib import Path

from fixture import NOW, Server

PASSWORD = "Pa{ss}=w0rd, Ñ&%27"
SCRIPT = """expect-window frmMasterSearch
type txtHospNum "00000001"
wait 600
key Enter
expect-window frmRegistration
say "{more}"
answer "OK" to "Are you sure to close this program?"
click cmdCancel
click Command1(2)
"""


def tree(pid):
    """The process and all that it started."""
    yield pid
    for task in Path(f"/proc/{pid}/task").iterdir():
        for child in (task / "children").read_text().split():
            yield from tree(int(child))


def expect_hidden(what, content):
    for form in (PASSWORD.encode(), PASSWORD.encode("utf-16-le"), b"Pa{ss}"):
        assert form not in content, f"the password stands in {what}"


def look_over(desk):
    """What others see of a running desk, and of what it started."""
    for pid in tree(desk.pid):
        for name in ("cmdline", "environ", "comm", "status", "maps"):
            expect_hidden(f"/proc/{pid}/{name}", Path(f"/proc/{pid}/{name}").read_bytes())


class CoreDump:
    """What the kernel writes of a process that it ends, in the folder where that works; a 64-bit ELF file."""

    def __init__(self, process, folder):
        resource.prlimit(process.pid, resource.RLIMIT_CORE, (resource.RLIM_INFINITY, resource.RLIM_INFINITY))
        fields = Path(f"/proc/{process.pid}/stat").read_text(encoding="utf-8").rsplit(")", 1)[1].split()
        self.words_at, self.words_end = int(fields[45]), int(fields[48])  # the command line and the environment
        process.send_signal(signal.SIGQUIT)
        process.communicate()
        self.content = next(folder.glob("core*")).read_bytes()
        place, size, count = struct.unpack_from("<Q14xHH", self.content, 32)
        self.parts = [struct.unpack_from("<II6Q", self.content, place + at * size) for at in range(count)]

    @staticmethod
    def can_be_had():
        return resource.getrlimit(resource.RLIMIT_CORE)[1] == resource.RLIM_INFINITY and \
            not Path("/proc/sys/kernel/core_pattern").read_text(encoding="utf-8").startswith(("|", "/"))

    def notes(self):
        """Name and command line of the process, the files that it had open in memory, and whatever else stands there."""
        return b"".join(self.content[offset:offset + length]
                        for kind, _, offset, _, _, length, *_ in self.parts if kind == 4)

    def words(self):
        """The command line and the environment in the memory of the process."""
        return b"".join(self.content[offset + self.words_at - address:offset + self.words_end - address]
                        for kind, _, offset, address, _, length, *_ in self.parts
                        if kind == 1 and address <= self.words_at < address + length)


class Workstation:
    def __init__(self, server, desk):
        self.server, self.desk = server, desk
        self.settings, self.trace, self.script = (server.path / name for name in ("mine.ini", "trace", "script.opd"))
        self.script.write_text(SCRIPT.format(more="x" * 100000), encoding="utf-8")  # more than a pipe takes
        self.environment = {**os.environ, "OPD_CLASS_REGISTRY": str(server.path / "classes.ini")}

    def start(self, *words):
        return subprocess.Popen([self.desk, *words], env=self.environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, cwd=self.server.path)

    @staticmethod
    def end(process, given=b""):
        told = b"".join(process.communicate(given, timeout=60))
        expect_hidden("a message", told)
        return process.returncode, told.decode(errors="replace")

    def configure(self, *words, password=PASSWORD):
        process = self.start("configure", "--server", f"localhost,{self.server.port}", "--user", "desk",
                             "--password-stdin", "--settings", self.settings, *words)
        look_over(process)
        assert self.end(process, password.encode() + b"\n") == (0, "")
        assert stat.S_IMODE(self.settings.stat().st_mode) == 0o600

    def run(self):
        return self.start("run", "--settings", self.settings, "--now", NOW, "--desktop", "scripted", "--script", self.script,
                          "--trace", self.trace)

    def expect_refused(self, *parts):
        status, told = self.end(self.run())
        assert status != 0 and all(part in told for part in parts), told

    def opens_a_patient(self):
        process = self.run()
        process.stdout.read(1)  # it says more than anybody reads, and holds still
        look_over(process)
        status, told = self.end(process)
        assert status == 0, told
        expect_hidden("the trace", self.trace.read_bytes())
        assert stat.S_IMODE(self.trace.stat().st_mode) == 0o600 and self.trace.stat().st_size > 1000

    def is_dumped(self):
        process = self.run()
        process.stdout.read(1)
        dump = CoreDump(process, self.server.path)
        expect_hidden("the notes of a core dump", dump.notes())
        expect_hidden("the command line in a core dump", dump.words())
        assert b"opd-desk" in dump.notes() and b"--settings" in dump.words() and b"OPD_SETTINGS" in dump.words()

    def makes_a_hospital(self):
        process = self.start("create-server", "--server", f"localhost,{self.server.port}", "--user", "desk",
                             "--password-stdin", "--desk-password-stdin")
        look_over(process)
        return self.end(process, f"{PASSWORD}\n{PASSWORD}\n".encode())

    def shell_of_the_database(self):
        process = self.start("sql", self.server.path / "hospital")
        look_over(process)
        self.end(process)


def main(program, desk):
    with Server(program, desk, "--password", PASSWORD) as server:
        workstation = Workstation(server, desk)
        workstation.environment["OPD_SETTINGS"] = str(workstation.settings)
        workstation.configure()
        workstation.opens_a_patient()
        workstation.shell_of_the_database()
        if CoreDump.can_be_had():
            workstation.is_dumped()

        server.tell("fault error@select:50000,Refused.")
        workstation.expect_refused("Refused.")
        server.tell("clear")
        workstation.settings.chmod(0o640)
        workstation.expect_refused(f'chmod 600 "{workstation.settings}"')
        workstation.settings.chmod(0o600)
        before = len(server.received())
        workstation.configure("--encrypt", "required")
        workstation.expect_refused("with encryption, as the settings require")
        assert server.received()[before:] == [], "it logged on without encryption"
    with Server(program, desk, "--password", PASSWORD, "--stand-in", "Scripts_") as server:
        workstation = Workstation(server, desk)
        assert workstation.makes_a_hospital() == (0, "")
        assert any("CREATE LOGIN" in statement and "Pa{ss}" in statement for statement in server.received())
        server.tell("fault error@CREATE LOGIN:15118,Password validation failed.")
        status, told = workstation.makes_a_hospital()
        assert status != 0 and "15-login.sql" in told and told.endswith("Password validation failed.\n"), told
    with Server(program, desk, "--password", "another") as server:
        workstation = Workstation(server, desk)
        workstation.configure()
        workstation.expect_refused("Login failed for user 'desk'.")
        server.tell("fault drop-before@login#*")
        workstation.expect_refused("cannot be reached")


if __name__ == "__main__":
    main(*sys.argv[1:])
