"""Rules of alerts: made, tried on the past, switched and removed."""
import json
import sqlite3
import unittest

from world_time import WorldTest


class AlertRules(WorldTest):
    def alerts(self, *words, code=0):
        done = self.desk.run("alerts", *words, status=code)
        return done.stderr if code else done.stdout

    def rules(self):
        return {rule["name"]: rule for rule in json.loads(self.alerts("--json"))}

    def test_a_rule_is_made_switched_removed_and_restored(self):
        self.alerts("new", "Chips", "--any", "m6, modem", "--least-sourcing", "report", "--outlets", "3",
                    "--minutes", "30", "--in-quiet-hours")
        rule = self.rules()["Chips"]
        self.assertEqual(rule["trigger"], {
            "kind": "stories", "leastSourcing": "report", "outlets": 3,
            "query": {"anyTerms": ["m6", "modem"], "excludedTerms": [], "sourceIDs": [], "sourcings": [],
                      "includesSetAside": False}})
        self.assertEqual(rule["delivery"], {"how": "notify", "sound": False, "respectsQuietHours": False,
                                            "minutes": 30, "once": False})
        self.assertIn("Stories with “m6” or “modem”, report or firmer, once 3 outlets have it. "
                      "(at most one in 30 minutes, also in quiet hours)", self.alerts())
        self.alerts("off", "chips")
        self.assertFalse(self.rules()["Chips"]["on"])
        self.alerts("remove", "Chips")
        self.assertNotIn("Chips", self.rules())
        self.alerts("restore")
        self.assertEqual(self.rules()["Chips"], dict(rule, on=False))

    def test_the_rules_of_the_desk_are_listed_with_their_switches(self):
        self.desk.run("beat", "new", "Modem", "--any", "modem")
        builtin = {name: rule["on"] for name, rule in self.rules().items() if rule.get("builtIn")}
        self.assertEqual(builtin, {"Service problems and recoveries": True, "New builds": True,
                                   "Every new story": False, "Modem": False})
        self.alerts("on", "modem")
        self.alerts("off", "new builds")
        self.assertEqual((self.rules()["Modem"]["on"], self.rules()["New builds"]["on"]), (True, False))
        self.assertFalse(self.desk.json("settings", "alertReleases"))

    def test_what_a_rule_cannot_be_is_said(self):
        self.alerts("new", "Chips", "--any", "m6")
        for words, complaint in (
                (["new", "Chips", "--any", "m5"], "There is a rule named Chips already."),
                (["new", "Nothing"], "Say what the rule tells of"),
                (["new", "Both", "--any", "m6", "--kind", "release"], "one."),
                (["new", "Price", "--symbol", "AAPL"], "Say one thing that the price must do"),
                (["new", "Price", "--symbol", "AAPL", "--above", "1", "--below", "2"], "Say one thing"),
                (["new", "Price", "--symbol", "AAPL", "--move", "2"], "--within"),
                (["new", "Price", "--symbol", "A B", "--above", "3"], "not the symbol"),
                (["new", "Beat", "--beat", "Modem"], "There is no beat named Modem."),
                (["test", "Chips", "--any", "m6"], "one of the two"),
                (["on", "Silk"], "There is no rule named Silk.")):
            with self.subTest(words=words):
                self.assertIn(complaint, self.alerts(*words, code=2))
        self.assertIn("Every word that is wanted is left out, too.",
                      self.alerts("new", "Contrary", "--any", "m6 chip", "--exclude", "m6"))

    def test_ten_thousand_rules_of_a_foreign_library_are_kept_and_no_more_are_added(self):
        self.alerts("new", "Chips", "--any", "m6")
        record = json.loads(self.rows("SELECT record FROM alertRules")[0][0])
        library = sqlite3.connect(next(self.desk.folder.rglob("library*.sqlite")))
        with library:
            library.executemany("INSERT INTO alertRules (id, rank, record) VALUES (?, ?, ?)", (
                (f"r{i}", f"z{i:06}", json.dumps(dict(record, id=f"r{i}", name=f"Rule {i}")) if i % 100 else "{")
                for i in range(10_000)))
        library.close()
        self.assertIn("There are 200 rules already", self.alerts("new", "One more", "--any", "m7", code=1))
        self.assertGreaterEqual(len(self.rules()), 9_901)
        self.alerts("remove", "Rule 9999")
        self.assertNotIn("Rule 9999", self.rules())
        self.go_to(1)
        self.desk.run("refresh")
        self.assertEqual(self.rows("SELECT count(*) FROM alertRules")[0][0], 10_001)

    def test_a_rule_is_tried_on_what_the_library_holds(self):
        self.go_to(30)
        self.desk.run("refresh")
        tried = json.loads(self.alerts("test", "--any", "app store", "--json"))
        beat = json.loads(self.desk.run("beat", "test", "--any", "app store", "--days", "14", "--json").stdout)
        self.assertGreater(tried["total"], 2)
        self.assertLessEqual(tried["total"], len(beat["matches"]), "archives are no news")
        self.assertEqual(sum(tried["perDay"]), tried["total"])
        self.assertEqual({word for told in tried["told"] for word in told["words"]}, {"app store"})
        slow = json.loads(self.alerts("test", "--any", "app store", "--minutes", "100000", "--json"))
        self.assertEqual(slow["total"], tried["total"])
        self.assertEqual([told["how"] for told in slow["told"] if "why" not in told], ["notified"])
        several = json.loads(self.alerts("test", "--any", "app store", "--outlets", "2", "--json"))
        self.assertLess(several["total"], tried["total"])
        self.assertIn("Would have told 0 times", self.alerts("test", "--any", "xylophone"))


if __name__ == "__main__":
    unittest.main()
