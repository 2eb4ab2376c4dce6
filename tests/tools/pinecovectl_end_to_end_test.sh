#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# pinecovectl for real, as root, on the real path /etc/hosts inside a private mount namespace
# whose /etc is a temporary folder: each command's bytes, a backup for every write, restore byte
# for byte, and a dry run that writes nothing and shows the diff the real call then applies.
set -euo pipefail
ctl=$1
# shellcheck source=../support/session.sh
. "$(dirname "$0")/../support/session.sh"
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
expect remove myapp.test staging.test -- '127.0.0.1\tlocalhost\n# dev boxes\n'
[ "$(backups_made)" -eq 3 ] || fail "$(backups_made) backups for 3 writes"
expect restore -- "$base\n# 127.0.0.1\tmyapp.test\n"
newest=$(find "$backups" -name 'hosts_*' | sort | tail -n 1)
rm /etc/hosts # a missing file is put back too
expect restore -- "$(cat "$newest")\n"

# A dry run that wrote would leave the real call nothing to do, and a diff of its own.
"$ctl" add 10.0.0.9 web.test --dry-run >"$work/dry" || fail "dry run: status $?"
"$ctl" add 10.0.0.9 web.test >"$work/real" || fail "add after the dry run: status $?"
cmp -s "$work/dry" "$work/real" || fail "the dry run's diff is not what the real call applied"
[ "$(tail -n 1 /etc/hosts)" = "$(printf '10.0.0.9\tweb.test')" ] || fail "web.test not written"

# Concurrent writers. One user's calls wait for each other (pinecovectl's own lock), so each
# lands at the first try, with its backup.
writers=4
printf '127.0.0.1\tlocalhost\n' >/etc/hosts
rm -rf "$backups"
pids=()
for i in $(seq "$writers"); do
    timeout 120 "$ctl" add "10.0.1.$i" "same$i.test" --quiet >"$work/same$i" 2>&1 &
    pids+=($!)
done
for i in $(seq "$writers"); do
    wait "${pids[$((i - 1))]}" || fail "same user's writer $i: $(cat "$work/same$i")"
    grep -q "^10\.0\.1\.$i	same$i\.test$" /etc/hosts || fail "same user's writer $i's change was lost"
done
[ "$(backups_made)" -eq "$writers" ] || fail "$(backups_made) backups for $writers writes by one user"

# Writers of different users (each its own backups, so no user-side lock between them), started
# while this test holds the root helper's lock: each loads, backs up and waits in its helper;
# released, one lands and the others are refused with the conflict message and try again, as a
# script would. No change may be lost, and each one's predecessor is in a backup.
writers=6
printf '127.0.0.1\tlocalhost\n' >/etc/hosts
cp /etc/hosts "$work/before"
all_backups() { find "$work"/user* -name 'hosts_*' 2>/dev/null | wc -l; }
exec {lock}>/etc/pinecove-hosts.lock
flock "$lock"
pids=()
for i in $(seq "$writers"); do
    # The writers must not inherit the held lock's descriptor, or their helpers would wait on it.
    # As many tries as writers: each round lands one of them.
    (for _ in $(seq "$writers"); do
        XDG_DATA_HOME="$work/user$i" timeout 120 "$ctl" add "10.0.0.$i" "writer$i.test" --quiet \
            >"$work/writer$i" 2>&1 && exit 0
        grep -q 'changed while pinecovectl was working' "$work/writer$i" || exit 1
    done; exit 1) {lock}>&- &
    pids+=($!)
done
for _ in $(seq 600); do [ "$(all_backups)" -ge "$writers" ] && break; sleep 0.1; done
[ "$(all_backups)" -eq "$writers" ] || fail "$(all_backups) writers of $writers reached their helper"
cmp -s /etc/hosts "$work/before" || fail "a writer wrote while another helper held the lock"
exec {lock}>&-
for i in $(seq "$writers"); do
    wait "${pids[$((i - 1))]}" || fail "writer $i: $(cat "$work/writer$i")"
    grep -q "^10\.0\.0\.$i	writer$i\.test$" /etc/hosts || fail "writer $i's change was lost"
done
for k in $(seq 0 $((writers - 1))); do
    head -n $((1 + 2 * k)) /etc/hosts >"$work/predecessor"
    for backup in "$work"/user*/Pinecove/Backups/hosts_*; do cmp -s "$backup" "$work/predecessor" && continue 2; done
    fail "no backup holds /etc/hosts as it was before write $((k + 1))"
done
echo "$writers writers of different users behind a held lock: all landed after $(all_backups) tries"

[ "$failures" -eq 0 ] || exit 1
echo "pinecovectl wrote each edit byte for byte, with a backup each time, and restored one"
