// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusVariant>
#include <QObject>

// Whether the desktop asks for a dark look, followed live. On Linux the freedesktop appearance
// setting "color-scheme" read through xdg-desktop-portal, where a portal answers; otherwise the
// application palette. On macOS the menu bar tints the template icon itself.
class ColorScheme : public QObject {
    Q_OBJECT

public:
    explicit ColorScheme(QObject* parent = nullptr);
    bool isDark() const { return dark_; }

signals:
    void changed(bool dark);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void portalSettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void set(bool dark);
    bool prefersDark() const;

    bool dark_ = false;
    // From the portal: 1 prefers dark, 2 prefers light, 0 no preference (then the palette).
    int portalPreference_ = 0;
};
