#!/usr/bin/env bash
# What is typed without a pause, while one window makes way for another, comes whole into the one that opens:
#   type_ahead.sh DESK
# Ends with 77 where there is no display to type at.
set -euo pipefail
desk="$1"
for needed in Xvfb xdotool; do
    command -v "$needed" >/dev/null || { echo "Skipped: $needed is missing."; exit 77; }
done
folder="$(mktemp -d)"
cleanup() {
    # shellcheck disable=SC2046 # several numbers
    kill $(jobs -p) 2>/dev/null || true
    wait
    rm -rf "$folder"
}
trap cleanup EXIT
# A number of its own: of two servers that look for a free one at once, one can take the other's away.
Xvfb ":$((1000 + $$ % 30000))" -displayfd 3 -screen 0 1366x768x24 -nolisten tcp 3>"$folder/display" 2>/dev/null &
for _ in $(seq 100); do [[ -s "$folder/display" ]] && break; sleep 0.1; done
[[ -s "$folder/display" ]] || { echo "Skipped: no display can be started."; exit 77; }
export DISPLAY=":$(<"$folder/display")" QT_QPA_PLATFORM=xcb XDG_RUNTIME_DIR="$folder" HOME="$folder"
export OPD_CLASS_REGISTRY="$folder/classes.ini"
cd "$folder"

seen() {
    for _ in $(seq 150); do xdotool search --onlyvisible --name "^$1$" >/dev/null 2>&1 && break; sleep 0.1; done
    sleep 0.3 # until it has the keyboard
}
press() { xdotool key --delay 0 "$@"; }
text() { xdotool type --delay 0 "$1"; }

"$desk" create-database hospital --patients 20
"$desk" run --database hospital --user CLERK &
seen "Master Patient Search"
for name in QUIZA QUIZB QUIZC; do
    press alt+l; text "$name"; press Tab m Tab; text 05201991; press alt+s
    text LIGAYA; press Tab; text MAYUMI; press Tab Tab Tab; text 05201991
    press F6; text 1000; press F6; text 1; press Tab alt+r
    seen Notification
    press Return
done
seen "Master Patient Search"
registered="$("$desk" sql hospital "select LastName, FirstName, MiddleName, ZipCode from Patient_Data_tbMaster
    where LastName like 'QUIZ_' order by HospNum")"
diff - <(echo "$registered") <<END
QUIZA|LIGAYA|MAYUMI|1000
QUIZB|LIGAYA|MAYUMI|1000
QUIZC|LIGAYA|MAYUMI|1000
END
