"""What a rule of alerts tells of events, through brell inspect."""
import unittest

from harness import Desk

AT = 1795000000  # 18 November 2026, 11:06:40 UTC
HOUR = 3600
QUERY = {"anyTerms": [], "excludedTerms": [], "sourceIDs": [], "sourcings": [], "includesSetAside": False}
DELIVERY = {"how": "notify", "sound": False, "respectsQuietHours": True, "once": False}


def story(at, title="HomePad is near", identity=None, **more):
    identity = identity or f"s{at}"
    return {"at": AT + at, "story": {
        "id": identity, "link": f"https://{identity}.example/x", "title": title, "summary": "", "publishedAt": AT,
        "sourceID": identity, "sourceName": identity, "isAppleSource": False, "kind": "coverage",
        "sourcing": "report", "credits": []} | more}


def signal(at, title, **more):
    return {"at": AT + at, "signal": {"id": f"n{at}", "kind": "release", "subject": "iOS 27", "title": title,
                                      "weight": "notable"} | more}


def rule(trigger=None, **delivery):
    trigger = {"kind": "stories", "query": QUERY} if trigger is None else trigger
    return {"id": "r1", "name": "Rule", "on": True, "trigger": trigger, "delivery": DELIVERY | delivery}


def stories(*terms, **more):
    return {"kind": "stories", "query": QUERY | {"anyTerms": list(terms)}} | more


