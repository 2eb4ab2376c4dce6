# SPDX-License-Identifier: MIT
# Sourced by the shell tests: skips, polling, the programs they start and stop, a session bus and
# a private /etc of their own, and failures that count.

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

# `in_private_etc "$@"` runs the calling script again, as root, inside a private mount namespace
# whose /etc is a fresh temporary folder (with PINECOVE_COPY_ETC=1, a copy of the real one), and
# exits with its status. Inside, it binds that folder and sets $work, the folder above it, which
# is removed at the end; scripts started from there get namespaces of their own.
in_private_etc() {
    if [ -z "${PINECOVE_PRIVATE_WORK:-}" ]; then
        [ "$(id -u)" -eq 0 ] || skip "needs root for a private mount namespace"
        unshare --mount true 2>/dev/null || skip "no private mount namespaces here"
        local folder status=0
        folder=$(mktemp -d)
        PINECOVE_PRIVATE_WORK=$folder unshare --mount --propagation private -- "$0" "$@" || status=$?
        rm -rf "$folder"
        exit "$status"
    fi
    work=$PINECOVE_PRIVATE_WORK
    mkdir -p "$work/etc"
    [ -z "${PINECOVE_COPY_ETC:-}" ] || cp -a /etc/. "$work/etc/"
    unset PINECOVE_PRIVATE_WORK PINECOVE_COPY_ETC
    mount --bind "$work/etc" /etc
}

# A failed check prints why and counts; the test ends with `[ "$failures" -eq 0 ] || exit 1`.
failures=0
fail() {
    echo "FAILED: $*"
    failures=$((failures + 1))
}
