#!/usr/bin/env python3
"""The main job from end to end: real TLS, real files, real SQLite."""
import shutil
import sqlite3
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

from harness import BIN, Desk, PressRoom


def outcomes(report):
    return {source["id"]: source["outcome"] for source in report["sources"]}


class RefreshingTheSampleWorld(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.room = PressRoom()
        cls.desk = Desk(cls.room.network)
        cls.first = cls.desk.json("refresh")

    @classmethod
    def tearDownClass(cls):
        cls.desk.close()
        cls.room.close()

    def test_every_enabled_source_brings_stories_or_says_what_is_wrong(self):
        self.assertEqual(len(self.first["sources"]), 19)
        for source in self.first["sources"]:
            if source["id"] == "webkit":
                self.assertEqual(source["status"]["lastError"], "The server answered 404.")
            else:
                self.assertEqual(source["outcome"], "stories", source)
                self.assertGreater(source["added"], 0, source)

    def test_a_second_refresh_finds_everything_unchanged_and_keeps_the_intervals(self):
        second = outcomes(self.desk.json("refresh"))
        self.assertEqual(second.pop("webkit"), "failed")
        self.assertEqual({id for id, outcome in second.items() if outcome == "notDue"}, {"bloomberg", "reuters"})
        self.assertEqual({outcome for id, outcome in second.items() if id not in ("bloomberg", "reuters")},
                         {"unchanged"})
        named = outcomes(self.desk.json("refresh", "--source", "reuters", "--source", "swift-org"))
        self.assertEqual(named["reuters"], "unchanged", "a named source is asked at once")
        again = self.desk.json("refresh", "--unconditional", "--source", "macrumors")["sources"][0]
        self.assertEqual((again["outcome"], again["added"]), ("stories", 0))

    def test_the_wire_is_in_order_labelled_and_filtered(self):
        wire = self.desk.json("wire", "--limit", 1000, "--set-aside")
        times = [story["publishedAt"] for story in wire]
        self.assertEqual(times, sorted(times, reverse=True))
        self.assertEqual(len({story["id"] for story in wire}), len(wire))
        self.assertGreater(len({story["sourcing"] for story in wire}), 3)
        set_aside = {"deal", "review", "roundup", "sponsored", "advertisement"}
        self.assertTrue(set_aside & {story["kind"] for story in wire})
        self.assertFalse(set_aside & {story["kind"] for story in self.desk.json("wire", "--limit", 1000)})
        rumors = self.desk.json("wire", "--sourcing", "rumor", "--source", "macrumors")
        self.assertTrue(rumors)
        self.assertEqual({(s["sourcing"], s["sourceID"]) for s in rumors}, {("rumor", "macrumors")})
        for story in self.desk.json("wire", "--any", "HomePad, Siri", "--exclude", "review"):
            text = (story["title"] + story["summary"]).lower()
            self.assertTrue("homepad" in text or "siri" in text, story["title"])
        day = self.desk.json("wire", "--limit", 1000, "--since", "6h")
        self.assertTrue(0 < len(day) < len(wire))

    def test_only_stories_about_apple_are_kept_from_general_outlets(self):
        for story in self.desk.json("wire", "--source", "reuters", "--limit", 100, "--set-aside"):
            self.assertEqual(self.desk.inspect("label", {"title": story["title"], "summary": story["summary"],
                                                         "isAppleSource": False})[0]["appleTopic"], True)

    def test_a_story_says_why_it_is_labelled_so(self):
        rumor = self.desk.json("wire", "--sourcing", "rumor", "--limit", 1)[0]
        text = self.desk.run("story", rumor["id"]).stdout
        self.assertIn("Rumor: the ", text)
        self.assertEqual(self.desk.json("story", rumor["id"][:10])["id"], rumor["id"])

    def test_the_tables_of_the_wire_carry_the_titles(self):
        lines = self.desk.run("wire", "--limit", 5).stdout.splitlines()
        self.assertEqual(len(lines), 5)
        self.assertTrue(all("\x1b" not in line for line in lines))


class FaultsOfTheNetwork(unittest.TestCase):
    def test_an_untrusted_certificate_and_a_dead_server_fail_every_source_alone(self):
        room = PressRoom()
        self.addCleanup(room.close)
        desk = Desk(room.network[:2])
        self.addCleanup(desk.close)
        result = desk.run("refresh", "--source", "macrumors", status=1)
        self.assertIn("The source could not be refreshed.", result.stderr)
        status = desk.json("sources")
        failed = next(source for source in status if source["id"] == "macrumors")["status"]["lastError"]
        self.assertIn("certificate", failed)
        nowhere = Desk(["--connect-to", "127.0.0.1:9", *room.network[2:]])
        self.addCleanup(nowhere.close)
        self.assertIn("this computer seems to be offline", nowhere.run("refresh", status=1).stderr)

    def test_a_clock_that_no_server_confirms_drops_nothing(self):
        folder = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, folder)
        day = time.strftime("%a, %d %b %Y %H:%M:%S GMT", time.gmtime(time.time() - 10 * 86400))
        (folder / "old.xml").write_text("<rss><channel><title>Old</title><item><title>Ten days old</title>"
                                        f"<link>https://old.example/1</link><pubDate>{day}</pubDate></item></channel></rss>")
        rooms = {days: PressRoom("--files", folder, "--clock-ahead", days) for days in (0, 800, -800)}
        desk = Desk(rooms[0].network)
        self.addCleanup(desk.close)
        source = desk.json("sources", "add", "files.press-room.example/old.xml")[0]["id"]
        desk.run("refresh", "--source", source)
        desk.run("settings", "storyRetentionDays", "3")
        for days in (800, -800, 0):
            self.addCleanup(rooms[days].close)
            desk.network = rooms[days].network
            text = desk.run("refresh", "--source", source).stdout
            report = desk.json("refresh", "--source", source)
            self.assertEqual("clock seems wrong" in text, days != 0, days)
            self.assertEqual(report.get("clockSeemsWrong", False), days != 0, days)
            self.assertEqual(len(desk.json("wire")), 0 if days == 0 else 1, days)

    def test_sources_are_added_by_address_and_refused_with_the_reason(self):
        folder = Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, folder)
        (folder / "two words.xml").write_text(
            "<rss><channel><title>Café Wire</title><item><title>Old Apple news</title><link>https://cafe.example/1"
            "</link><pubDate>Mon, 02 Nov 2026 10:00:00 GMT</pubDate></item></channel></rss>")
        (folder / "page.html").write_text("<html><title>No feed here</title></html>")
        room = PressRoom("--files", folder)
        self.addCleanup(room.close)
        desk = Desk(room.network)
        self.addCleanup(desk.close)
        added = desk.json("sources", "add", "files.press-room.example/two words.xml")[0]
        self.assertEqual((added["name"], added["kind"]), ("Café Wire", "custom"))
        cafe = added["id"]
        self.assertRegex(cafe, r"\Acafe-wire-[0-9a-f]{8}\Z")
        for address, text in {
            "https://files.press-room.example/two%20words.xml": "Café Wire is already one of your sources.",
            "@mika": "That doesn't look like a web address or a handle.",
            "two words": "That doesn't look like a web address or a handle.",
            "https://files.press-room.example/page.html": "The address didn't return a feed.",
            "http://files.press-room.example/page.html": "The address isn't secure (https).",
            "https://files.press-room.example/none.xml": "The server answered 404.",
        }.items():
            self.assertIn(text, desk.run("sources", "add", address, status=1).stderr)
        desk.run("settings", "storyRetentionDays", "0")
        self.assertEqual(desk.json("refresh", "--source", cafe)["added"], 1)

        # What was added before a failure is told, a feed that is cut off leads nowhere else, and
        # a page that leads to another source's feed gets its stories in full.
        feed = "https://files.press-room.example/two%20words.xml"
        (folder / "cut.xml").write_text(f"<rss><channel><item><title>x</title><description><![CDATA[<link "
                                        f"rel='alternate' type='application/rss+xml' href='{feed}'>")
        (folder / "leads.html").write_text(f"<html><link rel='alternate' type='application/rss+xml' href='{feed}'>")
        cut, leads = (desk.json("sources", "add", "--unchecked", f"files.press-room.example/{name}")[0]["id"]
                      for name in ("cut.xml", "leads.html"))
        page = desk.json("refresh")
        found = {s["id"]: s for s in page["sources"]}
        self.assertEqual(found[cut]["status"]["lastError"],
                         "The feed couldn't be read.")
        self.assertEqual(found[leads]["outcome"], "stories")
        result = desk.run("sources", "add", "apple.com/nowhere", "two words", status=1)
        self.assertIn("The server answered 404.", result.stderr)
        desk.run("sources", "disable", cafe)
        self.assertNotIn(cafe, outcomes(desk.json("refresh")))
        self.assertIn("Six Colors is already one of your sources.",
                      desk.run("sources", "add", "sixcolors.com", status=1).stderr, "found through the site's page")


