#!/usr/bin/env python3
"""A desk that stays: it prints news as it comes, beside other programs at the same library."""
import json
import signal
import subprocess
import time
import unittest

from harness import BIN, Desk, PressRoom


class Watching(unittest.TestCase):
    def setUp(self):
        self.room = PressRoom("--speed", 900)
        self.desk = Desk(self.room.network)
        self.addCleanup(self.desk.close)
        self.addCleanup(self.room.close)

    def watch(self, *words, **options):
        process = subprocess.Popen([BIN / "brell", "--data-dir", self.desk.folder, *self.room.network, "watch", *words],
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, **options)
        self.addCleanup(process.kill)
        deadline = time.monotonic() + 20
        lock = self.desk.folder / "library.lock"
        while not (lock.exists() and lock.read_text().startswith(f"{process.pid} ")
                   and any(s["status"].get("lastSuccess") for s in self.desk.json("sources"))):
            self.assertLess(time.monotonic(), deadline, "the first pass has not come")
            time.sleep(0.1)
        return process

    def stop(self, process):
        begin = time.monotonic()
        process.send_signal(signal.SIGINT)
        out, err = process.communicate(timeout=20)
        self.assertLess(time.monotonic() - begin, 2)
        return out, err

    def test_what_another_program_fetches_is_printed_and_a_first_fetch_is_not(self):
        process = self.watch("--json", "--set-aside")
        deadline = time.monotonic() + 20
        added = 0
        while not added and time.monotonic() < deadline:
            time.sleep(1)
            added = self.desk.json("refresh")["added"]
        self.assertGreater(added, 0)
        line = json.loads(process.stdout.readline())
        self.assertIn(line["id"], [story["id"] for story in self.desk.json("wire", "--set-aside", "--limit", 1000)])
        second = self.desk.run("watch", status=1)
        self.assertIn(f"brell watch (process {process.pid})", second.stderr)
        out, err = self.stop(process)
        printed = [line["id"], *(json.loads(text)["id"] for text in out.splitlines())]
        self.assertEqual(len(printed), len(set(printed)), "each story once")
        self.assertLess(len(printed), 100, "the first fetch of each source is silent")
        self.assertEqual((process.returncode, err), (0, ""))
        again = self.watch()
        self.stop(again)
        self.assertEqual(again.returncode, 0, "the lock is free again")

    def test_a_desk_that_is_stopped_in_the_middle_of_a_pass_ends_at_once_and_keeps_what_came(self):
        room = PressRoom("--misbehave", "macrumors=huge", "--misbehave", "appleinsider=huge", "--misbehave", "the-verge=silent")
        self.addCleanup(room.close)
        for attempt in range(6):
            desk = Desk(room.network)
            self.addCleanup(desk.close)
            process = subprocess.Popen([BIN / "brell", "--data-dir", desk.folder, *room.network, "watch"],
                                       stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
            time.sleep(0.25 + 0.1 * attempt)
            _, err = self.stop(process)
            self.assertEqual((process.returncode, err), (0, ""))
            self.assertEqual(desk.run("library", "check", status=None).returncode,
                             0 if (desk.folder / "library.sqlite").exists() else 1)

    def test_a_clock_that_seems_wrong_is_told(self):
        self.room = PressRoom("--clock-ahead", -800)
        self.addCleanup(self.room.close)
        process = self.watch()
        line = process.stderr.readline()
        while line and "clock seems wrong" not in line:
            line = process.stderr.readline()
        self.assertIn("clock seems wrong", line)
        self.stop(process)

    def test_a_damaged_library_ends_it(self):
        self.desk.run("refresh", "--source", "macrumors")
        with open(self.desk.folder / "library.sqlite", "r+b") as library:
            library.seek(4096)
            library.write(b"\xff" * 200_000)
        result = self.desk.run("watch", status=1)
        self.assertIn("library restore", result.stderr)

    def test_a_reader_that_leaves_ends_it(self):
        process = self.watch()
        process.stdout.close()
        deadline = time.monotonic() + 30
        while process.poll() is None and time.monotonic() < deadline:
            time.sleep(1)
            self.desk.run("refresh")
        self.assertEqual(process.poll(), -signal.SIGPIPE)
        self.assertEqual(process.stderr.read(), "")
        process.stderr.close()


if __name__ == "__main__":
    unittest.main()
