# SPDX-License-Identifier: MIT
# Sourced by the scripts that need a virtual display.
# start_xvfb DIR: starts Xvfb on a display number it picks itself, so it never races another
# server for one; returns once the server accepts connections, with DISPLAY exported and
# XVFB_PID set. DIR holds the file through which Xvfb reports its number.
start_xvfb() {
    local file="$1/xvfb-display"
    rm -f "$file"
    Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$file" >/dev/null 2>&1 &
    XVFB_PID=$!
    for _ in $(seq 100); do
        [ -s "$file" ] && break
        sleep 0.1
    done
    [ -s "$file" ] || return 1
    export DISPLAY=":$(cat "$file")"
}
