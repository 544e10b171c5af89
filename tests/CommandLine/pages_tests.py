#!/usr/bin/env python3
"""The text of articles and the comparison of pages and public files."""
import tempfile
import unittest
from pathlib import Path

from harness import Desk, PressRoom

FEED = """<rss version="2.0"><channel><title>Orchard News</title><link>https://files.press-room.example/</link>
<item><title>Pears are early</title><link>https://files.press-room.example/pears.html</link><guid>1</guid></item>
</channel></rss>"""

FIRST = "The first pears of the year were picked on Monday, growers said, {} weeks before the usual time."
SECOND = ("It follows a warm spring, as the <a href='https://www.macrumors.com/2026/11/01/spring/'>report by "
          "MacRumors</a> said, and a summer without any hail in the whole of the valley.")


class Text(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="brell-pages-"))
        (self.folder / "feed.xml").write_text(FEED)
        self.write("two")
        room = PressRoom("--files", self.folder)
        self.addCleanup(room.close)
        self.desk = Desk(room.network)
        self.addCleanup(self.desk.close)
        self.desk.run("sources", "add", "https://files.press-room.example/feed.xml")
        self.source = next(s["id"] for s in self.desk.json("sources") if "press-room" in s["feedURL"])
        self.desk.run("refresh", "--source", self.source)
        self.story = self.desk.json("wire", "--source", self.source)[0]["id"]

    def write(self, weeks, head=""):
        (self.folder / "pears.html").write_text(
            f"<html><head><title>Pears are early</title>{head}</head><body><nav><a href='/'>Home</a> "
            f"<a href='/all'>All of our stories</a></nav><article><h1>Pears are early</h1>"
            f"<p>{FIRST.format(weeks)}</p><div class='share'>Share this</div><p>{SECOND}</p></article>"
            f"<footer>Orchard News</footer></body></html>")

    def test_the_text_is_the_article_alone_and_is_kept(self):
        self.desk.run("text", self.story, "--stored", status=1)
        text = self.desk.json("text", self.story)
        self.assertEqual([block["text"] for block in text["blocks"]][0], FIRST.format("two"))
        self.assertEqual(len(text["blocks"]), 2)
        self.assertEqual([link["url"] for link in text["links"]], ["https://www.macrumors.com/2026/11/01/spring/"])
        self.assertEqual([credit["name"] for credit in text["credits"]], ["MacRumors"])
        self.assertFalse(text["paywalled"])
        self.desk.run("refresh", "--source", self.source)
        self.assertEqual([credit["name"] for credit in self.desk.json("story", self.story)["credits"]], ["MacRumors"])
        (self.folder / "pears.html").unlink()
        self.assertEqual(self.desk.json("text", self.story, "--stored"), text)
        self.desk.run("text", self.story, status=1)
        self.assertIn("picked on Monday", self.desk.run("text", self.story, "--stored").stdout)
        self.assertEqual([s["id"] for s in self.desk.json("text", "--search", "hail")], [self.story])
        self.assertEqual(self.desk.json("text", "--search", "apples"), [])

    def test_a_text_that_has_changed_shows_what_changed(self):
        self.desk.run("text", self.story)
        self.assertNotIn("changes", self.desk.json("text", self.story))
        self.write("three", '<script type="application/ld+json">{"isAccessibleForFree": false}</script>')
        text = self.desk.json("text", self.story)
        self.assertEqual([(change["kind"], change["words"]) for change in text["changes"]], [("changed", 2)])
        self.assertIn('"two" became "three"', self.desk.run("text", self.story).stdout)
        self.assertTrue(text["paywalled"])


class Comparison(unittest.TestCase):
    def setUp(self):
        self.desk = Desk()
        self.addCleanup(self.desk.close)

    def test_pages_and_files_are_answered_in_their_exact_forms(self):
        self.assertEqual(
            self.desk.inspect("pagediff", {"beforeText": ["## 2.5", "Pears must ripen."], "afterText": ["## 2.5", "Pears may ripen."]},
                              {"before": "<p>a", "after": "<p>a"}, {"before": "<p>a"}),
            [{"verdict": "changed",
              "changes": [{"kind": "changed", "headings": ["2.5"], "before": "Pears must ripen.", "after": "Pears may ripen.", "words": 2,
                           "sentence": 'Changed in "2.5": "must" became "may" in "Pears may ripen."'}]},
             {"verdict": "same", "changes": []}, {"error": "after: the key is missing"}])
        page = self.desk.inspect("page", {"html": "<main><h2>A</h2><p>" + "pear " * 100 + "</main>", "url": "https://a.example/"}, {"html": "<p>a"})
        self.assertEqual(page[0]["blocks"][0], {"kind": "heading", "level": 2, "headings": [], "text": "A", "links": []})
        self.assertEqual(page[1]["error"], "tooShort")
        self.assertEqual(
            self.desk.inspect("backend", {"source": "robots", "before": "User-agent: *\nDisallow: /a", "after": "User-agent: *\nDisallow: /b"},
                              {"source": "json", "before": "1", "after": "{"},
                              {"source": "plist", "beforeBase64": "YnBsaXN0MDA=", "after": "<plist><true/></plist>"}),
            [{"added": [{"key": "User-agent: * | Disallow: /b", "fields": {}}], "removed": [{"key": "User-agent: * | Disallow: /a", "fields": {}}],
              "changed": [], "sentences": ['robots.txt now has the line "User-agent: * | Disallow: /b".',
                                           'robots.txt no longer has the line "User-agent: * | Disallow: /a".']},
             {"error": "malformed", "side": "after"}, {"error": "malformed", "side": "before"}])


if __name__ == "__main__":
    unittest.main()
