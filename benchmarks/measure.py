#!/usr/bin/env python3
"""What ./bench does when everything is built: makes the hospitals, measures, prints the table, and writes what it found.

Figures are in microseconds where nothing else is said. The results are kept in build/bench (results.json, results.csv); --write
makes docs/performance.md and its pictures of them.
"""

import argparse
import csv
import datetime
import hashlib
import json
import os
import re
import shutil
import statistics
import subprocess
import sys
import tempfile
import time
import tomllib
from pathlib import Path

import performance

TOP = Path(__file__).resolve().parent.parent
BIN = TOP / "build/release/bin"
DESK = BIN / "opd-desk"
HOSPITALS = TOP / "build/bench-hospitals"
RESULTS = TOP / "build/bench"
NOW = "11/25/2026 10:00"
SCREEN = f"offscreen:configfile={TOP / 'tools/screen.json'}"  # a desk's; what the toolkit takes without it is too small for the window
LONG_LISTS = """
WITH RECURSIVE n (i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 50) INSERT OR IGNORE INTO Build_File_tbCoAddress
SELECT ZipCode || '-' || i, Town || ' ' || i, Province FROM Build_File_tbCoAddress, n
LIMIT 50000 - (SELECT count(*) FROM Build_File_tbCoAddress);
WITH RECURSIVE n (i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 80) INSERT OR IGNORE INTO Build_File_tbCoChiefComplaint
SELECT ChiefComplaintID || '-' || i, ChiefComplaint || ' ' || i, BodySystem FROM Build_File_tbCoChiefComplaint, n
LIMIT 70000 - (SELECT count(*) FROM Build_File_tbCoChiefComplaint);
"""


def say(text):
    print(f"== {text}", flush=True)


def run(*command, **environment):
    done = subprocess.run([str(word) for word in command], capture_output=True, text=True, env=os.environ | environment)
    if done.returncode != 0:
        sys.exit(f"{' '.join(str(word) for word in command)}: {done.stderr.strip() or done.stdout.strip()[-500:]}")
    return done.stdout


def sql(folder, statement, *options):
    return run(DESK, "sql", folder, *options, statement)


def make(folder, patients):
    run(DESK, "create-database", folder, "--patients", patients, "--now", NOW)


def shape_of(folder):
    return hashlib.sha256(sql(folder, "PRAGMA user_version; SELECT sql FROM sqlite_schema ORDER BY name").encode()).hexdigest()


def make_hospitals(sizes):
    """Those that are missing, or were made by a program with other tables."""
    HOSPITALS.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory() as work:
        make(f"{work}/small", 12)
        shape = shape_of(f"{work}/small")
    for size in sizes:
        folder = HOSPITALS / str(size)
        if folder.exists() and shape_of(folder) == shape:
            continue
        say(f"making a hospital of {size:,} patients")
        shutil.rmtree(folder, ignore_errors=True)
        shutil.rmtree(f"{folder}.new", ignore_errors=True)
        make(f"{folder}.new", size)
        Path(f"{folder}.new").rename(folder)
    folder = HOSPITALS / "long-lists"
    if not folder.exists() or shape_of(folder) != shape:
        make_long_lists(HOSPITALS / "10000", folder)


def make_long_lists(small, folder):
    shutil.rmtree(folder, ignore_errors=True)
    shutil.copytree(small, folder)
    sql(folder, LONG_LISTS, "--write")


def google_benchmark(program, options, **environment):
    """The counters of a program by row and hospital."""
    with tempfile.NamedTemporaryFile(suffix=".json") as report:
        run(BIN / program, f"--benchmark_out={report.name}", "--benchmark_out_format=json", *options,
            OPD_BENCH_HOSPITALS=str(HOSPITALS), **environment)
        measured = json.loads(Path(report.name).read_text())["benchmarks"]
    figures = {}
    for one in measured:
        name = "/".join(one["name"].split("/")[:2])
        if one.get("error_occurred"):
            figures[name] = {"fault": one["error_message"]}
            continue
        figures[name] = {key: value for key, value in one.items() if key in
                         ("module_p50", "module_p99", "bare_p50", "bare_p99", "rows", "statements", "turns")}
    return figures


def measure_windows(figures, environment):
    """Module and bare in processes of their own, in turns; the medians of the rounds count."""
    platform = {"QT_QPA_PLATFORM": SCREEN, "QT_LOGGING_RULES": "default.warning=false"} | environment
    rounds, bare = [], []
    for _ in range(3):
        rounds.append(google_benchmark("opd-bench-windows", ["--benchmark_filter=form-opening"], **platform))
        bare.append(google_benchmark("opd-bench-windows", [], OPD_BENCH_BARE="1", **platform))
    opening = {f"module_{share}": statistics.median(one["form-opening/10000"][f"module_{share}"] for one in rounds)
               for share in ("p50", "p99")}
    opening |= {f"bare_{share}": statistics.median(one["form-opening/bare"][f"module_{share}"] for one in bare)
                for share in ("p50", "p99")}
    figures["form-opening/10000"] = opening
    figures.update(google_benchmark("opd-bench-windows", ["--benchmark_filter=first-screen"], **platform))


def until_up(command, environment):
    begun = time.monotonic()
    with subprocess.Popen([str(word) for word in command], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                          env=os.environ | environment) as program:
        program.stdout.readline()
        taken = (time.monotonic() - begun) * 1e6
        program.stdout.read()
    return taken


