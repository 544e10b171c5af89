#!/usr/bin/env python3
"""Clips, notes, projects and their search from end to end, also when brell is killed."""
import json
import random
import sqlite3
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

from harness import BIN, Desk, PressRoom

FEED = """<rss version="2.0"><channel><title>Orchard News</title><link>https://files.press-room.example/</link>
<item><title>Pears are early</title><link>https://files.press-room.example/pears.html</link><guid>1</guid>
<description>The first pears of the year were picked on Monday, growers said.</description></item>
<item><title>Plums are late</title><link>https://files.press-room.example/plums.html</link><guid>2</guid></item>
</channel></rss>"""


class Keeping(unittest.TestCase):
    def setUp(self):
        folder = Path(tempfile.mkdtemp(prefix="brell-keep-"))
        (folder / "feed.xml").write_text(FEED)
        room = PressRoom("--files", folder)
        self.addCleanup(room.close)
        self.desk = Desk(room.network)
        self.addCleanup(self.desk.close)
        self.desk.run("sources", "add", "https://files.press-room.example/feed.xml")
        source = next(s["id"] for s in self.desk.json("sources") if "press-room" in s["feedURL"])
        self.desk.run("refresh", "--source", source)
        self.pears, self.plums = (
            next(s["id"] for s in self.desk.json("wire", "--source", source) if word in s["title"]) for word in ("Pears", "Plums"))

    def test_a_clip_is_kept_with_its_surroundings_and_cited(self):
        self.desk.run("projects", "new", "Harvest")
        clip = self.desk.json("clips", "add", self.pears, "--quote", "picked on Monday", "--tag", "pears", "--project", "harvest")
        self.assertEqual((clip["prefix"], clip["suffix"]), ("he first pears of the year were ", ", growers said."))
        self.assertEqual(clip["tags"], ["pears"])
        self.assertEqual([c["id"] for c in self.desk.json("clips", "--project", "Harvest")], [clip["id"]])
        self.assertEqual(self.desk.json("clips", "--tag", "plums"), [])
        self.desk.run("clips", "note", clip["id"][:8], "Ask Ann")
        self.assertEqual(self.desk.json("clips", "show", clip["id"])["note"], "Ask Ann")
        self.assertIn("Pears are early", self.desk.run("clips", "cite", clip["id"]).stdout)
        self.assertTrue(self.desk.json("clips", "cite", clip["id"], "--style", "bibtex")["citation"].startswith("@"))
        self.desk.run("clips", "remove", clip["id"])
        self.desk.run("clips", "show", clip["id"], status=2)
        self.assertEqual([r["id"] for r in self.desk.json("library", "removed")], [clip["id"]])
        self.desk.run("library", "removed", "restore", clip["id"][:6])
        self.assertEqual(self.desk.json("clips", "show", clip["id"])["note"], "Ask Ann")
        long = self.desk.run("clips", "add", self.pears, "--quote", "x" * 20_001, status=1)
        self.assertIn("20000 bytes at most", long.stderr)
        self.assertEqual(self.desk.json("clips", "add", self.pears, "--quote", "a\x1b[31mb")["quote"], "a[31mb")

    def test_a_note_keeps_its_versions_and_belongs_to_stories_and_projects(self):
        note = self.desk.json("notes", "new", "one", "--title", "Plan")
        self.desk.run("notes", "edit", "Plan", "--file", "-", stdin=b"two\n")
        self.desk.run("notes", "edit", "plan", "--text", "three")
        versions = self.desk.json("notes", "versions", "Plan")
        self.assertEqual([v["text"] for v in versions], ["two\n", "one"])
        self.assertEqual(self.desk.run("notes", "versions", "Plan", "--number", 2).stdout, "one\n")
        self.desk.run("notes", "versions", "Plan", "--number", 3, status=2)
        self.desk.run("projects", "new", "Harvest")
        self.desk.run("notes", "attach", "Plan", "--story", self.pears, "--project", "Harvest")
        self.assertEqual([n["id"] for n in self.desk.json("notes", "--story", self.pears)], [note["id"]])
        self.assertIn("200000 bytes at most", self.desk.run("notes", "new", "--file", "-", stdin=b"x" * 200_001, status=1).stderr)
        self.desk.run("notes", "new", status=2)
        self.desk.run("notes", "remove", "Plan")
        self.desk.run("notes", "restore")
        self.assertEqual(self.desk.json("notes", "show", "Plan")["text"], "three")

    def test_a_project_is_a_timeline_that_outlives_itself_and_its_stories(self):
        project = self.desk.json("projects", "new", "Harvest", "--description", "Who picks first")
        self.desk.run("projects", "new", "Harvest", status=2)
        clip = self.desk.json("clips", "add", self.pears, "--quote", "picked on Monday")
        note = self.desk.json("notes", "new", "Ask Ann")
        for member in (self.plums, f"clip:{clip['id']}", f"note:{note['id']}"):
            self.desk.run("projects", "add", "Harvest", member)
        self.desk.run("projects", "add", "Harvest", "signal:none", status=2)
        self.desk.run("projects", "done", "Harvest", f"note:{note['id']}")
        items = self.desk.json("projects", "show", "harvest")["timeline"]
        self.assertEqual(sorted(item["kind"] for item in items), ["clip", "note", "story"])
        self.assertEqual([item["id"] for item in items if item["done"]], [note["id"]])
        self.assertTrue(self.desk.json("story", self.plums)["saved"], "a member is saved")
        with sqlite3.connect(next(self.desk.folder.rglob("library.sqlite"))) as library:
            library.execute("DELETE FROM stories")
        self.assertIn("Plums are late", self.desk.run("projects", "show", "Harvest").stdout)
        self.desk.run("projects", "take", "Harvest", self.plums)
        self.assertEqual(len(self.desk.json("projects", "show", "Harvest")["timeline"]), 2)
        self.desk.run("projects", "archive", "Harvest")
        self.desk.run("projects", "remove", project["id"])
        self.assertEqual(len(self.desk.json("clips")), 1)
        self.desk.run("projects", "restore")
        self.assertTrue(self.desk.json("projects", "show", "Harvest")["archived"])

    def test_search_finds_all_kinds_and_marks_the_hits(self):
        self.desk.run("notes", "new", "Ask Ann about pears")
        self.desk.run("clips", "add", self.pears, "--quote", "picked on Monday")
        hits = self.desk.json("search", "pears")
        self.assertEqual([hit["in"] for hit in hits], ["clips", "notes", "stories"], "the latest first")
        snippet = next(hit for hit in hits if hit["in"] == "notes")["snippet"]
        self.assertEqual(snippet, {"text": "Ask Ann about pears", "hits": [{"begin": 14, "size": 5}]})
        self.assertEqual([hit["in"] for hit in self.desk.json("search", "monday", "--in", "clips")], ["clips"])
        self.assertEqual(self.desk.json("search", "author:ann AND ("), [])
        self.assertIn("Ask Ann about pears", self.desk.run("search", "pears").stdout)

    def test_sources_and_settings_that_travel_are_recorded_when_they_change(self):
        def recorded(kind):
            with sqlite3.connect(next(self.desk.folder.rglob("library.sqlite"))) as library:
                rows = library.execute("SELECT key, fields FROM syncRecords WHERE kind = ?", (kind,))
                return {key: json.loads(fields) for key, fields in rows}
        source, = recorded("f").values()
        self.assertEqual(source["feedURL"][1], "https://files.press-room.example/feed.xml")
        self.desk.run("sources", "remove", source["id"][1])
        self.assertIn("gone", next(iter(recorded("f").values())))
        self.desk.run("settings", "focusSymbol", "MSFT")
        self.desk.run("settings", "appearance", "dark")
        self.assertEqual({key: fields["value"][1] for key, fields in recorded("t").items()}, {"focusSymbol": "MSFT"})
        self.desk.run("settings", "focusSymbol", "")
        self.assertIn("gone", recorded("t")["focusSymbol"])

    def killed(self, words, delay):
        """Runs brell and kills it after that time; whether it acknowledged its work before."""
        process = subprocess.Popen([BIN / "brell", "--data-dir", self.desk.folder, *words, "--json"],
                                   stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        time.sleep(delay)
        process.kill()
        return process.communicate()[0].endswith(b"\n")

    def test_nothing_that_was_acknowledged_is_lost_to_a_kill(self):
        note = self.desk.json("notes", "new", "typed 0", "--title", "Typed")["id"]
        start = time.monotonic()
        self.desk.run("notes", "new", "to see how long that takes here")
        whole = time.monotonic() - start
        moments = random.Random(7)
        acknowledged, typed = [], [0]
        for number in range(1, 101):
            delay = moments.uniform(0.0, 1.5 * whole)
            if number % 3 == 0:
                if self.killed(["notes", "edit", note, "--text", f"typed {number}"], delay):
                    typed.append(number)
                continue
            words = ["notes", "new", f"text {number}"] if number % 3 == 1 else ["clips", "add", self.pears, "--quote", f"text {number}"]
            if self.killed(words, delay):
                acknowledged.append(f"text {number}")
        count = len(acknowledged) + len(typed) - 1
        self.assertTrue(10 < count < 90, f"{count} of 100: the kills came at the wrong time")
        kept = [row["line"] for command in ("notes", "clips") for row in self.desk.json(command)]
        self.assertEqual([text for text in acknowledged if text not in kept], [])
        last = int(self.desk.json("notes", "show", note)["text"].split()[1])
        self.assertGreaterEqual(last, typed[-1])
        versions = [v["text"] for v in self.desk.json("notes", "versions", note)]
        self.assertEqual([n for n in typed if n != last and f"typed {n}" not in versions], [])
        with sqlite3.connect(next(self.desk.folder.rglob("library.sqlite"))) as library:
            self.assertEqual(library.execute("PRAGMA integrity_check").fetchone(), ("ok",))
            shadows = dict(library.execute("SELECT kind || ':' || key, fields FROM syncRecords"))
            for kind, key, record in library.execute("SELECT kind, id, record FROM kept"):
                shadow = json.loads(shadows[f"{'o' if kind == 'note' else 'c'}:{key}"])
                written = {field: value for field, value in json.loads(record).items() if field in shadow}
                self.assertIn("text" if kind == "note" else "quote", written)
                self.assertEqual(written, {field: shadow[field][1] for field in written})


if __name__ == "__main__":
    unittest.main()
