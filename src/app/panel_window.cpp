// SPDX-License-Identifier: MIT
#include "panel_window.h"

#include "hosts_store.h"
#include "panel_engine.h"

#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPalette>
#include <QPushButton>
#include <QQuickItem>
#include <QScreen>
#include <algorithm>

namespace {

constexpr int unbounded = (1 << 24) - 1; // Qt's largest window size

} // namespace

PanelWindow::PanelWindow(HostsStore& store, Style style)
    : store_(store)
    , style_(style) {
    setUpPanelEngine(*engine(), store);
    setTitle(QStringLiteral("Pinecove"));
    setResizeMode(QQuickView::SizeViewToRootObject);
    // A popover goes away when the user turns to something else.
    connect(this, &QWindow::activeChanged, this, [this] {
        if (style_ == Style::Popover && !isActive() && isVisible())
            hide();
    });
    setSource(QUrl(QStringLiteral("qrc:/qt/qml/Pinecove/qml/PanelView.qml")));
    if (rootObject()) {
        connect(rootObject(), &QQuickItem::heightChanged, this, &PanelWindow::fixSizeToPanel);
        connect(rootObject(), &QQuickItem::heightChanged, this, &PanelWindow::keepEdge);
    }
    applyStyle();
}

void PanelWindow::applyStyle() {
    if (style_ == Style::Popover) {
        setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
        setColor(Qt::transparent); // the panel draws its own rounded, translucent backdrop
        setMinimumSize({});
        setMaximumSize(QSize(unbounded, unbounded));
    } else {
        setFlags(Qt::Window);
        setColor(QGuiApplication::palette().color(QPalette::Window));
        fixSizeToPanel();
    }
}

void PanelWindow::fixSizeToPanel() {
    if (style_ != Style::Window || !rootObject())
        return;
    const QSize size(qRound(rootObject()->width()), qRound(rootObject()->height()));
    setMinimumSize(size);
    setMaximumSize(size);
}

bool PanelWindow::event(QEvent* event) {
    if (event->type() == QEvent::Close && !hidesToTray()) {
        // Closing ends Pinecove here, and unapplied edits would go with it unasked.
        if (store_.isDirty() && !confirmDiscard()) {
            event->ignore();
            return true;
        }
        QCoreApplication::quit();
    }
    return QQuickView::event(event);
}

bool PanelWindow::confirmDiscard() {
    QMessageBox box(QMessageBox::Warning, QStringLiteral("Quit Pinecove?"),
                    QStringLiteral("Your changes to the hosts file have not been applied. "
                                   "Quitting discards them."),
                    QMessageBox::Cancel);
    const QPushButton* quit =
        box.addButton(QStringLiteral("Discard and Quit"), QMessageBox::DestructiveRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    return box.clickedButton() == quit;
}

void PanelWindow::placeUnder(const QRect& anchor) {
    const QPoint point = anchor.isValid() ? anchor.bottomLeft() : QCursor::pos();
    QScreen* screen = QGuiApplication::screenAt(point);
    const QRect available = screen ? screen->availableGeometry() : QRect(0, 0, 1920, 1080);
    const QSize size = rootObject()
                           ? QSize(qRound(rootObject()->width()), qRound(rootObject()->height()))
                           : QSize(360, 400);
    // Centred under the item, kept on the screen; above it when the tray sits at the bottom.
    int x = (anchor.isValid() ? anchor.center().x() : point.x()) - size.width() / 2;
    int y = point.y() + 4;
    // A tray at the bottom: the panel opens above it, and grows upward from there.
    growsUp_ = y + size.height() > available.bottom();
    if (growsUp_) {
        bottomEdge_ = (anchor.isValid() ? anchor.top() : point.y()) - 4;
        y = bottomEdge_ - size.height();
    }
    x = std::clamp(x, available.left() + 4,
                   std::max(available.left() + 4, available.right() - size.width() - 4));
    y = std::clamp(y, available.top() + 4,
                   std::max(available.top() + 4, available.bottom() - size.height() - 4));
    setPosition(x, y);
}

void PanelWindow::keepEdge() {
    // The apply bar or the preview appearing must not push the panel over the tray icon, nor
    // move the rows under the pointer's feet more than needed.
    if (style_ != Style::Popover || !growsUp_ || !rootObject() || !isVisible())
        return;
    setY(bottomEdge_ - qRound(rootObject()->height()));
}

void PanelWindow::present(const QRect& anchor) {
    // Wayland lets no client raise or focus its own window, and the compositor honours an
    // activation request only when it chooses to (sway marks the window urgent). A panel left on
    // another workspace, in the scratchpad or under the focused window therefore comes forward
    // as a new mapping, which the compositor puts where the user is and gives the keyboard.
    if (isVisible() && !isActive() && compositorPlacesWindows())
        hide();
    if (!isVisible())
        placeUnder(anchor); // where the compositor lets a client place its window
    if (!isVisible() && rootObject())
        QMetaObject::invokeMethod(rootObject(), "appeared");
    show();
    raise();
    requestActivate();
}

bool PanelWindow::compositorPlacesWindows() {
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

bool PanelWindow::hidesToTray() const {
    // A popover always; a window while a tray icon can bring it back (Wayland's floating panel).
    return style_ == Style::Popover || !closeQuits_;
}

void PanelWindow::toggleAt(const QRect& anchor) {
    // A window the user is not looking at (another workspace, under another window) is brought
    // forward, not hidden. A popover is never open without the keyboard.
    if (isVisible() && hidesToTray() && (style_ == Style::Popover || isActive()))
        hide();
    else
        present(anchor);
}

void PanelWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && hidesToTray()) {
        hide();
        return;
    }
    QQuickView::keyPressEvent(event);
}
