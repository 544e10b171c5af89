#!/usr/bin/env python3
"""Dockets and press releases against the press room, in and out of order."""
import os
import unittest

from world_time import WorldTest

CASE, OTHER = "https://www.courtlistener.com/docket/70410111/low-water-games-llc-v-apple-inc/", "70410222"
COURT = "https://ecf.cand.uscourts.gov/cgi-bin/rss_outside.pl"


class Court(WorldTest):
    def move_back(self, column):
        self.rows(f"UPDATE {column} - 3600000000")

    def test_entries_are_told_once_and_none_on_the_first_look(self):
        self.assertIn("No case is followed yet", self.desk.run("court").stdout + self.desk.run("court").stderr)
        self.go_to(1)
        self.desk.run("court", "follow", CASE, "--note", "First test of the new store rules")
        self.desk.run("court", "follow", OTHER)
        text = self.desk.run("court").stdout
        self.assertIn("First test of the new store rules", text)
        self.assertRegex(text, r"\d{4}-\d\d-\d\d .*Low Water.* 26 +OPPOSITION/RESPONSE re 18 MOTION.*PACER, paid")
        self.assertRegex(text, r" 18 +MOTION to Dismiss the Complaint.*free")
        self.assertIn("lacks the entries 3-8, 10-17, 19-25", text)
        self.assertIn("3 routine entries are left out; --all shows them.", text)
        self.assertIn("Notice of Appearance", self.desk.run("court", "--all", "--stored").stdout.replace("NOTICE", "Notice"))
        self.assertEqual(self.told("docket"), [])
        for minute in (40, 80, 80, 100, 300, 300):
            self.go_to(minute)
            self.desk.run("court")
        self.assertEqual(self.told("docket"), [
            "Low Water Games LLC v. Apple Inc., entry 31: Order on Motion.",
            "STATE OF TIDEMARK et al v. APPLE INC., entry 90: ORDER denying 80 Motion to Compel.",
            "STATE OF TIDEMARK et al v. APPLE INC., entry 89: OPINION.",
            "Low Water Games LLC v. Apple Inc., entry 31: now readable: ORDER granting in part 18 Motion to Dismiss.",
            "Low Water Games LLC v. Apple Inc.: Minute Entry for proceedings."])
        entries = self.desk.json("court", "--case", OTHER, "--stored")["entries"]
        self.assertEqual([(e["number"], e["paid"], e["dayOnly"]) for e in entries], [("90", True, True), ("89", False, True)])
        self.desk.run("court", "unfollow", OTHER)
        self.assertEqual([f["feed"] for f in self.desk.json("court", "--stored")["feeds"]], ["docket/70410111"])
        self.assertIn("isn't followed", self.desk.run("court", "note", OTHER, "x", status=2).stderr)
        self.assertIn("names no docket", self.desk.run("court", "follow", "Apple", status=2).stderr)

    def test_a_courts_own_feed_gives_apples_entries_and_says_what_it_leaves_out(self):
        self.go_to(1)
        self.desk.run("court", "add", COURT, "--name", "Northern California")
        self.assertNotIn("Oak", self.desk.run("court").stdout)
        self.go_to(61)
        text = self.desk.run("court").stdout
        self.assertIn("Docket entries of type: answer,cmp,order,motion.", text)
        self.assertRegex(text, r"Low Water Games LLC v.* 31 +Order on Motion and ~Util - Set/Reset Deadlines +PACER, paid")
        self.assertEqual(self.told("docket"), ["Low Water Games LLC v. Apple Inc., entry 31: Order on Motion."])
        feed = self.desk.json("court")["feeds"][0]
        self.assertEqual((feed["partial"], "silentSince" in feed), (True, False))

    def test_an_entry_of_a_docket_and_of_its_courts_feed_is_told_and_shown_once(self):
        self.go_to(1)
        self.desk.run("court", "follow", CASE)
        self.desk.run("court", "add", COURT, "--name", "Northern California")
        self.desk.run("court")
        for minute in (61, 61, 100, 100):
            self.go_to(minute)
            self.desk.run("court")
        self.assertEqual(self.told("docket"), [
            "Low Water Games LLC v. Apple Inc., entry 31: Order on Motion.",
            "Low Water Games LLC v. Apple Inc., entry 31: now readable: ORDER granting in part 18 Motion to Dismiss."])
        shown = [e["text"] for e in self.desk.json("court", "--stored")["entries"] if e.get("number") == "31"]
        self.assertEqual(len(shown), 1, shown)
        self.assertTrue(shown[0].startswith("ORDER granting in part"))

    def test_what_fails_leaves_the_last_good_answer_and_tells_nothing(self):
        self.go_to(1)
        self.desk.run("court", "follow", CASE)
        good = self.desk.json("court", "--all")["entries"]
        self.desk.run("board")
        self.desk.run("press")
        for kind in ("page", "missing", "broken", "huge", "empty"):
            self.go_to(70, "--misbehave", f"court={kind}", "--misbehave", f"press={kind}")
            failed = self.desk.run("court", status=1)
            self.assertRegex(failed.stderr, r"^brell: The docket 70410111: .*The data shown were fetched \d{4}-", kind)
            self.assertEqual(self.desk.json("court", "--all", "--stored")["entries"], good, kind)
            if kind != "empty":
                self.assertIn("GlobeNewswire: ", self.desk.run("press", status=1).stderr, kind)
        self.assertEqual((self.told("docket"), self.told("pressRelease")), ([], []))
        self.go_to(70)
        self.desk.run("court")
        self.desk.run("press")
        self.assertEqual(len(self.told("docket")), 1, "what came meanwhile is told once")
        self.assertEqual(self.told("pressRelease"), ["Broadcom Inc.: Broadcom Names a New Head of Radio Chips."])

    def test_new_cases_are_found_with_a_token_that_is_never_shown(self):
        self.go_to(1)
        self.assertIn("settings courtListenerToken TOKEN", self.desk.run("court", "--new", status=1).stderr)
        self.desk.run("settings", "courtListenerToken", "fedcba98")
        self.assertIn("CourtListener refuses the token.", self.desk.run("court", "--new", status=1).stderr)
        quiet = self.world.room(1, "--log", log=(log := open(self.desk.folder / "requests", "wb+")))
        self.addCleanup(quiet.close)
        self.desk.network = [*quiet.network]
        self.assertIn("CourtListener refuses the token.", self.desk.run("court", "--new", status=1).stderr)
        self.assertEqual(log.seek(0, os.SEEK_END), 0, "a refused token is not offered again")
        log.close()
        self.desk.run("settings", "courtListenerToken", "0123456789abcdef")
        self.go_to(1)
        self.go_to(1, "--misbehave", "court=busy:150")
        self.assertIn("Too many requests", self.desk.run("court", "--new", status=1).stderr.replace("429", "Too many requests"))
        self.move_back("trackerHealth SET lastAttempt = lastAttempt")
        self.assertIn("Try again in 3 min.", self.desk.run("court", "--new", status=1).stderr)
        self.move_back("trackerHealth SET lastAttempt = lastAttempt")
        self.move_back("hostPauses SET until = until")
        self.go_to(1)
        text = self.desk.run("court", "--new").stdout
        self.assertRegex(text, r"Low Water Games LLC v\. .* 70410111 ", "it is on the second page")
        self.assertNotIn("Oak", text)
        self.assertEqual(self.told("docket"), [])
        self.go_to(100)
        self.desk.run("court", "--new")
        self.assertEqual(self.told("docket"), [], "it was asked within the last half hour")
        self.move_back("trackerHealth SET lastAttempt = lastAttempt")
        for _ in range(2):
            self.desk.run("court", "--new")
        self.assertEqual(self.told("docket"), ["A new case: Ash Displays Ltd v. Apple Inc. (District Court, txwd)."])
        shown = self.desk.run("settings").stdout + self.desk.run("settings", "courtListenerToken").stdout
        shown += self.desk.run("settings", "--json").stdout + self.desk.run("log", "--program", "--level", "debug").stdout
        self.assertIn("••••••••", shown)
        self.assertNotIn("0123456789abcdef", shown)
        self.assertEqual(next(self.desk.folder.rglob("*.ini"), next(self.desk.folder.rglob("settings*"))).stat().st_mode & 0o77, 0)

    def test_a_desk_that_is_killed_loses_and_repeats_nothing(self):
        self.go_to(1)
        self.desk.run("court", "follow", CASE)
        self.desk.run("court")
        self.go_to(120)
        for delay in (0.02, 0.05, 0.1, 0.2, 0.4):
            self.kill(delay, "court")
        self.desk.run("court")
        titles = self.told("docket")
        self.assertEqual(len(titles), len(set(titles)))
        self.assertTrue(any("entry 31" in title for title in titles), titles)

    def test_releases_of_the_boards_companies_are_told_once_whichever_wire_has_them(self):
        self.go_to(1)
        self.desk.run("board")
        text = self.desk.run("press").stdout
        self.assertIn("Corning to Expand Glass Works", text)
        self.assertNotIn("Fig Bakeries", text)
        for minute in (70, 310, 310):
            self.go_to(minute)
            shown = self.desk.json("press")
        self.assertEqual(self.told("pressRelease"), [
            "Broadcom Inc.: Broadcom Names a New Head of Radio Chips.",
            "Apple Inc.: Apple and Corning Extend Their Agreement on Cover Glass."])
        self.assertEqual([f["dropped"] for f in shown["feeds"] if f["feed"] == "press/globenewswire"], [1])
        self.assertEqual(shown["releases"][0]["symbol"], "AAPL")
        self.desk.run("press", "add", "https://feed.businesswire.com/rss/home/?rss=x")
        self.assertIn("The channel you requested is unavailable.", self.desk.run("press", status=1).stderr)


if __name__ == "__main__":
    unittest.main()
