#!/usr/bin/env bash
# Plays an operator script on one desktop against a demonstration hospital of its own:
#   play.sh DESK SCRIPT DESKTOP [SQL [OPTION...]]      SQL switches the hospital's settings, OPTIONs go to `run`
set -euo pipefail
desk="$1" script="$2" desktop="$3" settings="${4:-}"
shift $(($# < 4 ? $# : 4))
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
screen="$(cd "$(dirname "$0")/../../tools" && pwd)/screen.json" # as large as a hospital's
export OPD_CLASS_REGISTRY="$folder/classes.ini" XDG_RUNTIME_DIR="$folder" QT_QPA_PLATFORM="offscreen:configfile=$screen"
cd "$folder"
"$desk" create-database hospital --patients 200
if [[ -n "$settings" ]]; then
    sqlite3 hospital/hospital.db "update Patient_Data_tbHospitalInfo set $settings"
fi
"$desk" run --database hospital --user CLERK --desktop "$desktop" --script "$script" "$@"
