#!/usr/bin/env python3
"""Newsrooms and beats from end to end: made, changed, taken away and brought back, shown."""
import json
import sqlite3
import unittest

from harness import Desk, PressRoom


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
        self.assertIn("Silicon is back", self.desk.run("newsroom", "restore").stdout)
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
                (["new", "X", "--panels", "stream", "--any", "\u2014"], "nothing to look for"),
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
        self.assertIn("kept as it is", self.desk.run("newsroom", "show", "Chips", status=1).stderr)
        self.assertIn('"teapot"', self.desk.run("newsroom", "export", "Chips").stdout)
        self.desk.run("newsroom", "move", "Chips", 1)
        self.desk.run("newsroom", "remove", "Chips")
        self.desk.run("newsroom", "restore", "Chips")
        self.assertEqual(self.names(), ["Chips", "Today"])

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
        self.assertIn("Deals 2 is back", self.desk.run("beat", "restore").stdout)
        for words, told in [(["new", "Empty"], "Say which stories"),
                            (["test"], "Say which stories"),
                            (["test", "Deals", "--any", "x"], "not both"),
                            (["new", " deals ", "--any", "x"], "There is a beat named deals already"),
                            (["new", "X", "--any", "x", "--alerts", "loud"], "on")]:
            self.assertIn(told, self.desk.run("beat", *words, status=2).stderr)


if __name__ == "__main__":
    unittest.main()
