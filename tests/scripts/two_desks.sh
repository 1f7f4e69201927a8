#!/usr/bin/env bash
# Plays two-desks.opd on one desktop, and other desks of the same hospital while it holds still:
#   two_desks.sh DESK DESKTOP
# A desk holds still when it says more than a pipe takes, until somebody reads on.
set -euo pipefail
desk="$1" desktop="$2"
here="$(cd "$(dirname "$0")" && pwd)"
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
export OPD_CLASS_REGISTRY="$folder/classes.ini" XDG_RUNTIME_DIR="$folder" OPD_NOW="11/25/2026 10:00"
export QT_QPA_PLATFORM="offscreen:configfile=$here/../../tools/screen.json"
cd "$folder"
more="$(head -c 100000 /dev/zero | tr '\0' x)"
opened='type txtHospNum "00000001"\nwait 600\nanswer "No" like "The Patient is still registered! .*"\nkey Enter\n'
newVisit='type txtHospNum "00000004"\nwait 600\nkey Enter\n'

play() { "$desk" run --database hospital --user "$1" --desktop "$2" --script "$3"; }

# What another desk does with the same visit or patient, from opening it on.
write_script() { printf "$opened$1" > other.opd; }
other() {
    write_script "$1"
    play OTHER scripted other.opd
}
killed() {
    write_script "$1say \"NOW\"\nsay \"$more\"\n"
    mkfifo said
    "$desk" run --database hospital --user KILLED --desktop scripted --script other.opd > said &
    exec 3< said
    read -r _ <&3
    kill -KILL $!
    wait $! 2> /dev/null || true
}

"$desk" create-database hospital --patients 20
"$desk" sql --write hospital "update Patient_Data_tbHospitalInfo set isAllowCreateNewIDnum = 1"
sed "s/^say \"HOLD\"/say \"NOW\"\nsay \"$more\"/" "$here/two-desks.opd" > first.opd
play FIRST "$desktop" first.opd | {
    read -r _
    killed 'type txtHouseStreet "1 lost street"\n'
    other 'type txtHouseStreet "99 other street"\ntype txtTelNum(2) "555-1234"\ntab "Consultation Information"
type txtWeight "70"\nanswer "OK" like ".* was registered as .*"\nkey Alt+U\nkey Escape\n'
    read -r _ # the rest of what it said
    read -r _
    other 'answer "Yes" like "Are you sure .* revoked\\."\nclick cmdRevoke\nkey Escape\n'
    read -r _
    read -r _
    opened="$newVisit" other 'type txtBirthDate "01021950"\ntype txtHouseStreet "99 other street"
type txtTelNum(2) "555-1234"\nanswer "OK" like ".* was registered as .*"\nkey Alt+R\nkey Escape\n'
    cat > /dev/null
}
