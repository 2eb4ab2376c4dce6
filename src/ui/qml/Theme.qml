// SPDX-License-Identifier: MIT
pragma Singleton
import QtQuick
import Pinecove

// Colours, type sizes and platform words of the panel. The accent colours are the system's
// named colours for the current appearance; labels come from the palette.
QtObject {
    id: theme

    readonly property SystemPalette palette: SystemPalette {
        colorGroup: SystemPalette.Active
    }
    // The desktop's scheme, as the tray icon follows it, unless pinned (renders, tests).
    readonly property bool dark: Desktop.dark

    readonly property color teal: dark ? "#40C8E0" : "#30B0C7"
    readonly property color green: dark ? "#30D158" : "#34C759"
    readonly property color orange: dark ? "#FF9F0A" : "#FF9500"
    readonly property color red: dark ? "#FF453A" : "#FF3B30"
    // The label colour at full strength; primary, secondary and tertiary are shades of it.
    readonly property color label: dark ? "#FFFFFF" : "#000000"
    readonly property color primary: alpha(label, 0.85)
    readonly property color secondary: alpha(label, dark ? 0.55 : 0.5)
    readonly property color tertiary: alpha(label, dark ? 0.25 : 0.26)
    readonly property color separator: alpha(label, 0.4 * (dark ? 0.25 : 0.2))
    readonly property color panelFill: dark ? Qt.rgba(0.17, 0.17, 0.18, 0.93) : Qt.rgba(0.96, 0.96, 0.97, 0.93)
    // Keyboard focus and the highlighted menu item, in the desktop's own colours.
    readonly property color focus: palette.highlight
    readonly property color focusText: palette.highlightedText
    readonly property color menuFill: dark ? "#2C2C2E" : "#FBFBFD"
    readonly property color panelEdge: alpha(label, dark ? 0.16 : 0.1)

    readonly property int headlineSize: 13
    readonly property int calloutSize: 12
    readonly property int captionSize: 10
    readonly property string monoFamily: Desktop.isMac ? "Menlo" : "monospace"

    // The platform's own words where the text names a platform thing.
    readonly property string revealBackupsText: Desktop.isMac ? "Show backups in Finder" : "Show backups in file manager"
    readonly property string refreshHint: Desktop.isMac ? "\u2318R" : "Ctrl+R"
    readonly property string quitHint: Desktop.isMac ? "\u2318Q" : "Ctrl+Q"
    readonly property string applyTooltip: Desktop.isMac ? "Apply changes (\u2318\u21A9)" : "Apply changes (Ctrl+Return)"

    function alpha(c, a) {
        return Qt.rgba(c.r, c.g, c.b, a);
    }

    // A spring's duration, or none when the user asked for less motion.
    function motion(seconds) {
        return Desktop.reduceMotion ? 0 : Math.round(seconds * 1000);
    }
}
