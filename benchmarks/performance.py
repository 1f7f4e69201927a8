"""The table of what was measured, as text and as docs/performance.md with its pictures."""

import subprocess
from pathlib import Path

SIZES = ("10000", "100000", "1000000", "10000000")
GROWING = ("name-and-birth-date", "rare-surname", "card", "similar-records", "open-on-file", "first-name-behind-comma", "second-try",
           "common-surname", "one-letter")
NAMES = {"module_p50": "", "module_p99": "p99 ", "ratio": "", "growth": "growth ", "errors": "errors ", "save_p95": "save p95 ",
         "save_p99": "save p99 ", "save_max": "save max ", "card_p95": "card p95 ", "name_p95": "name p95 "}


def short(number):
    return f"{number:.3g}" if number < 100 else f"{number:.0f}"


def duration(microseconds):
    if microseconds is None:
        return ""
    for unit, size in (("s", 1e6), ("ms", 1e3)):
        if microseconds >= size:
            return f"{short(microseconds / size)} {unit}"
    return f"{short(microseconds)} us"


def limit(figure, most):
    """A mark as it is read: a growth and a ratio are factors, the times of desks are milliseconds."""
    if figure in ("growth", "errors"):
        return f"{NAMES[figure]}{'<= ' if most else ''}{most}"
    if figure == "ratio":
        return f"<= {most} x bare"
    return f"{NAMES[figure]}<= {duration(most * (1 if figure.startswith('module') else 1000))}"


def figures_of(row, results):
    """The figures of a row with ratio and growth; None where it was not measured."""
    name, hospital = row["of"].split("/")
    measured = results["figures"]
    there = [size for size in SIZES if "module_p50" in measured.get(f"{name}/{size}", {})]
    if hospital in SIZES and hospital not in there:
        hospital = there[-1] if there else hospital
    if "module_p50" not in measured.get(f"{name}/{hospital}", {}):
        return None
    at = dict(measured[f"{name}/{hospital}"])
    if "bare_p50" in at:
        at["ratio"] = at["module_p50"] / at["bare_p50"]
    if len(there) > 1 and hospital in there:
        at["growth"] = at["module_p50"] / measured[f"{name}/{there[0]}"]["module_p50"]
    return at


def desk_figures(row, results):
    run = results["desks"].get(f"desks-{row['desks']}")
    if run is None:
        return None
    return run | {f"{step}_{share}": taken for step, times in run["ms"].items() for share, taken in times.items()}


def reached(row, at):
    return all(at.get(figure, 0) <= most for figure, most in row["mark"].items())


def judged(row, at):
    return "yes" if reached(row, at) else "**no**"


def factor(value):
    return "" if value is None else f"x{value:.3g}"


def marks(row):
    return ", ".join(limit(figure, most) for figure, most in row["mark"].items())


def row_cells(row, at):
    start = row.get("start", ["", "", ""])
    grown = f" (x{start[2]})" if start[2] else ""
    return [row["title"], start[0] + grown, start[1], f"{duration(at['module_p50'])} / {duration(at['module_p99'])}",
            f"{duration(at.get('bare_p50'))} / {duration(at.get('bare_p99'))}" if "bare_p50" in at else "",
            factor(at.get("ratio")), factor(at.get("growth")), marks(row), judged(row, at)]


def desk_title(row):
    return f"{row['desks']} desks, " + (f"{row['think']} s think time" if row.get("think") else "no think time")


def milliseconds(at, step):
    return " / ".join(short(at[f"{step}_{share}"]) for share in ("p50", "p95", "p99", "max"))


def desk_cells(row, at):
    return [desk_title(row), row["start"], milliseconds(at, "name"), milliseconds(at, "card"), milliseconds(at, "save"),
            f"{at['a_second']:.0f}", f"{at['least']} to {at['most']}", str(at["errors"]), marks(row), judged(row, at)]


HEADINGS = ["what", "at the start", "bare then", "module, median / p99", "bare, median / p99", "ratio", "growth", "to reach", "reached"]
DESK_HEADINGS = ["desks", "at the start", "name, ms", "card, ms", "save, ms", "a second", "a desk", "errors", "to reach", "reached"]


def tables(rows, results):
    single = [row_cells(row, at) for row in rows["row"] if (at := figures_of(row, results))]
    desks = [desk_cells(row, at) for row in rows["desks"] if "mark" in row and (at := desk_figures(row, results))]
    return single, desks


def aligned(headings, lines):
    lines = [headings] + [[cell.replace("**", "") for cell in line] for line in lines]
    widths = [max(len(line[column]) for line in lines) for column in range(len(headings))]
    return "\n".join("  ".join(cell.ljust(width) for cell, width in zip(line, widths)).rstrip() for line in lines)


def plain_table(rows, results):
    single, desks = tables(rows, results)
    parts = [aligned(HEADINGS, single)] if single else []
    if desks:
        parts.append(aligned(DESK_HEADINGS, desks))
    return "\n\n".join(parts)


