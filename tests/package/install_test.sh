#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs the built package and removes it again, in a private mount namespace whose /usr and
# /var are throwaway overlays and whose /etc is a throwaway copy. The app, the polkit action and
# the helper must agree on the helper's path, no program may name a build folder, the files must
# pass their validators and its own scripts must let it be purged. The installed programs then
# run the acceptance test's window and sni modes and pinecovectl's end-to-end run.
set -euo pipefail

source_dir=$1
shots=$2
# shellcheck source=../support/session.sh
. "$(dirname "$0")/../support/session.sh"
deb=$(find "$source_dir/dist" -name 'pinecove_*.deb' 2>/dev/null | sort -V | tail -n 1 || true)
[ -n "$deb" ] || skip "no package in dist/ (scripts/package makes one; scripts/test does too)"
if [ -z "${PINECOVE_PRIVATE_WORK:-}" ]; then # once, before the namespace
    echo "lintian $(basename "$deb"):"
    lintian --fail-on error "$deb" | sed 's/^/  /'
fi
export PINECOVE_COPY_ETC=1
in_private_etc "$@"
for dir in usr var; do
    mkdir -p "$work/$dir/upper" "$work/$dir/work"
    mount -t overlay overlay -o "lowerdir=/$dir,upperdir=$work/$dir/upper,workdir=$work/$dir/work" \
        "/$dir" || skip "overlay mounts are not allowed here"
done
fail() { echo "FAILED: $*"; exit 1; }

DEBIAN_FRONTEND=noninteractive dpkg -i "$deb" >/dev/null
helper=/usr/libexec/pinecove/pinecove-write-hosts
policy=/usr/share/polkit-1/actions/io.pinecove.write-hosts.policy
[ -x "$helper" ] || fail "no helper at $helper"
# Qt keeps the literal as UTF-16.
strings --encoding=l /usr/bin/pinecove | grep -qxF "$helper" || fail "the app does not call $helper"
exec_path=$(xmllint --xpath 'string(//annotate[@key="org.freedesktop.policykit.exec.path"])' "$policy")
[ "$exec_path" = "$helper" ] || fail "the polkit action names $exec_path"
desktop-file-validate /usr/share/applications/io.pinecove.Pinecove.desktop
appstreamcli validate --no-net --pedantic /usr/share/metainfo/io.pinecove.Pinecove.metainfo.xml >/dev/null ||
    fail "$(appstreamcli validate --no-net /usr/share/metainfo/io.pinecove.Pinecove.metainfo.xml)"
for file in /usr/share/man/man1/{pinecove,pinecove-inspect,pinecovectl}.1.gz \
    /usr/share/bash-completion/completions/pinecovectl \
    /usr/share/icons/hicolor/symbolic/apps/io.pinecove.Pinecove{,-unsaved}-symbolic.svg; do
    [ -f "$file" ] || fail "not installed: $file"
done
answer=$(/usr/bin/pinecove-inspect --input myapp.test)
[ "$answer" = '{"ip":"127.0.0.1","hosts":["myapp.test"]}' ] || fail "pinecove-inspect said $answer"

# A program that falls back to a path in a build or temporary folder runs whatever someone
# plants there, as root.
for program in /usr/bin/pinecove /usr/bin/pinecovectl /usr/bin/pinecove-inspect "$helper"; do
    leaked=$({ strings "$program"; strings --encoding=l "$program"; } |
        grep -E '/(tmp|build|obj-[a-z0-9_-]+|home|root|work)/' | head -n 3 || true)
    [ -z "$leaked" ] || fail "$program names a build folder: $leaked"
done
/usr/bin/pinecove --version | grep -qx 'pinecove [0-9.]*' || fail "pinecove --version"

# The installed programs, driven: a crash, a missing QML module or library fails here.
"$source_dir/tests/app/acceptance_test.sh" /usr/bin/pinecove "$shots" window ||
    fail "the installed app did not add and apply a mapping (status $?)"
"$source_dir/tests/app/acceptance_test.sh" /usr/bin/pinecove "$shots" sni ||
    fail "the installed app's tray item (status $?)"
"$source_dir/tests/tools/pinecovectl_end_to_end_test.sh" /usr/bin/pinecovectl ||
    fail "the installed pinecovectl failed its run (status $?)"
dpkg --purge pinecove >/dev/null
echo "installed, checked and removed $(basename "$deb")"
