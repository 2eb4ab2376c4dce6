#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Reads the running Pinecove through AT-SPI, as a screen reader does, and drives it: each press
must show in the row's state or the file. Prints one line per failure; exits 1 if there was any.
"""
import sys
import time

import pyatspi

ROW = "api.test, 127.0.0.1"
failures = []


def check(ok, what):
    if not ok:
        failures.append(what)
        print("FAILED:", what)
    return ok


def until(condition, timeout=10):
    """Polls `condition` until it gives something true; returns that, or None."""
    deadline = time.time() + timeout
    while True:
        found = condition()
        if found or time.time() > deadline:
            return found or None
        time.sleep(0.2)


def first(predicate):
    """The first node of Pinecove's tree that satisfies `predicate`, now."""
    for app in pyatspi.Registry.getDesktop(0):
        # pyatspi skips a node that goes away while it looks.
        found = app and app.name.lower() == "pinecove" and pyatspi.findDescendant(app, predicate, True)
        if found:
            return found
    return None


def find(predicate):
    return until(lambda: first(predicate))


def named(name):
    return find(lambda n: n.name == name)


def row(checked):
    return find(lambda n: n.name == ROW and n.getState().contains(pyatspi.STATE_CHECKED) == checked)


def press(node, names=("press", "Press", "click")):
    action = node.queryAction()
    labels = [action.getName(i) for i in range(action.nActions)]
    return action.doAction(next((i for i, n in enumerate(labels) if n in names), 0))


def press_then(node, checked, what):
    """Presses `node`; the row must then read checked or not."""
    if check(node is not None, "no " + what):
        press(node)
        check(row(checked) is not None, "after %s the row does not read %s" %
              (what, "checked" if checked else "unchecked"))


on = row(True)
if not check(on is not None, "no checked row named %r" % ROW):
    sys.exit(1)
check(on.description == "Toggles this entry on or off.", "hint: %r" % on.description)
check(named("1 active") is not None, "the subtitle '1 active' is not exposed")

press_then(on, False, "a press on the row")
check(named("Unsaved changes") is not None, "'Unsaved changes' is not exposed after a toggle")
more = named("More actions")
if check(more is not None, "no 'More actions' button"):
    press(more)  # Refresh reloads the file, bringing the row back on
    press_then(find(lambda n: n.getRole() == pyatspi.ROLE_MENU_ITEM and n.name.startswith("Refresh")),
               True, "Refresh in the menu")
press_then(row(True), False, "a press on the row")
press_then(named("Discard"), True, "Discard")
press_then(row(True), False, "a press on the row")
apply = named("Apply changes")
if check(apply is not None, "no 'Apply changes' button"):
    press(apply)
    written = until(lambda: "# 127.0.0.1\tapi.test" in open("/etc/hosts").read())
    check(written, "Apply through AT-SPI did not write the switched-off line")
off = row(False)
if check(off is not None, "no switched-off row after Apply"):
    press(off, ("Remove",))
    check(until(lambda: first(lambda n: n.name == ROW) is None, 3), "the row's Remove left it in the list")
    check(named("Unsaved changes") is not None, "no 'Unsaved changes' after Remove")

sys.exit(1 if failures else 0)
