#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""A minimal StatusNotifierWatcher and a client of the item it gets, for the tray test.

  sni.py watch FILE        serve org.kde.StatusNotifierWatcher; write each item to FILE
  sni.py get FILE PROP     print an item property (ToolTip's title, IconPixmap's digest)
  sni.py activate FILE     call Activate(0, 0) on the item
  sni.py menu FILE         print the labels of the item's menu (com.canonical.dbusmenu)
"""
import hashlib
import sys

from gi.repository import Gio, GLib

# What Qt and Pinecove ask of a watcher: registering an item, whether a host shows items, and
# which items it holds.
WATCHER = """<node><interface name="org.kde.StatusNotifierWatcher">
<method name="RegisterStatusNotifierItem"><arg name="service" type="s" direction="in"/></method>
<property name="RegisteredStatusNotifierItems" type="as" access="read"/>
<property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
</interface></node>"""


def watch(path):
    items = []
    node = Gio.DBusNodeInfo.new_for_xml(WATCHER)

    def call(connection, sender, _path, _interface, _method, parameters, invocation):
        service = parameters.unpack()[0]
        name, obj = (sender, service) if service.startswith("/") else (service, "/StatusNotifierItem")
        items.append(name + obj)
        with open(path, "a") as out:
            out.write("%s %s\n" % (name, obj))
        invocation.return_value(None)

    def get(connection, sender, _path, _interface, prop):
        if prop == "RegisteredStatusNotifierItems":
            return GLib.Variant("as", items)
        return GLib.Variant("b", True)

    def acquired(connection, _name):
        connection.register_object("/StatusNotifierWatcher", node.interfaces[0], call, get, None)

    Gio.bus_own_name(Gio.BusType.SESSION, "org.kde.StatusNotifierWatcher",
                     Gio.BusNameOwnerFlags.NONE, acquired, None, None)
    GLib.MainLoop().run()


def proxy(name, obj, interface):
    return Gio.DBusProxy.new_for_bus_sync(Gio.BusType.SESSION, Gio.DBusProxyFlags.NONE, None,
                                          name, obj, interface, None)


def main():
    command, path = sys.argv[1], sys.argv[2]
    if command == "watch":
        return watch(path)
    with open(path) as lines:
        name, obj = lines.read().split("\n")[-2].split()
    item = proxy(name, obj, "org.kde.StatusNotifierItem")
    if command == "get":
        value = item.get_cached_property(sys.argv[3]).unpack()
        if sys.argv[3] == "ToolTip":
            value = value[2]  # (icon name, icon pixmaps, title, text)
        elif sys.argv[3] == "IconPixmap":
            value = hashlib.sha1(repr(value).encode()).hexdigest()
        print(value)
    elif command == "activate":
        item.Activate("(ii)", 0, 0)
    elif command == "menu":
        menu = proxy(name, item.get_cached_property("Menu").unpack(), "com.canonical.dbusmenu")
        for child in menu.GetLayout("(iias)", 0, -1, [])[1][2]:
            label = child[1].get("label")
            if label:
                print(label.replace("&", ""))


main()
