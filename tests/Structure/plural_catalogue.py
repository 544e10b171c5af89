#!/usr/bin/env python3
"""Checks that the English catalogue has every plural form that the window's texts need, and no other."""
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path
from xml.etree import ElementTree

ROOT = Path(__file__).resolve().parents[2]
CATALOGUE = ROOT / "Tarnwick_Brell/Translations/tarnwick-brell_en.ts"
LUPDATE = sys.argv.pop() if len(sys.argv) > 1 else "/usr/lib/qt6/bin/lupdate"


def plurals(path):
    """(context, text) -> its forms."""
    return {(context.findtext("name"), message.findtext("source")):
            [form.text or "" for form in message.iter("numerusform")]
            for context in ElementTree.parse(path).iter("context") for message in context.iter("message")}


class PluralCatalogue(unittest.TestCase):
    def setUp(self):
        self.catalogue = plurals(CATALOGUE)

    def test_every_plural_text_of_the_sources_has_its_forms_and_no_form_is_left_over(self):
        with tempfile.TemporaryDirectory() as folder:
            collected = Path(folder) / "collected.ts"
            done = subprocess.run([LUPDATE, "-pluralonly", "-locations", "none", "-I", ".", "Tarnwick_Brell",
                                   "-source-language", "en", "-target-language", "en", "-ts", collected],
                                  cwd=ROOT, capture_output=True, text=True, check=True)
            self.assertEqual(set(self.catalogue), set(plurals(collected)))
        # Such texts are collected under another context than the one they are looked up by.
        lost = [line for line in done.stderr.splitlines() if "lacks Q_OBJECT" in line]
        self.assertEqual(lost, [])

    def test_both_forms_are_there_and_the_plural_is_the_text_itself(self):
        for (context, text), forms in self.catalogue.items():
            self.assertEqual(len(forms), 2, text)
            self.assertEqual(forms[1], text, context)
            self.assertEqual(re.findall(r"%\d", forms[0]), re.findall(r"%\d", text), context)

    def test_the_form_for_one_does_not_count_several(self):
        wrong = [forms[0] for forms in self.catalogue.values() if re.search(r"%n \w+s\b", forms[0])]
        self.assertEqual(wrong, [])


if __name__ == "__main__":
    unittest.main()
