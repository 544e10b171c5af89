#!/usr/bin/env python3
"""What is kept, exported and imported again: round trips, foreign files, many rows."""
import json
import re
import sqlite3
import tempfile
import time
import unittest
from pathlib import Path

from full_disk_tests import no_file_may_grow
from harness import Desk, PressRoom

FEED = """<rss version="2.0"><channel><title>Orchard News</title><link>https://files.press-room.example/</link>
<item><title>Pears are early</title><link>https://files.press-room.example/pears.html</link><guid>1</guid>
<description>The first pears of the year were picked on Monday, growers said.</description></item>
</channel></rss>"""


class Exchange(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = Path(tempfile.mkdtemp(prefix="brell-exchange-"))
        (folder / "feed.xml").write_text(FEED)
        cls.room = PressRoom("--files", folder)
        cls.addClassCleanup(cls.room.close)

    def desk(self):
        desk = Desk(self.room.network)
        self.addCleanup(desk.close)
        return desk

    def fed(self):
        """A desk with one story on the wire, and that story's id."""
        desk = self.desk()
        desk.run("sources", "add", "https://files.press-room.example/feed.xml")
        source = next(s["id"] for s in desk.json("sources") if "press-room" in s["feedURL"])
        desk.run("refresh", "--source", source)
        return desk, desk.json("wire", "--source", source)[0]["id"]

    def filled(self):
        desk, story = self.fed()
        desk.run("projects", "new", "Second")
        desk.run("projects", "new", "Harvest", "--description", "Who picks *first*")
        desk.json("clips", "add", story, "--quote", "picked on Monday", "--tag", "pears", "--project", "Harvest")
        desk.json("notes", "new", "Ask Ann", "--title", "Plan")
        desk.run("projects", "add", "Harvest", story)
        return desk, story

    def export(self, desk, *words):
        return desk.run("library", "export", *words).stdout

    def records(self, text):
        """An exported library without when it was made."""
        file = json.loads(text)
        del file["madeAt"]
        return file

    def test_an_exported_library_comes_back_whole_in_another(self):
        desk, story = self.filled()
        file = desk.folder / "library.json"
        said = desk.run("library", "export", file).stdout
        self.assertRegex(said, "Exported 1 saved story, 1 clip, 1 note, 2 projects to ")
        other = self.desk()
        preview = other.json("library", "import", file, "--preview")
        self.assertEqual(sorted(row["kind"] for row in preview["new"]), ["clip", "note", "project", "project", "story"])
        self.assertEqual(other.json("clips"), [], "a preview changes nothing")
        self.assertEqual(other.json("library", "import", file)["added"], {"stories": 1, "clips": 1, "notes": 1, "projects": 2})
        self.assertEqual(self.records(self.export(other)), self.records(file.read_text()))
        self.assertEqual([p["title"] for p in other.json("projects")], ["Second", "Harvest"], "in their order")
        again = other.json("library", "import", file)
        self.assertEqual((again["new"], again["differing"], again["added"]["clips"]), ([], [], 0))
        with sqlite3.connect(next(other.folder.rglob("library.sqlite"))) as library:
            self.assertEqual(library.execute("SELECT count(*) FROM kept WHERE id NOT IN (SELECT key FROM syncRecords)").fetchone(), (0,))
            self.assertEqual(library.execute("SELECT story FROM pendingMarks WHERE savedAt IS NOT NULL").fetchall(), [(story,)])

    def test_nothing_is_written_over_without_a_word(self):
        desk, _ = self.filled()
        file = desk.folder / "library.json"
        desk.run("library", "export", file)
        self.assertIn("exists already", desk.run("library", "export", file, status=1).stderr)
        desk.run("notes", "edit", "Plan", "--text", "Ask Bob")
        said = desk.run("library", "import", file).stdout
        self.assertRegex(said, r"Here with another content, which stays: 1 note\. --replace takes the file's\.\n +note +Plan")
        self.assertEqual(desk.json("notes", "show", "Plan")["text"], "Ask Bob")
        self.assertEqual(desk.json("library", "import", file, "--replace")["replaced"]["notes"], 1)
        self.assertEqual(desk.json("notes", "show", "Plan")["text"], "Ask Ann")
        self.assertEqual([v["text"] for v in desk.json("notes", "versions", "Plan")], ["Ask Bob", "Ask Ann"])
        self.assertEqual(desk.json("library", "import", file, "--preview")["differing"], [])
        desk.run("notes", "remove", "Plan")
        self.assertEqual(desk.json("library", "import", file)["added"]["notes"], 1)
        self.assertEqual([v["text"] for v in desk.json("notes", "versions", "Plan")], ["Ask Bob", "Ask Ann"], "the former texts are back too")
        desk.run("library", "export", file, "--replace", "--kind", "notes")
        self.assertEqual(json.loads(file.read_text())["clips"], [])

    def test_forms_and_scopes_choose_what_is_written(self):
        desk, _ = self.filled()
        self.assertEqual(len(json.loads(self.export(desk, "--project", "Harvest"))["projects"]), 1)
        self.assertEqual(json.loads(self.export(desk, "--project", "Second"))["stories"], [])
        self.assertIn("> picked on Monday", self.export(desk, "--form", "markdown"))
        self.assertTrue(self.export(desk, "--form", "csv", "--kind", "clips").startswith("quote,note,title"))
        self.assertIn("<!DOCTYPE NETSCAPE-Bookmark-file-1>", self.export(desk, "--form", "bookmarks"))
        for words in (["--form", "csv", "--kind", "clips", "--kind", "notes"], ["--form", "bookmarks", "--kind", "notes"],
                      ["--form", "xml"], ["--project", "Nothing"]):
            desk.run("library", "export", *words, status=2)

    def test_links_of_other_programs_are_saved_and_join_their_story_on_the_wire(self):
        desk, story = self.fed()
        table = b"title,url,time_added,tags,status\n" \
                b"Mine,https://files.press-room.example/pears.html,1600000000,fruit|old,archive\n" \
                b"Other,https://elsewhere.example/a,1600000001,,unread\n" \
                b"Bad,javascript:alert(1),1,,\nOdd,https://elsewhere.example/b,yesterday,,\n"
        said = desk.run("library", "import", "-", "--preview", stdin=table).stdout
        self.assertRegex(said, r"Would be added: 3 saved stories\.[^$]*Refused: 1\.\n  line 4: Bad: not a web address\n"
                               r"Imported all the same: 1\.\n  line 5: Odd: the date")
        desk.run("library", "import", "-", stdin=table)
        exported = {s["link"]: s for s in json.loads(self.export(desk))["stories"]}
        pears = exported["https://files.press-room.example/pears.html"]
        self.assertEqual((pears["id"], pears["title"], pears["tags"]), (story, "Pears are early", ["fruit", "old"]))
        self.assertEqual((pears["savedAt"], exported["https://elsewhere.example/a"]["title"]), ("2020-09-13T12:26:40Z", "Other"))
        on_wire = desk.json("story", story)
        self.assertTrue(on_wire["saved"] and on_wire["read"])
        page = desk.folder / "bookmarks.html"
        desk.run("library", "export", page, "--form", "bookmarks")
        other = self.desk()
        self.assertEqual(other.json("library", "import", page)["added"]["stories"], 3)
        self.assertEqual({s["link"]: s["tags"] for s in json.loads(self.export(other))["stories"]},
                         {link: s["tags"] for link, s in exported.items()})

    def test_files_that_are_not_taken_say_why(self):
        desk, _ = self.filled()
        whole = self.export(desk)
        newer = re.sub(r'"version":1', '"version":9', whole)
        for text, words in ((b"", "is empty"), (whole[:len(whole) // 2].encode(), "damaged or incomplete"),
                            (b'{"bookmarks":[]}', "not a library that this program exported"),
                            (newer.encode(), "newer version"), (b"\0\1\2" * 50, "no exported library"),
                            (b"<opml version='2.0'><body/></opml>", "list of feeds"), (b"title,place\na,b\n", 'no column "url"')):
            with self.subTest(words):
                self.assertIn(words, desk.run("library", "import", "-", stdin=text, status=1).stderr)
        self.assertEqual(self.records(self.export(desk)), self.records(whole))

    def test_a_full_disk_leaves_no_half_file(self):
        desk, _ = self.filled()
        file = desk.folder / "out" / "library.json"
        file.parent.mkdir()
        done = desk.run("library", "export", file, status=1, preexec_fn=no_file_may_grow)
        self.assertIn("disk is full", done.stderr)
        self.assertEqual(list(file.parent.iterdir()), [])

    def test_fifty_thousand_links_come_in_at_once(self):
        desk = self.desk()
        rows = "".join(f"Title {n},https://site{n % 50}.example/article-{n},{1600000000 + n},a|b,unread\n" for n in range(50_000))
        start = time.monotonic()
        added = desk.json("library", "import", "-", stdin=("title,url,time_added,tags,status\n" + rows).encode())["added"]
        took = time.monotonic() - start
        self.assertEqual(added["stories"], 50_000)
        self.assertLess(took, 60)
        self.assertEqual(len(self.export(desk, "--form", "csv").splitlines()), 50_001)


if __name__ == "__main__":
    unittest.main()
