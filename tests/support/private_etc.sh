# SPDX-License-Identifier: MIT
# Sourced by the tests that write the real path /etc/hosts. `in_private_etc "$@"` runs the
# calling script again, as root, inside a private mount namespace whose /etc is a fresh temporary
# folder, and exits with its status; inside, it binds that folder and sets $work (the folder
# above it, removed at the end). With PINECOVE_COPY_ETC=1 that /etc starts as a copy of the real
# one. Without root or namespaces it reports a skip (77).
in_private_etc() {
    if [ -z "${PINECOVE_PRIVATE_WORK:-}" ]; then
        [ "$(id -u)" -eq 0 ] || { echo "SKIPPED: needs root for a private mount namespace"; exit 77; }
        unshare --mount true 2>/dev/null || { echo "SKIPPED: no private mount namespaces here"; exit 77; }
        local folder status=0
        folder=$(mktemp -d)
        PINECOVE_PRIVATE_WORK=$folder unshare --mount --propagation private -- "$0" "$@" || status=$?
        rm -rf "$folder"
        exit "$status"
    fi
    work=$PINECOVE_PRIVATE_WORK
    mkdir -p "$work/etc"
    [ -z "${PINECOVE_COPY_ETC:-}" ] || cp -a /etc/. "$work/etc/"
    mount --bind "$work/etc" /etc
}

# A failed check prints why and counts; the test ends with `[ "$failures" -eq 0 ] || exit 1`.
failures=0
fail() {
    echo "FAILED: $*"
    failures=$((failures + 1))
}
