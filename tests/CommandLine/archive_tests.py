#!/usr/bin/env python3
"""The story archive and the trace against the press room, with answers in and out of order."""
import json
import os
import pty
import re
import subprocess
import tempfile
import unittest
from datetime import datetime, timedelta, timezone
from pathlib import Path

from harness import BIN, PressRoom, written_to
from world_time import WorldTest

LOOKING = "Looking for every outlet that ran it…"


class Archive(WorldTest):
    def period(self, hours):
        """The options for so many hours before the world's anchor."""
        anchor = datetime.fromtimestamp(self.world.anchor, timezone.utc)
        return ["--after", f"{anchor - timedelta(hours=hours):%Y-%m-%dT%H:%M:%SZ}", "--before", f"{anchor:%Y-%m-%dT%H:%M:%SZ}"]

    def story(self, ending):
        found = [item["url"] for offset in (0, 100)
                 for item in self.desk.json("archive", "stories", *self.period(30), "--offset", offset, "--limit", 100)["items"]
                 if item["url"].rstrip("/").endswith(ending)]
        self.assertEqual(len(found), 1, ending)
        return found[0]

    def test_stories_come_in_pages_that_tell_where_the_next_one_begins(self):
        self.go_to(1)
        page = self.desk.json("archive", "stories", *self.period(24), "--limit", 3)
        following = self.desk.json("archive", "stories", *self.period(24), "--limit", 3, "--offset", 2)
        self.assertEqual((len(page["items"]), page["items"][2]), (3, following["items"][0]))
        text = self.desk.run("archive", "stories", *self.period(24), "--limit", 3, "--offset", 2).stdout
        self.assertIn(f"Stories 3 to 5 of {page['total']}. --offset 5 shows the next ones.", text)
        for item in following["items"]:
            self.assertIn(item["url"], text)
        beyond = self.desk.run("archive", "stories", *self.period(24), "--offset", 5000).stdout
        self.assertIn(f"{page['total']} stories for this period, none after the first 5000.", beyond)
        self.assertIn("no stories", self.desk.run("archive", "stories", "--after", "1990-01-01", "--before", "1990-01-02").stdout)

    def test_the_status_says_who_has_stories_waiting(self):
        self.go_to(1)
        status = self.desk.json("archive", "status")
        behind = [source for source in status["sources"] if source["waiting"]]
        self.assertEqual(status["complete"], not behind)
        text = self.desk.run("archive", "status").stdout
        self.assertRegex(text.splitlines()[0], "The archive is (complete|not complete: [1-9])")
        for source in status["sources"]:
            row = f"{source['name']} +{source['listed']} +{source['stored']} +{source['waiting']}"
            self.assertRegex(text, re.sub(r"([()&.])", r"\\\1", row))

    def test_credits_come_for_addresses_and_for_stories_of_the_wire(self):
        self.go_to(1)
        self.desk.run("refresh", "--source", "macrumors")
        story = self.desk.json("wire", "--search", "ordering foldable strong")[0]
        comma = "https://nobody.example/a,b+c?d=e&f"
        credits = self.desk.json("archive", "credits", comma, story["id"])
        self.assertEqual(list(credits["credits"]), [story["link"]])
        self.assertEqual(credits["credits"][story["link"]][0]["name"], "Bloomberg")
        text = self.desk.run("archive", "credits", comma, story["id"]).stdout
        self.assertEqual(text.splitlines()[:4], [comma, "  The archive does not know it.", story["link"],
                                                 "  Bloomberg (“according to Bloomberg”)"])

    def test_a_trace_is_a_tree_from_the_origin_down(self):
        self.go_to(1)
        asked = self.story("fold-orders-raised")
        lines = self.desk.run("trace", asked).stdout.splitlines()
        heads = [re.sub(r"\d{4}-\d\d-\d\d \d\d:\d\d UTC", "TIME", line) for line in lines if " UTC" in line]
        self.assertEqual(heads, [
            "Nikkei Asia  TIME  (its page can't be read)",
            "├─ AppleInsider  TIME  linked as “according to Nikkei Asia”",
            "└─ 9to5Mac  TIME  named as “Nikkei Asia”  ← the story you asked about",
            "   └─ r/apple  TIME  linked as “9to5Mac”"])
        self.assertEqual(lines[0], "4 outlets published it. 45 sources were searched.")
        self.assertIn("     " + asked, lines)
        nodes = self.desk.json("trace", asked)["nodes"]
        self.assertEqual([(node["depth"], node.get("relation")) for node in nodes],
                         [(0, None), (1, "linked"), (1, "named"), (2, "linked")])
        self.assertIn("No outlet is known", self.desk.run("trace", "https://nobody.example/").stdout)

    def test_progress_is_shown_on_a_terminal_and_nowhere_else(self):
        self.go_to(1)
        self.assertEqual(self.desk.run("trace", "https://nobody.example/").stderr, "")
        ours, theirs = pty.openpty()
        command = [BIN / "brell", "--data-dir", self.desk.folder, *self.desk.network, "trace", "https://nobody.example/"]
        subprocess.run(command, stdout=subprocess.DEVNULL, stderr=theirs, check=True)
        os.close(theirs)
        self.assertEqual(written_to(ours), f"\r\x1b[K{LOOKING}\r\x1b[K")

    def test_what_the_service_says_cannot_steer_the_terminal_or_break_the_tree(self):
        folder = tempfile.TemporaryDirectory(prefix="brell-test-")
        self.addCleanup(folder.cleanup)
        answers = Path(folder.name) / "wp-json/tb-archive/v1"
        answers.mkdir(parents=True)
        room = PressRoom("--files", folder.name)
        self.addCleanup(room.close)
        self.desk.network = room.network
        self.desk.run("settings", "serviceAddress", "https://files.press-room.example/")

        def node(depth, **members):
            return {"kind": "story", "url": "https://a.example/", "precision": "unknown", "depth": depth, **members}
        bad = "\x1b[2J\u202eevil\r\n\x07"
        nodes = [node(-3, publisher=bad, title=bad, url="javascript:" + bad), node(9e15, relation="linked"), node("7", note=bad),
                 node(1, relation=bad, platform=bad), node(1, precision="day", published_at="2026-01-02T23:59:59Z", publisher="P")]
        (answers / "trace").write_text(json.dumps({"url": "u", "nodes": nodes + [node(n) for n in range(3000)]}))
        text = self.desk.run("trace", "https://a.example/x").stdout
        for steering in ("\x1b", "\u202e", "\r", "\x07"):
            self.assertNotIn(steering, text)
        lines = text.splitlines()
        self.assertEqual(lines[4], "  “javascript:[2Jevil ” (not a web address)")
        self.assertEqual(lines[5], "├─ An unknown outlet  at an unknown time  linked as “[2Jevil”")
        self.assertIn("└─ P  2026-01-02", lines)
        self.assertLess(max(map(len, lines)), 120)

        (answers / "stories").write_text(json.dumps({"total": -1, "offset": 2**63 - 1, "items": [
            {"source": "s", "source_name": bad, "url": bad, "title": bad, "published_at": "2026-01-02T03:04:05Z", "day_only": True}]}))
        text = self.desk.run("archive", "stories", "--after", "2d", "--before", "1d").stdout
        self.assertNotIn("\x1b", text)
        self.assertRegex(text, r"evil +\[2Jevil +2026-01-02\n")

    def test_what_fails_is_told_and_prints_nothing(self):
        self.go_to(1)
        asked = self.story("fold-orders-raised")
        commands = {"archive-stories": ["archive", "stories", *self.period(24)], "archive-status": ["archive", "status"],
                    "archive-credits": ["archive", "credits", asked], "archive-trace": ["trace", asked]}
        # A status and the credits have no dates that could be wrong.
        for kind, sentence in (("page", "can't be read ("), ("missing", "404"), ("broken", "can't be read ("),
                               ("incomplete", "the key is missing"), ("huge", "larger than"), ("undated", "Unreadable date last Tuesday")):
            names = commands if kind != "undated" else ["archive-stories", "archive-trace"]
            self.go_to(1, *(word for name in names for word in ("--misbehave", f"{name}={kind}")))
            for name in names:
                failed = self.desk.run(*commands[name], "--json", status=1)
                self.assertEqual(failed.stdout, "")
                self.assertIn(sentence, failed.stderr, (name, kind))

    def test_wrong_words_reach_no_network(self):
        self.desk.network = ["--connect-to", "127.0.0.1:1"]
        for words, status, sentence in (
                (["trace", "javascript:alert(1)"], 2, "neither a web address nor the id"),
                (["trace", "abcd"], 2, "no story with the id abcd"),
                (["archive"], 2, "subcommand is missing"),
                (["archive", "credits"], 2, "URL is missing"),
                (["archive", "stories", "--after", "2d"], 2, "--before is missing"),
                (["archive", "stories", "--after", "1d", "--before", "2d"], 2, "ends before it begins"),
                (["archive", "stories", "--after", "2d", "--before", "1d", "--offset", "-1"], 2, "--offset")):
            self.assertIn(sentence, self.desk.run(*words, status=status).stderr, words)

    def test_inspect_gives_the_address_as_it_is_sent(self):
        base = "https://tarnwick-brell.example/wp-json/tb-archive/v1/"
        stories = {"operation": "stories", "after": 1767225600.9, "before": "2026-01-02T00:00:00Z", "offset": 0, "limit": 50}
        urls = ["https://b.example/?x=1+2", "https://a.example/1,2", "https://c.example/"]
        answers = self.desk.inspect(
            "archive-url", stories, {"operation": "status"}, {"operation": "credits", "urls": urls},
            {"operation": "trace", "url": "https://a.example/?b=c&d"}, json.dumps(stories).replace("1767225600.9", "1e400"),
            dict(stories, before="soon"), {"operation": "stories", "after": 1, "before": 2, "limit": 3}, {"operation": "gossip"})
        self.assertEqual(answers[:4], [
            {"url": base + "stories?after=1767225600&before=1767312000&offset=0&limit=50"},
            {"url": base + "status"},
            {"url": base + "credits?urls=https%3A%2F%2Fb.example%2F%3Fx%3D1%2B2,https%3A%2F%2Fa.example%2F1%2C2,https%3A%2F%2Fc.example%2F"},
            {"url": base + "trace?url=https%3A%2F%2Fa.example%2F%3Fb%3Dc%26d"}])
        self.assertEqual([list(answer) for answer in answers[4:]], [["error"]] * 4)


if __name__ == "__main__":
    unittest.main()
