// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Pinecove
import PinecoveTest

// Drives the panel as a user would, by keyboard and mouse, with animations on.
TestCase {
    id: testCase

    property var panel: null
    readonly property string sample: "127.0.0.1 localhost\n127.0.0.1 beta.test\n#10.0.0.5 alpha.test\n"

    function init() {
        Desktop.reduceMotion = false;
        TestHosts.reset(sample);
        panel = createTemporaryObject(panelComponent, testCase);
        waitForRendering(panel);
    }

    // Delegates live in the visual tree, which findChild does not search; a ListView's rows hang
    // below its content item.
    function findAll(root, predicate, found = [], seen = new Set()) {
        if (!root || seen.has(root))
            return found;
        seen.add(root);
        if (predicate(root))
            found.push(root);
        for (let i = 0; i < root.children.length; ++i)
            findAll(root.children[i], predicate, found, seen);
        return findAll(root.contentItem, predicate, found, seen);
    }

    function named(name, root = panel) {
        return findAll(root, item => item.objectName === name)[0];
    }

    // Every delegate that is drawn or takes clicks (an invisible one still does), top to bottom.
    function rows() {
        return findAll(panel, item => item.entryId !== undefined && item.visible && item.title !== undefined).sort((a, b) => a.y - b.y);
    }

    function row(title) {
        return rows().find(r => r.title === title);
    }

    function clickRow(title) {
        mouseClick(named("mainControl", row(title)));
    }

    // Whether a row shows whole in the list's visible part.
    function inView(item) {
        const at = item.mapToItem(named("entryList"), 0, 0);
        return at.y >= 0 && at.y + item.height <= named("entryList").height;
    }

    // The title of the row with the keyboard, which must be in view, or the control's name.
    function focused() {
        const f = panel.Window.activeFocusItem;
        if (f.objectName !== "mainControl")
            return f.objectName;
        verify(inView(f), "out of view: " + f.parent.parent.title);
        return f.parent.parent.title;
    }

    function type(text) {
        named("inputField").forceActiveFocus();
        for (const c of text)
            keyClick(c === " " ? Qt.Key_Space : c);
    }

    name: "Panel"
    visible: true // a TestCase is hidden by default, and so would be the panel
    when: windowShown
    width: 360
    height: 700

    Component {
        id: panelComponent

        PanelView {
        }
    }

    // Random edits, replayable from the seed; once they settle, the list shows the store's rows
    // in order, fully drawn and stacked, and nothing else.
    function test_animatedListAlwaysShowsTheStoresRows() {
        let state = 20261123;
        const next = n => (state = (state * 1664525 + 1013904223) >>> 0) % n;
        for (let step = 0; step < 60; ++step) {
            const custom = rows().filter(r => !r.system);
            const target = custom[next(Math.max(custom.length, 1))];
            const action = target ? next(7) : 0;
            if (action === 0 && Store.customEntries.count < 7) {
                type("n" + step + ".test");
                keyClick(Qt.Key_Return);
            } else if (action === 1) {
                mouseClick(named("mainControl", target));
            } else if (action === 2) {
                mouseMove(target, target.width / 2, target.height / 2);
                tryCompare(named("removeButton", target), "visible", true);
                mouseClick(named("removeButton", target));
            } else if (action === 3) {
                mouseClick(target, 20, target.height / 2, Qt.RightButton);
                tryCompare(target.contextMenu, "opened", true);
                mouseClick(target.contextMenu.itemAt(1));
            } else if (action === 4) {
                named("mainControl", target).forceActiveFocus();
                keyClick(Qt.Key_Delete);
            } else if (action === 5 && named("applyBar").visible) {
                mouseClick(named("discardButton"));
            } else if (action === 6) {
                Store.load();
            }
            // Settled: the store's rows in order, fully drawn and stacked. The next click is a
            // new one, not the second of a double-click.
            const what = "step " + step + ", action " + action;
            tryVerify(() => misplaced() === "", 3000, what + ": " + misplaced());
            named("entryList").lastClickTime = 0;
        }
    }

    // What is wrong with the list's rows against the store's, or "".
    function misplaced() {
        const live = rows().filter(r => !r.system);
        const model = Store.customEntries;
        const ids = [...Array(model.count).keys()].map(i => model.data(model.index(i, 0), Qt.UserRole + 1));
        if (String(live.map(r => r.entryId)) !== String(ids))
            return "rows " + live.map(r => r.title);
        for (let i = 0; i < live.length; ++i) {
            if (live[i].opacity !== 1)
                return "opacity of " + live[i].title + ": " + live[i].opacity;
            if (i > 0 && live[i].y !== live[i - 1].y + live[i - 1].height + named("entryList").spacing)
                return "place of " + live[i].title;
        }
        return "";
    }

    // The first click sorts the row away (off rows list last); the second lands on the row
    // that moved under the pointer and must not switch it off too.
    function test_doubleClickSwitchesOffOneMapping() {
        TestHosts.reset("127.0.0.1 a.test\n127.0.0.1 b.test\n127.0.0.1 c.test\n");
        const r = row("a.test");
        const spot = named("mainControl", r).mapToItem(panel, 40, r.height / 2);
        mouseClick(panel, spot.x, spot.y);
        wait(200); // the user's pause inside a double-click, while the row slides away
        mouseClick(panel, spot.x, spot.y);
        compare(Store.subtitle, "2 active \u00B7 1 off");
    }

    // Twice round the loop each way: every control and the rows take focus, in visual order,
    // and the focused thing is in view. Shown again, the unsaved panel keeps its edit.
    function test_tabFollowsTheVisualOrderWithAVisibleRing() {
        clickRow("beta.test"); // unsaved: the apply bar shows
        TestHosts.writeBehind("");
        panel.appeared();
        named("moreActions").forceActiveFocus(Qt.TabFocusReason);
        const loop = ["alpha.test", "systemToggle", "discardButton", "applyButton", "inputField", "moreActions"];
        for (const [key, expected] of [[Qt.Key_Tab, loop.concat(loop)], [Qt.Key_Backtab, loop.slice(0, 5).reverse().concat(["moreActions"], loop.slice(0, 5).reverse(), ["moreActions"])]]) {
            const order = [];
            for (let i = 0; i < expected.length; ++i) {
                keyClick(key);
                order.push(focused());
            }
            compare(order, expected);
        }
        keyClick(Qt.Key_Tab);
        keyClick(Qt.Key_Down);
        compare(focused(), "beta.test");
        // The ring in the scheme's colour; the scheme follows the palette (there is no portal here).
        const edge = row("beta.test").mapToItem(panel, 2, row("beta.test").height / 2);
        for (const dark of [true, false]) {
            TestHosts.usePalette(dark);
            tryVerify(() => {
                    const seen = grabImage(panel).pixel(edge.x, edge.y);
                    return Theme.dark === dark && Math.abs(seen.r - Theme.focus.r) + Math.abs(seen.g - Theme.focus.g) + Math.abs(seen.b - Theme.focus.b) < 0.1;
                }, 2000, "no ring drawn in the " + (dark ? "dark" : "light") + " scheme");
        }
    }

    // In a list longer than the panel (another program's, read as the clean panel shows), the row
    // with the keyboard and a new entry are in view, and only rows in view read as on screen.
    function test_keyboardAndAddsKeepTheRowInView() {
        let text = "127.0.0.1 localhost\n";
        for (let i = 10; i < 40; ++i)
            text += "127.0.0.1 host" + i + ".test\n";
        TestHosts.writeBehind(text);
        panel.appeared();
        // A screen reader reads a row as on screen only while the list shows it.
        tryVerify(() => row("host15.test") !== undefined);
        named("entryList").contentY += 120; // the first rows scroll out, still made
        const offscreen = title => TestHosts.readAsOffscreen(named("mainControl", row(title)));
        compare([offscreen("host10.test"), offscreen("host15.test")], [true, false]);
        named("moreActions").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Tab);
        for (const [key, times, title] of [[Qt.Key_Down, 20, "host30.test"], [Qt.Key_End, 1, "host39.test"], [Qt.Key_Home, 1, "host10.test"], [Qt.Key_PageDown, 1, null]]) {
            for (let i = 0; i < times; ++i)
                keyClick(key);
            tryVerify(() => panel.Window.activeFocusItem.objectName === "mainControl" && inView(panel.Window.activeFocusItem), 1000, "focus out of view after key " + key);
            if (title)
                compare(focused(), title);
        }
        type("host99.test");
        keyClick(Qt.Key_Return);
        tryVerify(() => row("host99.test") && inView(row("host99.test")), 2000, "the new entry is out of view");
    }

    // More actions fits inside the panel and shows its shortcuts. The row's menu names the
    // switch it makes; its Remove removes, and so does a screen reader's "Remove" action.
    function test_menus() {
        mouseClick(named("moreActions"));
        const menu = named("moreActions").menu;
        tryCompare(menu, "opened", true);
        const left = menu.background.mapToItem(panel, 0, 0).x;
        verify(left >= 0 && left + menu.width <= panel.width, "menu at " + left + ", " + menu.width + " wide");
        compare([menu.itemAt(0).hint, menu.itemAt(4).hint], ["Ctrl+R", "Ctrl+Q"]);
        menu.close();
        for (const [title, turn] of [["alpha.test", "Turn On"], ["beta.test", "Turn Off"]]) {
            const r = row(title);
            mouseClick(r, 20, r.height / 2, Qt.RightButton);
            tryCompare(r.contextMenu, "opened", true);
            compare(r.contextMenu.itemAt(0).text, turn);
            if (title === "alpha.test")
                mouseClick(r.contextMenu.itemAt(1));
            else
                r.contextMenu.close();
        }
        TestHosts.accessibleAction(named("mainControl", row("beta.test")), "Remove");
        tryCompare(Store.customEntries, "count", 0);
    }

    function test_typingPreviewsAndReturnAdds() {
        type("bad!name");
        compare(named("plusSymbol").tint, Theme.secondary); // at once, not after a fade
        named("inputField").text = "10.0.0.5 a.test b.test"; // pasted whole
        const chips = () => String(findAll(panel, item => item.objectName.endsWith("Chip") && item.visible).map(c => c.text));
        tryVerify(() => chips() === "10.0.0.5,a.test,b.test", 2000, "chips: " + chips());
        compare(named("plusSymbol").tint, Theme.green);
        named("inputField").text = "ALPHA.test"; // taken: the text stays
        keyClick(Qt.Key_Return);
        compare(named("inputField").text, "ALPHA.test");
        named("inputField").clear();
        tryCompare(named("preview"), "visible", false);
        type("  myapp.test  ");
        keyClick(Qt.Key_Return);
        compare(named("inputField").text, "");
        tryVerify(() => row("myapp.test") !== undefined);
        verify(named("applyBar").visible);
    }

    function test_systemRowsRefuseAndReduceMotionIsImmediate() {
        Desktop.reduceMotion = true;
        panel.systemExpanded = true;
        tryVerify(() => row("localhost") !== undefined && row("localhost").width > 0);
        compare(row("localhost").opacity, 0.75);
        clickRow("localhost");
        clickRow("beta.test");
        clickRow("beta.test");
        verify(!named("applyBar").visible);
        named("mainControl", row("alpha.test")).forceActiveFocus();
        keyClick(Qt.Key_Delete);
        waitForRendering(panel);
        compare(rows().filter(r => !r.system).map(r => r.title), ["beta.test"]);
    }

    // One apply at a time, with a spinner; a failure's message stands above the apply bar until a
    // good load (Refresh) clears it; a write that succeeds ends the apply bar.
    function test_applyShowsTheSpinnerThenTheOutcome() {
        TestHosts.holdWrites(true);
        TestHosts.failWrites("Not authorized");
        clickRow("beta.test");
        const apply = named("applyButton");
        mouseClick(apply);
        verify(named("applySpinner").visible);
        verify(!apply.enabled);
        compare(apply.Accessible.name, "Applying changes");
        keyClick(Qt.Key_Return, Qt.ControlModifier);
        compare(TestHosts.writesRequested(), 1);
        TestHosts.releaseWrite();
        tryCompare(named("errorBanner"), "visible", true);
        compare(named("errorBanner").message, "Not authorized");
        tryVerify(() => named("errorBanner").y < named("applyBar").y); // once laid out
        keyClick(Qt.Key_R, Qt.ControlModifier);
        tryCompare(named("errorBanner"), "visible", false);
        TestHosts.reset(sample); // writes succeed again
        named("entryList").lastClickTime = 0; // a new click, not the second of a double-click
        clickRow("beta.test");
        keyClick(Qt.Key_Return, Qt.ControlModifier);
        tryVerify(() => !named("applyBar").visible);
        compare(TestHosts.fileText(), "127.0.0.1 localhost\n# 127.0.0.1 beta.test\n#10.0.0.5 alpha.test\n");
    }
}
