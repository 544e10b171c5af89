#!/usr/bin/env python3
"""Firmware signing, the update catalogue and the charts against the press room, in and out of order."""
import json
import re
import unittest

from harness import PressRoom
from world_time import WorldTest

COMMANDS = {"signing": ["signing", "iPhone18,3"], "updates": ["updates"], "charts": ["charts", "top-free"]}


class Firmware(WorldTest):
    def test_a_build_is_signed_no_longer_once_a_second_look_says_so(self):
        self.go_to(1)
        overview = self.desk.json("signing")["devices"]
        models = re.findall(r"\w+,\d+", self.desk.run("settings", "signingDevices").stdout)
        self.assertEqual([d["device"] for d in overview], models, "the room knows every default model")
        self.assertNotIn("error", json.dumps(overview))
        phone = self.desk.json("signing", "iPhone18,3")
        self.assertEqual((phone["name"], phone["builds"][1]["build"], phone["builds"][1]["signed"]),
                         ("iPhone 17", "24B83", True))
        self.assertEqual(self.desk.json("signing", "--history"), [])
        self.assertEqual(self.desk.json("log"), [], "the first answer is no change")
        for look in (1, 2):
            self.go_to(42)
            text = self.desk.run("signing", "iPhone18,3").stdout
            self.assertRegex(text, r"27\.1 +24B83 +%s +\d{4}-" % ("yes" if look == 1 else "no"), look)
        self.desk.run("signing")
        text = self.desk.run("signing", "--history").stdout
        self.assertRegex(text, r"iPhone 17 +iPhone18,3 +27\.1 +24B83 +no longer signed +\d{4}-")
        self.assertEqual([c["device"] for c in self.desk.json("signing", "--history", "iPhone18,1")], [],
                         "the others have been looked at once since")
        self.desk.run("signing")
        changes = self.desk.json("signing", "--history")
        self.assertEqual({(c["build"], c["signed"]) for c in changes}, {("24B83", False)})
        logged = self.desk.json("log")
        self.assertEqual(sorted(s["subject"] for s in logged), sorted(c["device"] for c in changes), "each once")
        self.assertEqual({(s["kind"], s["weight"], s["evidence"]["build"]) for s in logged}, {("signing", "notable", "24B83")})
        text = self.desk.run("log", "--kind", "signing", "--search", "longer 24B83", "--since", "1d").stdout
        self.assertRegex(text, r"(?m)^\d{4}-.* Firmware signing +notable +iOS 27\.1 \(24B83\) is no longer signed for .* others$")
        self.assertEqual(len(re.findall(r" iOS 27", text)), 1, "one line for all devices of a system")
        self.assertEqual(self.desk.json("log", "--weight", "major"), [])
        self.assertIn("Nothing in the log matches.", self.desk.run("log", "--search", "-signed").stdout)
        self.desk.run("newsroom", "new", "Signals", "--panels", "records,backend")
        shown = self.desk.run("newsroom", "show", "Signals").stdout
        self.assertRegex(shown, r"iOS 27\.1 \(24B83\) is no longer signed for .* and \d others\.")
        self.assertIn(f"Not fetched yet. brell --data-dir {self.desk.folder} updates fetches it.", shown)

    def test_days_without_a_time_are_the_same_in_all_zones(self):
        self.go_to(1)
        self.desk.run("charts")
        for command in (["signing", "iPhone18,3"], ["updates"], ["charts", "--history"]):
            days = [re.findall(r"\d{4}-\d\d-\d\d", self.desk.run(*command, environment={"TZ": zone}).stdout)
                    for zone in ("UTC", "America/Los_Angeles", "Pacific/Auckland")]
            self.assertTrue(days[0])
            self.assertEqual(days, [days[0]] * 3, command)

    def test_offers_come_and_go_and_the_newest_stands_first(self):
        self.go_to(1)
        first = self.desk.json("updates")["offers"]
        self.assertIn("26.9", [o["version"] for o in first])
        self.assertEqual([o["posted"] for o in first], sorted((o["posted"] for o in first), reverse=True))
        self.assertEqual({o["platform"] for o in self.desk.json("updates", "--platform", "ipados")["offers"]}, {"iPadOS"})
        self.assertIn("Nothing is offered for teaOS.", self.desk.run("updates", "--platform", "teaOS").stdout)
        self.desk.run("newsroom", "new", "Catalogue", "--panels", "backend")
        self.assertIn("Newest offers:", self.desk.run("newsroom", "show", "Catalogue").stdout)
        for _ in range(2):
            self.go_to(97)
            text = self.desk.run("updates").stdout
        self.assertRegex(text, r"macOS 27\.1\.2 +26B97 +\d{4}-\d\d-\d\d +\d{4}-\d\d-\d\d +4 +J604AP")
        changes = self.desk.json("updates", "--history")
        self.assertEqual([(c["offer"]["platform"], c["offer"]["version"], c["offered"]) for c in changes][::-1],
                         [("macOS", "27.1.2", True), ("iOS", "26.9", False), ("iPadOS", "26.9", False)])
        self.assertRegex(self.desk.run("updates", "--history", "--platform", "macOS").stdout, r"macOS 27\.1\.2 .*now offered")
        self.assertIn("Apple's update catalogue no longer offers iPadOS 26.9",
                      self.desk.run("newsroom", "show", "Catalogue").stdout)

    def test_charts_show_how_they_moved_since_the_last_day(self):
        self.go_to(1)
        charts = self.desk.json("charts")["charts"]
        self.assertEqual([(c["kind"], [e["rank"] for e in c["entries"]]) for c in charts],
                         [("top-free", list(range(1, 26))), ("top-paid", list(range(1, 26)))])
        self.assertNotIn("rankBefore", charts[0]["entries"][0], "nothing is known of a day before")
        self.rows("UPDATE chartRanks SET day = day - 86400000000")
        self.go_to(60)
        entries = self.desk.json("charts", "top-free")["entries"]
        self.assertEqual([(e["name"], e.get("rankBefore")) for e in entries[:2]], [("Tidal Notes", 5), ("Pebble Chat", 1)])
        self.assertEqual([e["name"] for e in entries if e.get("isNew")], ["Plain Weather"])
        text = self.desk.run("charts", "top-free").stdout
        self.assertRegex(text, r"Tidal Notes +1 +▲ 4 +Low Water Inc\.")
        self.assertRegex(text, r"Pebble Chat +2 +▼ 1 ")
        self.assertRegex(text, r"Plain Weather +7 +new ")
        runs = {a["name"]: a for a in self.desk.json("charts", "top-free", "--history")[0]["apps"]}
        self.assertEqual((runs["Tidal Notes"]["days"], runs["Tidal Notes"]["best"]), (2, 1))
        self.assertIn("Darkroom Drawer", self.desk.run("charts", "--history").stdout)

    def test_what_fails_leaves_the_last_good_answer_with_its_age(self):
        for command in COMMANDS.values():
            self.assertIn("has no such data", self.desk.run(*command, "--stored", status=1).stderr)
        self.go_to(1)
        good = {name: self.desk.json(*command) for name, command in COMMANDS.items()}
        for kind in ("page", "missing", "broken", "incomplete", "huge", "empty"):
            self.go_to(70, *(word for name in COMMANDS for word in ("--misbehave", f"{name}={kind}")))
            for name, command in COMMANDS.items():
                failed = self.desk.run(*command, "--json", status=1)
                shown = json.loads(failed.stdout)
                self.assertIn(shown.pop("error"), failed.stderr)
                self.assertEqual(shown, good[name], (name, kind))
                self.assertRegex(failed.stderr, r"^brell: .*The data shown were fetched \d{4}-", (name, kind))
                if kind == "incomplete":
                    self.assertRegex(failed.stderr, r"(buildid|Build|artistName): the key is missing")
        self.go_to(1, "--misbehave", "updates=partial", "--misbehave", "signing=partial", "--misbehave", "charts=partial")
        for name, command in COMMANDS.items():
            again = self.desk.json(*command)
            for key in set(again) - {"fetchedAt"}:
                self.assertEqual(again[key], good[name][key], "half a list is not believed at once")
        self.desk.network = ["--connect-to", "127.0.0.1:1"]
        for name, command in COMMANDS.items():
            self.assertRegex(self.desk.run(*command, "--stored").stdout, r"\nFetched \d{4}-\d\d-\d\d \d\d:\d\d UTC, ", name)
        self.assertEqual(self.desk.json("signing", "--history"), [])
        self.assertEqual(self.desk.json("updates", "--history"), [])

    def test_the_catalogues_own_authority_is_trusted_when_the_setting_names_it(self):
        room = PressRoom("--private-catalogue")
        self.addCleanup(room.close)
        self.desk.network = room.network
        failed = self.desk.run("updates", status=1)
        self.assertIn("certificate isn't trusted", failed.stderr)
        self.assertIn("updateCatalogueAuthority", failed.stderr)
        self.desk.run("charts")
        file = self.desk.folder / "apple.pem"
        file.write_text(room.private_authority.read_text())
        self.desk.run("settings", "updateCatalogueAuthority", file)
        self.assertTrue(self.desk.json("updates")["offers"])
        file.unlink()
        failed = self.desk.run("updates", status=1)
        self.assertIn(f"The certificate file {file}", failed.stderr)
        self.assertIn("can't be read", failed.stderr)
        self.assertIn("can't be read", self.desk.run("charts").stderr, "only the catalogue needs that file")

    def test_words_that_make_no_sense_are_refused(self):
        for words, sentence in ((["signing", "iPhone 17"], "is not a device model"),
                                (["charts", "top-grossing"], "The charts are top-free and top-paid."),
                                (["settings", "signingDevices", "iPhone17"], "a list of models")):
            self.assertIn(sentence, self.desk.run(*words, status=2).stderr)
        self.go_to(1)
        self.assertIn("no such device", self.desk.run("signing", "iPhone1,99", status=1).stderr)
        answers = self.desk.inspect("updates", {"text": '{"PublicAssetSets":{"iOS":[{"Build":1}]}}'}, {"text": "{}"})
        self.assertEqual([a["error"] for a in answers],
                         ["PublicAssetSets.iOS[0].ProductVersion: the key is missing", "PublicAssetSets: the key is missing"])
        signing = self.desk.inspect("signing", {"text": '{"name":"a","firmwares":[{"version":"1","buildid":"2",'
                                                        '"signed":true,"releasedate":"2026-08-17"}]}'})
        self.assertEqual(signing, [{"name": "a", "builds": [
            {"version": "1", "build": "2", "signed": True, "released": 1786939200}]}])


if __name__ == "__main__":
    unittest.main()
