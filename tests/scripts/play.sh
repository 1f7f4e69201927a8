#!/usr/bin/env bash
# Plays an operator script on one desktop against a demonstration hospital of its own, in the morning of a fixed day:
#   play.sh DESK SCRIPT DESKTOP DAY [SQL [OPTION...]]      SQL switches the hospital's settings, OPTIONs go to `run`
set -euo pipefail
desk="$1" script="$2" desktop="$3" now="$4 10:00" settings="${5:-}"
shift $(($# < 5 ? $# : 5))
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
screen="$(cd "$(dirname "$0")/../../tools" && pwd)/screen.json" # as large as a hospital's
export OPD_CLASS_REGISTRY="$folder/classes.ini" XDG_RUNTIME_DIR="$folder" QT_QPA_PLATFORM="offscreen:configfile=$screen"
cd "$folder"
"$desk" create-database hospital --patients 200 --now "$now"
if [[ -n "$settings" ]]; then
    sqlite3 hospital/hospital.db "update Patient_Data_tbHospitalInfo set $settings"
fi
"$desk" run --database hospital --now "$now" --user CLERK --desktop "$desktop" --script "$script" "$@"
