#!/usr/bin/env python3
"""What the desk makes of the sample world's news: the subjects, who was first with each, and how it firmed up."""
import unittest

from harness import Desk
from world_time import World

# The sample world's own truth: who had a subject first, and the beginnings of the headlines that tell it.
SUBJECTS = {
    "HomePad announced": ("Apple", {
        "apple-newsroom": "Apple introduces HomePad", "the-verge": "Apple announces the HomePad",
        "9to5mac": "Apple unveils HomePad", "macrumors": "Apple Announces HomePad With",
        "appleinsider": "Apple's HomePad becomes reality",
        "reuters": "Apple unveils home display HomePad"}),
    "iOS 27.1.1": ("Apple", {
        "apple-releases": "iOS 27.1.1 (24B91)", "9to5mac": "iOS 27.1.1 now available",
        "macrumors": "Apple Releases iOS 27.1.1", "appleinsider": "Apple releases iOS 27.1.1",
        "macstories": "Apple Releases iOS and iPadOS 27.1.1"}),
    "outage": ("9to5Mac", {
        "9to5mac": "Apple services are", "macrumors": "iCloud and App Store Suffer",
        "appleinsider": "App Store, iCloud and Apple Music hit", "reporter-bluesky": "Apple services are down again"}),
    "cheaper headset": ("Bloomberg", {
        "bloomberg": "Apple Plans Cheaper Vision Headset", "reporter-bluesky": "SCOOP: Apple is working on a cheaper",
        "macrumors": "Gurman: Apple Is Working on a Cheaper", "9to5mac": "Bloomberg: cheaper Apple Vision headset",
        "the-verge": "Apple is said to plan a cheaper Vision"}),
    "iOS 27.2 beta 3": ("Apple", {
        "apple-releases": "iOS 27.2 beta 3", "9to5mac": "Apple releases iOS 27.2 beta 3",
        "macrumors": "Apple Seeds Third Betas", "appleinsider": "Apple's third developer betas"}),
    "second foldable run": ("Bloomberg", {
        "bloomberg": "Apple Prepares Larger Second Production Run", "reporter-bluesky": "NEW: Apple is preparing a larger",
        "9to5mac": "Report: Apple raises foldable", "macrumors": "Apple Reportedly Ordering More Foldable"}),
    "EU commission": ("Reuters", {
        "reuters": "Apple to replace EU app fees", "9to5mac": "Apple simplifies its EU developer fees",
        "macrumors": "Apple Replaces Per-Install Fee", "appleinsider": "Apple’s new EU terms"}),
    "award finalists": ("Apple", {
        "apple-newsroom": "App Store Award finalists", "9to5mac": "Apple announces 2026 App Store Award",
        "macrumors": "Apple Names App Store Award", "macstories": "Apple Announces the 2026 App Store Award"}),
}
# After the last of these stories.
LAST_MINUTE = 140


class Editorial(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desk = Desk()
        room = World().room(LAST_MINUTE)
        cls.addClassCleanup(cls.desk.close)
        cls.addClassCleanup(room.close)
        cls.desk.network = room.network
        cls.desk.run("refresh")
        cls.stories = cls.desk.json("wire", "--set-aside", "--limit", 2000)
        cls.subject_of = {cls.story(source, title)["id"]: subject
                          for subject, (_, told) in SUBJECTS.items() for source, title in told.items()}

    @classmethod
    def story(cls, source, title):
        found = [s for s in cls.stories if s["sourceID"] == source and s["title"].startswith(title)]
        assert len(found) == 1, (source, title, [s["title"] for s in found])
        return found[0]

    def test_clusters_follow_the_subjects_and_join_no_two(self):
        clusters = self.desk.inspect("clusters", {"stories": self.stories})[0]["clusters"]
        together = 0
        for cluster in clusters:
            subjects = [self.subject_of[i] for i in cluster["stories"] if i in self.subject_of]
            self.assertLessEqual(len(set(subjects)), 1, [s["title"] for s in self.stories if s["id"] in cluster["stories"]])
            together += max(0, len(subjects) - 1)
        joinable = len(self.subject_of) - len(SUBJECTS)
        self.assertGreaterEqual(together / joinable, 0.8)

    def test_the_first_outlet_of_each_subject_is_the_true_one(self):
        for subject, (first, _) in SUBJECTS.items():
            told = [s for s in self.stories if self.subject_of.get(s["id"]) == subject]
            found = self.desk.inspect("attribution", {"stories": told})[0]
            self.assertEqual(found["first"], first, (subject, found["sentence"]))
            if first in ("Apple", "Bloomberg"):
                self.assertEqual(found["scoop"], first == "Bloomberg", (subject, found["sentence"]))

    def test_a_subject_goes_from_report_to_announcement(self):
        told = [s for s in self.stories if self.subject_of.get(s["id"]) == "HomePad announced"]
        told.append(self.story("bloomberg", "Apple’s HomePad to Use Seven-Inch Screen"))
        told[-1] = {**told[-1], "sourcing": "report"}
        stages = self.desk.inspect("timeline", {"stories": told, "signals": []})[0]["stages"]
        self.assertEqual([s["stage"] for s in stages][:2], ["firstReport", "confirmed"])
        self.assertEqual(stages[0]["story"], told[-1]["id"])


if __name__ == "__main__":
    unittest.main()
