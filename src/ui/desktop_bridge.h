// SPDX-License-Identifier: MIT
#pragma once

#include "color_scheme.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

// Desktop facts the views follow: the platform (for its own words), the reduce-motion setting,
// and the light or dark scheme, decided where the tray icon's is (ColorScheme), so that the
// panel and the icon never disagree. Writable so that tests and renders can pin them.
class DesktopBridge : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Desktop)
    QML_SINGLETON
    Q_PROPERTY(bool isMac READ isMac CONSTANT)
    Q_PROPERTY(bool reduceMotion READ reduceMotion WRITE setReduceMotion NOTIFY reduceMotionChanged)
    Q_PROPERTY(bool dark READ isDark WRITE setDark NOTIFY darkChanged)

public:
    explicit DesktopBridge(QObject* parent = nullptr);

    static constexpr bool isMac() {
#if defined(__APPLE__)
        return true;
#else
        return false;
#endif
    }
    bool reduceMotion() const {
        return reduceMotion_;
    }
    void setReduceMotion(bool reduce);
    bool isDark() const {
        return dark_;
    }
    // Pins the scheme: the desktop's changes are no longer followed.
    void setDark(bool dark);

signals:
    void reduceMotionChanged();
    void darkChanged();

private:
    bool reduceMotion_;
    ColorScheme scheme_;
    bool dark_;
};
