# shellcheck shell=bash
# Sourced by tests that work real windows: needs PROGRAM..., then start_display. Either ends the test as skipped (77) where
# it cannot be. What was started in the background, the display too, ends with the test; "$folder" is its own.

folder="$(mktemp -d)"
cleanup() {
    # shellcheck disable=SC2046 # several numbers
    kill $(jobs -p) 2>/dev/null || true
    wait
    rm -rf "$folder"
}
trap cleanup EXIT

needs() {
    local needed
    for needed in Xvfb "$@"; do
        command -v "$needed" >/dev/null || { echo "Skipped: $needed is missing."; exit 77; }
    done
}

# A number of its own: of two servers that look for a free one at once, one can take the other's away.
# And no starting over when its last client leaves, which refuses whoever comes meanwhile.
start_display() {
    Xvfb ":$((1000 + $$ % 30000))" -displayfd 3 -screen 0 1366x768x24 -nolisten tcp -noreset 3>"$folder/display" 2>/dev/null &
    for _ in $(seq 100); do [[ -s "$folder/display" ]] && break; sleep 0.1; done
    [[ -s "$folder/display" ]] || { echo "Skipped: no display can be started."; exit 77; }
    DISPLAY=":$(<"$folder/display")"
    export DISPLAY QT_QPA_PLATFORM=xcb XDG_RUNTIME_DIR="$folder" HOME="$folder" OPD_CLASS_REGISTRY="$folder/classes.ini"
}
