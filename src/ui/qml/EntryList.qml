// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Controls
import Pinecove

// The custom entries (or the empty state), then the system section. Only the rows in view
// exist, so a block list of 200,000 entries scrolls as lightly as a short one. Delegates are not
// reused: a pooled row could come back from a removal mid-transition, drawn over its neighbour
// or left at opacity 0 yet still taking clicks.
ListView {
    id: list

    property bool systemExpanded: false
    // The row a click last toggled, and when: a toggle moves its row to its sorted place, so
    // the second click of a double-click would land on whichever row moved under the pointer.
    property string lastClickedId: ""
    property double lastClickTime: 0
    // True during an edit made from a row: the apply bar then follows the row's animation, and
    // comes or goes at once for anything else (an add, Discard, an apply).
    property bool rowEditing: false
    readonly property int padding: 8
    readonly property real maxHeight: 380

    // The padded content's height, clamped; before the first measurement this is 1.
    implicitHeight: Math.min(Math.max(contentHeight + 2 * padding, 1), maxHeight)
    topMargin: padding
    bottomMargin: padding
    leftMargin: padding
    rightMargin: padding
    spacing: 2
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    model: Store.customEntries
    keyNavigationEnabled: true
    activeFocusOnTab: count > 0
    // Tab from above lands on the current row (the first at the start), Shift+Tab from below on
    // the system section, whatever the list last had focused inside. Focus that reaches a row
    // directly (a click, a screen reader) stays on that row.
    onActiveFocusChanged: {
        if (!activeFocus)
            return;
        const focused = Window.activeFocusItem;
        if (focused && focused.objectName === "mainControl")
            return;
        const fromAbove = focusOutside !== null && focusOutside.mapToItem(list, 0, 0).y < 0;
        if (focused === list || (fromAbove && count > 0)) {
            if (currentIndex < 0)
                currentIndex = 0;
            positionViewAtIndex(currentIndex, ListView.Contain);
            currentItem.forceActiveFocus(Qt.TabFocusReason);
        }
    }
    // Focus never rests on a row out of view.
    onCurrentIndexChanged: {
        if (currentIndex >= 0)
            positionViewAtIndex(currentIndex, ListView.Contain);
    }
    highlightFollowsCurrentItem: false
    currentIndex: -1

    // The last item with the keyboard outside the list, to tell a Tab from a Shift+Tab.
    property Item focusOutside: null
    function holds(item) {
        for (let i = item; i; i = i.parent)
            if (i === list)
                return true;
        return false;
    }
    Connections {
        target: list.Window.window
        function onActiveFocusItemChanged() {
            const item = list.Window.activeFocusItem;
            if (item && !list.holds(item))
                list.focusOutside = item;
        }
    }

    // Home, End, Page Up and Page Down move through the rows, as in any list.
    function moveTo(index) {
        if (count === 0)
            return;
        currentIndex = Math.max(0, Math.min(count - 1, index));
        currentItem.forceActiveFocus(Qt.OtherFocusReason);
    }
    readonly property int rowsPerPage: Math.max(1, Math.floor(height / 50) - 1)
    Keys.onPressed: event => {
        if (event.key === Qt.Key_Home)
            moveTo(0);
        else if (event.key === Qt.Key_End)
            moveTo(count - 1);
        else if (event.key === Qt.Key_PageUp)
            moveTo(currentIndex - rowsPerPage);
        else if (event.key === Qt.Key_PageDown)
            moveTo(currentIndex + rowsPerPage);
        else
            return;
        event.accepted = true;
    }

    // A new entry is scrolled into view, wherever its sorted place is; on the next turn of the
    // event loop, as the view may hear of the new row after this handler does.
    property int insertedRow: -1

    Connections {
        function onRowsInserted(parent, first) {
            list.insertedRow = first;
            reveal.restart();
        }

        target: list.model
    }

    Timer {
        id: reveal

        interval: 0
        onTriggered: list.positionViewAtIndex(list.insertedRow, ListView.Contain)
    }

    // Tab leaves the list for the next control, Shift+Tab for the one before it.
    function leave(forward) {
        const next = nextItemInFocusChain(forward);
        if (next)
            next.forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason);
    }

    function acceptsClickOn(entryId) {
        const now = Date.now();
        const repeat = now - lastClickTime < Application.styleHints.mouseDoubleClickInterval;
        if (repeat && entryId !== lastClickedId)
            return false;
        lastClickedId = entryId;
        lastClickTime = now;
        return true;
    }

    // Delegates, header and footer reach the list through ListView.view, typed as what it is.
    delegate: EntryRow {
        readonly property EntryList list: ListView.view as EntryList

        width: list.width - 2 * list.padding
        onTabbedOut: forward => list.leave(forward)
    }

    header: EmptyState {
        readonly property EntryList list: ListView.view as EntryList

        width: list.width - 2 * list.padding
        visible: list.count === 0
        height: visible ? implicitHeight : 0
    }

    footer: SystemSection {
        readonly property EntryList list: ListView.view as EntryList

        width: list.width - 2 * list.padding
        topPadding: list.count > 0 ? 6 : 0
        expanded: list.systemExpanded
        onExpandedChanged: list.systemExpanded = expanded
        onToggleFocused: list.positionViewAtEnd()
        onBacktabbed: event => {
            if (list.count === 0) {
                event.accepted = false;
                return;
            }
            list.moveTo(list.currentIndex < 0 ? list.count - 1 : list.currentIndex);
        }
    }

    ScrollBar.vertical: ScrollBar {
        // Only content taller than the list area scrolls.
        visible: list.contentHeight + 2 * list.padding > list.maxHeight
    }

    // A toggle moves its row to its sorted place; a removal lets the others close up.
    move: Transition {
        NumberAnimation {
            properties: "y"
            duration: Theme.motion(0.15)
            easing.type: Easing.OutCubic
        }
    }
    displaced: Transition {
        NumberAnimation {
            properties: "y"
            duration: Theme.motion(0.18)
            easing.type: Easing.OutCubic
        }
    }
    remove: Transition {
        NumberAnimation {
            property: "opacity"
            to: 0
            duration: Theme.motion(0.18)
        }
    }
}
