#!/usr/bin/env python3
"""The window as a program: starts, second starts, libraries that can't be had, and its end."""
import json
import os
import shutil
import signal
import sqlite3
import subprocess
import time
import unittest

from harness import BIN, Desk, PressRoom, display

# A port on which nobody listens: no network, at once.
OFFLINE = ["--connect-to", "127.0.0.1:1"]


class Window(unittest.TestCase):
    def setUp(self):
        self.desk = Desk(OFFLINE)
        self.addCleanup(self.desk.close)

    def environment(self, **changes):
        """Without a session bus, and so without a service for notifications."""
        environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", QT_QUICK_BACKEND="software",
                           XDG_RUNTIME_DIR=str(self.desk.folder), QT_FORCE_STDERR_LOGGING="1")
        environment.pop("DBUS_SESSION_BUS_ADDRESS", None)
        return {**environment, **changes}

    def open(self, *words, runner=(), network=OFFLINE, **changes):
        process = subprocess.Popen(
            [*runner, BIN / "tarnwick-brell", "--data-dir", self.desk.folder, *network, *words],
            env=self.environment(**changes), stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        self.addCleanup(process.communicate)
        self.addCleanup(process.kill)
        return process

    def wait_for(self, what, holds):
        deadline = time.monotonic() + 20
        while not holds():
            self.assertLess(time.monotonic(), deadline, what)
            time.sleep(0.05)

    def opened(self, *words, **options):
        """A window that listens for second starts, as it does just before it shows itself."""
        process = self.open(*words, **options)
        self.wait_for("no window has come", lambda: (self.desk.folder / "library.window").exists() or process.poll() is not None)
        self.assertIsNone(process.poll())
        return process

    def close(self, process, how=signal.SIGTERM):
        """Ends it as the end of a session does; gives what it has said."""
        begin = time.monotonic()
        process.send_signal(how)
        _, said = process.communicate(timeout=20)
        self.assertLess(time.monotonic() - begin, 3)
        self.assertEqual(process.returncode, 0)
        self.assertEqual((self.desk.folder / "library.lock").read_text(), "", "it looks like a crash to the next start")
        return said

    def test_it_opens_and_ends_without_a_word_wherever_it_runs(self):
        for changes in ({}, {"QT_SCALE_FACTOR": "2"}, {"DBUS_SESSION_BUS_ADDRESS": "unix:path=/nowhere/bus"},
                        {"HOME": "/nowhere"}, {"LC_ALL": "C"}):
            with self.subTest(**changes):
                process = self.opened(**changes)
                time.sleep(0.5)
                self.assertEqual(self.close(process, signal.SIGINT if changes else signal.SIGTERM), "")

    def test_a_second_start_hands_over_to_the_first_and_frees_nothing(self):
        first = self.opened()
        second = self.open()
        self.assertEqual(second.wait(timeout=10), 0)
        self.assertIsNone(first.poll())
        self.assertIn(f"the window (process {first.pid})", self.desk.run("watch", status=1).stderr)
        self.close(first)
        self.close(self.opened())

    def test_a_library_that_it_can_not_have_is_a_sentence_and_an_end(self):
        holder = subprocess.Popen([BIN / "brell", "--data-dir", self.desk.folder, *OFFLINE, "watch"],
                                  stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(holder.wait)
        self.addCleanup(holder.terminate)
        self.wait_for("brell watch has not come", lambda: (self.desk.folder / "library.lock").exists())
        self.assert_refused(f"brell watch (process {holder.pid}). End that first")
        holder.terminate()
        holder.wait()
        library = sqlite3.connect(self.desk.folder / "library.sqlite")
        library.execute("PRAGMA user_version = 99")
        library.close()
        self.assert_refused("written by a newer version")
        with open(self.desk.folder / "library.sqlite", "r+b") as library:
            library.write(b"\xff" * 4096)
        self.assert_refused("brell library restore")

    def assert_refused(self, told, words=(), **options):
        process = self.open(*words, **options)
        _, said = process.communicate(timeout=20)
        self.assertEqual(process.returncode, 1)
        self.assertRegex(said, r"(\A|\n)tarnwick-brell: .*\.\n\Z")
        self.assertIn(told, said)

    def test_a_refusal_is_shown_where_nobody_reads_standard_error(self):
        if not shutil.which("Xvfb"):
            self.skipTest("no Xvfb to show a window on")
        screen = display(self.addCleanup)
        for words, status in ((["--demo", "--ca-file", "x"], 1), (["--no-such-option"], 2)):
            with self.subTest(words=words):
                process = self.open(*words, QT_QPA_PLATFORM="xcb", DISPLAY=screen)
                with self.assertRaises(subprocess.TimeoutExpired, msg="it does not wait to be read"):
                    process.wait(timeout=3)
                process.send_signal(signal.SIGTERM)
                _, said = process.communicate(timeout=20)
                self.assertEqual(process.returncode, status)
                self.assertRegex(said, r"\Atarnwick-brell: .*\n\Z")

    def test_a_refusal_without_a_display_is_a_sentence_and_an_end(self):
        for screens in ({"DISPLAY": ":9876"}, {"DISPLAY": "elsewhere.example:0"}, {"WAYLAND_DISPLAY": "none"}, {}):
            with self.subTest(**screens):
                changes = {"QT_QPA_PLATFORM": "", "DISPLAY": "", "WAYLAND_DISPLAY": "", **screens}
                self.assert_refused("", words=["--demo", "--ca-file", "x"], **changes)

    def test_a_folder_that_can_not_be_written_is_a_sentence_and_an_end(self):
        self.close(self.opened())
        os.chmod(self.desk.folder, 0o555)
        runner = ()
        if os.geteuid() == 0:
            # Permissions do not hold for root.
            os.chown(self.desk.folder, 65534, 65534)
            for file in self.desk.folder.iterdir():
                os.chown(file, 65534, 65534)
            if not shutil.which("setpriv"):
                self.skipTest("nothing to give root's rights up with")
            runner = ("setpriv", "--reuid=65534", "--clear-groups")
        for file in self.desk.folder.iterdir():
            file.chmod(0o444)
        self.assert_refused("library", runner=runner)

    def test_stories_and_sources_of_any_kind_leave_it_open(self):
        items = {
            "markup": "<![CDATA[<b>Bold</b><script>alert(1)</script><img src=x onerror=y>]]>",
            "long": "Very long " * 10_000,
            "override": "\u202egnihton \u2067has\u2066 to turn round",
            "tower": "T" + "\u0301\u0489" * 2_000 + "ower",
            "empty": "",
        }
        text = "<rss version='2.0'><channel><title>Odd &lt;b&gt;\u202e</title>" + "".join(
            f"<item><guid>{name}</guid><title>{title}</title><link>{link}</link><description>{title}</description></item>"
            for name, title in items.items()
            for link in (f"https://odd.example/{name}", f"javascript:alert('{name}')")) + "</channel></rss>"
        feeds = self.desk.folder / "feeds"
        feeds.mkdir()
        (feeds / "odd.xml").write_text(text, encoding="utf-8")
        room = PressRoom("--files", feeds)
        self.addCleanup(room.close)
        self.desk.network = room.network
        self.desk.run("sources", "add", "https://files.press-room.example/odd.xml")
        odd = next(source["id"] for source in self.desk.json("sources") if source["kind"] == "custom")
        self.desk.run("refresh", "--source", odd)
        self.assertGreater(len(self.desk.json("wire", "--source", odd)), 3)
        for place in ("wire:all", f"source:{odd}", "tracker:<b>", "nonsense"):
            with self.subTest(place=place):
                memory = json.dumps(json.dumps({"place": place, "width": "-7", "x": "1e9"}))
                (self.desk.folder / "settings.ini").write_text(f"[General]\nwindow={memory}\n", encoding="utf-8")
                process = self.opened(network=room.network)
                time.sleep(1)
                self.assertEqual(self.close(process), "")


if __name__ == "__main__":
    unittest.main()
