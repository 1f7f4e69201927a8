#!/usr/bin/env bash
# Plays docs/tour.opd on one desktop against a hospital of its own: play_tour.sh DESK TOUR DESKTOP
set -euo pipefail
desk="$1" tour="$2" desktop="$3"
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
export OPD_CLASS_REGISTRY="$folder/classes.ini" XDG_RUNTIME_DIR="$folder" QT_QPA_PLATFORM=offscreen
cd "$folder"
"$desk" create-database hospital --patients 200
sqlite3 hospital/hospital.db 'update Patient_Data_tbHospitalInfo set isAllowCreateNewIDnum = 1'
"$desk" run --database hospital --user TOUR --desktop "$desktop" --script "$tour" | tee output
grep -q "Registered under" output
