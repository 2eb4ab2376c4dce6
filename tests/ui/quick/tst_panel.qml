// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Pinecove
import PinecoveTest

// Drives the panel as a user would, by keyboard and mouse.
TestCase {
    id: testCase

    property var panel: null
    readonly property string sample: "127.0.0.1 localhost\n127.0.0.1 beta.test\n#10.0.0.5 alpha.test\n"

    function init() {
        Desktop.reduceMotion = false; // animations on, as users have them
        TestHosts.reset(sample);
        panel = createTemporaryObject(panelComponent, testCase);
        verify(panel);
        waitForRendering(panel);
    }

    // Delegates live in the visual tree, which findChild does not search.
    function findAll(root, predicate) {
        const found = [];
        const seen = new Set();
        const visit = item => {
            if (!item || seen.has(item))
                return;
            seen.add(item);
            if (predicate(item))
                found.push(item);
            for (let i = 0; i < item.children.length; ++i)
                visit(item.children[i]);
            if (item.contentItem)
                visit(item.contentItem); // a ListView's rows hang below its content item
        };
        visit(root);
        return found;
    }

    function named(name) {
        return findAll(panel, item => item.objectName === name)[0];
    }

    function rows() {
        return findAll(panel, item => item.entryId !== undefined && item.visible && item.title !== undefined);
    }

    function row(title) {
        return rows().find(r => r.title === title);
    }

    function mainControl(r) {
        return findAll(r, item => item.objectName === "mainControl")[0];
    }

    function type(text) {
        const field = named("inputField");
        field.forceActiveFocus();
        for (const c of text)
            keyClick(c === " " ? Qt.Key_Space : c);
    }

    // The chips fade in, so they count once drawn.
    function expectChips(texts) {
        tryVerify(() => String(chipTexts()) === String(texts), 2000, "chips: " + chipTexts());
    }

    function chipTexts() {
        return findAll(panel, item => (item.objectName === "ipChip" || item.objectName === "hostChip") && item.visible).map(c => c.text);
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

    // A small seeded generator, so a failing sequence can be replayed.
    function generator(seed) {
        let state = seed >>> 0;
        return n => {
            state = (state * 1664525 + 1013904223) >>> 0;
            return state % n;
        };
    }

    // Every delegate that is drawn or takes clicks (an invisible one still does), top to bottom.
    function liveDelegates(list) {
        const live = [];
        for (let i = 0; i < list.contentItem.children.length; ++i) {
            const d = list.contentItem.children[i];
            if (d.entryId !== undefined && d.visible)
                live.push(d);
        }
        return live.sort((a, b) => a.y - b.y);
    }

    function compareListWithStore(step) {
        const list = named("entryList");
        const model = Store.customEntries;
        const live = liveDelegates(list);
        compare(live.length, model.count, step + ": rows drawn");
        let y = live.length > 0 ? live[0].y : 0;
        for (let i = 0; i < live.length; ++i) {
            const index = model.index(i, 0);
            compare(live[i].entryId, model.data(index, Qt.UserRole + 1), step + ": row " + i);
            compare(live[i].title, model.data(index, Qt.UserRole + 2), step + ": title " + i);
            compare(live[i].opacity, 1, step + ": opacity of " + live[i].title);
            compare(live[i].y, y, step + ": place of " + live[i].title);
            y += live[i].height + list.spacing;
        }
    }

    // Random edits with animations on; once they settle, the list shows the store's rows and
    // nothing else.
    function test_animatedListAlwaysShowsTheStoresRows() {
        const next = generator(20261123);
        let added = 0;
        for (let step = 0; step < 60; ++step) {
            const shown = rows().filter(r => !r.system);
            const target = shown.length > 0 ? shown[next(shown.length)] : undefined;
            const action = next(7);
            let what = "";
            if (action === 0 || !target) {
                what = "add";
                if (Store.customEntries.count < 7) {
                    type("n" + added++ + ".test");
                    keyClick(Qt.Key_Return);
                }
            } else if (action === 1) {
                what = "click " + target.title;
                mouseClick(mainControl(target));
            } else if (action === 2) {
                what = "trash " + target.title;
                mouseMove(target, target.width / 2, target.height / 2);
                const trash = findAll(target, item => item.objectName === "removeButton")[0];
                tryCompare(trash, "visible", true);
                mouseClick(trash);
            } else if (action === 3) {
                what = "menu remove " + target.title;
                mouseClick(target, 20, target.height / 2, Qt.RightButton);
                tryCompare(target.contextMenu, "opened", true);
                mouseClick(target.contextMenu.itemAt(1));
            } else if (action === 4) {
                what = "delete key " + target.title;
                mainControl(target).forceActiveFocus();
                keyClick(Qt.Key_Delete);
            } else if (action === 5) {
                what = "discard";
                if (named("applyBar").visible)
                    mouseClick(named("discardButton"));
            } else {
                what = "reload";
                Store.load();
            }
            wait(450); // past every transition and the double-click interval
            compareListWithStore(step + " " + what);
        }
    }

    // The first click sorts the row away (off rows list last); the second lands on the row
    // that moved under the pointer and must not switch it off too.
    function test_doubleClickSwitchesOffOneMapping() {
        TestHosts.reset("127.0.0.1 a.test\n127.0.0.1 b.test\n127.0.0.1 c.test\n");
        const r = row("a.test");
        const spot = mainControl(r).mapToItem(panel, 40, r.height / 2);
        mouseClick(panel, spot.x, spot.y);
        wait(200); // the row has moved away
        mouseClick(panel, spot.x, spot.y);
        wait(400);
        compare(Store.subtitle, "2 active \u00B7 1 off");
    }

    function focusName() {
        const f = panel.Window.activeFocusItem;
        return f.objectName === "mainControl" ? f.parent.parent.title : f.objectName;
    }

    function test_tabFollowsTheVisualOrderWithAVisibleRing() {
        mouseClick(mainControl(row("beta.test"))); // unsaved: the apply bar shows
        named("moreActions").forceActiveFocus(Qt.TabFocusReason);
        const order = [];
        for (let i = 0; i < 6; ++i) {
            keyClick(Qt.Key_Tab);
            order.push(focusName());
        }
        compare(order, ["alpha.test", "systemToggle", "discardButton", "applyButton", "inputField", "moreActions"]);
        keyClick(Qt.Key_Tab);
        keyClick(Qt.Key_Down);
        compare(focusName(), "beta.test");
        const r = row("beta.test");
        const edge = r.mapToItem(panel, 2, r.height / 2);
        const image = grabImage(panel);
        const seen = image.pixel(edge.x, edge.y);
        verify(Math.abs(seen.r - Theme.focus.r) + Math.abs(seen.g - Theme.focus.g) + Math.abs(seen.b - Theme.focus.b) < 0.1, "ring drawn: " + seen);
        keyClick(Qt.Key_Backtab);
        compare(focusName(), "moreActions");
    }

    function test_moreActionsMenuFitsInsideThePanel() {
        const more = named("moreActions");
        mouseClick(more);
        const menu = more.menu;
        tryCompare(menu, "opened", true);
        const left = menu.background.mapToItem(panel, 0, 0).x;
        verify(left >= 0 && left + menu.width <= panel.width, "menu at " + left + ", " + menu.width + " wide");
        for (let i = 0; i < menu.count; ++i)
            verify(menu.itemAt(i).implicitWidth <= menu.availableWidth, menu.itemAt(i).text);
        compare([menu.itemAt(0).hint, menu.itemAt(4).hint], ["Ctrl+R", "Ctrl+Q"]);
        menu.close();
    }

    function test_typingPreviewsAndReturnAdds() {
        type("bad!name");
        compare(named("preview").visible, false);
        compare(named("plusSymbol").tint, Theme.secondary);
        named("inputField").text = "10.0.0.5 a.test b.test"; // pasted whole
        expectChips(["10.0.0.5", "a.test", "b.test"]);
        compare(named("plusSymbol").tint, Theme.green);
        named("inputField").clear();
        tryCompare(named("preview"), "visible", false);
        type("ALPHA.test"); // taken: the text stays
        keyClick(Qt.Key_Return);
        compare(named("inputField").text, "ALPHA.test");
        named("inputField").clear();
        type("  myapp.test  ");
        expectChips(["127.0.0.1", "myapp.test"]);
        keyClick(Qt.Key_Return);
        compare(named("inputField").text, "");
        tryVerify(() => row("myapp.test") !== undefined);
        verify(named("applyBar").visible);
    }

    function test_reduceMotionChangesTheListAndTheBarAtOnce() {
        Desktop.reduceMotion = true;
        mouseClick(mainControl(row("beta.test")));
        mouseClick(mainControl(row("beta.test")));
        verify(!named("applyBar").visible);
        mainControl(row("alpha.test")).forceActiveFocus();
        keyClick(Qt.Key_Delete);
        waitForRendering(panel);
        compare(liveDelegates(named("entryList")).map(d => d.title), ["beta.test"]);
    }

    function test_systemRowsRefuse() {
        panel.systemExpanded = true;
        tryVerify(() => row("localhost") !== undefined && row("localhost").width > 0);
        const r = row("localhost");
        compare(r.opacity, 0.75);
        mouseClick(mainControl(r));
        mouseClick(r, 20, r.height / 2, Qt.RightButton);
        verify(!named("applyBar").visible);
        compare(findAll(r, item => item.objectName === "removeButton")[0].visible, false);
    }

    function test_applyShowsTheSpinnerUntilTheWriteEnds() {
        TestHosts.holdWrites(true);
        mouseClick(mainControl(row("beta.test")));
        const apply = named("applyButton");
        mouseClick(apply);
        verify(Store.isApplying);
        verify(named("applySpinner").visible);
        verify(!apply.enabled);
        compare(apply.Accessible.name, "Applying changes");
        mouseClick(apply);
        compare(TestHosts.writesRequested(), 1);
        TestHosts.releaseWrite();
        tryVerify(() => !Store.isApplying);
        verify(!named("applyBar").visible);
        compare(TestHosts.fileText(), "127.0.0.1 localhost\n# 127.0.0.1 beta.test\n#10.0.0.5 alpha.test\n");
    }

    function test_bannerFollowsTheError() {
        TestHosts.failWrites("Not authorized");
        mouseClick(mainControl(row("beta.test")));
        mouseClick(named("applyButton"));
        tryCompare(named("errorBanner"), "visible", true);
        compare(named("errorBanner").message, "Not authorized");
        verify(named("applyBar").visible);
        tryVerify(() => named("errorBanner").y < named("applyBar").y); // once laid out
        keyClick(Qt.Key_R, Qt.ControlModifier); // Refresh: a good load clears the message
        tryCompare(named("errorBanner"), "visible", false);
    }

    function test_appearingReloadsOnlyWhenClean() {
        TestHosts.writeBehind(sample + "127.0.0.1 outside.test\n");
        panel.appeared();
        tryVerify(() => row("outside.test") !== undefined);
        mouseClick(mainControl(row("beta.test")));
        TestHosts.writeBehind(sample);
        panel.appeared();
        verify(row("outside.test") !== undefined); // the edit is kept, the file not reread
        verify(named("applyBar").visible);
    }
}
