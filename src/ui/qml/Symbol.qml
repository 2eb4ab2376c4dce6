// SPDX-License-Identifier: MIT
import QtQuick
import Pinecove

// One of the panel's symbols, tinted. The image is drawn at three times its size so it stays
// sharp on high-density screens; layouts see only the size.
Item {
    id: symbol

    required property string name
    property color tint: Theme.secondary
    property real size: 12

    implicitWidth: size
    implicitHeight: size
    Accessible.ignored: true

    Image {
        anchors.fill: parent
        // toString() spelled out: Qt 6.4's compiled binding turned the colour into text through
        // a value its garbage collector could free during the call, and the panel crashed now
        // and then. This binding is left to the interpreter, which keeps the value alive.
        source: "image://symbol/" + symbol.name + "/" + symbol.tint.toString()
        sourceSize.width: Math.ceil(symbol.size * 3)
        sourceSize.height: Math.ceil(symbol.size * 3)
        fillMode: Image.PreserveAspectFit
        smooth: true
        mipmap: true
    }
}