def markdown(headings, lines):
    return "\n".join("| " + " | ".join(line) + " |" for line in [headings, ["---"] * len(headings)] + lines)


def remarks(rows, results):
    """What the rows have to say, those that miss their mark first."""
    said = []
    for row in rows["row"] + rows["desks"]:
        at = figures_of(row, results) if "of" in row else desk_figures(row, results)
        if at is None or not row.get("prose"):
            continue
        title = row.get("title") or desk_title(row)
        missed = "" if reached(row, at) else " (missed)"
        said.append((not missed, f"- **{title[0].upper() + title[1:]}{missed}**: {row['prose'].strip()}"))
    return "\n".join(text for _, text in sorted(said, key=lambda one: one[0]))


def gnuplot(picture, script):
    subprocess.run(["gnuplot"], input=f"set terminal svg size 900,540 dynamic background '#ffffff' font 'sans-serif,13'\n"
                   f"set output '{picture}'\nset grid back lc rgb '#d0d0d0'\nset key outside right top\n{script}\n", text=True, check=True)


def plot_growth(work, picture, results):
    data, curves = [], []
    for name in GROWING:
        points = [(size, results["figures"][f"{name}/{size}"]["module_p50"]) for size in SIZES if "module_p50" in results["figures"].get(f"{name}/{size}", {})]
        if points:
            curves.append(f"'{work}/growth.dat' index {len(data)} using 1:2 with linespoints lw 2 title '{name.replace('-', ' ')}'")
            data.append("\n".join(f"{size} {taken}" for size, taken in points))
    Path(work, "growth.dat").write_text("\n\n\n".join(data) + "\n")
    gnuplot(picture, "set logscale xy\nset xlabel 'patients'\nset ylabel 'median, microseconds'\nset format x '10^{%T}'\n"
            f"set xrange [7000:*]\nplot {', '.join(curves)}")


def plot_desks(work, picture, results):
    runs = sorted((run for run in results["desks"].values() if not run["think"]), key=lambda run: run["desks"])
    lines = [" ".join(str(value) for value in (run["desks"], *(run["ms"]["save"][share] for share in ("p50", "p95", "p99", "max"))))
             for run in runs]
    Path(work, "desks.dat").write_text("\n".join(lines) + "\n")
    curves = [f"'{work}/desks.dat' using 1:{column} with linespoints lw 2 title '{title}'"
              for column, title in ((2, "median"), (3, "p95"), (4, "p99"), (5, "longest"))]
    gnuplot(picture, "set xlabel 'desks without think time'\nset ylabel 'a save, milliseconds'\nset logscale y\n"
            f"set xrange [0:*]\nplot {', '.join(curves)}")


def method(machine):
    return f"""Measured on {machine['day']} at commit {machine['commit']}: {machine['processor']}, {machine['cores']} cores, {machine['memory']} of
memory, {machine['system']}, files on {machine['files']}, {machine['compiler']}, release build, load {machine['load']:.1f} when it began."""


TEXT = """# Performance

Made by `./bench --write` from what it measured; the remarks stand in `benchmarks/rows.toml`.

{method}

## Method

- **Module** is the desk's own code through the calls that the desk makes: a statement from its text to its rows, a form from its
  opening to its closing, a registration from "Register" to its message. **Bare** is what the database itself needs for the same
  rows: statements written by hand for the searches, for openings and registrations those that the module was seen to send,
  each prepared once, bound and read by the database's own interface, on the same file.
- The two run in turns in one process, each of them first every other time, so that they see the same load of the machine. Where
  both must answer the same rows, the run fails when they do not. Hundreds of different patients are asked for in turn.
- **Growth** is the median at the largest hospital over the one at 10,000 patients. Where the answer has as many more rows, it grows with them.
- A registration is measured as time of the processor on a hospital in memory. Windows are drawn without a screen, as if on
  one of 1366 x 768 (`tools/screen.json`); bare are the same widgets without the look of the desk and models, or a program with a
  window of one line until that is painted, each in processes of its own.
- Desks are programs of their own (`benchmarks/many_desks.py`) on a hospital of a million patients: each looks for a patient by
  name and birth date, scans the card and registers the visit, by its own stopwatch. Afterwards every registration is looked for:
  no number may be there twice, and each one that a desk was told of must be whole.
- "At the start" is what was measured at commit b739e1a, on the same kind of machine.

## What one clerk waits for

{single}

![Growth](images/growth.svg)

## Many desks

Median / p95 / p99 / longest.

{desks}

![A save by number of desks](images/desks.svg)

## Remarks

{remarks}
"""


def write(top, work, rows, results):
    single, desks = tables(rows, results)
    images = Path(top, "docs/images")
    if single:
        plot_growth(work, images / "growth.svg", results)
    if desks:
        plot_desks(work, images / "desks.svg", results)
    Path(top, "docs/performance.md").write_text(TEXT.format(
        method=method(results["machine"]), single=markdown(HEADINGS, single), desks=markdown(DESK_HEADINGS, desks),
        remarks=remarks(rows, results)))
