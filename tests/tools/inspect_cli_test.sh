#!/bin/bash
# SPDX-License-Identifier: MIT
# pinecove-inspect as a user runs it: for each way of calling it, its status and what it says.
set -u
inspect=$1
failures=0

# expect STATUS SAID INPUT ARGUMENTS...: runs pinecove-inspect with INPUT on standard input and
# checks the status and that SAID is part of what it printed.
expect() {
    local status=$1 said=$2 input=$3 out got
    shift 3
    # The here-document's delimiter is random: one name stands for it.
    out=$(printf '%s' "$input" | "$inspect" "$@" 2>&1)
    got=$?
    out=$(sed -E 's/PINECOVE_EOF_[0-9A-F]{32}/EOF/g' <<<"$out")
    if [ "$got" != "$status" ] || [[ "$out" != *"$said"* ]]; then
        printf 'FAILED: pinecove-inspect %s: status %s, said:\n%s\n' "$*" "$got" "$out"
        failures=$((failures + 1))
    fi
}

nbsp=$'\u00A0'
expect 0 '{"lines":[{"raw":"## head"},{"entry":{"ip":"10.0.0.5","hostnames":["api.test"],"comment":"say \"hi\"\\","enabled":false}},{"entry":{"ip":"127.0.0.1","hostnames":["a.test","b.test"],"comment":"","enabled":true}},{"raw":"'"$nbsp"'tab\there\r"}],"serialized":"## head\n  # 10.0.0.5 api.test # say \"hi\"\\\n127.0.0.1 a.test b.test#\n'"$nbsp"'tab\there\r\n"}' \
    $'## head\n  # 10.0.0.5 api.test # say "hi"\\\n127.0.0.1 a.test b.test#\n\u00A0tab\there\r' -
expect 0 $'# a\n127.0.0.1 x.test' $'# a\n127.0.0.1 x.test\n\n\n' --serialize -
expect 0 $'127.0.0.1 localhost\n# 127.0.0.1 on.test\n10.0.0.1 off.test # n' \
    $'127.0.0.1 localhost\n127.0.0.1 on.test\n#10.0.0.1 off.test # n\n' --toggle-all -
expect 0 '{"ip":"127.0.0.1","hosts":["myapp.test"]}' '' --input "${nbsp}myapp.test${nbsp}"
expect 0 'null' '' --input 10.0.0.5
expect 0 '--expected-size 28 --size 29' $'127.0.0.1 a.test # "q" $HOME' --script -
# What runs as root on macOS, whole: the script's nine lines, escaped for AppleScript.
applescript=$(cat <<'END'
do shell script "set -e\nT=$(/usr/bin/mktemp /etc/hosts.pinecove.XXXXXX)\n/bin/cat > \"$T\" <<'EOF'\n1.2.3.4 a # \"q\" \\n \\\\ $x `y` 'z'\nEOF\n/bin/chmod 644 \"$T\"\n/usr/sbin/chown root:wheel \"$T\"\n/bin/mv \"$T\" /etc/hosts\n/usr/bin/dscacheutil -flushcache\n/usr/bin/killall -HUP mDNSResponder 2>/dev/null || /usr/bin/true" with administrator privileges with prompt "Pinecove wants to update your hosts file."
END
)
expect 0 "$applescript" '1.2.3.4 a # "q" \n \\ $x `y` '"'z'" --applescript -
# One line of 199,998 bytes is written with its line feed: the largest text the helper takes.
expect 0 '--size 199999' "$(head -c 199998 /dev/zero | tr '\0' '#')" --script -
expect 1 'unexpectedly large' "$(head -c 199999 /dev/zero | tr '\0' '#')" --script -
expect 1 '/nonexistent/hosts' '' --serialize /nonexistent/hosts
expect 1 '' $'127.0.0.1 caf\xE9.test\n' --toggle-all -
expect 2 'Usage: pinecove-inspect' '' --bogus file
expect 2 'Usage: pinecove-inspect' '' --toggle-all a b

[ "$failures" -eq 0 ] || exit 1
echo "pinecove-inspect: every call as expected"
