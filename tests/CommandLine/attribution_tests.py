"""Who had news first, what became of claims, and the user's corrections, through brell."""
import unittest

from harness import Desk, PressRoom

START = 1794316043


def story(identity, outlet, at, sourcing="rumor", credits=()):
    return {"id": identity, "link": f"https://{identity}.example/x", "title": "Apple Watch to gain a lamp",
            "summary": "", "publishedAt": at, "sourceID": outlet, "sourceName": outlet, "isAppleSource": False,
            "kind": "coverage", "sourcing": sourcing, "credits": list(credits)}


class InspectTests(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desk = Desk()
        cls.addClassCleanup(cls.desk.close)

    def test_attribution_has_its_exact_form(self):
        credit = {"kind": "outlet", "name": "Bloomberg", "url": "https://bloomberg.com/a", "detail": "per"}
        credited, timed, corrected, empty, missing = self.desk.inspect(
            "attribution",
            {"stories": [story("a", "MacRumors", START, credits=[credit])], "archive": None},
            {"stories": [story("b", "9to5Mac", START + 2520), story("a", "MacRumors", START)], "more": 1},
            {"stories": [story("a", "MacRumors", START)],
             "corrections": [{"id": "1", "kind": "first", "stories": ["a"], "instead": {"outlet": "Wired"},
                              "madeAt": START}]},
            {"stories": []}, {"archive": []})
        self.assertEqual(credited, {"first": "Bloomberg", "confidence": "stated", "basis": "credit", "creditedBy": 1,
                                    "scoop": True, "sentence": "Bloomberg (credited by 1)"})
        self.assertTrue(timed.pop("sentence"))
        self.assertEqual(timed, {"first": "MacRumors", "story": "a", "at": START, "second": "9to5Mac", "lead": 2520,
                                 "confidence": "timed", "basis": "time", "creditedBy": 0, "scoop": True})
        self.assertEqual((corrected["first"], corrected["basis"]), ("Wired", "correction"))
        self.assertTrue(empty.pop("sentence"))
        self.assertEqual(empty, {"confidence": "unclear", "basis": "time", "creditedBy": 0, "scoop": False})
        self.assertIn("stories", missing["error"])

    def test_ledger_and_timeline_have_their_exact_forms(self):
        claim, confirmation = story("a", "MacRumors", START), story("y", "Wired", START + 864000, "confirmed")
        apart = {"id": "1", "kind": "notSame", "stories": ["a", "y"], "madeAt": START}
        given = {"stories": [claim, confirmation], "now": START + 900000, "clusters": [["a", "y"]]}
        settled, split = self.desk.inspect("ledger", given, given | {"corrections": [apart]})
        self.assertEqual(settled, {
            "claims": [{"outlet": "MacRumors", "story": "a", "sourcing": "rumor", "at": START, "state": "confirmed",
                        "settledBy": "y", "days": 10}],
            "outlets": [{"outlet": "MacRumors", "claims": 1, "confirmed": 1, "denied": 0, "open": 0, "expired": 0,
                         "medianDays": 10}]})
        self.assertEqual(split["claims"][0]["state"], "open")
        signal = {"id": "r|1", "kind": "release", "subject": "", "title": "", "weight": "notable",
                  "happenedAt": START + 950400}
        stages, timeless = self.desk.inspect(
            "timeline", {"stories": [claim, confirmation], "signals": [signal]},
            {"stories": [], "signals": [signal | {"happenedAt": None}]})
        self.assertEqual(stages["stages"], [
            {"stage": "firstRumor", "story": "a", "at": START},
            {"stage": "confirmed", "story": "y", "at": START + 864000, "days": 10},
            {"stage": "released", "signal": "r|1", "at": START + 950400, "days": 1}])
        self.assertIn("signals[0]", timeless["error"])


class SampleWorldTests(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.room = PressRoom()
        cls.addClassCleanup(cls.room.close)
        cls.desk = Desk(cls.room.network)
        cls.addClassCleanup(cls.desk.close)
        cls.desk.run("refresh")

    def test_panels_pages_and_commands_name_the_same_first_outlets(self):
        top = self.desk.json("top")
        self.assertEqual([story["score"] for story in top], sorted((story["score"] for story in top), reverse=True))
        production = next(story for story in top if "Production Run" in story["story"]["title"])
        self.assertEqual(production["attribution"]["first"], "Bloomberg")
        self.assertEqual(production["attribution"]["confidence"], "stated")
        scoops = self.desk.json("scoops")
        self.assertIn(production["story"]["id"], [scoop["story"]["id"] for scoop in scoops])
        for scoop in scoops:
            self.assertTrue(scoop["attribution"]["scoop"])
            self.assertNotEqual(scoop["attribution"]["first"], "Apple")
        records = {record["outlet"]: record for record in self.desk.json("races")}
        self.assertGreaterEqual(records["Bloomberg"]["led"], 1)
        pair = self.desk.json("races", "bloomberg", "Macrumors")
        self.assertEqual([side["outlet"] for side in pair["outlets"]], ["Bloomberg", "MacRumors"])
        self.assertEqual(sum(side["led"] for side in pair["outlets"]),
                         sum("leader" in race for race in pair["races"]))
        self.desk.run("races", "Bloomberg", status=2)

    def test_the_ledger_and_timelines_link_to_their_stories(self):
        ids = {story["id"] for story in self.desk.json("wire", "--limit", 1000, "--set-aside")}
        ledger = self.desk.json("ledger", "--limit", 1000)
        self.assertTrue(ledger["claims"])
        for claim in ledger["claims"]:
            self.assertIn(claim["story"], ids)
        for outlet in ledger["outlets"]:
            self.assertEqual(outlet["claims"], sum(claim["outlet"] == outlet["outlet"] for claim in ledger["claims"]))
        timeline = self.desk.json("timeline", "ios 27.1.1")
        self.assertEqual(timeline["stages"][-1]["stage"], "released")
        self.desk.run("beat", "new", "Updates", "--any", "ios 27.1.1")
        self.assertEqual(self.desk.json("timeline", "--beat", "updates"), timeline)
        self.desk.run("timeline", status=2)

    def test_coverage_merges_the_wire_with_the_archive(self):
        story = next(s for s in self.desk.json("top") if "Production Run" in s["story"]["title"])["story"]["id"]
        found = self.desk.json("coverage", story)
        self.assertGreaterEqual(found["outlets"], found["here"])
        self.assertEqual(len({item["url"] for item in found["items"]}), len(found["items"]))
        here = self.desk.json("coverage", story, "--wire-only")
        self.assertEqual(here["here"], here["outlets"])
        self.assertTrue({item["url"] for item in here["items"]} <= {item["url"] for item in found["items"]})

    def test_corrections_are_made_listed_undone_and_exported(self):
        scoop = self.desk.json("scoops")[0]
        story = scoop["story"]["id"]
        label = self.desk.json("correct", "label", story[:10], "--sourcing", "confirmed", "--note", "seen")
        shown = self.desk.json("story", story)
        self.assertEqual((shown["sourcing"], shown["corrected"]), ("confirmed", True))
        self.assertIn("corrected by you", shown["why"]["sourcing"])
        self.assertIn(story, [s["id"] for s in self.desk.json("wire", "--limit", 1000, "--sourcing", "confirmed")])
        self.assertNotIn(story, [s["story"]["id"] for s in self.desk.json("scoops")])
        first = self.desk.json("correct", "first", story, "--outlet", "wsj", "--link", "https://www.wsj.com/a")
        top = next(s for s in self.desk.json("top") if s["story"]["id"] == story)
        self.assertEqual(top["attribution"]["first"], "The Wall Street Journal")
        self.assertEqual(self.desk.json("correct"), [label, first])
        self.assertEqual(self.desk.json("correct", "export"), [label, first])
        for correction in (label, first):
            self.desk.run("correct", "undo", correction["id"][:8])
        self.assertEqual(self.desk.json("story", story)["why"]["sourcing"].count("corrected"), 0)
        self.assertEqual(self.desk.json("scoops")[0]["attribution"], scoop["attribution"])
        self.desk.run("correct", "redo", label["id"])
        self.assertEqual(self.desk.json("story", story)["sourcing"], "confirmed")
        self.desk.run("correct", "undo", label["id"])
        self.desk.run("correct", "undo", label["id"], status=2)

    def test_stories_are_split_off_and_joined(self):
        before = next(s for s in self.desk.json("top") if "Production Run" in s["story"]["title"])
        leaving = before["outlets"][-1]["id"]
        split = self.desk.json("correct", "not-same", leaving)
        outlets = lambda: [o["id"] for s in self.desk.json("top") for o in s["outlets"]]
        self.assertNotIn(leaving, outlets())
        joined = self.desk.json("correct", "same", before["story"]["id"], leaving)
        self.assertIn(leaving, outlets())
        self.assertIn("overruled", self.desk.run("correct").stdout)
        for correction in (split, joined):
            self.desk.run("correct", "undo", correction["id"])

    def test_corrections_need_what_they_are_about(self):
        story = self.desk.json("scoops")[0]["story"]["id"]
        self.desk.run("correct", "label", story, status=2)
        self.desk.run("correct", "same", story, status=2)


if __name__ == "__main__":
    unittest.main()
