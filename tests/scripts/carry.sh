#!/usr/bin/env bash
# Plays carry.opd with the setting that it is about: carry.sh DESK DESKTOP
set -euo pipefail
desk="$1" desktop="$2" now="11/25/2026 10:00"
scripts="$(cd "$(dirname "$0")" && pwd)"
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
export OPD_CLASS_REGISTRY="$folder/classes.ini" XDG_RUNTIME_DIR="$folder" QT_QPA_PLATFORM="offscreen:configfile=$scripts/../../tools/screen.json"
cd "$folder"
"$desk" create-database hospital --patients 200 --now "$now"
"$desk" configure --server "$folder/hospital" --carry-sex-and-birth-date yes --settings settings.ini
"$desk" run --settings settings.ini --now "$now" --user CLERK --desktop "$desktop" --script "$scripts/carry.opd"