class FaultsOfTheStore(unittest.TestCase):
    def setUp(self):
        self.room = PressRoom()
        self.desk = Desk(self.room.network)
        self.addCleanup(self.desk.close)
        self.addCleanup(self.room.close)
        self.library = self.desk.folder / "library.sqlite"

    def test_what_has_come_is_kept_while_a_silent_source_is_waited_for(self):
        room = PressRoom("--misbehave", "apple-ml=silent")
        self.addCleanup(room.close)
        desk = Desk(room.network)
        self.addCleanup(desk.close)
        process = subprocess.Popen([BIN / "brell", "--data-dir", desk.folder, *room.network, "refresh"],
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        deadline = time.monotonic() + 12
        while not desk.json("wire", "--limit", 300) and time.monotonic() < deadline:
            time.sleep(0.2)
        process.kill()
        process.wait()
        wire = desk.json("wire", "--limit", 300)
        self.assertGreater(len(wire), 100)
        self.assertGreater(desk.json("refresh", "--source", "macrumors", "--unconditional")["sources"][0]
                           ["status"]["storyCount"], 0, "the library opens and works after the kill")

    def test_two_passes_at_once_lose_nothing(self):
        for attempt in range(3):
            desk = Desk(self.room.network)
            self.addCleanup(desk.close)
            command = [BIN / "brell", "--data-dir", desk.folder, *self.room.network, "refresh"]
            both = [subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE) for _ in range(2)]
            for process in both:
                self.assertEqual((process.communicate()[1], process.returncode), (b"", 0))
            ids = [story["id"] for story in desk.json("wire", "--limit", 1000, "--set-aside")]
            self.assertEqual(len(ids), len(set(ids)))
            self.assertGreater(len(ids), 200)

    def test_what_a_demonstration_stores_first_is_its_own(self):
        desk = Desk(["--demo"])
        self.addCleanup(desk.close)
        desk.run("beat", "new", "Tide", "--any", "tide")
        desk.run("status")
        self.assertIn("Tide", desk.run("beat").stdout)

    def test_a_demonstration_leaves_other_libraries_alone(self):
        self.desk.run("sources", "disable", "macrumors")
        before = self.library.read_bytes()
        other = Desk(["--demo"])
        self.addCleanup(other.close)
        result = subprocess.run([BIN / "brell", "--demo", "--data-dir", self.desk.folder, "refresh"],
                                capture_output=True, text=True)
        self.assertEqual(result.returncode, 1)
        self.assertIn("left untouched", result.stderr)
        self.assertEqual(self.library.read_bytes(), before)
        first = other.json("refresh")
        self.assertGreater(first["added"], 200)
        self.assertEqual(outcomes(other.json("refresh"))["macrumors"], "unchanged", "the same world again")
        (other.folder / "world-start").write_text("1000\n")
        self.assertEqual(outcomes(other.json("refresh"))["macrumors"], "stories", "an old world is left behind")

    def test_a_library_broken_off_at_once_counts_as_none(self):
        self.library.touch()
        self.assertIn("The wire is empty", self.desk.run("wire").stdout)
        self.assertEqual(self.desk.json("refresh", "--source", "macrumors")["sources"][0]["outcome"], "stories")

    def test_an_empty_desk_says_how_to_begin(self):
        self.assertIn("The wire is empty. brell ", self.desk.run("wire").stdout)
        self.assertFalse(self.library.exists(), "reading makes no files")

    def test_a_damaged_or_newer_library_is_refused_and_left_as_it_is(self):
        self.library.write_bytes(b"no library at all" * 100)
        self.assertIn("damaged", self.desk.run("refresh", status=1).stderr)
        self.assertEqual(self.library.read_bytes(), b"no library at all" * 100)
        self.library.unlink()
        self.desk.run("sources")
        with sqlite3.connect(self.library) as connection:
            connection.execute("PRAGMA user_version = 99")
        connection.close()
        for command in (["refresh"], ["wire"]):
            self.assertIn("newer version", self.desk.run(*command, status=1).stderr)

    def test_stories_past_retention_go_and_are_not_taken_in(self):
        self.desk.run("refresh", "--source", "macrumors")
        everything = len(self.desk.json("wire", "--limit", 1000, "--set-aside"))
        self.desk.run("settings", "storyRetentionDays", "1")
        self.desk.run("refresh", "--source", "six-colors")
        wire = self.desk.json("wire", "--limit", 1000, "--set-aside")
        self.assertTrue(0 < len([s for s in wire if s["sourceID"] == "macrumors"]) < everything)
        self.desk.run("refresh", "--unconditional", "--source", "macrumors")
        self.assertEqual(len(self.desk.json("wire", "--limit", 1000, "--set-aside")), len(wire))

    def test_a_full_disk_keeps_what_the_library_had(self):
        self.desk.run("refresh", "--source", "macrumors")
        before = self.desk.json("wire", "--limit", 1000)
        # In KiB; a quarter of what the library has already.
        limit = f"ulimit -f {self.library.stat().st_size // 4096}; trap '' XFSZ; exec \"$@\""
        result = subprocess.run(["bash", "-c", limit, "-", BIN / "brell", "--data-dir", self.desk.folder,
                                 *self.desk.network, "refresh"], capture_output=True, text=True)
        self.assertEqual(result.returncode, 1, result.stdout)
        self.assertRegex(result.stderr, "disk is full|can't be opened or written")
        self.assertEqual(self.desk.json("wire", "--limit", 1000), before)


if __name__ == "__main__":
    unittest.main()
