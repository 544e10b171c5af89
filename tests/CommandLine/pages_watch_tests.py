#!/usr/bin/env python3
"""Followed pages against the press room's, hour by hour of its world."""
import subprocess
import unittest

from harness import BIN
from world_time import WorldTest

GUIDELINES = "https://developer.apple.com/app-store/review/guidelines/"
PRIVACY = "https://www.apple.com/legal/privacy/"
SECURITY = "https://support.apple.com/en-us/100100"

# The day's true changes in the order in which they are seen; nothing else may be told.
TRUE_CHANGES = [
    ("App Store Review Guidelines", "2 changes. Changed in \"2.5 Software requirements\""),
    ("Security releases", "1 change. Added to \"Apple security releases\": \"iOS 27.2 · iPhone 13 and later · 22 Nov 2026\""),
    ("Privacy policy", "1 change. Changed in \"Your choices\": \"six\" became \"two\""),
]


class PagesWatch(WorldTest):
    def check(self, *page):
        """Looks now; whether a page could be read does not matter here."""
        return subprocess.run([BIN / "brell", "--data-dir", self.desk.folder, *self.desk.network, "pages", "check", *page],
                              capture_output=True, text=True, check=False).stdout

    def follow(self):
        for page in (GUIDELINES, PRIVACY, SECURITY):
            self.desk.run("pages", "add", page)

    def assert_true_changes(self):
        titles = self.told("page")
        self.assertEqual(len(titles), len(TRUE_CHANGES), titles)
        for title, (name, beginning) in zip(titles, TRUE_CHANGES):
            self.assertTrue(title.startswith(name + ": " + beginning), title)

    def test_a_day_tells_every_change_once_and_nothing_else(self):
        first = self.desk.run("pages")
        self.assertIn("No page is followed yet", first.stdout + first.stderr)
        self.follow()
        for minute in (0, 30, 90, 101, 131, 165, 190, 221, 265, 270, 305, 345, 385, 425, 465, 490):
            self.go_to(minute)
            for _ in range(4):
                self.check()
        self.assert_true_changes()
        diff = self.desk.json("pages", "diff", GUIDELINES)
        self.assertEqual([change["headings"] for change in diff["changes"]][0], ["App Review Guidelines", "2.5 Software requirements"])
        self.assertIn('"must use the" became "may use an"', diff["changes"][0]["sentence"])
        runs = diff["changes"][0]["runs"]
        self.assertEqual([run["text"] for run in runs if run["kind"] != "same"][:2], ["must use the", "may use an"])
        text = self.desk.run("pages", "diff", GUIDELINES).stdout
        self.assertIn("[-must use the-] {+may use an+}", " ".join(text.split()))
        self.assertNotIn("\033", text, "colours are for terminals")
        self.assertRegex(text, r"Noticed .*, last seen unchanged .*\. The page's own date: ")
        rows = {row["address"]: row for row in self.desk.json("pages", "--stored")["pages"]}
        self.assertEqual([rows[page]["state"] for page in (GUIDELINES, PRIVACY, SECURITY)], ["changed"] * 3)
        shown = self.desk.json("pages", "show", PRIVACY)
        self.assertRegex(shown["leftOut"][0], r"^Tip number \d+ for today")
        self.desk.run("pages", "unmute", PRIVACY, "1")
        self.assertEqual(self.desk.json("pages", "show", PRIVACY)["leftOut"], [])
        self.check(PRIVACY)
        self.assert_true_changes()

    def test_what_fails_is_named_and_is_no_change(self):
        self.desk.run("pages", "add", GUIDELINES, "--name", "Rules")
        self.go_to(1)
        self.check()
        faults = {265: "robots", 305: "too little text", 385: "another site", 425: "another language", 465: "an error"}
        for minute, words in faults.items():
            self.go_to(minute)
            self.assertIn(words, self.desk.run("pages", "check", "Rules", status=1).stderr)
        self.assertEqual(self.told("page"), [], "an hour of failures would be told")
        self.assertEqual(self.desk.json("pages", "--stored")["pages"][0]["state"], "failing")

    def test_a_desk_that_is_killed_loses_and_repeats_nothing(self):
        self.follow()
        self.go_to(90)
        for _ in range(4):
            self.check()
        self.go_to(225)
        for delay in (0.05, 0.1, 0.15, 0.2, 0.3, 0.4):
            self.kill(delay, "pages", "check")
        for _ in range(5):
            self.check()
        self.assertEqual(sorted(title.split(":")[0] for title in self.told("page")), sorted(name for name, _ in TRUE_CHANGES))

    def test_pages_are_followed_by_name_or_address_until_they_are_removed(self):
        self.assertIn("no https address", self.desk.run("pages", "add", "http://a.example/", status=2).stderr)
        self.desk.run("pages", "add", "--suggested")
        listed = self.desk.json("pages", "--stored")
        self.assertEqual((len(listed["pages"]) > 5, listed["suggested"]), (True, []))
        self.desk.run("pages", "remove", "privacy POLICY")
        self.assertEqual([page["address"] for page in self.desk.json("pages", "--stored")["suggested"]], [PRIVACY])
        self.assertIn("isn't followed", self.desk.run("pages", "show", PRIVACY, status=2).stderr)


if __name__ == "__main__":
    unittest.main()
