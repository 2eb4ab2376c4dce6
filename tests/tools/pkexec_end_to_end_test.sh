#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The whole Linux path: an unprivileged user runs pinecovectl, which asks pkexec, which asks
# polkit, which runs the helper as root, which writes /etc/hosts; in a private mount namespace with
# its own /etc, system bus and polkitd, where a polkit rule stands in for the password. A refusal
# and a missing agent must write nothing and reach the user as one message each.
set -euo pipefail
ctl=$1
helper=$2
policy_template=$3
# shellcheck source=../support/session.sh
. "$(dirname "$0")/../support/session.sh"
need pkexec pkcheck dbus-daemon setpriv /usr/lib/polkit-1/polkitd
id nobody >/dev/null 2>&1 || skip "the user nobody is needed"
# The namespace's /etc starts as a copy of the real one: pkexec needs PAM, users and NSS.
export PINECOVE_COPY_ETC=1
in_private_etc "$@"

# The helper where the package puts it (an overlay: the real /usr/libexec is left alone), with
# its action; pinecovectl where the unprivileged user can reach it, as the clone may sit in a
# 0700 home; and a bus and polkitd of our own.
installed_helper=/usr/libexec/pinecove/pinecove-write-hosts
mkdir -p "$work"/{actions,run-dbus,data,libexec/upper,libexec/work,bin}
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
polkit_up() { dbus-send --system --print-reply --dest=org.freedesktop.DBus / \
    org.freedesktop.DBus.NameHasOwner string:org.freedesktop.PolicyKit1 2>/dev/null | grep -q true; }
wait_for polkit_up || skip "a private polkitd did not start here ($(cat "$work/polkitd.log"))"
nobody=(setpriv --reuid=nobody --regid=nogroup --clear-groups)
# answers STATUS: pkcheck, for the user, gives STATUS (0 yes, 1 no, 2 only with a password
# prompt); polkitd rereads its rules a moment after they change.
answers() {
    local status=0
    "${nobody[@]}" sh -c 'pkcheck --action-id io.pinecove.write-hosts --process $$' >/dev/null 2>&1 ||
        status=$?
    [ "$status" -eq "$1" ]
}
printf '127.0.0.1\tlocalhost\n' >/etc/hosts
chmod 755 "$work"
chmod 777 "$work/data"
# pinecovectl as the user, in a session of its own: no terminal, so pkexec has no text agent.
as_user=(setsid --wait "${nobody[@]}" env HOME="$work/data" XDG_DATA_HOME="$work/data" "$ctl")
"${as_user[@]}" add myapp.test --quiet </dev/null >"$work/out" 2>&1 || fail "authorised add: $(cat "$work/out")"
[ "$(tail -n 1 /etc/hosts)" = "$(printf '127.0.0.1\tmyapp.test')" ] ||
    fail "/etc/hosts after the authorised add:$(printf '\n')$(cat /etc/hosts)"
[ "$(stat -c '%u:%g %a' /etc/hosts)" = "0:0 644" ] || fail "owner and mode: $(stat -c '%u:%g %a' /etc/hosts)"
cp /etc/hosts "$work/before"

# refused RULE STATUS MESSAGE: under RULE (pkcheck's STATUS) a remove fails, says exactly
# "pinecovectl: MESSAGE" and "Nothing was written.", and leaves /etc/hosts alone.
refused() {
    rule "$1"
    wait_for answers "$2" || fail "polkitd did not take the rule $1"
    local status=0
    "${as_user[@]}" remove myapp.test --quiet </dev/null >"$work/out" 2>&1 || status=$?
    [ "$status" -eq 1 ] || fail "$1: remove status $status"
    [ "$(cat "$work/out")" = "$(printf 'pinecovectl: %s\nNothing was written.' "$3")" ] ||
        fail "$1: remove said: $(cat "$work/out")"
    cmp -s /etc/hosts "$work/before" || fail "$1: the remove changed /etc/hosts"
}
refused NO 1 "Not authorized to update the hosts file."
# A password is needed and no agent runs to ask for it (sway ships none): the message says so
# and names a remedy, instead of calling it a refusal.
refused AUTH_ADMIN 2 "No password prompt could be shown: no polkit authentication agent is \
running. Start your desktop's agent, or install one (Debian: sudo apt install lxpolkit) and log \
in again, then run the command again."

[ "$failures" -eq 0 ] || exit 1
echo "pkexec and polkit ran the helper for an unprivileged user; a refusal and a missing agent wrote nothing"