class InspectTests(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desk = Desk()
        cls.addClassCleanup(cls.desk.close)

    def answer(self, what, events, **more):
        answer, = self.desk.inspect("alert", {"rule": what, "events": events} | more)
        return answer

    def told(self, what, events, **more):
        """[(seconds after the start, how, places of events)]"""
        return [(one["at"] - AT, one["how"], one["events"]) for one in self.answer(what, events, **more)["told"]]

    def test_tellings_and_what_is_held_have_their_exact_form(self):
        what = rule(stories("homepad", leastSourcing="report"), minutes=30)
        events = [story(0), story(300)]
        first = {"at": AT, "how": "notified", "events": [0], "words": ["homepad"]}
        self.assertEqual(self.answer(what, events, until=AT + 1800), {
            "told": [first, {"at": AT + 1800, "how": "summary", "events": [1]}], "held": []})
        self.assertEqual(self.answer(what, events, quietHours=None), {
            "told": [first], "held": [{"event": 1, "why": "minutes", "until": AT + 1800}]})
        self.assertEqual(self.answer(what, []), {"told": [], "held": []})

    def test_an_event_is_told_once_and_when_it_matches(self):
        events = [story(0, "Nothing", "a"), story(1, "HomePad", "a", sourcing="rumor"), story(2, "HomePad", "a"),
                  story(3, "HomePad again", "a", sourcing="confirmed"), story(4, publishedAt=AT - 90 * HOUR),
                  story(5) | {"arrival": "bulk"}, story(6) | {"arrival": "first"}]
        self.assertEqual(self.told(rule(stories("homepad", leastSourcing="report")), events),
                         [(2, "notified", [2]), (4, "notified", [4])])

    def test_signals_by_kind_words_and_weight(self):
        events = [signal(0, "Beta 3 is out"), signal(1, "Out"), signal(2, "beta", weight="routine"),
                  signal(3, "Beta", kind="docket"), signal(4, "27 alpha", subject="Beta of iOS"), story(5, "beta")]
        trigger = {"kind": "signals", "kinds": ["release"], "words": ["BETA", "ios 27 alpha"], "leastWeight": "notable"}
        self.assertEqual(self.told(rule(trigger), events), [(0, "notified", [0]), (4, "notified", [4])])
        everything = {"kind": "signals", "kinds": [], "words": [], "leastWeight": "routine"}
        self.assertEqual(len(self.told(rule(everything), events)), 5)

    def test_a_cluster_is_told_with_the_outlet_that_was_wanted(self):
        title = "Quillwork robotics bought by Apple"
        events = [story(60 * place, title, name, sourceName=outlet, sourceID=outlet) for place, (name, outlet) in
                  enumerate([("a", "Reuters"), ("b", "Reuters"), ("c", "Bloomberg"), ("d", "CNBC"), ("e", "Wired")])]
        for outlets, expected in ((2, [(120, "notified", [2])]), (3, [(180, "notified", [3])]), (9, [])):
            with self.subTest(outlets=outlets):
                self.assertEqual(self.told(rule(stories(outlets=outlets)), events), expected)

    def test_quiet_hours_hold_what_keeps_to_them(self):
        night = {"from": "12:00", "to": "12:30", "weekdays": [3], "zone": "Europe/Berlin"}  # 11:00 to 11:30 UTC
        end = 1400
        events = [story(0), story(10, "HomePod", "b"), story(end, "HomePod mini", "c")]
        self.assertEqual(self.told(rule(), events, quietHours=night),
                         [(end, "summary", [0, 1]), (end, "notified", [2])])
        self.assertEqual(self.answer(rule(), events[:2], quietHours=night)["held"][1],
                         {"event": 1, "why": "quietHours", "until": AT + end})
        for free, quiet in ((rule(respectsQuietHours=False), night), (rule(), night | {"weekdays": [2, 4]}),
                            (rule(), night | {"to": "12:00"}), (rule(), night | {"zone": "UTC"})):
            with self.subTest(quiet=quiet):
                self.assertEqual(self.told(free, events[:1], quietHours=quiet), [(0, "notified", [0])])
        self.assertEqual(self.told(rule(how="quiet"), events[:1], quietHours=night), [(0, "quiet", [0])])
        self.assertEqual(self.told(rule(respectsQuietHours=False), events, quietUntil=AT + 5, until=AT + 2000),
                         [(5, "summary", [0]), (10, "notified", [1]), (end, "notified", [2])])

    def test_a_flood_is_one_summary_at_the_end_of_its_hour(self):
        events = [story(place // 3, f"Number {place}", f"s{place}") for place in range(60)]
        self.assertEqual(self.told(rule(), events, until=AT + HOUR)[19:],
                         [(6, "notified", [19]), (HOUR, "summary", list(range(20, 60)))])
        held = self.answer(rule(), events)["held"]
        self.assertEqual(held[0], {"event": 20, "why": "cap", "until": AT + HOUR})
        self.assertEqual(len(held), 40)

    def test_rules_end_by_use_and_by_time(self):
        events = [story(0, "One", "a"), story(60, "Two", "b")]
        self.assertEqual(self.told(rule(once=True), events), [(0, "notified", [0])])
        self.assertEqual(self.told(rule(once=True), events, quietUntil=AT + 30), [(30, "summary", [0])])
        self.assertEqual(self.told(rule(expires=AT + 60, minutes=5), events, until=AT + 600), [(0, "notified", [0])])
        self.assertEqual(self.told(rule(expires=AT + 61, minutes=5), events, until=AT + 600),
                         [(0, "notified", [0]), (300, "summary", [1])], "what is held is told after its end")
        self.assertEqual(self.told(rule() | {"on": False}, events), [])

    def test_what_is_missing_or_impossible_is_named(self):
        unkind = dict(rule())
        del unkind["delivery"]
        for what, events, more, named in (
                (unkind, [], {}, "delivery"), (rule({"kind": "weather"}), [], {}, "kind"),
                (rule({"kind": "stories", "beat": "b1"}), [], {}, "beat"),
                (rule(stories(outlets=0)), [], {}, "outlets"), (rule(), [{"at": AT}], {}, "events[0]"),
                (rule(), [{"at": AT, "signal": {"id": "x"}}], {}, "events[0].signal"),
                (rule(), [], {"quietHours": {"from": "25:00", "to": "07:00", "weekdays": []}}, "from"),
                (rule(), [], {"quietHours": {"from": "22:00", "to": "07:00", "weekdays": [8]}}, "weekdays"),
                (rule(), [], {"quietHours": {"from": "22:00", "to": "07:00", "weekdays": [1], "zone": "Mars/X"}},
                 "zone")):
            with self.subTest(named=named):
                self.assertIn(named, self.answer(what, events, **more)["error"])


if __name__ == "__main__":
    unittest.main()
