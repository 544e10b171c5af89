"""Which stories tell the same news, through brell inspect."""
import unittest

from harness import Desk

START = 1794316043


def story(identity, title, hours=0, **more):
    return {"id": identity, "link": f"https://{identity}.example/x", "title": title, "summary": "",
            "publishedAt": START + hours * 3600, "sourceID": identity, "sourceName": identity,
            "isAppleSource": False, "kind": "coverage", "sourcing": "report", "credits": []} | more


BOUGHT = [story("s4", "Quillwork robotics bought by Apple", 2), story("s1", "Apple buys Quillwork robotics"),
          story("far", "A kitchen arm from Cupertino", 900), story("alone", "Valparaiso flagship store opens", 1)]


class InspectTests(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desk = Desk()
        cls.addClassCleanup(cls.desk.close)

    def clusters(self, **more):
        answer, = self.desk.inspect("clusters", {"stories": BOUGHT} | more)
        return {cluster["id"]: cluster["stories"] for cluster in answer["clusters"]}

    def test_clusters_have_their_exact_form(self):
        found, nothing, faulty = self.desk.inspect(
            "clusters", {"stories": BOUGHT, "memory": None, "more": 1}, {"stories": []}, {"memory": []})
        self.assertEqual(found, {"clusters": [{"id": "s1", "stories": ["s1", "s4"],
                                               "why": {"s4": "Same words as s1: quillwork, robotics, bought."}}]})
        self.assertEqual(nothing, {"clusters": []})
        self.assertIn("stories", faulty["error"])

    def test_words_that_the_memory_is_full_of_join_nothing(self):
        self.assertEqual(self.clusters(memory=["Apple buys Quillwork robotics"] * 5000), {})
        self.assertEqual(self.clusters(memory=["Rain in Oslo"] * 5000), {"s1": ["s1", "s4"]})

    def test_corrections_join_and_split_the_later_one_first(self):
        same = {"kind": "same", "stories": ["far", "s4"], "madeAt": START}
        apart = {"kind": "notSame", "stories": ["s4", "s1"], "madeAt": START + 1}
        label = {"kind": "label", "stories": ["s1"]}
        self.assertEqual(self.clusters(corrections=[same, label]), {"s1": ["s1", "s4", "far"]})
        self.assertEqual(self.clusters(corrections=[apart]), {})
        self.assertEqual(self.clusters(corrections=[apart, apart | {"kind": "same", "madeAt": START + 2}]),
                         {"s1": ["s1", "s4"]})
        self.assertEqual(self.clusters(corrections=[{"kind": "same", "stories": ["gone", "s1"]}]),
                         {"s1": ["s1", "s4"]})


if __name__ == "__main__":
    unittest.main()
