"""Who had news first, what became of claims, and the user's corrections, through brell."""
import unittest

from harness import Desk

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


if __name__ == "__main__":
    unittest.main()
