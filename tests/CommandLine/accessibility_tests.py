#!/usr/bin/env python3
"""The window as a screen reader knows it: a walk over the real accessibility bus."""
import os
import re
import shutil
import subprocess
import sys
import time
import unittest

DEBIANS_PYTHON = "/usr/bin/python3"
try:
    import dbus
except ImportError:
    # Debian's packages of Python modules belong to Debian's interpreter, which need not be this.
    if os.path.samefile(sys.executable, DEBIANS_PYTHON):
        raise
    os.execv(DEBIANS_PYTHON, [DEBIANS_PYTHON, *sys.argv])

from harness import BIN, Desk, display

LAUNCHER = "/usr/libexec/at-spi-bus-launcher"
ACCESSIBLE = "org.a11y.atspi.Accessible"
ACTION = "org.a11y.atspi.Action"
SHOWING = 25
#: What the user operates or reads by itself, and so must be told by name.
NAMED = {"push button", "check box", "radio button", "toggle button", "combo box", "text", "menu item", "list", "tree",
         "list item", "table cell", "slider", "spin button", "page tab", "heading", "frame", "link"}

#: What a program says when it means to say something else.
NOT_WORDS = re.compile(r"undefined|\[object|%\d|QQuick|_QML")


class Node:
    def __init__(self, bus, name, path):
        self.bus = bus
        self.proxy = bus.get_object(str(name), str(path), introspect=False)

    def ask(self, method, *words, interface=ACCESSIBLE):
        return self.proxy.get_dbus_method(method, interface)(*words)

    def told(self, name):
        return str(self.ask("Get", ACCESSIBLE, name, interface="org.freedesktop.DBus.Properties"))

    def children(self):
        return [Node(self.bus, name, path) for name, path in self.ask("GetChildren")]

    def is_showing(self):
        return int(self.ask("GetState")[0]) >> SHOWING & 1

    @property
    def name(self):
        return self.told("Name")

    @property
    def role(self):
        return str(self.ask("GetRoleName"))

    def press(self):
        self.ask("DoAction", 0, interface=ACTION)

    def walk(self):
        """All that is showing. What goes away meanwhile is left out."""
        try:
            if not self.is_showing():
                return
            yield self
            children = self.children()
        except dbus.DBusException:
            return
        for child in children:
            yield from child.walk()


@unittest.skipUnless(shutil.which("Xvfb"), "no Xvfb to show a window on")
class Accessibility(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desk = Desk()
        cls.addClassCleanup(cls.desk.close)
        cls.environment = dict(os.environ, DISPLAY=display(cls.addClassCleanup), QT_QPA_PLATFORM="xcb",
                               QT_QUICK_BACKEND="software", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
                               HOME=str(cls.desk.folder), XDG_RUNTIME_DIR=str(cls.desk.folder))
        session = cls.begin(["dbus-daemon", "--session", "--nofork", "--print-address=1"], stdout=subprocess.PIPE, text=True)
        cls.environment["DBUS_SESSION_BUS_ADDRESS"] = address = session.stdout.readline().strip()
        cls.addClassCleanup(session.stdout.close)
        cls.begin([LAUNCHER, "--launch-immediately"])
        bus = dbus.bus.BusConnection(address)
        cls.wait_for(lambda: bus.name_has_owner("org.a11y.Bus"))
        accessibility = bus.get_object("org.a11y.Bus", "/org/a11y/bus").GetAddress(dbus_interface="org.a11y.Bus")
        cls.bus = dbus.bus.BusConnection(accessibility)
        cls.begin([BIN / "tarnwick-brell", "--demo", "--data-dir", cls.desk.folder])
        registry = Node(cls.bus, "org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")
        cls.wait_for(lambda: any(desk.children() for desk in registry.children()))
        cls.window = registry.children()[0].children()[0]
        # A closed group makes room: rows far out of sight have no items.
        cls.wait_for(lambda: next((node for node in cls.all("list item") if node.name.startswith("Apple press, ")),
                                  None)).press()
        cls.wait_for(lambda: cls.find("list item", "Stories by period"))

    @classmethod
    def begin(cls, words, **options):
        process = subprocess.Popen(words, env=cls.environment, stderr=subprocess.DEVNULL, **options)
        cls.addClassCleanup(process.wait)
        cls.addClassCleanup(process.terminate)
        return process

    @staticmethod
    def wait_for(holds):
        deadline = time.monotonic() + 30
        while not (found := holds()):
            if time.monotonic() > deadline:
                raise AssertionError("it has not come about")
            time.sleep(0.1)
        return found

    @classmethod
    def all(cls, role, node=None):
        nodes = [node] if node else [cls.window]
        while nodes:
            each = nodes.pop()
            if each.role == role:
                yield each
            nodes += each.children()

    @classmethod
    def find(cls, role, name):
        """Also what is scrolled out of sight."""
        return next((node for node in cls.all(role) if node.name == name), None)

    def open(self, place):
        self.wait_for(lambda: self.find("list item", place)).press()
        self.wait_for(lambda: self.window.name.startswith(place + " – "))
        time.sleep(1)  # for the page's own answers

    def places(self):
        tree = next(self.all("tree"))
        return [item.name for item in tree.children() if item.role == "list item"]

    def assert_told(self, where):
        troubles, seen = [], 0
        for node in self.window.walk():
            seen += 1
            role, name = node.role, node.name
            if role in ("invalid", "unknown") or (role in NAMED and not name.strip()) or NOT_WORDS.search(name):
                troubles.append(f"{role} {name!r} {node.told('Description')!r}")
        self.assertEqual(troubles, [], where)
        self.assertGreater(seen, 40, where)

    def test_every_page_is_told_by_names_and_roles(self):
        pages = ("Today", "Top stories", "Service status", "Software", "Events", "Markets", "Firmware signing",
                 "Update catalogue", "App Store charts", "Stories by period", "Races", "Rumor ledger", "Saved", "Clips",
                 "Notes", "Projects", "Removed")
        for page in pages:
            with self.subTest(page):
                self.open(page)
                self.assert_told(page)

    def test_a_page_opened_through_the_bus_says_what_it_shows(self):
        self.open("Service status")
        rows = self.wait_for(lambda: [node.name for node in self.all("list item") if "last incident" in node.name])
        self.assertTrue(any(name.startswith("App Store, ") for name in rows), rows)
        self.open("Software")
        headings = [node.name for node in self.window.walk() if node.role == "heading"]
        self.assertIn("Software", headings)
        self.assertTrue(any("Software" in name for name in self.places()))


if __name__ == "__main__":
    unittest.main()
