#!/usr/bin/env bash
# Runs a program of this folder as a screen reader would be run, on a display and a session bus of its own:
#   with_screen_reader.sh DESK PROGRAM
# Ends with 77 where there can be none.
set -euo pipefail
desk="$1" program="$2"
here="$(cd "$(dirname "$0")" && pwd)"
launcher=/usr/libexec/at-spi-bus-launcher
for needed in Xvfb dbus-run-session dbus-send "$launcher"; do
    command -v "$needed" >/dev/null || { echo "Skipped: $needed is missing."; exit 77; }
done
/usr/bin/python3 -c "import pyatspi" 2>/dev/null || { echo "Skipped: python3-pyatspi is missing."; exit 77; }

folder="$(mktemp -d)"
display_pid=
cleanup() {
    [[ -n "$display_pid" ]] && kill "$display_pid" 2>/dev/null
    rm -rf "$folder"
}
trap cleanup EXIT
# A number of its own: of two servers that look for a free one at once, one can take the other's away.
Xvfb ":$((1000 + $$ % 30000))" -displayfd 3 -screen 0 1366x768x24 -nolisten tcp 3>"$folder/display" 2>/dev/null &
display_pid=$!
for _ in $(seq 100); do [[ -s "$folder/display" ]] && break; sleep 0.1; done
[[ -s "$folder/display" ]] || { echo "Skipped: no display can be started."; exit 77; }
export DISPLAY=":$(<"$folder/display")" QT_QPA_PLATFORM=xcb QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 NO_AT_BRIDGE=0
export XDG_RUNTIME_DIR="$folder" HOME="$folder" OPD_CLASS_REGISTRY="$folder/classes.ini" LANG=C.UTF-8
"$desk" create-database "$folder/hospital" --patients 60 --now "11/25/2026 10:00"
sqlite3 "$folder/hospital/hospital.db" "update Patient_Data_tbHospitalInfo set isAllowCreateNewIDnum = 1, IsAllowOPDPatientClass = 1"
cat >"$folder/session.sh" <<END
"$launcher" --launch-immediately &
bus=\$!
for _ in \$(seq 50); do
    dbus-send --session --print-reply --dest=org.a11y.Bus /org/a11y/bus org.freedesktop.DBus.Properties.Set \
        string:org.a11y.Status string:IsEnabled variant:boolean:true >/dev/null 2>&1 && break
    sleep 0.1
done
dbus-send --session --print-reply --dest=org.a11y.Bus /org/a11y/bus org.a11y.Bus.GetAddress >/dev/null 2>&1 || exit 77
status=0
/usr/bin/python3 -B "$program" "$desk" "$folder/hospital" "$here/../scripts/face.png" || status=\$?
kill \$bus 2>/dev/null
exit \$status
END
dbus-run-session -- bash "$folder/session.sh"
