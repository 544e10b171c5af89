#!/usr/bin/env python3
"""Filings and insiders' trades against the press room, in and out of order."""
import os
import unittest

from world_time import WorldTest

TOLD = [
    "Apple: Maren K. Tolliver will sell 24,000 shares for about $7,512,000 around",
    "Broadcom: Departure or appointment of directors or officers: Broadcom Names a New Head of Radio Chips (form 8-K).",
    "Apple: Departure or appointment of directors or officers (form 8-K).",
    "Apple: Tolliver Maren K received on vesting 60,000 shares, had withheld for tax 31,000 shares and sold 24,000 shares",
    "Apple: Okafor Dele and 1 other bought 700 shares at $311.90",
    "Apple: Other events: Apple and Corning Extend Their Agreement on Cover Glass (form 8-K).",
    "Apple: Tolliver Maren K received on vesting 60,000 shares, had withheld for tax 31,000 shares and sold 24,100 shares",
    "Broadcom: Brandt Ilse sold 20,000 shares at $412.50",
    "Apple: A shareholder's letter for or against a vote (form PX14A6G).",
    "Apple: The company's answer to the SEC (form CORRESP).",
    "Apple: The SEC's comments to the company (form UPLOAD).",
    "Corning: Marsh Orla was granted 900 shares",
    "Apple: Departure or appointment of directors or officers, amended (form 8-K/A).",
    "Apple: Lindqvist Aud gave away 3,000 shares and sold 1,500 shares at $310.20, reported late",
    "Apple: Quarterly report (form 10-Q)."]


