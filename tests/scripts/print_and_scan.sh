#!/usr/bin/env bash
# What is printed can be scanned: writes data sheet, label and card as PDF on real windows, lets an independent reader find the bar
# code in each page as a label printer draws it, and types what it read into the search window as a scanner would.   print_and_scan.sh DESK
set -euo pipefail
desk="$1"
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
screen="$(cd "$(dirname "$0")/../../tools" && pwd)/screen.json" # as large as a hospital's
export OPD_CLASS_REGISTRY="$folder/classes.ini" XDG_RUNTIME_DIR="$folder" QT_QPA_PLATFORM="offscreen:configfile=$screen"
cd "$folder"
"$desk" create-database hospital --patients 20
sqlite3 hospital/hospital.db "update Patient_Data_tbHospitalInfo set isAllowCreateNewIDnum = 1"

cat > print.opd <<'END'
type txtHospNum "00000002"
wait 600
answer "No" to "The Patient is still registered! Do you want to register new OPD Number?"
key Enter
answer "OK" like "SANTOS, MARIA REYES was registered as .*"
key Alt+P
expect-window frmReportViewer
file "sheet.pdf"
key Alt+S
key Escape
key F7
file "label.pdf"
key Alt+S
key Escape
key F8
file "card.pdf"
key Alt+S
key Escape
END
"$desk" run --database hospital --user CLERK --desktop qt --script print.opd

for paper in sheet label card; do
    dots=203 # an inch; the coarsest printer of labels
    [[ $paper != sheet ]] || dots=150
    pdftoppm -r $dots -png -singlefile $paper.pdf $paper
    read="$(zbarimg --quiet --raw -Sdisable -Scode128.enable $paper.png 2> reader.log)"
    echo "read from the $paper: $read"
    [[ "$read" == 00000002 ]]
done
pdftotext -layout sheet.pdf - | grep -q 'Page 1 of 1'

cat > scan.opd <<END
type txtHospNum "$read"
wait 600
answer "No" to "The Patient is still registered! Do you want to register new OPD Number?"
key Enter
expect-window frmRegistration
expect txtLastName "SANTOS"
answer "OK" to "Are you sure to close this program?"
key Escape
END
"$desk" run --database hospital --user CLERK --desktop scripted --script scan.opd
