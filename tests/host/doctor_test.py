"""What `opd-desk doctor` says when one thing after the other is broken: doctor_test.py TEST_SERVER OPD_DESK"""

import os
import stat
import subprocess
import sys
import tempfile
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parent.parent / "server"))
from fixture import PASSWORD, USER, Server  # noqa: E402


class Workstation:
    """A user with a home and a program of its own, whose files are links to those of the build."""

    def __init__(self, folder, desk):
        self.home = folder / "home"
        self.bin = folder / "bin"
        for path in (self.home, self.bin, self.bin / "Reports"):
            path.mkdir(mode=0o700)
        for file in [*desk.parent.glob("*.so"), desk, *(desk.parent / "Reports").iterdir()]:
            os.link(file, self.bin / file.relative_to(desk.parent))
        self.settings = self.home / ".config" / "QUORIN Current User.ini"

    def desk(self, *words, given=""):
        environment = {key: value for key, value in os.environ.items()
                       if key not in ("OPD_NOW", "DISPLAY", "WAYLAND_DISPLAY", "XDG_CONFIG_HOME")}
        return subprocess.run([self.bin / "opd-desk", *words], input=given, capture_output=True, text=True, timeout=60,
                              env={**environment, "HOME": str(self.home), "QT_QPA_PLATFORM": "offscreen"})

    def doctor(self, *words):
        """The lines that are not right, each with the command below it; the status tells whether any is wrong."""
        ended = self.desk("doctor", *words)
        assert PASSWORD not in ended.stdout + ended.stderr
        found = {}
        for line in ended.stdout.splitlines():
            if line.startswith(" "):
                found[what] = (found[what][0], line.strip())
            else:
                what, text = line[:22].strip(), line[22:]
                found[what] = (text, "")
        wrong = {what.split(maxsplit=1)[1]: each for what, each in found.items() if what.startswith("WRONG")}
        assert ended.returncode == (1 if wrong else 0), ended.stderr
        return wrong


def expect(found, *expected):
    """Each expected is what is wrong, a piece of the line, and a piece of its command; and nothing else is wrong."""
    assert sorted(found) == sorted(what for what, _, _ in expected), found
    for what, piece, command in expected:
        assert piece in found[what][0] and command in found[what][1], (what, found[what])


def try_settings(work):
    expect(work.doctor(), ("settings", "No database is configured", "opd-desk configure --server"))
    work.desk("configure", "--server", str(work.home / "none"))
    (work.home / "none").mkdir()
    (work.home / "none" / "hospital.db").touch(mode=0o600)
    expect(work.doctor(), ("connection", "is not a hospital database", "opd-desk restore --database"))
    (work.home / "none" / "hospital.db").unlink()
    (work.home / "none").rmdir()
    expect(work.doctor(), ("connection", "hospital.db", f"mkdir -p -m 770 {work.home}/none && opd-desk restore"))
    work.settings.chmod(0o644)
    expect(work.doctor(), ("settings", "Others than its owner", "chmod 600 '" + str(work.settings)))
    work.settings.chmod(0o600)


def try_hospital(work):
    hospital = work.home / "O'HARA"
    assert work.desk("create-database", str(hospital), "--patients", "20").returncode == 0
    work.desk("configure", "--server", str(hospital))
    expect(work.doctor())
    expect(work.doctor("--database", str(hospital)))

    mode = stat.S_IMODE(hospital.stat().st_mode)
    hospital.chmod(0o755)
    expect(work.doctor(), ("rights", "Every user", "chmod o-rwx '" + str(hospital).replace("'", "'\\''") + "'"))
    hospital.chmod(mode)
    (hospital / "Pictures").write_text("")
    expect(work.doctor(), ("picture folder", "is no folder", "mv "))
    (hospital / "Pictures").unlink()

    sql, backup = ("sql", "--write", str(hospital)), str(work.home / "backup")
    work.desk("backup", backup)
    work.desk(*sql, "drop table Patient_Data_tbMasterDependent")
    expect(work.doctor(), ("procedures", "Patient_Data..sp_Adm_", "opd-desk restore"))
    work.desk("restore", backup)
    expect(work.doctor())
    work.desk(*sql, "pragma user_version = 99")
    expect(work.doctor(), ("version", "newer than this program's", "apt install"))
    (hospital / "hospital.db").write_bytes(b"x" * 8192)
    expect(work.doctor(), ("connection", "damaged", "opd-desk restore --database"))


def try_program(work):
    data_sheet = work.bin / "Reports" / "DataSheet.rpt"
    data_sheet.unlink()
    data_sheet.write_text("no report")
    work.bin.chmod(0o777)
    found = work.doctor("--database", str(work.home))
    for what, command in (("report file", "apt install --reinstall"), ("program", "chmod go-w " + str(work.bin)),
                          ("windows", "chmod go-w " + str(work.bin))):
        assert command in found[what][1], found
    work.bin.chmod(0o700)
    os.unlink(work.bin / "Reports" / "Label.rpt")
    ended = work.desk("doctor", "--database", str(work.home)).stdout
    assert "Label.rpt cannot be read" in ended and ended.count("WRONG report file") == 2, ended


def try_server(work, program, desk):
    configure = ("configure", "--user", USER, "--password-stdin", "--server")
    with Server(program, desk, "--lacking", "sp_adm_LoadPatient", "--lacking", "sp_AOPD_SaveHMOLOA@IDNum") as server:
        name = f"127.0.0.1,{server.port}"
        work.desk(*configure, name, given="wrong\n")
        expect(work.doctor(), ("connection", "", f"opd-desk configure --server {name} --user {USER} --password-stdin"))
        work.desk(*configure, name, given=PASSWORD + "\n")
        ended = work.desk("doctor")
        for piece in ("WRONG procedures      Patient_Data..sp_adm_LoadPatient is not there",
                      "WRONG procedures      Patient_Data..sp_AOPD_SaveHMOLOA ", "WRONG clock "):
            assert piece in ended.stdout, ended.stdout
        assert ended.stdout.count("WRONG") == 3 and "opd-desk create-server --server" in ended.stdout, ended.stdout
        assert all(line.startswith(("login", "select ")) or "..sp_sproc_columns " in line for line in server.received())
    expect(work.doctor(), ("connection", "cannot be reached", "opd-desk configure --server NAME,PORT"))


def main():
    program, desk = (Path(word).resolve() for word in sys.argv[1:])
    with tempfile.TemporaryDirectory(dir=desk.parent) as folder:
        work = Workstation(Path(folder), desk)
        try_settings(work)
        try_hospital(work)
        try_server(work, program, desk)
        try_program(work)


main()
