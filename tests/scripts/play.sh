#!/usr/bin/env bash
# Plays an operator script on one desktop against a demonstration hospital of its own, in the morning of a fixed day:
#   play.sh DESK SCRIPT DESKTOP DAY [SQL [OPTION...]]      SQL switches the hospital's settings, OPTIONs go to `run`,
# and those of a line "# configure: OPTION..." in the script to `configure`
set -euo pipefail
desk="$1" script="$2" desktop="$3" now="$4 10:00" settings="${5:-}"
shift $(($# < 5 ? $# : 5))
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
scripts="$(cd "$(dirname "$0")" && pwd)"
screen="$scripts/../../tools/screen.json" # as large as a hospital's
export OPD_CLASS_REGISTRY="$folder/classes.ini" XDG_RUNTIME_DIR="$folder" QT_QPA_PLATFORM="offscreen:configfile=$screen"
cd "$folder"
"$desk" create-database hospital --patients 200 --now "$now"
if [[ -n "$settings" ]]; then
    sqlite3 hospital/hospital.db "update Patient_Data_tbHospitalInfo set $settings"
fi
place=(--database hospital)
if configured="$(sed -n 's/^# configure: //p' "$script")" && [[ -n "$configured" ]]; then
    # shellcheck disable=SC2086 # several options
    "$desk" configure --server hospital --settings settings.ini $configured
    place=(--settings settings.ini)
fi
run=("$desk" run "${place[@]}" --now "$now" --user CLERK --desktop "$desktop" --script "$script" "$@")
if [[ "$desktop" != scripted || "$now" != 11/25/2026* ]]; then
    "${run[@]}"
    exit
fi

# Without a screen and on the usual day, what each command changes on the screen and what is sent to the database are
# those of the records. After a change that is meant: OPD_KEEP_RECORDS=1 ctest ..., and read what git says is different.
"${run[@]}" --journal screen --trace statements
for record in screen statements; do
    sed -i "s#$folder#FOLDER#g" "$record"
    kept="$scripts/records/$(basename "$script" .opd).$record"
    if [[ -n "${OPD_KEEP_RECORDS:-}" ]]; then
        cp "$record" "$kept"
    elif ! diff -u "$kept" "$record" >difference; then
        head -60 difference
        echo "If that is meant: OPD_KEEP_RECORDS=1 writes $kept anew." >&2
        exit 1
    fi
done
