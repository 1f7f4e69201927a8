#!/usr/bin/env bash
# Runs a program of this folder as a screen reader would be run, on a display and a session bus of its own:
#   with_screen_reader.sh DESK PROGRAM
# Ends with 77 where there can be none.
set -euo pipefail
desk="$1" program="$2"
here="$(cd "$(dirname "$0")" && pwd)"
launcher=/usr/libexec/at-spi-bus-launcher
# shellcheck source=tests/support/at_a_display.sh
source "$here/../support/at_a_display.sh"
needs dbus-run-session dbus-send "$launcher"
/usr/bin/python3 -c "import pyatspi" 2>/dev/null || { echo "Skipped: python3-pyatspi is missing."; exit 77; }

start_display
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 NO_AT_BRIDGE=0 LANG=C.UTF-8
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
