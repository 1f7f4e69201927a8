#!/usr/bin/env bash
# What an administrator asks and changes over the desks' own way to the database, of a folder and of a server: the record of
# changes, the hospital's flags and names, its visits.   administer.sh DESK [TEST-SERVER]
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

# said PATTERN WORD...: what a command says of the folder has a line like this.
said() {
    { "$desk" "${@:2}" --database hospital 2>&1 || true; } | grep -qE -e "$1" || { echo "no \"$1\" from ${*:2}" >&2; exit 1; }
}
"$desk" history 2 --database hospital | sed "s/ at .* (login .*)/ at HERE/" >told
diff - told <<'END'
11/25/2026 10:00  CLERK at HERE, visit 2600000001B
  Other history               (nothing) -> APPENDECTOMY 2010
  Diabetes                    no -> yes
  PHIC member                 no -> yes
  Employer's e-mail           (nothing) -> ab@c.ph
END
said "No change of patient 00000003 is on record" history 00000003
said "^isAllowCorvane +on$" flag ISALLOWCORVANE on
said "There is no flag \"Company\"" flag Company on
[[ "$("$desk" flag --database hospital | grep -c " on$")" == 2 ]]
said "^Name     ST\. ANNE'S \"A\"$" hospital --name "ST. ANNE'S \"A\"" --client RVT
said "^Address  .+" hospital
said "^Client   RVT$" hospital
"$desk" sql hospital --write "update Patient_Data_tbOutPatient set OPDStatus = 'R', AdmDate = '2026-06-29 23:59:00',
    UserID = 'CLERK', ServiceID1 = '1' where IDNum in (select IDNum from Patient_Data_tbOutPatient limit 3);
    update Patient_Data_tbOutPatient set AdmDate = '2026-06-30 00:00:00', UserID = 'OTHER', ServiceID1 = '999' where OPDStatus <> 'R'"
days="--from 06/29/2026 --until 06/29/2026"
# shellcheck disable=SC2086 # words
said "^2026-06-29  CLERK +[A-Z].+ 3 +3$" statistics $days
# shellcheck disable=SC2086
said "^All +3 +3$" statistics $days
said "^2026-06-30  OTHER +999 +[0-9]+ +0$" statistics --until 07/01/2026
said "The last day, 01/31/2020, comes before the first, 01/01/2027: nothing was counted" statistics --from 01/01/2027 --until 01/31/2020
{ "$desk" flag --database nowhere 2>&1 || true; } | grep -q "nowhere\" does not exist"
said "12/31/9999\" is no day" statistics --until 12/31/9999

# A backup with a name that means something to the engine, and what a restore refuses.
"$desk" backup --database hospital -- -file >/dev/null
"$desk" backup file:copy --database hospital >/dev/null
said "^file:copy is right" check file:copy
{ "$desk" restore file:copy --database nowhere 2>&1 || true; } | grep -q "There is no folder \"nowhere\""
{ "$desk" restore file:copy --database "" 2>&1 || true; } | grep -q "the name is empty"
{ "$desk" create-database "a;b" 2>&1 || true; } | grep -q "must not hold a semicolon"
(flock 9; said "Another program is making it" restore file:copy) 9>hospital/hospital.db.restored
said "^The hospital holds what ./-file held" restore ./-file
[[ ! -e copy.unfinished ]]
[[ -n "$server" ]] || exit 0

# asked PATTERN COMMAND [FAULT]: what it says over the wire.
asked() {
    local port
    mkfifo said held
    "$server" hospital --password Desk-1234 --log sent ${3:+--fault="$3"} <held >said &
    exec 4>held
    read -r port <said
    echo Desk-1234 | "$desk" configure --server "localhost,$port" --user nobody --password-stdin --settings "$folder/server.ini"
    # shellcheck disable=SC2086
    { echo Desk-1234 | "$desk" $2 --settings "$folder/server.ini" --user desk --password-stdin 2>&1 || true; } >told
    grep -qE -e "$1" told || { echo "no \"$1\" from $2:" >&2; cat told >&2; exit 1; }
    exec 4>&-
    wait
    rm said held
}
asked "Diabetes  *no -> yes" "history 00000002"
asked "This server keeps no record of changes: its table tbMasterAudit is missing." "history 00000002" error@tbMasterAudit#1:208
asked "This login may not read the record of changes." "history 00000002" error@tbMasterAudit#1:229
asked "^isAllowCorvane +off$" "flag isAllowCorvane off"
said "^isAllowCorvane +off$" flag isAllowCorvane
asked "^Name     ST" hospital
asked "^Address  HERE$" "hospital --address HERE"
asked "." "hospital --name O'HARA"
grep -qF "set Company = 'O''HARA' where Company is not null" sent
asked "^All +3 +3$" "statistics $days"
asked "may read the hospital's settings and not change them" "flag isAllowCorvane on" "error@tbHospitalInfo#2:229"
