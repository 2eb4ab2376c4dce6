#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# pinecovectl for real, as root, on the real path /etc/hosts inside a private mount namespace
# whose /etc is a temporary folder: each command's bytes, a backup for every write, restore byte
# for byte, and a dry run that writes nothing and shows the diff the real call then applies.
set -euo pipefail
ctl=$1
# shellcheck source=../support/private_etc.sh
. "$(dirname "$0")/../support/private_etc.sh"
in_private_etc "$@"
mkdir -p "$work/data"
export XDG_DATA_HOME="$work/data"
backups="$work/data/Pinecove/Backups"
# expect COMMAND... -- TEXT: the command succeeds and leaves /etc/hosts holding exactly TEXT.
expect() {
    local args=()
    while [ "$1" != -- ]; do args+=("$1"); shift; done
    "$ctl" "${args[@]}" >"$work/out" 2>&1 || fail "${args[*]}: status $? ($(cat "$work/out"))"
    [ "$(cat /etc/hosts; echo .)" = "$(printf '%b' "$2"; echo .)" ] ||
        fail "${args[*]}: /etc/hosts is now:$(printf '\n')$(cat -A /etc/hosts)"
}
backups_made() { find "$backups" -name 'hosts_*' 2>/dev/null | wc -l; }

base='127.0.0.1\tlocalhost\n# dev boxes\n10.0.0.5 staging.test # off for now\n'
printf '%b' "$base" >/etc/hosts
expect add myapp.test -- "$base\n127.0.0.1\tmyapp.test\n"
expect off myapp.test -- "$base\n# 127.0.0.1\tmyapp.test\n"
expect on MYAPP.test -- "$base\n127.0.0.1\tmyapp.test\n"
expect remove myapp.test staging.test -- '127.0.0.1\tlocalhost\n# dev boxes\n'
[ "$(backups_made)" -eq 4 ] || fail "$(backups_made) backups for 4 writes"
expect restore -- "$base\n127.0.0.1\tmyapp.test\n"

cp /etc/hosts "$work/before"
"$ctl" add 10.0.0.9 web.test --dry-run >"$work/dry" || fail "dry run: status $?"
cmp -s /etc/hosts "$work/before" || fail "the dry run wrote"
"$ctl" add 10.0.0.9 web.test >"$work/real" || fail "add after the dry run: status $?"
cmp -s "$work/dry" "$work/real" || fail "the dry run's diff is not what the real call applied"
grep -qx '+10.0.0.9	web.test' "$work/real" || fail "the diff does not show the new line"
[ "$(tail -n 1 /etc/hosts)" = "$(printf '10.0.0.9\tweb.test')" ] || fail "web.test not written"

[ "$failures" -eq 0 ] || exit 1
echo "pinecovectl wrote each edit byte for byte, with a backup each time, and restored one"
