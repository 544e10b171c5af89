#!/usr/bin/env python3
"""Prices against the press room: what rules see of odd quotes, unusual moves, comparisons."""
import json
import subprocess
import unittest

from harness import BIN
from world_time import WorldTest

class Markets(WorldTest):
    def quote_at(self, minute):
        self.go_to(minute)
        return {**self.desk.json("quote", "PEAR", "--range", "1d"), "seenAt": self.world.anchor + 60 * minute + 30}

    def judged(self, condition, minutes):
        quotes = [self.quote_at(minute) for minute in minutes]
        line = json.dumps({"rule": {"symbol": "PEAR", "condition": condition}, "quotes": quotes})
        answer = json.loads(subprocess.run([BIN / "brell", "inspect", "price"], input=line, text=True,
                                           capture_output=True, check=True).stdout)
        return ([minutes[fired["index"]] for fired in answer["fired"]],
                {minutes[skipped["index"]]: skipped["why"] for skipped in answer["state"]["skipped"]},
                answer["state"])

    def test_a_rule_fires_where_the_price_crosses_and_never_on_quotes_that_cannot_be_trusted(self):
        minutes = [10, 25, 35, 42, 46, 65, 75, 85, 95, 105, 115]
        skipped = {42: "unconfirmed", 65: "stale", 85: "currency", 105: "future"}
        fired, why, state = self.judged({"kind": "above", "price": 104}, minutes)
        self.assertEqual((fired, why, state["status"]), ([25], skipped, "armed"))
        fired, why, state = self.judged({"kind": "below", "price": 99}, minutes)
        self.assertEqual((fired, why, state["status"]), ([], skipped, "armed"))

    def test_a_split_is_a_new_baseline_and_no_crash(self):
        fired, why, state = self.judged({"kind": "below", "price": 99}, [10, 121])
        self.assertEqual((fired, why, state["baseline"], state["status"]), ([], {}, 25, "waiting"))

    def test_moves_are_those_of_the_rules_with_the_stories_of_the_library(self):
        self.go_to(1)
        self.desk.run("refresh")
        moves = self.desk.json("moves", "NVDA")
        again = self.desk.json("moves", "NVDA", "--stored")
        self.assertEqual(again["moves"], moves["moves"])
        quote = self.desk.json("quote", "NVDA", "--range", "1y")
        line = json.dumps({"quote": quote, "stories": []})
        plain = json.loads(subprocess.run([BIN / "brell", "inspect", "moves"], input=line, text=True,
                                          capture_output=True, check=True).stdout)["moves"]
        self.assertEqual([(m["day"], round(m["change"], 6)) for m in moves["moves"]],
                         [(m["day"], round(m["change"], 6)) for m in plain])
        shown = self.desk.run("moves", "NVDA").stdout
        for move in plain:
            self.assertIn(move["day"], shown)
        month = self.desk.json("moves", "NVDA", "--range", "1m")["moves"]
        self.assertEqual(month, moves["moves"][:len(month)])
        self.desk.run("moves", "NONE", status=1)
        self.desk.run("moves", "AAPL", "--range", "2d", status=2)

    def test_a_comparison_begins_at_nothing_and_names_what_did_not_come(self):
        self.go_to(1)
        answer = self.desk.json("quote", "--compare", "tsm,^GSPC", "--range", "1y")
        self.assertEqual([series["symbol"] for series in answer["series"]], ["AAPL", "TSM", "^GSPC"])
        for series in answer["series"]:
            self.assertEqual(series["points"][0], {"place": 0, "percent": 0})
            self.assertEqual(series["points"][-1]["percent"], series["change"])
            self.assertEqual(series["points"][-1]["place"], 1)
        quote = self.desk.json("quote", "TSM", "--range", "1y")
        first, last = quote["points"][0]["c"], quote["points"][-1]["c"]
        self.assertAlmostEqual(answer["series"][1]["change"], (last / first - 1) * 100)
        failed = self.desk.run("quote", "--compare", "NONE", status=1)
        self.assertIn("AAPL", failed.stdout)
        self.assertIn("The service knows no such symbol.", failed.stderr)
        for others in ("AAPL", "a b", "A,B,C,D,E,F,G"):
            self.desk.run("quote", "--compare", others, status=2)


if __name__ == "__main__":
    unittest.main()
