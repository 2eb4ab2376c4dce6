#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Pinecove as a user meets it: the real binary on a virtual display, driven by xdotool, writing
# /etc/hosts as root in a private mount namespace. "tray" and "window": a typed add and
# Ctrl+Return write the file, with a backup. "atspi": a screen reader's reading (atspi_probe.py).
# "sni": a StatusNotifierWatcher (sni.py) that starts after Pinecove gets the item, its menu,
# tooltip and icon. "late-tray", under openbox, and "late-tray-composited", with xcompmgr too:
# after each coming and going of a tray the panel must be on screen and drawn (by screenshot).
# Usage: acceptance_test.sh PINECOVE_BINARY SCREENSHOT_DIR
#        tray|window|atspi|late-tray|late-tray-composited|sni
set -euo pipefail
app=$1
shots=$2
mode=$3

# shellcheck source=../support/session.sh
. "$(dirname "$0")/../support/session.sh"
need Xvfb xdotool import dbus-daemon
case $mode in
tray) need trayer ;;
late-tray*) need trayer openbox xcompmgr python3-gi ;;
sni) need python3-gi ;;
atspi) need /usr/libexec/at-spi-bus-launcher python3-pyatspi ;;
esac
export PINECOVE_COPY_ETC=1 # the app and X need much of /etc
in_private_etc "$@"
mkdir -p "$work/data"
printf '127.0.0.1\tlocalhost\n::1\tlocalhost\n\n# local development\n127.0.0.1\tapi.test\n' >/etc/hosts
cp /etc/hosts "$work/original-hosts"

window="" app_pid=""
mkdir -p "$shots"
fail() {
    echo "FAILED: $*"
    [ -z "$app_pid" ] || kill -0 "$app_pid" 2>/dev/null || echo "Pinecove has ended; its last words: $(tail -n 5 "$work/app.log")"
    # import waits for ever on a window that has gone (a crashed app's).
    if [ -n "$window" ] && xdotool getwindowgeometry "$window" >/dev/null 2>&1; then
        timeout 10 import -window "$window" "$shots/acceptance-$mode-failed.png" &&
            echo "The panel at the failure: $shots/acceptance-$mode-failed.png"
    fi
    exit 1
}

export XDG_DATA_HOME="$work/data" XDG_RUNTIME_DIR="$work" QT_QPA_PLATFORM=xcb
# shellcheck source=../../scripts/xvfb.sh
. "$(dirname "$0")/../../scripts/xvfb.sh"
start_xvfb "$work" || fail "Xvfb did not start"
pids+=("$XVFB_PID")

private_bus # never the desktop's, whose tray would take the item
if [ "$mode" = atspi ]; then
    background /usr/libexec/at-spi-bus-launcher --launch-immediately
    export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 NO_AT_BRIDGE=0
fi

[[ $mode != late-tray* ]] || background openbox
[ "$mode" != late-tray-composited ] || background xcompmgr
if [ "$mode" = tray ]; then
    # At the bottom edge, where the panel must open above the icon and grow upward.
    background trayer --edge bottom --align right --widthtype pixel --width 120 --height 24
    timeout 10 xdotool search --sync --class trayer >/dev/null || fail "the tray host did not start"
fi

"$app" >"$work/app.log" 2>&1 &
app_pid=$!
pids+=("$app_pid")
if [ "$mode" = sni ]; then
    # The watcher starts after Pinecove's window, as a panel may at login.
    timeout 20 xdotool search --sync --onlyvisible --name '^Pinecove$' >/dev/null ||
        fail "no window without a tray"
    sni() { /usr/bin/python3 "$(dirname "$0")/sni.py" "$1" "$work/items" "${@:2}"; }
    background /usr/bin/python3 "$(dirname "$0")/sni.py" watch "$work/items"
    watcher_pid=$last
    registered() { [ -s "$work/items" ]; }
    wait_for registered || fail "the item did not register with the watcher ($(cat "$work/app.log"))"
    [ "$(sni get ToolTip)" = Pinecove ] || fail "tooltip: $(sni get ToolTip)"
    [ "$(sni menu | tr '\n' ,)" = "Open Pinecove,Refresh,Quit Pinecove," ] || fail "menu: $(sni menu)"
    icon() { echo "$(sni get IconName) $(sni get IconPixmap)"; }
    clean_icon=$(icon)
    # Installed, the icon goes by its symbolic name, which hosts recolour to their panel.
    [ ! -f /usr/share/icons/hicolor/symbolic/apps/io.pinecove.Pinecove-symbolic.svg ] ||
        [ "$(sni get IconName)" = io.pinecove.Pinecove-symbolic ] || fail "IconName $(sni get IconName)"
    sni activate
