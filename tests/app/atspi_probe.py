#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Reads the running Pinecove through AT-SPI, as a screen reader does, and drives it.

Checks each row's name, its "on"/"off" state as checked, its hint and its "Remove" action; the
subtitle and "Unsaved changes" as text; and presses a row, a menu item, Discard and Apply through
AT-SPI.
Prints one line per failure and exits 1 if there was any.
"""
import sys
import time

import pyatspi

failures = []


def check(ok, what):
    if not ok:
        failures.append(what)
        print("FAILED:", what)


def walk(node, depth=0):
    if node is None or depth > 40:
        return
    yield node
    for i in range(node.childCount):
        yield from walk(node.getChildAtIndex(i), depth + 1)


def app():
    desktop = pyatspi.Registry.getDesktop(0)
    for i in range(desktop.childCount):
        child = desktop.getChildAtIndex(i)
        if child is not None and child.name.lower() == "pinecove":
            return child
    return None


def find(predicate, timeout=10):
    deadline = time.time() + timeout
    while time.time() < deadline:
        root = app()
        if root is not None:
            for node in walk(root):
                try:
                    if predicate(node):
                        return node
                except Exception:  # a node that went away while we looked
                    pass
        time.sleep(0.2)
    return None


def named(name):
    return find(lambda n: n.name == name)


def press(node):
    action = node.queryAction()
    names = [action.getName(i) for i in range(action.nActions)]
    index = next((i for i, n in enumerate(names) if n in ("press", "Press", "click")), 0)
    return action.doAction(index)


def checked(node):
    return node.getState().contains(pyatspi.STATE_CHECKED)


def brings_row_back_on(node, what):
    """Presses `node`; the switched-off row must read checked again. Returns the row."""
    press(node)
    row = find(lambda n: n.name == "api.test, 127.0.0.1" and checked(n))
    check(row is not None, "%s through AT-SPI did not bring the row back on" % what)
    return row


row = named("api.test, 127.0.0.1")
check(row is not None, "no row named 'api.test, 127.0.0.1'")
if row is None:
    sys.exit(1)
check(row.description == "Toggles this entry on or off.", "hint: %r" % row.description)
check(checked(row), "an enabled row is not checked")
actions = row.queryAction()
action_names = [actions.getName(i) for i in range(actions.nActions)]
check("Remove" in action_names, "row actions: %r" % action_names)
check(named("1 active") is not None, "the subtitle '1 active' is not exposed")

press(row)
check(named("Unsaved changes") is not None, "'Unsaved changes' is not exposed after a toggle")
row = named("api.test, 127.0.0.1")
check(row is not None and not checked(row), "the row still reads checked after its press")
# A menu item pressed through AT-SPI: Refresh reloads the file, bringing the row back on.
more = named("More actions")
check(more is not None, "no 'More actions' button")
if more is not None:
    press(more)
    refresh = find(lambda n: n.getRole() == pyatspi.ROLE_MENU_ITEM and n.name.startswith("Refresh"))
    check(refresh is not None, "no Refresh item in the menu")
    if refresh is not None:
        row = brings_row_back_on(refresh, "Refresh")
if row is not None:
    press(row)
discard = named("Discard")
check(discard is not None, "no Discard button")
if discard is not None:
    row = brings_row_back_on(discard, "Discard")

if row is not None:
    press(row)
apply = named("Apply changes")
check(apply is not None, "no 'Apply changes' button")
if apply is not None:
    press(apply)
    deadline = time.time() + 10
    while time.time() < deadline and "# 127.0.0.1\tapi.test" not in open("/etc/hosts").read():
        time.sleep(0.2)
    check("# 127.0.0.1\tapi.test" in open("/etc/hosts").read(),
          "Apply through AT-SPI did not write the switched-off line")

sys.exit(1 if failures else 0)
