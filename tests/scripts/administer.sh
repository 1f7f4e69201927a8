#!/usr/bin/env bash
# What a desk changed in a patient's record is told field by field, of a folder and of a server, and a server without the
# record says so:   history.sh DESK [TEST-SERVER]
set -euo pipefail
desk="$1" server="${2:-}"
here="$(cd "$(dirname "$0")" && pwd)"
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
export OPD_CLASS_REGISTRY="$folder/classes.ini" XDG_RUNTIME_DIR="$folder" OPD_NOW="11/25/2026 10:00"
cd "$folder"
"$desk" create-database hospital --patients 20 2>/dev/null
"$desk" flag isAllowCreateNewIDnum on --database hospital >/dev/null
"$desk" run --database hospital --user CLERK --desktop scripted --script "$here/edit.opd"
"$desk" history 2 --database hospital | sed "s/ at .* (login .*)/ at HERE/" >told
diff - told <<'END'
11/25/2026 10:00  CLERK at HERE, visit 2600000001B
  Other history               (nothing) -> APPENDECTOMY 2010
  Diabetes                    no -> yes
  PHIC member                 no -> yes
  Employer's e-mail           (nothing) -> ab@c.ph
END
{ "$desk" history 00000003 --database hospital 2>&1 || true; } | grep -q "No change of patient 00000003 is on record."
[[ -n "$server" ]] || exit 0

# asked PATTERN [FAULT...]: what is told over the wire.
asked() {
    local pattern="$1" port
    shift
    mkfifo said held
    "$server" hospital --password Desk-1234 "${@/#/--fault=}" <held >said &
    exec 4>held
    read -r port <said
    echo Desk-1234 | "$desk" configure --server "localhost,$port" --user desk --password-stdin --settings "$folder/server.ini"
    { "$desk" history 00000002 --settings "$folder/server.ini" 2>&1 || true; } | grep -q -e "$pattern"
    exec 4>&-
    wait
    rm said held
}
asked "Diabetes  *no -> yes"
asked "This server keeps no record of changes: its table tbMasterAudit is missing." error@tbMasterAudit#1:208
asked "This login may not read the record of changes." error@tbMasterAudit#1:229