fi
# The tray icon's own window, once a tray shows it.
tray_icon() { xdotool search --onlyvisible --class pinecove 2>/dev/null | while read -r w; do
    [ "$(xdotool getwindowgeometry --shell "$w" | sed -n 's/^WIDTH=//p')" -lt 100 ] && echo "$w"; done | head -n 1; }
# The icon's geometry (X, Y, WIDTH, HEIGHT) once it has stayed put a moment: a tray that has just
# embedded it may still swap its window or move it.
icon_place() { local icon; icon=$(tray_icon) && [ -n "$icon" ] &&
    place=$(xdotool getwindowgeometry --shell "$icon" 2>/dev/null) && [ -n "$place" ]; }
icon_settled() { icon_place && local first=$place && sleep 0.3 && icon_place && [ "$place" = "$first" ]; }
read_icon_place() { wait_for icon_settled || fail "the tray icon went away"; eval "$place"; }
click_icon() { read_icon_place; xdotool mousemove $((X + 5)) $((Y + 5)) click 1; }
# The panel, not the tray item (which carries the same name): the window 360 wide.
panel_window() { xdotool search --onlyvisible --name '^Pinecove$' 2>/dev/null | while read -r w; do
    xdotool getwindowgeometry --shell "$w" | grep -qx 'WIDTH=360' && echo "$w"; done | head -n 1; }
window_shown() { window=$(panel_window) && [ -n "$window" ]; }
height() { xdotool getwindowgeometry --shell "$window" | sed -n 's/^HEIGHT=//p'; }
# The height has stopped changing (the apply bar's entrance is over).
steady() { local before; before=$(height); sleep 0.2; [ "$(height)" = "$before" ]; }
height_is() { [ "$(height)" "$1" "$2" ]; } # height_is -gt 300
# Clicks into the input field at the bottom of the panel, as a user would, adds myapp.test and
# waits for the apply bar: the heights before and after are $clean_height and $dirty_height.
add_in_panel() {
    # A window manager may refuse the focus while it still maps the window: ask again.
    focused() {
        xdotool windowfocus "$window" 2>/dev/null || true
        [ "$(xdotool getwindowfocus)" = "$window" ]
    }
    wait_for focused || fail "the panel did not take the keyboard"
    clean_height=$(height)
    xdotool mousemove --window "$window" 180 $((clean_height - 28)) click 1
    xdotool type --delay 40 "myapp.test"
    xdotool key Return
    wait_for height_is -gt "$clean_height" || fail "no apply bar after Return (height stays $(height))"
    wait_for steady
    dirty_height=$(height)
}
if [ "$mode" = tray ]; then
    # The item sits in the tray (it shows once Pinecove listens for later starts); a second
    # start asks the running Pinecove to open its panel. Closed with Escape, it opens again
    # from a click on the icon, above it, as the tray is at the bottom.
    wait_for icon_place || fail "no tray item appeared"
    "$app" || fail "the second start did not hand over"
    wait_for window_shown || fail "the second start did not open the panel"
    xdotool windowfocus --sync "$window" key Escape
    gone() { [ -z "$(panel_window)" ]; }
    wait_for gone || fail "Escape did not close the panel"
    click_icon
fi
wait_for window_shown || fail "no Pinecove window appeared ($(cat "$work/app.log"))"
if [ "$mode" = sni ]; then
    add_in_panel
    unsaved() { [ "$(sni get ToolTip)" = "Pinecove, unsaved changes" ]; }
    wait_for unsaved || fail "the tooltip after an edit: $(sni get ToolTip)"
    [ "$(icon)" != "$clean_icon" ] || fail "the icon did not gain its dot"
    xdotool key Escape
    kill "$watcher_pid"
    wait_for window_shown || fail "the window did not come back when the tray went away"
    echo "PASSED (sni): registered late, activated, menu, tooltip and icon follow the edit, window when the tray left"
    exit 0
