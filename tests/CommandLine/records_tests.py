#!/usr/bin/env python3
"""Filings, trades, court entries and press releases over two days of the press room's world."""
import json
import random
import unittest
from collections import Counter
from pathlib import Path

from world_time import WorldTest

WORLD = Path(__file__).resolve().parents[2] / "PressRoom" / "World"
DOCKETS = ("70410111", "70410222")
COURT = "https://ecf.cand.uscourts.gov/cgi-bin/rss_outside.pl"
TWO_DAYS = 2880
COMMANDS = ("filings", "court", "press")


def world(*path):
    return json.loads(WORLD.joinpath(*path).read_text(encoding="utf-8"))


def comes_later(record):
    return -TWO_DAYS <= record.get("shownMinutesAgo", record["minutesAgo"]) < -1


def filings_to_tell():
    """Those of other companies' shares are not the company's."""
    return Counter((filer["cik"], filing["number"]) for filer in world("filings", "filings.json")["filers"]
                   for filing in filer["filings"]
                   if comes_later(filing) and "issuer" not in filing.get("insiders", {}))


def entries_to_tell():
    """An entry that comes without its text is told a second time once it has one."""
    told = Counter()
    for docket in world("court", "dockets.json")["dockets"]:
        for entry in docket["entries"]:
            if docket["docket"] in DOCKETS and comes_later(entry):
                told[docket["name"], entry.get("number")] += 2 if "textMinutesAgo" in entry else 1
    return told


def releases_to_tell():
    return Counter(release["title"] for release in world("court", "press.json")["releases"]
                   if comes_later(release) and "Law Firm" not in release["title"])


class Records(WorldTest):
    def signals_of(self, *kinds):
        places = ",".join("?" * len(kinds))
        return self.rows(f"SELECT id, title, subject FROM signals WHERE kind IN ({places})", *kinds)

    def test_all_that_happens_in_two_days_is_told_once_whenever_the_desk_is_killed(self):
        moments = random.Random(20261122)
        for step, minute in enumerate((1, 61, 100, 300, 640, 720, 1010, 1490, 1700, 2300, TWO_DAYS, TWO_DAYS)):
            self.go_to(minute)
            if step == 0:
                self.desk.run("settings", "contactAddress", "reader@example.org")
                for docket in DOCKETS:
                    self.desk.run("court", "follow", docket)
                self.desk.run("court", "add", COURT)
            for command in COMMANDS:
                for _ in range(2):
                    self.kill(moments.uniform(0.005, 0.25), command)
                self.desk.run(command)
            if step == 0:
                self.assertEqual(self.signals_of("filing", "insiderTrade", "docket", "pressRelease"), [], "the first look")
        names = {"Apple": 320193, "Broadcom": 1730168, "Corning": 24741}
        told = Counter((names[subject], int(key.rsplit("-", 1)[1])) for key, _, subject in self.signals_of("filing", "insiderTrade"))
        self.assertEqual(told, filings_to_tell())
        told = Counter()
        for _, title, subject in self.signals_of("docket"):
            number = title.split(", entry ")[1].split(":")[0] if ", entry " in title else None
            told[subject, int(number) if number else None] += 1
        self.assertEqual(told, entries_to_tell())
        told = Counter(title.split(": ", 1)[1].rstrip(".") for _, title, _ in self.signals_of("pressRelease"))
        self.assertEqual(told, releases_to_tell())
        self.assertTrue(all((filings_to_tell(), entries_to_tell(), releases_to_tell())))


if __name__ == "__main__":
    unittest.main()
