# SPDX-License-Identifier: MIT
# Sourced by the tests that run the app among other programs: polling, the programs they start
# and stop, and a session bus of their own.

skip() { echo "SKIPPED: $*"; exit 77; }
# need TOOL...: a program on the PATH, or a Python module as "python3-MODULE", or a skip.
need() {
    local tool
    for tool; do
        if [[ $tool == python3-* ]]; then
            /usr/bin/python3 -c "import ${tool#python3-}" 2>/dev/null || skip "$tool is not installed"
        else
            command -v "$tool" >/dev/null || skip "$tool is not installed (scripts/install-deps installs it)"
        fi
    done
}
# Polls for a condition for up to twenty seconds: fixed sleeps fail on a busy machine.
wait_for() {
    for _ in $(seq 200); do
        "$@" && return 0
        sleep 0.1
    done
    return 1
}
pids=()
# background COMMAND...: starts it and remembers it, for the end and in $last.
background() {
    "$@" >/dev/null 2>&1 &
    last=$!
    pids+=("$last")
}
# Folders to remove once everything has stopped.
remove=()
# Everything started is stopped and waited for, so that the next run starts alone.
trap 'kill "${pids[@]}" 2>/dev/null || true; wait 2>/dev/null || true; rm -rf "${remove[@]}"' EXIT
# A session bus of the test's own: no desktop's, no other program's.
private_bus() {
    local bus
    bus=$(dbus-daemon --session --fork --print-address=1 --print-pid=1)
    export DBUS_SESSION_BUS_ADDRESS=${bus%%$'\n'*}
    pids+=("${bus##*$'\n'}")
}