def measure_start(figures, turns):
    """From the command to the first window, of the desk and of a program with nothing but a window, in turns."""
    with tempfile.TemporaryDirectory() as work:
        environment = {"QT_QPA_PLATFORM": SCREEN, "XDG_RUNTIME_DIR": work, "OPD_CLASS_REGISTRY": f"{work}/classes.ini"}
        script = Path(work, "up.opd")
        script.write_text('expect-window frmMasterSearch\nsay "up"\nclick Command1(2)\n')
        desk = [DESK, "run", "--database", HOSPITALS / "10000", "--desktop", "qt", "--script", script]
        module, bare = [], []
        for _ in range(turns):
            module.append(until_up(desk, environment))
            bare.append(until_up([BIN / "opd-bench-empty-window"], environment))
    at = {}
    for name, taken in (("module", sorted(module)), ("bare", sorted(bare))):
        at |= {f"{name}_p50": statistics.median(taken), f"{name}_p99": taken[-1]}
    figures["start/10000"] = at


def measure_desks(rows, patients, options):
    """Runs of many desks on a copy of the largest hospital, whose patients they use up."""
    runs = {}
    copy = RESULTS / "many-desks"
    shutil.rmtree(copy, ignore_errors=True)
    shutil.copytree(HOSPITALS / str(patients), copy)
    os.sync()  # otherwise the first save waits until the disk has taken the copy
    for row in rows:
        think = row.get("think", 0)
        seconds = options.minutes * 60 if think and options.minutes else row["seconds"] / (4 if options.quick else 1)
        say(f"{row['desks']} desks for {seconds:.0f} s" + (f", thinking for {think} s" if think else ""))
        figures = RESULTS / "desks.json"
        subprocess.run([sys.executable, TOP / "benchmarks/many_desks.py", DESK, copy, "--desks", str(row["desks"]), "--think", str(think),
                        "--seconds", str(seconds), "--json", figures], check=False)
        runs[f"desks-{row['desks']}"] = json.loads(figures.read_text())
        figures.unlink()
    shutil.rmtree(copy)
    return runs


def machine():
    cpu = next((line.split(":")[1].strip() for line in Path("/proc/cpuinfo").read_text().splitlines() if "model name" in line), "?")
    memory = int(Path("/proc/meminfo").read_text().split()[1]) / 2**20
    return {"processor": cpu, "cores": os.cpu_count(), "memory": f"{memory:.0f} GB", "system": run("uname", "-srm").strip(),
            "files": run("stat", "-f", "-c", "%T", TOP).strip(), "load": os.getloadavg()[0],
            "compiler": run("c++", "--version").splitlines()[0],
            "day": datetime.date.today().isoformat(), "commit": run("git", "-C", TOP, "rev-parse", "--short", "HEAD").strip()}


def write_results(results):
    (RESULTS / "results.json").write_text(json.dumps(results, indent=1))
    with open(RESULTS / "results.csv", "w", newline="") as file:
        writer = csv.writer(file)
        writer.writerow(["what", "figure", "value"])
        for what, figures in results["figures"].items():
            writer.writerows([what, figure, value] for figure, value in figures.items())
        for what, figures in results["desks"].items():
            for step, times in figures["ms"].items():
                writer.writerows([what, f"{step} {share} ms", value] for share, value in times.items())
            writer.writerows([what, figure, figures[figure]] for figure in ("a_second", "registrations", "errors"))


def measured(options, rows):
    sizes = [10000, 100000] + ([] if options.quick else [1000000]) + ([10000000] if options.large else [])
    make_hospitals(sizes)
    results = {"machine": machine(), "quick": options.quick}
    environment = {"OPD_BENCH_SIZES": " ".join(str(size) for size in sizes)} | ({"OPD_BENCH_QUICK": "1"} if options.quick else {})
    say("searches, openings, a registration, lookups")
    figures = google_benchmark("opd-bench", [f"--benchmark_filter={options.filter}"], **environment)
    if options.filter == ".":
        say("windows")
        measure_windows(figures, environment)
        measure_start(figures, 8 if options.quick else 30)
    results["figures"] = figures
    results["desks"] = measure_desks(rows["desks"], min(sizes[-1], 1000000), options) if options.filter == "." else {}
    return results


def main():
    parser = argparse.ArgumentParser(prog="./bench", description="Measures the desk, side by side with its bare database.")
    parser.add_argument("--quick", action="store_true", help="10,000 and 100,000 patients, and short runs")
    parser.add_argument("--large", action="store_true", help="10,000,000 patients as well")
    parser.add_argument("--minutes", type=float, help="how long the desks with think time work")
    parser.add_argument("--filter", default=".", help="measure nothing but these rows, by a regular expression; no windows, no desks")
    parser.add_argument("--write", action="store_true", help="write docs/performance.md and its pictures")
    parser.add_argument("--again", action="store_true", help="measure nothing: show, or write, what was measured last")
    options = parser.parse_args()
    try:
        re.compile(options.filter)
    except re.error as wrong:
        parser.error(f"argument --filter: {wrong}")
    if options.again and not (RESULTS / "results.json").exists():
        sys.exit("Nothing was measured yet: ./bench without --again does.")
    RESULTS.mkdir(parents=True, exist_ok=True)
    rows = tomllib.loads((TOP / "benchmarks/rows.toml").read_text())
    if options.again:
        results = json.loads((RESULTS / "results.json").read_text())
    else:
        results = measured(options, rows)
        write_results(results)
    print(performance.plain_table(rows, results))
    if options.write:
        performance.write(TOP, RESULTS, rows, results)
        say("docs/performance.md is written")
    faults = [f"{name}: {at['fault']}" for name, at in results["figures"].items() if "fault" in at]
    faults += [f"{name}: {fault}" for name, at in results["desks"].items() for fault in at["faults"]]
    if faults:
        sys.exit("These failed:\n" + "\n".join(faults))


if __name__ == "__main__":
    main()
