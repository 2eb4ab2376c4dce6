#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Pinecove on a Wayland desktop: the real binary under sway (headless, pixman, as the user nobody,
# since sway will not run as root), its item with a StatusNotifierItem watcher (sni.py) on a
# private session bus, keys typed through a virtual keyboard (wtype), the screen read with grim.
# The panel must show and be drawn, hide on a tray click and on Escape, come forward from
# another workspace and from the scratchpad, and show an outside change when it opens again.
# Usage: wayland_acceptance_test.sh PINECOVE_BINARY SCREENSHOT_DIR
set -euo pipefail
app=$1
shots=$2

# shellcheck source=../support/session.sh
. "$(dirname "$0")/../support/session.sh"
need sway swaymsg jq grim wtype convert dbus-daemon python3-gi
id nobody >/dev/null 2>&1 || skip "there is no user nobody to run sway as"
export PINECOVE_COPY_ETC=1
in_private_etc "$@"
printf '127.0.0.1\tlocalhost\n127.0.0.1\tapi.test\n' >/etc/hosts

fail() {
    echo "FAILED: $*"
    grim "$shots/wayland-failed.png" 2>/dev/null && echo "The screen at the failure: $shots/wayland-failed.png"
    exit 1
}
# sway's folder must be the user nobody's, and reachable by it whatever holds $work.
session=$(mktemp -d -p /tmp pinecove-sway.XXXXXX)
remove+=("$session")
chmod 711 "$session"
install -d -o nobody -m 700 "$session/run"
echo 'output HEADLESS-1 resolution 1280x800' >"$session/config"
setpriv --reuid=nobody --regid=nogroup --clear-groups env -i HOME="$session" \
    XDG_RUNTIME_DIR="$session/run" WLR_BACKENDS=headless WLR_LIBINPUT_NO_DEVICES=1 \
    WLR_RENDERER=pixman sway -c "$session/config" >"$work/sway.log" 2>&1 &
pids+=($!)
socket_ready() { [ -S "$session/run/wayland-1" ] && compgen -G "$session/run/sway-ipc.*" >/dev/null; }
wait_for socket_ready || skip "sway could not start here: $(tail -n 3 "$work/sway.log")"
export WAYLAND_DISPLAY=$session/run/wayland-1 SWAYSOCK
SWAYSOCK=$(compgen -G "$session/run/sway-ipc.*")
private_bus
mkdir -p "$work/runtime" "$shots"
chmod 700 "$work/runtime"
export XDG_RUNTIME_DIR=$work/runtime XDG_DATA_HOME=$work/data QT_QPA_PLATFORM=wayland
sni() { /usr/bin/python3 "$(dirname "$0")/sni.py" "$1" "$work/items" "${@:2}"; }
background /usr/bin/python3 "$(dirname "$0")/sni.py" watch "$work/items"
"$app" >"$work/app.log" 2>&1 &
pids+=($!)

# The panel's window in sway's tree: "WORKSPACE FOCUSED X Y WIDTH HEIGHT", or nothing.
panel() {
    swaymsg -t get_tree | jq -r 'recurse(.nodes[]?, .floating_nodes[]?) | select(.type == "workspace")
        | .name as $ws | recurse(.nodes[]?, .floating_nodes[]?) | select(.app_id == "io.pinecove.Pinecove")
        | "\($ws) \(.focused) \(.rect.x) \(.rect.y) \(.rect.width) \(.rect.height)"'
}
shown_on() { read -r ws focused _ <<<"$(panel)" && [ "$ws" = "$1" ] && [ "$focused" = true ]; }
hidden() { [ -z "$(panel)" ]; }
registered() { [ -s "$work/items" ]; }
# Drawn: the header and the first rows show many colours, as an undrawn surface does not.
drawn() {
    read -r _ _ x y width _ <<<"$(panel)" || return 1
    grim -g "$x,$y ${width}x120" "$work/shot.png" 2>/dev/null &&
        [ "$(convert "$work/shot.png" -format %k info:)" -gt 40 ]
}
# wtype's virtual keyboard sends its keymap first; a key at once can arrive before it.
press() { wtype -s 300 -k "$1"; }

wait_for registered || fail "the item did not register with the watcher ($(cat "$work/app.log"))"
wait_for hidden || fail "with a tray, Pinecove starts in the tray"
sni activate
wait_for shown_on 1 || fail "a tray click did not show the panel with the keyboard: $(panel)"
wait_for drawn || fail "the panel is not drawn"
cp "$work/shot.png" "$shots/wayland-panel.png"
sni activate
wait_for hidden || fail "a second tray click did not hide the panel"
sni activate
wait_for shown_on 1 || fail "the panel did not come back"
press Escape
wait_for hidden || fail "Escape did not hide the panel"

swaymsg workspace 2 >/dev/null
sni activate
wait_for shown_on 2 || fail "the panel did not open on workspace 2: $(panel)"
swaymsg workspace 3 >/dev/null
sni activate
wait_for shown_on 3 || fail "a tray click did not bring the panel from workspace 2: $(panel)"
swaymsg move scratchpad >/dev/null
"$app" || fail "the second start did not hand over"
wait_for shown_on 3 || fail "a second start did not bring the panel from the scratchpad: $(panel)"
wait_for drawn || fail "the panel brought forward is not drawn"

read -r _ _ _ _ _ height <<<"$(panel)"
press Escape
wait_for hidden || fail "Escape did not hide the panel"
printf '127.0.0.1\tlater.test\n' >>/etc/hosts
sni activate
taller() { read -r _ _ _ _ _ now <<<"$(panel)" && [ "${now:-0}" -gt "$height" ]; }
wait_for taller || fail "the panel did not show the outside change when it opened again"
echo "PASSED (wayland): shown and drawn, hidden by a tray click and Escape, brought forward from" \
    "another workspace and the scratchpad, reloaded when shown; screenshot $shots/wayland-panel.png"
