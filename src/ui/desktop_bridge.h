// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

// Desktop facts the views follow: the platform (for its own words) and the reduce-motion
// setting. Writable so that tests and renders can pin them.
class DesktopBridge : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Desktop)
    QML_SINGLETON
    Q_PROPERTY(bool isMac READ isMac CONSTANT)
    Q_PROPERTY(bool reduceMotion READ reduceMotion WRITE setReduceMotion NOTIFY reduceMotionChanged)
    // "" follows the system palette; "light" or "dark" pins the appearance (renders, tests).
    Q_PROPERTY(QString appearance READ appearance WRITE setAppearance NOTIFY appearanceChanged)

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
    QString appearance() const {
        return appearance_;
    }
    void setAppearance(const QString& appearance);

signals:
    void reduceMotionChanged();
    void appearanceChanged();

private:
    bool reduceMotion_;
    QString appearance_;
};
