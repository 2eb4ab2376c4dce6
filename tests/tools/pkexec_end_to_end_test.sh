#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The whole Linux path as a user meets it: an unprivileged user runs pinecovectl, which asks
# pkexec, which asks polkit, which runs the helper as root, which writes /etc/hosts. All of it in
# a private mount namespace with its own /etc, its own system bus and its own polkitd; the action
# is installed only there, and a polkit rule stands in for the password. A second rule that
# refuses shows that a refusal writes nothing and reaches the user as one message.
set -euo pipefail
ctl=$1
helper=$2
policy_template=$3
# shellcheck source=../support/session.sh
. "$(dirname "$0")/../support/session.sh"
# shellcheck source=../support/private_etc.sh
. "$(dirname "$0")/../support/private_etc.sh"
need pkexec pkcheck dbus-daemon setpriv /usr/lib/polkit-1/polkitd
id nobody >/dev/null 2>&1 || skip "the user nobody is needed"
# The namespace's /etc starts as a copy of the real one: pkexec needs PAM, users and NSS.
export PINECOVE_COPY_ETC=1
in_private_etc "$@"

# The helper where the package puts it (an overlay: the real /usr/libexec is left alone), with
# its action; pinecovectl where the unprivileged user can reach it, as the clone may sit in a
# 0700 home; and a bus and polkitd of our own.
installed_helper=/usr/libexec/pinecove/pinecove-write-hosts
mkdir -p "$work/actions" "$work/run-dbus" "$work/data" "$work/libexec/upper" "$work/libexec/work" "$work/bin"
mount -t overlay overlay \
    -o "lowerdir=/usr/libexec,upperdir=$work/libexec/upper,workdir=$work/libexec/work" /usr/libexec ||
    skip "overlay mounts are not allowed here"
install -D -m 755 "$helper" "$installed_helper"
install -m 755 "$ctl" "$work/bin/pinecovectl"
ctl=$work/bin/pinecovectl
cp -a /usr/share/polkit-1/actions/. "$work/actions/"
sed "s|@PINECOVE_WRITE_HELPER@|$installed_helper|" "$policy_template" >"$work/actions/io.pinecove.write-hosts.policy"
mount --bind "$work/actions" /usr/share/polkit-1/actions
mount --bind "$work/run-dbus" /run/dbus
rule() {
    printf 'polkit.addRule(function(action, subject) {\n  if (action.id == "io.pinecove.write-hosts") return polkit.Result.%s;\n});\n' "$1" \
        >/etc/polkit-1/rules.d/00-pinecove-test.rules
}
rule YES
dbus-daemon --system --fork --print-pid >"$work/bus.pid"
/usr/lib/polkit-1/polkitd --no-debug >"$work/polkitd.log" 2>&1 & # it drops to polkitd itself
pids+=($! "$(cat "$work/bus.pid")")
polkit_up() {
    dbus-send --system --print-reply --dest=org.freedesktop.DBus / org.freedesktop.DBus.NameHasOwner \
        string:org.freedesktop.PolicyKit1 2>/dev/null | grep -q true
}
wait_for polkit_up || skip "a private polkitd did not start here ($(cat "$work/polkitd.log"))"
# answers STATUS: pkcheck, for the user, gives STATUS (0 yes, 1 no, 2 only with a password
# prompt); polkitd rereads its rules a moment after they change.
answers() {
    local status=0
    setpriv --reuid=nobody --regid=nogroup --clear-groups \
        sh -c 'pkcheck --action-id io.pinecove.write-hosts --process $$' >/dev/null 2>&1 || status=$?
    [ "$status" -eq "$1" ]
}

printf '127.0.0.1\tlocalhost\n' >/etc/hosts
chmod 755 "$work"
chmod 777 "$work/data"
as_user() {
    setpriv --reuid=nobody --regid=nogroup --clear-groups env HOME="$work/data" \
        XDG_DATA_HOME="$work/data" "$ctl" "$@"
}
as_user add myapp.test --quiet >"$work/out" 2>&1 || fail "authorised add: $(cat "$work/out")"
[ "$(tail -n 1 /etc/hosts)" = "$(printf '127.0.0.1\tmyapp.test')" ] ||
    fail "/etc/hosts after the authorised add:$(printf '\n')$(cat /etc/hosts)"
[ "$(stat -c '%u:%g %a' /etc/hosts)" = "0:0 644" ] || fail "owner and mode: $(stat -c '%u:%g %a' /etc/hosts)"

rule NO
wait_for answers 1 || fail "polkitd did not take the refusing rule"
cp /etc/hosts "$work/before"
status=0
as_user remove myapp.test --quiet >"$work/out" 2>&1 || status=$?
[ "$status" -eq 1 ] || fail "refused remove: status $status"
[ "$(cat "$work/out")" = "$(printf 'pinecovectl: Not authorized to update the hosts file.\nNothing was written.')" ] ||
    fail "refused remove said: $(cat "$work/out")"
cmp -s /etc/hosts "$work/before" || fail "a refused remove changed /etc/hosts"

# A password is needed and no agent runs to ask for it (sway ships none): the message says so
# and names a remedy, instead of calling it a refusal.
rule AUTH_ADMIN
wait_for answers 2 || fail "polkitd did not take the rule that asks for a password"
status=0
setsid --wait bash -c "$(declare -f as_user); ctl=$ctl work=$work as_user remove myapp.test --quiet" \
    </dev/null >"$work/out" 2>&1 || status=$?
[ "$status" -eq 1 ] || fail "remove with no agent: status $status"
grep -q '^pinecovectl: No password prompt could be shown: no polkit authentication agent is running' "$work/out" ||
    fail "remove with no agent said: $(cat "$work/out")"
cmp -s /etc/hosts "$work/before" || fail "a remove with no agent changed /etc/hosts"

[ "$failures" -eq 0 ] || exit 1
echo "pkexec and polkit ran the helper for an unprivileged user; a refusal and a missing agent wrote nothing"
