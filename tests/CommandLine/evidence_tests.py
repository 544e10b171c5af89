#!/usr/bin/env python3
"""Packs of evidence: what is in them, that they can be compared, where they are written; texts that are kept."""
import csv
import hashlib
import io
import json
import sqlite3
import tempfile
import time
import unittest
import zipfile
from pathlib import Path

from full_disk_tests import no_file_may_grow
from harness import Desk, PressRoom

FEED = """<rss version="2.0"><channel><title>Orchard News</title><link>https://files.press-room.example/</link>
<item><title>{title}</title><link>https://files.press-room.example/pears.html</link><guid>1</guid>
<description>The first pears of the year were picked on Monday, growers said.</description></item>
<item><title>Plums are late</title><link>https://files.press-room.example/plums.html</link><guid>2</guid></item>
</channel></rss>"""
PAGE = "<html><head><title>{0}</title></head><body><article><h1>{0}</h1>" + "".join(
    f"<p>Paragraph {n} of the article tells at length of {{0}}, of growers and of the weather in the valley this year.</p>"
    for n in range(8)) + "</article></body></html>"


class Evidence(unittest.TestCase):
    def setUp(self):
        self.files = Path(tempfile.mkdtemp(prefix="brell-evidence-"))
        (self.files / "feed.xml").write_text(FEED.format(title="Pears are early"))
        (self.files / "pears.html").write_text(PAGE.format("pears"))
        room = PressRoom("--files", self.files)
        self.addCleanup(room.close)
        self.desk = Desk(room.network)
        self.addCleanup(self.desk.close)
        self.desk.run("sources", "add", "https://files.press-room.example/feed.xml")
        self.source = next(s["id"] for s in self.desk.json("sources") if "press-room" in s["feedURL"])
        self.desk.run("refresh", "--source", self.source)
        self.pears, self.plums = (next(s["id"] for s in self.desk.json("wire", "--source", self.source) if word in s["title"])
                                  for word in ("Pears", "Plums"))
        self.out = Path(tempfile.mkdtemp(prefix="brell-packs-"))

    def kept_text(self, story):
        with sqlite3.connect(next(self.desk.folder.rglob("library.sqlite"))) as library:
            return library.execute("SELECT text, sha256 FROM savedTexts WHERE story = ?", (story,)).fetchone()

    def fill(self, name="Harvest"):
        name = self.desk.json("projects", "new", name, "--description", "Who picks first")["id"]
        self.desk.run("settings", "keepSavedText", "true")
        self.desk.run("save", self.pears)
        (self.files / "feed.xml").write_text(FEED.format(title="Pears are early this year"))
        self.desk.run("refresh", "--unconditional", "--source", self.source)
        clip = self.desk.json("clips", "add", self.pears, "--quote", "picked on Monday", "--project", name)
        note = self.desk.json("notes", "new", "Ask Ann", "--title", "../../Plan\n/etc")
        for member in (self.pears, self.plums, f"note:{note['id']}"):
            self.desk.run("projects", "add", name, member)
        self.desk.run("correct", "label", self.pears, "--sourcing", "confirmed")
        return clip

    def pack(self, folder, name="Harvest", *words):
        return self.desk.json("projects", "export", name, "--to", folder, *words)

    def test_a_pack_tells_all_that_is_known(self):
        self.fill()
        made = self.pack(self.out)
        folder = Path(made["pack"])
        self.assertEqual((made["stories"], made["texts"], made["clips"], made["notes"], made["corrections"]), (2, 1, 1, 1, 1))
        sums = [line.split("  ", 1) for line in (folder / "SHA256SUMS").read_text().splitlines()]
        self.assertEqual({path: hashlib.sha256((folder / path).read_bytes()).hexdigest() for _, path in sums},
                         {path: digest for digest, path in sums})
        self.assertEqual({str(f.relative_to(folder)) for f in folder.rglob("*") if f.is_file()},
                         {path for _, path in sums} | {"SHA256SUMS", "manifest.json"})
        stories = {s["id"]: s for s in json.loads((folder / "stories.json").read_text())}
        self.assertEqual([h["title"] for h in stories[self.pears]["headlines"]], ["Pears are early", "Pears are early this year"])
        self.assertEqual(stories[self.pears]["title"], "Pears are early", "what was seen at saving")
        self.assertEqual(stories[self.pears]["firstSeenIn"], "Orchard News")
        self.assertEqual(stories[self.pears]["text"]["sha256"], self.kept_text(self.pears)[1])
        self.assertNotIn("text", stories[self.plums], "of the plums there is no page")
        self.assertIn("tells at length of pears", next((folder / "texts").iterdir()).read_text())
        self.assertEqual(next(csv.DictReader(io.StringIO((folder / "clips.csv").read_text())))["quote"], "picked on Monday")
        index = (folder / "index.md").read_text()
        for words in ("Who picks first", "First seen by the desk", "> picked on Monday", "Accessed"):
            self.assertIn(words, index)
        self.assertIn("Confirmed", (folder / "corrections.md").read_text())

    def test_two_packs_of_the_same_state_are_equal(self):
        self.fill()
        given = ["--made-at", "2026-11-22T08:00:00Z"]
        packs = [Path(self.pack(self.out / name, "Harvest", *given)["pack"]) for name in ("a", "b")]
        bytes_of = [{f.relative_to(pack): f.read_bytes() for f in pack.rglob("*") if f.is_file()} for pack in packs]
        self.assertEqual(bytes_of[0], bytes_of[1])
        zips = [Path(self.pack(self.out / name, "Harvest", "--zip", *given)["pack"]) for name in ("a", "b")]
        self.assertEqual(zips[0].read_bytes(), zips[1].read_bytes())
        with zipfile.ZipFile(zips[0]) as packed:
            self.assertIsNone(packed.testzip())
            self.assertEqual({Path(n).relative_to("Harvest evidence"): packed.read(n) for n in packed.namelist()}, bytes_of[0])
        other = Path(self.pack(self.out / "c")["pack"])
        self.assertEqual({p for p, b in bytes_of[0].items() if (other / p).read_bytes() != b}, {Path("manifest.json")})

    def test_a_pack_stays_in_its_folder_and_over_no_other(self):
        self.fill("../../x\n/y: z")
        project = self.desk.json("projects")[0]["id"]
        pack = Path(self.pack(self.out / "deep", project)["pack"])
        self.assertEqual(pack.parent, self.out / "deep")
        self.assertEqual([p.name for p in self.out.iterdir()], ["deep"])
        (pack / "mine.txt").write_text("mine")
        self.assertIn("exists already", self.desk.run("projects", "export", project, "--to", self.out / "deep", status=1).stderr)
        self.assertTrue((pack / "mine.txt").exists())
        self.pack(self.out / "deep", project, "--replace")
        self.assertEqual(([p.name for p in pack.parent.iterdir()], (pack / "mine.txt").exists()), ([pack.name], False))

    def test_a_full_disk_leaves_no_half_pack(self):
        self.fill()
        for words in ([], ["--zip"]):
            done = self.desk.run("projects", "export", "Harvest", "--to", self.out, *words, status=1, preexec_fn=no_file_may_grow)
            self.assertIn("disk is full", done.stderr)
            self.assertEqual(list(self.out.iterdir()), [])

    def test_a_text_is_kept_when_it_is_wanted_or_fetched_later_and_then_stays(self):
        self.desk.run("save", self.pears)
        self.assertIsNone(self.kept_text(self.pears), "the setting is off at first")
        self.desk.run("text", self.pears)
        text, digest = self.kept_text(self.pears)
        self.assertEqual(hashlib.sha256(text.encode()).hexdigest(), digest)
        (self.files / "pears.html").write_text(PAGE.format("apples"))
        self.desk.run("text", self.pears)
        self.assertEqual(self.kept_text(self.pears), (text, digest), "the evidence is what was seen first")
        self.desk.run("settings", "keepSavedText", "true")
        said = self.desk.run("save", self.plums)
        self.assertIn("1 story saved", said.stdout)
        self.assertRegex(said.stderr, "The text of Plums are late could not be kept")

    def test_a_pack_of_a_thousand_stories_is_written_soon(self):
        links = "".join(f"Title {n},https://site{n % 50}.example/{n},{1600000000 + n},a\n" for n in range(1_000))
        self.desk.run("library", "import", "-", stdin=("title,url,time_added,tags\n" + links).encode())
        project = self.desk.json("projects", "new", "Big")["id"]
        exported = json.loads(self.desk.run("library", "export").stdout)
        for story in exported["stories"]:
            story["projectIDs"] = [project]
        self.desk.run("library", "import", "-", "--replace", stdin=json.dumps(exported).encode())
        start = time.monotonic()
        self.assertEqual(self.pack(self.out, "Big")["stories"], 1_000)
        self.assertLess(time.monotonic() - start, 10)


if __name__ == "__main__":
    unittest.main()
