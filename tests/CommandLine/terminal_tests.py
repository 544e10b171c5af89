#!/usr/bin/env python3
"""What brell shows on a terminal: whether it fits, what gives way, and what is a link."""
import unicodedata
import unittest

from harness import Desk, PressRoom

COMMANDS = [
    ("wire", "--limit", 30), ("sources",), ("sources", "--status"), ("settings",), ("newsroom",), ("beat",),
    ("status", "--recent"), ("releases",), ("events",), ("board",), ("signing",), ("updates",), ("charts",),
    ("archive", "status"), ("archive", "stories", "--after", "2d", "--before", "1h"), ("refresh",),
]
HELP = [(), ("wire",), ("sources",), ("sources", "add"), ("newsroom", "new"), ("status",), ("settings",), ("watch",)]


def columns(line):
    return sum(2 if unicodedata.east_asian_width(c) in "WF" else 1 for c in line)


class OnATerminal(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.room = PressRoom()
        cls.desk = Desk(cls.room.network)
        cls.desk.run("refresh")
        cls.desk.run("beat", "new", "A beat with quite a long name", "--any", "iphone,ipad,watch,homepod,vision pro,mac")

    @classmethod
    def tearDownClass(cls):
        cls.desk.close()
        cls.room.close()

    def test_every_table_fits_the_terminal(self):
        for words in COMMANDS:
            for width in (60, 80, 120):
                with self.subTest(words, width=width):
                    lines = self.desk.on_terminal(width, *words).splitlines()
                    self.assertGreater(len(lines), 0)
                    # An address is one word, which is not cut.
                    wide = [line for line in lines if columns(line) > width and "https://" not in line]
                    self.assertEqual(wide, [])

    def test_help_fits_the_terminal(self):
        for words in HELP:
            for width in (60, 80):
                with self.subTest(words, width=width):
                    lines = self.desk.on_terminal(width, *words, "--help").splitlines()
                    self.assertEqual([line for line in lines if columns(line) > width], [])

    def test_what_one_has_to_type_is_never_cut(self):
        narrow = self.desk.on_terminal(60, "sources")
        for source in self.desk.json("sources"):
            self.assertIn(f"  {source['id']}  ", narrow)
        self.assertIn("A beat with quite a long name", self.desk.on_terminal(60, "beat"))
        for story, line in zip(self.desk.json("wire"), self.desk.on_terminal(60, "wire").splitlines()):
            self.assertTrue(line.startswith(story["id"][:8]))

    def test_headlines_are_cut_on_a_terminal_and_never_in_a_pipe(self):
        title = max((story["title"] for story in self.desk.json("wire")), key=len)
        self.assertNotIn(title, self.desk.on_terminal(60, "wire"))
        self.assertIn(title, self.desk.run("wire", environment={"COLUMNS": "60"}).stdout)
        self.assertEqual(self.desk.on_terminal(120, "wire", COLUMNS="60"), self.desk.on_terminal(60, "wire"))

    def test_headlines_are_links_where_the_terminal_has_them(self):
        story = self.desk.json("wire")[0]
        link = f"\x1b]8;;{story['link']}\x1b\\"
        able = {"NO_COLOR": "", "TERM": "xterm-256color", "VTE_VERSION": "7200"}
        self.assertIn(link, self.desk.on_terminal(100, "wire", **able))
        self.assertIn(link, self.desk.on_terminal(100, "story", story["id"], **able))
        for other in ({"NO_COLOR": "1"}, {"TERM": "dumb"}, {"VTE_VERSION": ""}):
            self.assertNotIn("\x1b]8", self.desk.on_terminal(100, "wire", **{**able, **other}), other)
        self.assertNotIn("\x1b", self.desk.run("wire", environment=able).stdout)

    def test_addresses_stand_below_the_headlines_on_demand(self):
        stories = self.desk.json("wire", "--limit", 3)
        lines = self.desk.run("wire", "--limit", 3, "--links").stdout.splitlines()
        self.assertEqual([line.strip() for line in lines[1::2]], [story["link"] for story in stories])
        self.assertNotIn("https://", self.desk.run("wire").stdout)

    def test_a_program_learns_what_the_library_knows_of_a_story(self):
        first, second = self.desk.json("wire", "--limit", 2)
        self.desk.run("read", first["id"])
        self.desk.run("save", first["id"])
        for story in (self.desk.json("wire", "--limit", 1)[0], self.desk.json("story", first["id"])):
            self.assertEqual((story["read"], story["saved"]), (True, True))
            self.assertEqual(story["firstSeen"], first["firstSeen"])
        self.assertEqual((second["read"], second["saved"]), (False, False))
        self.assertEqual(self.desk.run("wire", "--saved", "--count").stdout, "1\n")
        everything = self.desk.json("wire", "--set-aside", "--limit", 100000)
        self.assertEqual(self.desk.json("wire", "--set-aside", "--count"), {"count": len(everything)})
        self.desk.run("unsave", first["id"])
        self.assertEqual(self.desk.run("wire", "--saved", "--count").stdout, "0\n")


if __name__ == "__main__":
    unittest.main()
