#!/usr/bin/env python3
"""Fails when a guide names what is no more: a picture, a page, a button, a key, a command of the program.

Usage: guides.py ROOT. In the clerk's guide a button is written **so** and a key `so`; "**Search** (`Alt+S`)" says that
the button has that access key. Prints one line per fault and exits with 1 when there is any.
"""

import re
import sys
from pathlib import Path

GUIDES = ("clerk.md", "administrator.md", "developer.md")
NO_BUTTONS = {"so", "With a card", "By name", "By PHIC, GSIS or SSS number"}
# What every window knows, or the toolkit.
EVERYWHERE = {"Enter", "Tab", "Shift+Tab", "Esc", "Delete", "Alt", "so"}
KEY = re.compile(r"(?:(?:Ctrl|Alt|Shift)\+)*(?:F\d+|Enter|Tab|Esc|Delete|Alt|[A-Z0-9])")


def sources(root):
    files = [file for kind in ("*.h", "*.cpp") for file in (root / "src").rglob(kind)]
    return "\n".join(file.read_text(encoding="utf-8") for file in files)


def clerks_faults(guide, source):
    captions = {text.replace("&", ""): text for text in re.findall(r'"([^"\n]*)"', source)}
    for button in re.findall(r"\*\*([^*]+)\*\*", guide):
        if button not in captions and button not in NO_BUTTONS:
            yield f"no button is called \"{button}\""
    for button, letter in re.findall(r"\*\*([^*]+)\*\* \(`Alt\+([A-Z])`", guide):
        named = [text for text in re.findall(r'"([^"\n]*)"', source) if text.replace("&", "") == button]
        if not any(re.search(f"&{letter}", text, re.IGNORECASE) for text in named):
            yield f"\"{button}\" has not the key Alt+{letter}"
    notes = " ".join(re.findall(r'"([^"\n]+)",\s*"[^"\n]+"', source))  # a key and what it does
    for key in set(re.findall(r"`([^`]+)`", guide)) - EVERYWHERE:
        if KEY.fullmatch(key) and not re.fullmatch(r"Alt\+[A-Z0-9]", key) and key not in notes:
            yield f"no window lists the key {key}"


def command_faults(guide, source):
    commands = set(re.findall(r'(?:addCommand|administer)\(\s*"([\w-]+)"', source))
    options = set(re.findall(r'"(--[\w-]+)"', source)) | {"--help"}
    for line in re.findall(r"opd-desk [^`#\n]*", guide):
        words = line.split()
        if words[1].strip(".,:)") not in commands:
            yield f"opd-desk has no command \"{words[1]}\""
        yield from (f"opd-desk has no option {word}" for word in re.findall(r"(?<=\s)--[\w-]+", line)
                    if word not in options)


def faults(root):
    source = sources(root)
    drawn = (root / "docs/pictures.opd").read_text(encoding="utf-8")
    for name in GUIDES:
        guide = (root / "docs" / name).read_text(encoding="utf-8")
        for link in re.findall(r"\]\(([^)#]+)", guide):
            if not (root / "docs" / link).exists():
                yield f"docs/{name}: there is no {link}"
            if link.startswith("images/") and f"screenshot {Path(link).name}" not in drawn:
                yield f"docs/{name}: docs/pictures.opd does not draw {link}"
        for fault in clerks_faults(guide, source) if name == "clerk.md" else command_faults(guide, source):
            yield f"docs/{name}: {fault}"


if __name__ == "__main__":
    found = list(faults(Path(sys.argv[1])))
    print("\n".join(found))
    sys.exit(1 if found else 0)
