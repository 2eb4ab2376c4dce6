// SPDX-License-Identifier: MIT
import QtQuick
import Pinecove

// A bar's entrance: it fades in while rising a few points from the bottom edge. Instant when
// the user asked for less motion.
ParallelAnimation {
    id: entrance

    required property Item target
    required property Translate shift

    NumberAnimation {
        target: entrance.target
        property: "opacity"
        from: 0
        to: 1
        duration: Theme.motion(0.15)
    }

    NumberAnimation {
        target: entrance.shift
        property: "y"
        from: 8
        to: 0
        duration: Theme.motion(0.15)
        easing.type: Easing.OutCubic
    }
}
