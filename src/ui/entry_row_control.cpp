// SPDX-License-Identifier: MIT
#include "entry_row_control.h"

#include "entry_row_accessible.h"

EntryRowControl::EntryRowControl(QQuickItem* parent)
    : QQuickItem(parent) {
    EntryRowAccessible::installFactory();
    setActiveFocusOnTab(false); // the list is the Tab stop; Up and Down move between rows
    setAcceptedMouseButtons(Qt::NoButton); // clicks are the QML handlers' business
}
