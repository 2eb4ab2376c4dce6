#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The root helper, run as root on the real path /etc/hosts inside a private mount namespace whose
# /etc is a temporary folder: exact bytes whatever they hold, mode and owner, and a refusal, with
# the file untouched and no temporary file left, for every input it must not write.
set -euo pipefail
helper=$1
# shellcheck source=../support/session.sh
. "$(dirname "$0")/../support/session.sh"
in_private_etc "$@"

# write LABEL EXPECTED_STATUS NEW_TEXT_FILE [EXTRA_BYTES [LOADED_FILE]]: feeds the helper the
# text it loaded (/etc/hosts unless told), then the new text (and any extra bytes), and checks
# its status and the file afterwards.
write() {
    local label=$1 want=$2 new=$3 extra=${4:-} loaded=${5:-/etc/hosts}
    cp /etc/hosts "$work/before"
    local status=0
    { cat "$loaded" "$new"; printf '%s' "$extra"; } |
        "$helper" --expected-size "$(stat -c %s "$loaded")" --size "$(stat -c %s "$new")" \
            2>"$work/err" || status=$?
    [ "$status" -eq "$want" ] || fail "$label: status $status, not $want ($(cat "$work/err"))"
    if [ "$want" -eq 0 ]; then
        cmp -s "$new" /etc/hosts || fail "$label: the file is not the text byte for byte"
        [ "$(stat -c '%a %u:%g' /etc/hosts)" = "644 0:0" ] || fail "$label: mode or owner"
    else
        cmp -s "$work/before" /etc/hosts || fail "$label: a refused write changed the file"
        [ "$(wc -l <"$work/err")" -eq 1 ] || fail "$label: not one line of message"
    fi
    ! ls /etc/hosts.pinecove.* >/dev/null 2>&1 || fail "$label: a temporary file was left"
}

printf '127.0.0.1 localhost\n' >/etc/hosts
: >/etc/hosts.pinecove.Kil1ed # a killed helper's temporary file: the next one removes it
printf '127.0.0.1 localhost\n# $(touch %s/pwned) `id` \\\n\r\n10.0.0.1\tnul\0.test\n' "$work" >"$work/hostile"
write "hostile bytes, NUL and CR" 0 "$work/hostile"
[ ! -e "$work/pwned" ] || fail "the text ran as a command"
head -c 199999 /dev/zero | tr '\0' '#' >"$work/largest"
write "199,999 bytes" 0 "$work/largest"
head -c 200000 /dev/zero | tr '\0' '#' >"$work/too-large"
write "200,000 bytes" 3 "$work/too-large"
grep -q "unexpectedly large" "$work/err" || fail "too large: $(cat "$work/err")"
printf '10.0.0.2 next.test\n' >"$work/next"
write "bytes after the announced size" 3 "$work/next" "; reboot"
printf 'caf\351.test\n' >"$work/latin1"
write "not UTF-8" 3 "$work/latin1"

# Changed during the prompt: the helper is told the file held other bytes, as many of them.
tr '#' '!' <"$work/largest" >"$work/loaded"
write "changed file" 4 "$work/next" "" "$work/loaded"
grep -q "changed by another app" "$work/err" || fail "changed file: $(cat "$work/err")"

# Injected failures: a full file system, then a read-only /etc.
mount -t tmpfs -o size=64k tmpfs /etc
printf '127.0.0.1 localhost\n' >/etc/hosts
head -c 40000 /dev/zero >/etc/filler
head -c 60000 /dev/zero | tr '\0' '#' >"$work/big"
write "a full file system" 5 "$work/big"
mount -o remount,ro /etc
write "a read-only /etc" 5 "$work/next"

[ "$failures" -eq 0 ] || exit 1
echo "the helper wrote exactly, refused what it must, and left no temporary file"
