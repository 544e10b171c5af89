#!/usr/bin/env python3
"""Newsrooms and beats from end to end: made, changed, taken away and brought back, shown."""
import json
import re
import sqlite3
import unittest

from harness import Desk, PressRoom
from world_time import World


class NewsroomsAndBeats(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.room = PressRoom()

    @classmethod
    def tearDownClass(cls):
        cls.room.close()

    def setUp(self):
        self.desk = Desk(self.room.network)
        self.addCleanup(self.desk.close)

    def names(self, what="newsroom"):
        return [record["name"] for record in self.desk.json(what)]

    def break_newsroom(self, name):
        library = sqlite3.connect(next(self.desk.folder.rglob("library*")))
        with library:
            library.execute("UPDATE newsrooms SET record = replace(record, '\"stream\"', '\"teapot\"') "
                            "WHERE record LIKE ?", (f'%"name":"{name}"%',))
        library.close()

    def test_a_newsroom_is_made_changed_moved_and_brought_back(self):
        self.assertEqual(self.names(), ["Today"])
        self.desk.run("newsroom", "new", "Chips", "--panels", "stream,status , stock", "--any", "A20, iPhone 18 ,")
        made = self.desk.json("newsroom")[1]
        self.assertEqual(made["focus"]["anyTerms"], ["A20", "iPhone 18"])
        self.assertEqual([panel["kind"] for panel in made["panels"]], ["stock", "stream", "status"])

        self.desk.run("newsroom", "rename", "chips", "Silicon")
        self.desk.run("newsroom", "change", "Silicon", "--source", "macrumors", "--symbol", "bolt")
        changed = self.desk.json("newsroom")[1]
        self.assertEqual((changed["id"], changed["symbol"]), (made["id"], "bolt"))
        self.assertEqual((changed["focus"]["anyTerms"], changed["focus"]["sourceIDs"]), ([], ["macrumors"]))
        self.desk.run("newsroom", "change", "Silicon", "--everything")
        self.assertEqual(self.desk.json("newsroom")[1]["focus"], self.desk.json("newsroom")[0]["focus"])

        self.desk.run("newsroom", "duplicate", "silicon")
        self.desk.run("newsroom", "move", "Silicon 2", 1)
        self.assertEqual(self.names(), ["Silicon 2", "Today", "Silicon"])
        self.desk.run("newsroom", "remove", "Today")
        self.desk.run("newsroom", "remove", "Silicon")
        self.assertEqual(self.names(), ["Silicon 2"])
        self.assertIn("Silicon was restored", self.desk.run("newsroom", "restore").stdout)
        self.desk.run("newsroom", "restore", "today")
        self.assertEqual(self.names(), ["Silicon 2", "Today", "Silicon"])

    def test_wrong_words_are_told_and_change_nothing(self):
        self.desk.run("newsroom", "new", "Chips", "--panels", "stream")
        before = self.desk.json("newsroom")
        for words, told in [
                (["new", "Chips", "--panels", "stream"], "There is a newsroom named Chips already"),
                (["new", "X", "--panels", "teapot"], "No panel of the kind teapot"),
                (["new", "X", "--panels", "clips"], "No panel of the kind clips"),
                (["new", "X", "--panels", " ,"], "Name the kinds"),
                (["new", " ", "--panels", "stream"], "name: it is empty"),
                (["new", "X" * 300, "--panels", "stream"], "longer than 200"),
                (["new", "X", "--panels", "stream", "--source", "nobody"], "nobody"),
                (["new", "X", "--panels", "stream", "--symbol", "star"], "square.grid.2x2"),
                (["new", b"caf\xe9", "--panels", "stream"], "not UTF-8"),
                (["new", "\u200b", "--panels", "stream"], "name: it is empty"),
                (["new", "X", "--panels", "stream", "--any", "\u2014"], "no word to search for"),
                (["duplicate", "Chips", "a\x1bb"], "cannot be shown"),
                (["rename", "Chips", "today"], "There is a newsroom named today already"),
                (["change", "Chips"], "Say what to change"),
                (["show", "Nothing"], "There is no newsroom named Nothing"),
                (["remove", "Nothing"], "There is no newsroom named Nothing")]:
            self.assertIn(told, self.desk.run("newsroom", *words, status=2).stderr)
        self.assertIn("No newsroom has been removed", self.desk.run("newsroom", "restore", status=1).stderr)
        self.assertEqual(self.desk.json("newsroom"), before)

    def test_a_newsroom_goes_out_and_comes_in_as_a_file(self):
        self.desk.run("beat", "new", "Chips", "--any", "A20")
        file = self.desk.folder / "today.json"
        file.write_text(self.desk.run("newsroom", "export", "Today").stdout)
        preview = self.desk.run("newsroom", "import", file, "--preview").stdout
        self.assertIn("Would be added: Today 2", preview)
        self.assertEqual(self.names(), ["Today"])
        self.desk.run("newsroom", "import", file)
        first, second = self.desk.json("newsroom")
        self.assertEqual((second["name"], second["panels"]), ("Today 2", first["panels"]))
        self.assertNotEqual(second["id"], first["id"])

        spec = json.loads(file.read_text())
        spec["panels"][3]["options"]["alerts"] = True
        spec["name"] = " Padded "
        preview = self.desk.run("newsroom", "import", "-", "--preview", stdin=json.dumps(spec).encode()).stdout
        self.assertIn("Would be added: Padded:", preview)
        self.assertIn("Top stories raises notifications: every story", preview)
        spec["panels"][3]["kind"] = "teapot"
        refused = self.desk.run("newsroom", "import", "-", stdin=json.dumps(spec).encode(), status=1)
        self.assertIn('panels[3].kind: unknown value "teapot"', refused.stderr)
        self.assertIn("can't be read", self.desk.run("newsroom", "import", "nowhere.json", status=1).stderr)
        self.assertEqual(len(self.names()), 2)

    def test_what_cannot_be_read_is_shown_as_that_and_kept(self):
        self.desk.run("newsroom", "new", "Chips", "--panels", "stream")
        self.break_newsroom("Chips")
        listed = self.desk.run("newsroom").stdout
        self.assertIn("unreadable", listed)
        self.assertIn('panels[0].kind: unknown value "teapot"', listed)
        self.assertIn("unreadable", self.desk.json("newsroom")[1])
        self.assertIn("kept unchanged", self.desk.run("newsroom", "show", "Chips", status=1).stderr)
        self.assertIn('"teapot"', self.desk.run("newsroom", "export", "Chips").stdout)
        self.desk.run("newsroom", "move", "Chips", 1)
        self.desk.run("newsroom", "remove", "Chips")
        self.desk.run("newsroom", "restore", "Chips")
        self.assertEqual(self.names(), ["Chips", "Today"])

    # What a panel of each kind says once all has been fetched, line by line as patterns.
    PANELS = {
        "stream": [r"^(now|\d+ min|\d+ h|Yesterday|\d{4}-\d\d-\d\d) +\S+.* \S"],
        "brief": [r"^\d+ new stories from \d+ outlets in the last 24 hours\.$",
                  r"^\S.* is having a problem since \d{4}-\d\d-\d\d \d\d:\d\d UTC\. – System Status \d{4}-",
                  r"^iOS 27\.2 beta 3 is out, build 24C5052a\. – Apple Developer Releases \d{4}-"],
        "topStories": [r"^ ?\d+ outlets", r"^    \S.*, \S"],
        "countdown": [r"^(today|tomorrow|in \d days) +(Developer session|HomePad in stores).*, \d{4}-\d\d-\d\d \d\d:\d\d UTC$",
                      r"^(today|yesterday) +Third betas of .*, released$",
                      r"^as of \d{4}-\d\d-\d\d \d\d:\d\d UTC, just now$"],
        "claims": [r"^(Rumored|Reported|Apple spoke|Confirmed) +\S", r"^    .+, (.+ ago|yesterday)"],
        "stock": [r"^[\d,]+\.\d\d USD  [+\u2212]?\d+\.\d\d \([+\u2212]?\d+\.\d\d%\)  "
                  r"(Open|Closed|Before hours|After hours), \d{4}-\d\d-\d\d \d\d:\d\d UTC$", r" [┤│] "],
        "software": [r"^iOS +27\.\d"],
        "status": [r"App Store"],
        "coverage": [r"^\S.* +\d+ stor(y|ies), last "],
        "apple": [r"Apple"],
        "scoops": [r"^    (under a minute|\d+ (min|h|d).*) before \S"],
        "suppliers": [r"^Apple$", r"^  AAPL +Apple Inc\. +\d+\.\d\d USD  [+\u2212]?\d+\.\d\d%$", r"^Suppliers$",
                      r"^  2317\.TW +Hon Hai Precision .* TWD"],
        "backend": [r"\(\w+\)"],
        "records": [r"signing|signed"],
        "releases": [r"\(24C5052a\)"],
    }

    def test_each_kind_of_panel_says_what_it_shows(self):
        room = World().room(30)
        self.addCleanup(room.close)
        self.desk.network = room.network
        for command in ("refresh", "status", "status --developer", "releases", "events", "quote --range 1m",
                        "board", "signing", "updates"):
            self.desk.run(*command.split())
        self.desk.run("newsroom", "new", "All", "--panels", ",".join(self.PANELS))
        shown = {panel["kind"]: panel["lines"] for panel in self.desk.json("newsroom", "show", "All")["panels"]}
        self.assertEqual(set(shown), set(self.PANELS))
        for kind, patterns in self.PANELS.items():
            for pattern in patterns:
                self.assertTrue(any(re.search(pattern, line) for line in shown[kind]), (kind, pattern, shown[kind]))
        self.assertNotIn("released", shown["countdown"][0], "the next event stands first")
        names = [line for line in shown["suppliers"] if re.match(r"\S", line)]
        self.assertEqual(len(names), len(set(names)), "each group stands once")

        empty = Desk(room.network)
        self.addCleanup(empty.close)
        empty.run("newsroom", "new", "All", "--panels", ",".join(self.PANELS))
        for panel in empty.json("newsroom", "show", "All")["panels"]:
            self.assertRegex(panel["lines"][0], r"^(No|Nothing|Not fetched yet)", panel["kind"])

    def test_a_beat_follows_what_it_says(self):
        self.desk.run("refresh")
        tried = self.desk.json("beat", "test", "--any", "HomePad", "--days", 30)
        self.assertGreater(len(tried["matches"]), 1)
        for match in tried["matches"]:
            self.assertEqual(match["term"], "homepad")
        added = self.desk.run("beat", "new", "Speakers", "--any", "HomePad", "--alerts", "on").stdout
        self.assertIn("Added Speakers: HomePad.", added)
        followed = self.desk.json("wire", "--beat", "speakers", "--limit", 1000, "--since", "30d")
        self.assertEqual(followed, [match["story"] for match in tried["matches"]])
        narrowed = self.desk.json("wire", "--beat", "speakers", "--limit", 1000, "--source", followed[0]["sourceID"])
        self.assertEqual({story["sourceID"] for story in narrowed}, {followed[0]["sourceID"]})

        self.desk.run("beat", "change", "Speakers", "--any", "HomePad", "--set-aside")
        self.assertGreaterEqual(len(self.desk.json("wire", "--beat", "Speakers", "--limit", 1000)), len(followed))
        self.desk.run("beat", "new", "Deals", "--sourcing", "report", "--exclude", "case")
        self.desk.run("beat", "move", "Deals", 1)
        self.assertEqual(self.names("beat"), ["Deals", "Speakers"])
        self.desk.run("beat", "remove", "Speakers")
        self.assertIn("no beat named Speakers", self.desk.run("wire", "--beat", "Speakers", status=2).stderr)
        self.desk.run("beat", "restore")
        self.assertTrue(self.desk.json("beat")[1]["alerts"])
        self.desk.run("beat", "remove", "Deals")
        self.desk.run("beat", "new", " deals ", "--any", "case")
        self.assertIn("Deals 2 was restored", self.desk.run("beat", "restore").stdout)
        for words, told in [(["new", "Empty"], "Say which stories"),
                            (["test"], "Say which stories"),
                            (["test", "Deals", "--any", "x"], "not both"),
                            (["new", " deals ", "--any", "x"], "There is a beat named deals already"),
                            (["new", "X", "--any", "x", "--alerts", "loud"], "on")]:
            self.assertIn(told, self.desk.run("beat", *words, status=2).stderr)


if __name__ == "__main__":
    unittest.main()
