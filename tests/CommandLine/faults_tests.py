#!/usr/bin/env python3
"""Passes over sources that misbehave: each is told by itself, and nothing spreads."""
import re
import tempfile
import time
import unittest

from harness import Desk, PressRoom

WELL = {"stories", "unchanged"}


def by_id(report):
    return {source["id"]: source for source in report["sources"]}


class PassOverTheWholeCatalogue(unittest.TestCase):
    """45 rows, all switched on, five of which go wrong. Two further rows of the sample world
    have no feed of their own: theirs are the page and the missing feed."""

    FAULTS = {"apple-ml": "silent", "macbreak-weekly": "busy:600", "ked-global": "huge"}
    TOLD = {"apple-ml": "timed out|took too long|no answer", "macbreak-weekly": r"^The server answered 429\.$",
            "the-elec": r"^The address didn't return a feed\.$", "webkit": r"^The server answered 404\.$"}

    @classmethod
    def setUpClass(cls):
        cls.log = tempfile.TemporaryFile("w+")
        options = [word for id, kind in cls.FAULTS.items() for word in ("--misbehave", f"{id}={kind}")]
        cls.room = PressRoom("--log", *options, log=cls.log)
        cls.desk = Desk(cls.room.network)
        for source in cls.desk.json("sources"):
            if not source["enabled"]:
                cls.desk.run("sources", "enable", source["id"])
        begin = time.monotonic()
        cls.first = by_id(cls.desk.json("refresh"))
        cls.seconds = time.monotonic() - begin
        cls.requests_of_first = cls.requests("feeds.twit.tv")
        asked = {"macbreak-weekly", "macrumors"}
        cls.desk.run("sources", "disable", *(id for id in cls.first if id not in asked))
        cls.second = by_id(cls.desk.json("refresh"))
        cls.console = by_id({"sources": cls.desk.json("sources", "--status")})
        cls.requests_of_second = cls.requests("feeds.twit.tv")
        cls.desk.run("refresh", "--source", "macbreak-weekly", status=1)

    @classmethod
    def tearDownClass(cls):
        cls.desk.close()
        cls.room.close()
        cls.log.close()

    @classmethod
    def requests(cls, host):
        cls.log.seek(0)
        return len(re.findall(rf" https://{re.escape(host)}/", cls.log.read()))

    def test_the_pass_ends_within_the_limits_of_a_request_and_its_retry(self):
        # 15 seconds without a byte, half a second to a second of waiting, and the same again.
        self.assertEqual(len(self.first), 45)
        self.assertLess(self.seconds, 2 * 30 + 2)

    def test_every_other_source_is_fresh(self):
        for id, source in self.first.items():
            with self.subTest(id):
                if id in self.TOLD:
                    self.assertEqual(source["outcome"], "failed")
                    self.assertRegex(source["status"]["lastError"], self.TOLD[id])
                    self.assertNotIn("lastSuccess", source["status"])
                else:
                    self.assertEqual(source["outcome"], "stories", source)
                    self.assertIn("lastSuccess", source["status"])
                    self.assertGreater(source["status"]["storyCount"], 0)
        self.assertGreaterEqual(self.first["ked-global"]["status"]["storyCount"], 100)

    def test_a_host_that_asks_for_patience_is_left_alone(self):
        self.assertIn("pausedUntil", self.console["macbreak-weekly"])
        self.assertEqual(self.requests_of_second, self.requests_of_first)
        self.assertGreater(self.requests("feeds.twit.tv"), self.requests_of_second, "unless it is named")
        self.assertLessEqual(self.requests_of_first, 2, "one retry at most")
        self.assertNotIn(self.second["macbreak-weekly"]["outcome"], WELL)
        self.assertIn(self.second["macrumors"]["outcome"], WELL)


class FeedsThatChangeWithoutNews(unittest.TestCase):
    """Three passes over feeds that go wrong in what they say, not in how they are served."""

    KINDS = {"macrumors": "rotating", "six-colors": "retitled", "macstories": "samelink", "tidbits": "republished",
             "daring-fireball": "undated", "9to5mac": "future", "macworld": "empty", "the-verge": "broken",
             "upgrade": "unavailable:0"}

    @classmethod
    def setUpClass(cls):
        options = [word for id, kind in cls.KINDS.items() for word in ("--misbehave", f"{id}={kind}")]
        cls.room = PressRoom(*options)
        cls.desk = Desk(cls.room.network)
        named = [word for id in cls.KINDS for word in ("--source", id)]
        cls.passes, cls.wires = [], []
        for _ in range(3):
            cls.passes.append(by_id(cls.desk.json("refresh", *named)))
            cls.wires.append({story["id"]: story for story in
                              cls.desk.json("wire", "--limit", 5000, "--set-aside")})

    @classmethod
    def tearDownClass(cls):
        cls.desk.close()
        cls.room.close()

    def of(self, source, wire):
        return {id: story for id, story in self.wires[wire].items() if story["sourceID"] == source}

    def added(self, source):
        return [report[source]["added"] for report in self.passes]

    def test_changing_links_and_headlines_bring_no_story_twice(self):
        for source in ("macrumors", "six-colors", "daring-fireball", "9to5mac"):
            with self.subTest(source):
                first, *later = self.added(source)
                self.assertGreater(first, 3)
                self.assertEqual(later, [0, 0])
                self.assertEqual(self.of(source, 0).keys(), self.of(source, 2).keys())
        revised = [report["six-colors"]["revised"] for report in self.passes]
        self.assertEqual(revised[1:], [len(self.of("six-colors", 0))] * 2)
        story = next(iter(self.of("six-colors", 0)))
        self.assertNotEqual(self.wires[0][story]["title"], self.wires[2][story]["title"])
        self.assertIn(self.wires[0][story]["title"], self.desk.run("story", story).stdout)

    def test_items_under_one_link_become_one_story(self):
        self.assertEqual(self.added("macstories"), [1, 0, 0])

    def test_an_archive_published_anew_is_marked_as_a_crowd(self):
        first, second, third = (report["tidbits"] for report in self.passes)
        self.assertNotIn("bulk", first)
        self.assertGreater(second["added"], 100)
        self.assertEqual((second["bulk"], third["added"]), (True, 0))

    def test_a_story_keeps_the_time_that_it_first_got(self):
        for source in ("daring-fireball", "9to5mac", "macrumors"):
            times = [{id: story["publishedAt"] for id, story in self.of(source, wire).items()} for wire in range(3)]
            self.assertEqual(times[0], times[1])
            self.assertEqual(times[0], times[2])
        latest = max(story["publishedAt"] for story in self.of("9to5mac", 0).values())
        self.assertLessEqual(latest, time.strftime("%Y-%m-%dT%H:%M:%SZ", time.gmtime()))

    def test_what_is_no_feed_of_stories_is_told_on_every_pass(self):
        for source, error in {"the-verge": "The feed couldn't be read.",
                              "upgrade": "The server answered 503."}.items():
            for report in self.passes:
                self.assertEqual(report[source]["status"].get("lastError"), error)

    def test_a_feed_without_stories_is_no_failure(self):
        for report in self.passes:
            self.assertNotIn("lastError", report["macworld"]["status"])
        self.assertEqual((self.passes[0]["macworld"]["outcome"], self.passes[0]["macworld"]["note"]),
                         ("stories", "no stories in it"))


if __name__ == "__main__":
    unittest.main()
