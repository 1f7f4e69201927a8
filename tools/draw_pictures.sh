#!/usr/bin/env bash
# Draws the pictures of the README and the guides anew, from real windows: draw_pictures.sh (after ./run has built the desk once).
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=tools/common.sh
source tools/common.sh

install_missing run pictures
begin "drawing"
desk="$PWD/build/release/bin/opd-desk"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
export OPD_CLASS_REGISTRY="$work/classes.ini" XDG_RUNTIME_DIR="$work" HOME="$work"
now="11/25/2026 10:00"
script="$PWD/docs/pictures.opd" images="$PWD/docs/images"

# play SCALE: plays the script at 1280x800 into $work/SCALE.
play() {
    mkdir "$work/$1"
    cd "$work/$1"
    "$desk" create-database hospital --patients 200 --now "$now" >/dev/null
    sqlite3 hospital/hospital.db "update Patient_Data_tbHospitalInfo set isAllowCreateNewIDnum = 1"
    cat > screen.json <<END
{"screens": [{"name": "desk", "x": 0, "y": 0, "width": 1280, "height": 800, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": $1}]}
END
    QT_QPA_PLATFORM="offscreen:configfile=$PWD/screen.json" QT_LOGGING_RULES='default.warning=false' \
        "$desk" run --database hospital --now "$now" --user CLERK --desktop qt --script "$script" 2>/dev/null
    cd - >/dev/null
}

play 1
play 2
cp "$work"/1/*.png "$images"
cp "$work/2/personal.png" "$images/personal-2x.png"
pngquant --force --ext .png 64 "$images"/*.png