class Filings(WorldTest):
    def begin(self, minute=1):
        self.go_to(minute)
        self.desk.run("settings", "contactAddress", "reader@example.org")
        self.desk.run("filings")

    def assert_told(self, expected):
        told = self.told("filing", "insiderTrade")
        for beginning in expected:
            self.assertEqual(sum(title.startswith(beginning) for title in told), 1, f"{beginning} among {told}")
        self.assertEqual(len(told), len(expected), told)

    def test_nothing_is_asked_without_an_address_and_nothing_more_after_a_refusal(self):
        with open(self.desk.folder / "requests", "wb+") as log:
            self.go_to(1, "--log", log=log)
            missing = self.desk.run("filings", status=1)
            self.assertRegex(missing.stderr, r"The SEC asks every program to name a mail address .* setting contactAddress")
            self.assertEqual(self.desk.run("settings", "contactAddress", "nobody", status=2).stdout, "")
            self.assertEqual(log.seek(0, os.SEEK_END), 0)
            self.desk.run("settings", "contactAddress", "reader@barred.example")
            for _ in range(2):
                refused = self.desk.run("filings", status=1)
                self.assertRegex(refused.stderr, "^brell: The SEC refuses requests with this mail address. .* until the setting "
                                                 r"contactAddress has another one\.\n$")
            log.seek(0)
            self.assertEqual(len(log.readlines()), 1, "one refusal stops the feeds of all companies")
        self.desk.run("settings", "contactAddress", "reader@example.org")
        self.desk.run("filings")
        self.assertEqual(self.told("filing", "insiderTrade"), [], "nothing is told of the first look")

    def test_too_many_requests_are_followed_by_ten_minutes_of_silence(self):
        self.begin()
        with open(self.desk.folder / "requests", "wb+") as log:
            self.go_to(60, "--misbehave", "filings=threshold", "--log", log=log)
            self.assertIn("429", self.desk.run("filings", status=1).stderr)
            self.assertRegex(self.desk.run("filings", status=1).stderr, r"wants to be left alone for now. Try again in (9|10) min\.")
            log.seek(0)
            self.assertEqual(len(log.readlines()), 1)
        self.rows("DELETE FROM hostPauses")
        self.go_to(60)
        self.desk.run("filings")
        self.assert_told(TOLD[:3])

    def test_each_filing_is_told_once_and_those_of_other_companies_shares_not(self):
        self.begin()
        for minute in (60, 60, 400, 720, 720, 1000, 1450, 1460, 2000, 2870, 2870):
            self.go_to(minute)
            self.desk.run("filings")
        self.assert_told(TOLD)
        self.rows("UPDATE deskState SET value = value - 3600000000 WHERE key LIKE 'filingList/%'")
        self.desk.run("filings")
        self.assert_told(TOLD)
        shown = self.desk.json("filings", "--stored", "--company", "aapl", "--form", "8-K")["filings"]
        first = next(row for row in shown if row["items"] == ["5.02"] and row["form"] == "8-K")
        amending = next(row for row in shown if row["form"] == "8-K/A")
        self.assertEqual((amending["amends"], first["amended"]), (first["accession"], True))
        agreement = next(row for row in shown if row["items"] == ["8.01", "9.01"])
        self.assertEqual(agreement["headline"], "Apple and Corning Extend Their Agreement on Cover Glass")

    def test_what_one_did_is_one_row_with_its_notice_its_plan_and_its_share(self):
        self.begin(1)
        self.go_to(2870)
        text = self.desk.run("insiders", "--company", "Apple").stdout
        self.assertRegex(text, r"Tolliver Maren K +sold, as announced +24,100 +312\.96 .* 13 % +of 2026-02-12")
        self.assertRegex(text, r"Lindqvist Aud +gave away, late +3,000 .*No plan")
        self.assertRegex(text, r"Okafor Dele +bought +700 +311\.90 .*Not said")
        self.assertNotIn("Marsh", text)
        self.assertIn("1 routine row is left out; --all shows them.", text)
        typed = next(row for row in self.desk.json("filings", "--stored", "--form", "4")["filings"] if "2035" in row["words"] or "Okafor Dele and" in row["words"])
        detail = self.desk.json("filings", "--show", typed["accession"], "--stored")
        self.assertEqual(detail["trades"][0]["dateAsFiled"], "2035-11-19")

    def test_a_filing_opens_with_the_text_of_its_press_release(self):
        self.begin(60)
        self.assertRegex(self.desk.run("press").stdout, r"Broadcom Names a New Head of Radio Chips +8-K")
        accession = next(row["accession"] for row in self.desk.json("filings", "--stored")["filings"]
                         if row["company"] == "Broadcom" and row["form"] == "8-K")
        text = self.desk.run("filings", "--show", accession).stdout
        self.assertRegex(text, r"Broadcom, form 8-K\n.*officers: Broadcom Names a New Head of Radio\nChips\naccepted \d\d:\d\d New York")
        self.assertIn("Item 5.02: Departure or appointment of directors or officers", text)
        self.assertRegex(text, r"Also sent as a press release: https://www\.\w+\.com/")
        self.assertIn("PALO ALTO. Broadcom Inc. today announced", text)
        self.assertRegex(text, r"-index\.htm opens at the SEC")
        main = self.desk.json("filings", "--show", accession, "--document", "8-K")["text"]["lines"]
        self.assertFalse([line for line in main if "hidden" in line], main)
        self.go_to(60, "--misbehave", "filings-archive=unavailable")
        failed = self.desk.run("filings", "--show", accession, status=1)
        self.assertIn("today announced", failed.stdout, "the last good text stays")
        self.assertIn("No filing with the number", self.desk.run("filings", "--show", "1", status=1).stderr)

    def test_what_fails_leaves_the_last_good_answer_and_tells_nothing(self):
        self.begin()
        good = self.desk.json("filings", "--stored")
        for kind in ("page", "missing", "empty", "huge", "broken", "unavailable"):
            self.go_to(60, "--misbehave", f"filings={kind}", "--misbehave", "filings-archive=missing")
            failed = self.desk.run("filings", status=1)
            self.assertRegex(failed.stderr, r"^brell: The filings of Apple: .* The data shown were fetched", kind)
            self.assertEqual(self.desk.json("filings", "--stored"), good, kind)
            self.rows("DELETE FROM hostPauses")
        self.go_to(140, "--misbehave", "filings-archive=unavailable")
        self.desk.run("filings")
        self.rows("DELETE FROM hostPauses")
        self.assertFalse([title for title in self.told("filing", "insiderTrade") if "Tolliver" in title], "forms are told once they are read")
        self.assertEqual(len(self.told("filing", "insiderTrade")), 2, "events are told without the titles of their press releases")
        self.go_to(140)
        self.desk.run("filings")
        self.assert_told([TOLD[0], "Broadcom: Departure or appointment of directors or officers (form 8-K).", *TOLD[2:4]])

    def test_a_desk_that_is_killed_loses_and_repeats_nothing(self):
        self.begin()
        self.go_to(450)
        for delay in (0.02, 0.05, 0.1, 0.15, 0.2, 0.3, 0.5):
            self.kill(delay, "filings")
        self.desk.run("filings")
        self.assert_told(TOLD[:7])


if __name__ == "__main__":
    unittest.main()
