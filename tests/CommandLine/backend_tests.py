#!/usr/bin/env python3
"""The watch of Apple's public files against the press room's, hour by hour of its world."""
import os
import unittest

from world_time import WorldTest

# What a day of the world has, in its order, with the minute of each: every one is told once, and nothing else is.
TRUE_CHANGES = [
    "robots.txt blocks /home/get-started.",
    "Build 24C5046c of iOS 27.2 appeared.",
    "www.apple.com/newsroom/2026/11/harbor-update/ appeared.",
    "/shop/lantern-* opens in an app.",
    "Background security improvement 24B91a of iOS 27.1.1 (a) appeared.",
    "iOS 27.2 (24C5046c) left the list, gone again after",
    "Kiln Sans appeared.",
    'Setting "sharingLimit" changed, 100 → 50.',
    'Setting "timerLimit" changed, 4 → 6.',
    "XProtectPlistConfigData (093-10512) appeared.",
    "XProtectPlistConfigData (093-10377) is gone.",
    'Setting "sharingLimit" changed, 50 → 100.',
    "robots.txt no longer blocks 30 paths.",
    "An identifier not seen before: AudioAccessory9,1.",
    "Build 24C5044b of HomePod software 27.2 appeared.",
]


class Backend(WorldTest):
    def poll(self, *options, status=0):
        """Asks although the files were asked for a moment ago."""
        if any(self.desk.folder.rglob("library*")):
            self.rows("UPDATE trackerHealth SET lastAttempt = lastAttempt - 3600000000")
        return self.desk.run("backend", *options, status=status)

    def kill_one(self, delay):
        self.rows("UPDATE trackerHealth SET lastAttempt = lastAttempt - 3600000000")
        self.kill(delay, "backend")

    def test_every_change_of_a_day_is_told_once_and_nothing_else(self):
        self.go_to(1)
        for _ in range(8):
            self.poll()
        self.assertEqual(self.told("backend"), [])
        text = self.desk.run("backend", "--stored").stdout
        self.assertIn("Nothing has changed since the first look", text)
        self.assertIn("Settings of Siri: muted, as it changes all the time: requestToken.", text)
        for minute in (30, 45, 65, 72, 85, 95, 110, 125, 135, 145, 160, 190, 210):
            self.go_to(minute)
            self.kill_one(0.05 + minute % 7 / 20)
            self.poll()
            self.poll()
        told = self.told("backend")
        for change in TRUE_CHANGES:
            self.assertEqual(len([t for t in told if t.startswith(change)]), 1, (change, told))
        self.assertEqual(len(told), len(TRUE_CHANGES), told)
        shown = self.desk.json("backend", "--stored")
        self.assertEqual([(f["title"], f["extent"]) for f in shown["findings"] if not f["isTold"]],
                         [("The site map was rebuilt, 160 addresses new", "+160 −150 addresses")])
        kinds = {f["title"]: f["kind"] for f in shown["findings"]}
        self.assertEqual(kinds['Setting "sharingLimit" changed, 50 → 100'], "wentBack")
        self.assertEqual([f["title"] for f in self.desk.json("backend", "--stored", "--source", "fonts")["findings"]],
                         ["Kiln Sans appeared"])
        self.assertIn("robots", self.desk.run("backend", "--source", "x", status=2).stderr)

    def test_a_finding_is_shown_with_both_states(self):
        self.go_to(100)
        self.poll()
        self.go_to(160)
        self.poll()
        self.poll()
        found = self.desk.json("backend", "--stored", "--source", "robots")["findings"][0]
        shown = self.desk.run("backend", "show", str(found["number"])).stdout
        for part in ("robots.txt no longer blocks 30 paths.", "https://www.apple.com/robots.txt", "Polls: ",
                     "> User-agent: * | Disallow: /trade/7\n", "seen by this machine", "What it cannot: "):
            self.assertIn(part, shown)
        lines = self.desk.run("backend", "show", str(found["number"]), "--lines").stdout
        self.assertIn("> Disallow: /trade/7\n", lines)
        self.assertNotIn("After:", lines)
        self.assertIn("no such finding", self.desk.run("backend", "show", "99", status=2).stderr)

    def test_nothing_is_found_in_files_that_cannot_be_read_or_never_stay(self):
        self.go_to(1)
        self.poll()
        for kind in ("page", "missing", "empty", "broken", "huge"):
            self.go_to(1, "--misbehave", f"backend={kind}")
            for _ in range(2):
                failed = self.poll("--source", "siri", status=1)
            self.assertIn("Settings of Siri: ", failed.stderr, kind)
            self.poll("--source", "newsroom-map", status=1)
        self.go_to(1, "--misbehave", "backend=rotating")
        for _ in range(4):
            self.poll("--source", "newsroom-map")
        self.go_to(1)
        self.poll()
        self.poll()
        self.assertEqual(self.told("backend"), [])
        self.assertEqual(self.desk.json("backend", "--stored")["findings"], [])

    def test_a_file_is_not_asked_for_twice_within_its_interval(self):
        log = open(self.desk.folder / "requests", "wb+")
        self.addCleanup(log.close)
        room = self.world.room(1, "--log", log=log)
        self.addCleanup(room.close)
        self.desk.network = room.network
        self.desk.run("backend")
        asked = log.seek(0, os.SEEK_END)
        self.assertGreater(asked, 0)
        self.desk.run("backend")
        self.assertEqual(log.seek(0, os.SEEK_END), asked)


if __name__ == "__main__":
    unittest.main()