fi
# The panel is drawn: its header (the icon and "Pinecove") and its first rows show many
# colours. A panel left undrawn is one colour (black, or see-through under a compositor).
drawn() {
    local shot="$work/drawn.png"
    timeout 10 import -window "$window" "$shot" 2>/dev/null || return 1
    local header rows
    header=$(convert "$shot" -crop 340x44+10+8 +repage -format %k info:)
    rows=$(convert "$shot" -crop 340x80+10+70 +repage -format %k info:)
    [ "$header" -gt 40 ] && [ "$rows" -gt 40 ]
}
# $1: what just changed. The panel must be there and drawn, before anything clicks on it.
expect_drawn() {
    wait_for window_shown || fail "$1: no panel on screen ($(cat "$work/app.log"))"
    wait_for drawn || { cp "$work/drawn.png" "$shots/acceptance-$mode-undrawn.png" 2>/dev/null
        fail "$1: the panel is on screen but not drawn (see $shots/acceptance-$mode-undrawn.png)"; }
    cp "$work/drawn.png" "$shots/acceptance-$mode-$2.png"
}
if [[ $mode == late-tray* ]]; then
    expect_drawn "no tray at start" 1-window
    add_in_panel # an unsaved edit, which every change of tray below must leave alone
    background trayer --edge top --align right --widthtype pixel --width 120 --height 24
    tray_pid=$last
    icon_only() { [ -n "$(tray_icon)" ] && [ -z "$(panel_window)" ]; }
    wait_for icon_only || fail "the late XEmbed tray did not take the item over from the window"
    click_icon
    expect_drawn "the popover from the late tray" 2-popover
    xdotool key Escape
    kill "$tray_pid"
    expect_drawn "the tray went away" 3-window-again
    # A StatusNotifierItem watcher now: Qt keeps the X11 kind it chose, so the window must stay.
    background /usr/bin/python3 "$(dirname "$0")/sni.py" watch "$work/items"
    watcher_pid=$last
    # Nothing to wait for: the window must simply stay, through the follower's grace for an icon
    # that never shows (four seconds) and a little more.
    sleep 6
    expect_drawn "a StatusNotifierItem watcher came" 4-window-with-watcher
    kill "$watcher_pid"
    sleep 3 # again a time to stay through: a look for a tray every two seconds
    expect_drawn "the watcher went away" 5-window-at-end
    [ "$(height)" -eq "$dirty_height" ] || fail "the unsaved edit is gone (height $(height), was $dirty_height)"
    echo "PASSED ($mode): the panel was on screen and drawn after every tray change"
    exit 0
fi
if [ "$mode" = atspi ]; then
    /usr/bin/python3 "$(dirname "$0")/atspi_probe.py" || fail "the panel fails a screen reader"
    echo "PASSED (atspi): rows, texts, the menu, Discard, Apply and Remove work through AT-SPI"
    exit 0
fi
written() { cmp -s /etc/hosts <(cat "$work/original-hosts"; printf '\n127.0.0.1\tmyapp.test\n'); }
add_in_panel
if [ "$mode" = tray ]; then
    bottom=$(eval "$(xdotool getwindowgeometry --shell "$window")"; echo $((Y + HEIGHT)))
    read_icon_place
    [ "$bottom" -le "$Y" ] || fail "the grown panel covers the tray icon"
fi
xdotool key ctrl+Return

wait_for written || fail "/etc/hosts is not the old file and the new line:$(printf '\n')$(cat -A /etc/hosts)"
backup=$(find "$XDG_DATA_HOME/Pinecove/Backups" -name 'hosts_*' 2>/dev/null | head -n 1)
cmp -s "$backup" "$work/original-hosts" || fail "no backup holds the old file (${backup:-none})"
wait_for height_is -lt "$dirty_height" || fail "the panel still shows unapplied changes"

import -window "$window" "$shots/acceptance-$mode.png"
echo "PASSED ($mode): /etc/hosts ends with 127.0.0.1<TAB>myapp.test; screenshot $shots/acceptance-$mode.png"
