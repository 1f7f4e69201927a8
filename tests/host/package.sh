#!/usr/bin/env bash
# Installs, uses, upgrades, removes and purges the packages of a build, with a package database of its own:
# package.sh CPACK BUILD SCRIPT
set -euo pipefail
cpack="$1" build="$2" script="$3"
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
fail() {
    echo "$*" >&2
    exit 1
}

# Two versions, the second one as the next release would be.
"$cpack" --config "$build/CPackConfig.cmake" -B "$folder/1.0.0" -D CPACK_PACKAGE_VERSION=1.0.0 >"$folder/cpack.log" 2>&1 ||
    fail "$(cat "$folder/cpack.log")"
mkdir "$folder/1.0.1"
for package in "$folder"/1.0.0/*.deb; do
    dpkg-deb -R "$package" "$folder/next"
    sed -i 's/^Version: .*/Version: 1.0.1/' "$folder/next/DEBIAN/control"
    dpkg-deb --root-owner-group -Znone -b "$folder/next" "$folder/1.0.1" >/dev/null
    rm -rf "$folder/next"
done

root="$folder/root"
mkdir -p "$root/var/lib/dpkg/"{info,updates}
touch "$root/var/lib/dpkg/status"
export PATH="$PATH:/usr/sbin:/sbin"
dpkg_there() { # what the packages need is on this machine and not in the root
    local as_root=()
    [[ "$(id -u)" == 0 ]] || as_root=(fakeroot)
    "${as_root[@]}" dpkg --root="$root" --force-not-root --force-depends --force-unsafe-io --log="$folder/dpkg.log" "$@" >"$folder/said" 2>&1 ||
        fail "$(cat "$folder/said")"
}
version() { dpkg-query --admindir="$root/var/lib/dpkg" -W -f='${Version}' opd-registration; }
left() { find "$root" -path "$root/var/lib/dpkg" -prune -o ! -type d -print; }

dpkg_there -i "$folder"/1.0.0/*.deb
[[ "$(version)" == 1.0.0 ]]
cd "$folder"
export HOME="$folder/home" OPD_CLASS_REGISTRY="$folder/classes.ini" QT_QPA_PLATFORM=offscreen
mkdir "$HOME"
desk="$root/usr/bin/opd-desk"
"$desk" create-database hospital --patients 200
"$desk" run --database hospital --user CLERK --desktop scripted --script "$script" >/dev/null
number="$("$desk" sql hospital "select count(*) || max(IDNum) from Patient_Data_tbOutPatient")"
"$desk" doctor --database hospital >doctor || fail "$(cat doctor)"
grep -q "right program  *$root/usr/lib/.*/opd-registration/libopd-registration.so" doctor || fail "$(cat doctor)"
for file in bin/opd-desk share/{applications/opd-desk.desktop,icons/hicolor/scalable/apps/opd-desk.svg} \
    share/doc/opd-registration{,-dev}/{copyright,changelog.gz} share/doc/opd-registration/administrator.md \
    share/opd-registration/database/sqlserver/01-databases.sql include/opd-registration/component/init_dll.h; do
    [[ -e "$root/usr/$file" ]] || fail "$file is missing"
done

# Each command that help names has a page, and its options are completed.
"$desk" --help | sed -n '/^Subcommands/,/^$/s/^  \([a-z-]*\) .*/\1/p' >commands
[[ "$(wc -l <commands)" -gt 10 ]] || fail "help names no commands"
while read -r command; do
    [[ -f "$root/usr/share/man/man1/opd-desk-$command.1.gz" ]] || fail "$command has no page"
done <commands
completed() {
    # shellcheck source=/dev/null
    bash -c '. "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _opd_desk; echo "${COMPREPLY[*]}"' - \
        "$root/usr/share/bash-completion/completions/opd-desk" opd-desk "$@"
}
[[ "$(completed res)" == restore && "$(completed flag --data)" == --database && "$(completed flag NAME o)" == "on off" &&
    "$(completed configure --watch-other-desks y)" == yes && "$(completed run --database hos)" == hospital ]]

# What the libraries need beyond each other has become a dependency that this machine can name.
needs="$(dpkg-deb -f "$folder"/1.0.0/opd-registration_*.deb Depends)"
for package in sqlite3 libqt6widgets6 libqt6multimedia6 libodbc2 libsqlite3-0; do
    [[ "$needs" == *"$package"* ]] || fail "the package does not depend on $package: $needs"
done

dpkg_there -i "$folder"/1.0.1/*.deb
[[ "$(version)" == 1.0.1 ]]
[[ "$("$desk" check --database hospital)" == *"is right." ]]
[[ "$("$desk" sql hospital "select count(*) || max(IDNum) from Patient_Data_tbOutPatient")" == "$number" ]]

dpkg_there --purge opd-registration opd-registration-dev
[[ -z "$(left)" ]] || fail "left behind: $(left)"
[[ -f hospital/hospital.db ]] || fail "the hospital went with the program"
