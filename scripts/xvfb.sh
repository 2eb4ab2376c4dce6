# SPDX-License-Identifier: MIT
# Sourced by the scripts that need a virtual display.
# start_xvfb DIR: starts Xvfb on a display number it picks itself, so it never races another
# server for one; returns once the server accepts connections, with DISPLAY exported and
# XVFB_PID set. DIR holds the file through which Xvfb reports its number.
start_xvfb() {
    local file="$1/xvfb-display"
    rm -f "$file"
    # -noreset: by default the server resets when its last client leaves (the readiness probe
    # below, a helper such as at-spi-bus-launcher), and a client that connects during the reset
    # is turned away.
    Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp -noreset 3>"$file" >/dev/null 2>&1 &
    XVFB_PID=$!
    for _ in $(seq 100); do
        [ -s "$file" ] && break
        sleep 0.1
    done
    [ -s "$file" ] || return 1
    export DISPLAY=":$(cat "$file")"
    # The number is written once the server listens; wait until a client really gets in, as a
    # busy machine can be slow to let the first one through.
    command -v xdotool >/dev/null || return 0
    for _ in $(seq 100); do
        xdotool getdisplaygeometry >/dev/null 2>&1 && return 0
        kill -0 "$XVFB_PID" 2>/dev/null || return 1
        sleep 0.1
    done
    return 1
}
