// SPDX-License-Identifier: MIT
import QtQuick
import Pinecove

Rectangle {
    implicitHeight: 1
    color: Theme.separator
}
