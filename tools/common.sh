# What ./run and ./test share. Sourced by bash with `set -euo pipefail`, from the top of the tree.

set -E # the trap holds inside functions too
step="starting"
trap 'echo "$0: failed while $step." >&2' ERR

# Says what happens from here on, in one line; a failure names it.
begin() {
    step="$1"
    echo "== $step"
}

# The packages of tools/packages.txt for the given users ("run", "test") that are not installed, nor a program of that
# name: one from elsewhere, such as npm beside another nodejs, forbids the package.
missing_packages() {
    local package user rest
    while read -r package user rest; do
        [[ -z "$package" || "$package" == "#" || " $* " != *" $user "* ]] && continue
        [[ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)" == "installed" ]] ||
            command -v "$package" >/dev/null || echo "$package"
    done < tools/packages.txt
}

# Installs what is missing, as root or through sudo; where neither works, prints the one command to run and stops.
install_missing() {
    step="looking for missing packages"
    local missing
    missing="$(missing_packages "$@" | tr '\n' ' ')"
    missing="${missing% }"
    [[ -z "$missing" ]] && return 0
    local as_root=()
    if [[ "$(id -u)" != 0 ]]; then
        if ! sudo -n true 2>/dev/null; then
            echo "$0: some packages are missing. Install them, then start again:" >&2
            echo "  sudo apt-get update && sudo apt-get install -y --no-install-recommends $missing" >&2
            exit 1
        fi
        as_root=(sudo -n)
    fi
    begin "installing $missing"
    "${as_root[@]}" apt-get update -qq
    # shellcheck disable=SC2086 # a list of words
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing \
        >/dev/null
}

# Builds some targets of a preset (all without any). Ninja knows what has changed, and configures again by itself.
build() {
    local preset="$1"
    shift
    begin "building ($preset)"
    [[ -f "build/$preset/build.ninja" ]] || cmake --preset "$preset" >/dev/null
    if [[ $# -gt 0 ]]; then
        cmake --build --preset "$preset" --target "$@"
    else
        cmake --build --preset "$preset"
    fi
}
