#include "entry_row_control.h"

#include "entry_row_accessible.h"

EntryRowControl::EntryRowControl(QQuickItem* parent)
    : QQuickItem(parent) {
    EntryRowAccessible::installFactory();
    setActiveFocusOnTab(true);
    setAcceptedMouseButtons(Qt::NoButton); // clicks are the QML handlers' business
}
