#!/usr/bin/env bash
# What is typed without a pause, while one window makes way for another, comes whole into the one that opens:
#   type_ahead.sh DESK
# Ends with 77 where there is no display to type at.
set -euo pipefail
desk="$1"
# shellcheck source=tests/support/at_a_display.sh
source "$(dirname "${BASH_SOURCE[0]}")/../../support/at_a_display.sh"
needs xdotool
start_display
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
    text LIGAYA; press ctrl+z ctrl+y Tab; text MAYUMI; press Tab Tab Tab; text 05201991
    press F6; text 1000; press F6; text 1; press Tab alt+r
    seen Notification
    press Return
    seen "Master Patient Search"
done
registered="$("$desk" sql hospital "select LastName, FirstName, MiddleName, ZipCode from Patient_Data_tbMaster
    where LastName like 'QUIZ_' order by HospNum")"
diff - <(echo "$registered") <<END
QUIZA|LIGAYA|MAYUMI|1000
QUIZB|LIGAYA|MAYUMI|1000
QUIZC|LIGAYA|MAYUMI|1000
END
