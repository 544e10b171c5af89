#!/usr/bin/env python3
"""The trackers' commands against the press room, with its services in and out of order."""
import json
import os
import pty
import re
import subprocess
import unittest

from harness import BIN
from world_time import WorldTest

COMMANDS = {"status": ["status"], "developer-status": ["status", "--developer"], "releases": ["releases"],
            "events": ["events"], "quote": ["quote"], "quotes": ["board"]}


class Trackers(WorldTest):
    def test_status_tells_first_whether_all_is_well_and_the_log_keeps_what_was(self):
        self.go_to(5)
        self.assertEqual(self.desk.run("status").stdout, "All 64 consumer services are up.\n")
        self.go_to(30)
        lines = self.desk.run("status").stdout.splitlines()
        self.assertEqual(lines[0], "2 of 64 consumer services have problems.")
        rows = [re.split(r"\s{2,}", line)[:2] for line in lines if re.match(r"\S", line)]
        self.assertEqual(rows[2:], [["App Store", "outage"], ["Apple Music", "outage"]])
        ongoing = self.desk.json("status")["ongoing"]
        self.assertEqual([(r["service"], r["incident"]["status"]) for r in ongoing],
                         [("App Store", "ongoing"), ("Apple Music", "ongoing")])
        start = self.world.anchor + 600
        self.assertEqual(ongoing[0]["id"], f"App Store|{start}.0")

        self.go_to(85)
        self.assertIn("App Store", self.desk.run("status", "--recent").stdout.split("The last 14 days")[1])
        recent = self.desk.json("status", "--recent")["recent"]
        starts = [r["incident"]["started"] for r in recent]
        self.assertEqual(starts, sorted(starts, reverse=True))
        self.assertEqual(self.desk.json("status", "--developer")["ongoing"][0]["service"], "TestFlight")

        log = self.desk.json("status", "--log")
        store = [i for i in log if i["report"] == f"App Store|{start}.0"]
        self.assertEqual(len(store), 1)
        self.assertLess(store[0]["firstSeen"], store[0]["endedSeen"])
        self.assertEqual({i["service"] for i in self.desk.json("status", "--log", "TESTfl")}, {"TestFlight"})
        self.assertEqual({i["audience"] for i in self.desk.json("status", "--log", "--developer")}, {"developer"})
        self.assertIn("ongoing", self.desk.run("status", "--log", "iCloud Mail").stdout)
        self.desk.run("status", "--log", "--recent", status=2)

    def test_releases_show_both_channels_and_their_history_every_build(self):
        self.go_to(1)
        first = self.desk.json("releases")["platforms"]
        self.assertEqual([p["platform"] for p in first],
                         ["iOS", "iPadOS", "macOS", "watchOS", "tvOS", "visionOS", "homeOS"])
        self.assertNotIn("current", first[-1])
        self.go_to(160)
        text = self.desk.run("releases").stdout
        self.assertRegex(text, r"macOS 27\.1\.2 +macOS +public +26B97 +\d+ h")
        self.assertRegex(text, r"iOS 27\.2 beta 3 +iOS +beta +24C5052a")
        seen = [b for b in self.desk.json("releases", "--history") if (b["platform"], b["channel"]) == ("iOS", "beta")]
        self.assertEqual([b["release"]["build"] for b in seen], ["24C5052a", "24C5044b"])
        self.assertEqual(seen[1]["replacedAt"], seen[0]["firstSeen"])
        self.assertNotIn("replacedAt", seen[0])
        self.assertIn("24C5044b", self.desk.run("releases", "--history").stdout)

    def test_events_come_by_their_beginning_and_the_board_by_its_groups(self):
        self.go_to(1)
        events = self.desk.json("events")["events"]
        self.assertEqual([e["title"] for e in events if e["anniversary"]], ["Anniversary: 43 years of the Macintosh"])
        self.assertEqual([e["id"] for e in events if e["released"]], ["ios-27-1-1"])
        text = self.desk.run("events").stdout
        begins = re.findall(r"  (?:around )?(\d{4}-\d\d-\d\d(?: \d\d:\d\d UTC)?)  ", text)
        self.assertEqual((len(begins) + text.count("no date yet"), begins), (len(events), sorted(begins, key=lambda begin: begin[:10])),
                         "days in their order; within one, a date without a time has none")
        rows = self.desk.json("board")["quotes"]
        self.assertNotIn("AAPL", self.desk.run("board").stdout)
        self.desk.run("quote", "--range", "1y")
        text = self.desk.run("board").stdout
        self.assertRegex(text, r"Apple Inc\. +AAPL +\d+\.\d\d USD.*\n.*As of \d{4}-\d\d-\d\d \d\d:\d\d UTC\.")
        groups = list(dict.fromkeys(row["group"] for row in rows))
        self.assertEqual([line for line in text.splitlines() if line in groups], groups)
        for row in rows:
            self.assertIn(row["symbol"], text)

    def test_a_quote_is_of_the_wanted_symbol_and_range_or_says_what_was_wrong(self):
        self.go_to(1)
        self.assertEqual([self.desk.json("quote")[key] for key in ("symbol", "range")], ["AAPL", "1m"])
        self.desk.run("settings", "focusSymbol", "^GSPC")
        self.desk.run("settings", "quoteRange", "1y")
        quote = self.desk.json("quote")
        self.assertEqual((quote["symbol"], quote["range"], len(quote["points"])), ("^GSPC", "1y", 252))
        # Neither has a previous close of the service's own, but daily points tell it.
        derived = self.desk.json("quote", "2317.tw", "--range", "1m")
        self.assertNotIn("previous_close", derived)
        self.assertIn(derived["previousClose"], [point["c"] for point in derived["points"][-2:]])
        for words, status, sentence in (
                (["quote", "NONE"], 1, "NONE"),
                (["quote", "a b"], 2, '"A B" is not the symbol'),
                (["quote", "AAPL", "--range", "2d"], 2, "The ranges are 1d, 1w, 1m and 1y.")):
            failed = self.desk.run(*words, status=status)
            self.assertIn(sentence, failed.stderr)
            self.assertEqual(failed.stdout, "")

    def test_the_chart_fits_the_terminal_and_stays_away_from_narrow_ones(self):
        self.go_to(1)
        for columns, charted in ((80, True), (200, True), (30, True), (20, False)):
            for kind in ("1d", "1w", "1m", "1y"):
                lines = self.terminal(columns, "quote", "--range", kind)
                chart = [line for line in lines if "│" in line or "┤" in line]
                self.assertEqual(len(chart), 8 if charted else 0, (columns, kind))
                for line in chart:
                    self.assertLessEqual(len(line), columns)
                for edge in chart[:1] + chart[-1:]:
                    self.assertRegex(edge, "┤ .*[⠁-⣿]", "the highest and the lowest price are drawn")
                self.assertNotIn("\x1b", "".join(lines))
        price = self.desk.json("quote", "--range", "1y")
        low, high = (f(p["c"] for p in price["points"]) for f in (min, max))
        chart = self.terminal(80, "quote", "--range", "1y")
        self.assertTrue(any(f"{high:,.2f} ┤" in line for line in chart), chart)
        self.assertTrue(any(f"{low:,.2f} ┤" in line for line in chart), chart)

    def terminal(self, columns, *words):
        """What brell writes to a terminal of that width."""
        ours, theirs = pty.openpty()
        subprocess.run(["stty", "cols", str(columns)], stdin=theirs, check=True)
        command = [BIN / "brell", "--data-dir", self.desk.folder, *self.desk.network, *words]
        process = subprocess.Popen(command, stdin=theirs, stdout=theirs, stderr=subprocess.DEVNULL,
                                   env=dict(os.environ, NO_COLOR="1"))
        os.close(theirs)
        written = b""
        try:
            while piece := os.read(ours, 65536):
                written += piece
        except OSError:  # the other end is closed
            pass
        os.close(ours)
        self.assertEqual(process.wait(timeout=30), 0)
        return written.decode("utf-8").splitlines()

    def test_what_fails_leaves_the_last_good_answer_with_its_age(self):
        for tracker, command in COMMANDS.items():
            failed = self.desk.run(*command, "--stored", status=1)
            self.assertIn("has no such data", failed.stderr)
        self.go_to(1)
        good = {tracker: self.desk.json(*command) for tracker, command in COMMANDS.items()}
        for kind in ("page", "missing", "broken", "incomplete", "undated", "huge", "empty"):
            # Quotes without points, a day after which nothing was traded, are quotes; so are
            # empty calendars, and files without a date in them.
            whole = {"empty": {"quote", "events"}}.get(kind, set())
            trackers = [tracker for tracker in COMMANDS if tracker not in whole]
            self.go_to(40, *(word for tracker in trackers for word in ("--misbehave", f"{tracker}={kind}")))
            for tracker in trackers:
                failed = self.desk.run(*COMMANDS[tracker], "--json", status=1)
                shown = json.loads(failed.stdout)
                self.assertIn(shown.pop("error"), failed.stderr)
                self.assertEqual(shown, good[tracker], (tracker, kind))
                self.assertRegex(failed.stderr, r"^brell: .*The data shown were fetched \d{4}-", (tracker, kind))
        self.desk.network = ["--connect-to", "127.0.0.1:1"]
        for tracker, command in COMMANDS.items():
            text = self.desk.run(*command, "--stored").stdout
            self.assertRegex(text, r"\nFetched \d{4}-\d\d-\d\d \d\d:\d\d UTC, ", tracker)

    def test_looking_announces_nothing_and_hides_nothing_from_the_desk(self):
        self.go_to(30)
        for command in COMMANDS.values():
            self.desk.run(*command)
        settings = "".join(path.read_text() for path in self.desk.folder.glob("*") if path.suffix in (".ini", ".conf"))
        self.assertNotIn("known", settings)


if __name__ == "__main__":
    unittest.main()
