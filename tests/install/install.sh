#!/usr/bin/env bash
# Installs a build into a folder of its own, plays a script there, and looks at what was installed: install.sh CMAKE BUILD SCRIPT
set -euo pipefail
cmake="$1" build="$2" script="$3"
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
export OPD_CLASS_REGISTRY="$folder/classes.ini" PATH="$folder/desk/bin:$PATH"

"$cmake" --install "$build" --prefix "$folder/desk" >/dev/null
cd "$folder"
[[ -f desk/share/opd-registration/database/sqlserver/01-databases.sql ]]
desktop=qt
[[ -e "$(dirname "$(realpath desk/bin/opd-desk)")/libopd-desktop-qt.so" ]] || desktop=scripted
env -u QT_QPA_PLATFORM -u DISPLAY desk/share/opd-registration/acceptance/run --desktop $desktop known-patient |
    grep -q '3 tried, 3 passed, 0 failed'
opd-desk create-database hospital --patients 200
opd-desk run --database hospital --user CLERK --desktop scripted --script "$script" >/dev/null
[[ "$(opd-desk sql hospital "select HospNum from Patient_Data_tbMaster where PHICNum = '123456789012'")" == 00000009 ]]

home="$(dirname "$(realpath desk/bin/opd-desk)")"
[[ "$(grep -c "^Library=$home/" classes.ini)" == 2 ]] || { echo "other components served:"; cat classes.ini; exit 1; }
for file in "$home"/*; do
    [[ -d "$file" ]] && continue
    needed="$(readelf -d "$file" | grep -E 'NEEDED|RUNPATH')"
    if grep -E 'Test|gtest' <<<"$needed"; then echo "$file: links what only tests need"; exit 1; fi
    if grep -F "$build" <<<"$needed"; then echo "$file: looks into the folder of the build"; exit 1; fi
done
