#!/usr/bin/env python3
"""Checks that all QML files take colours, sizes and durations from the theme, and icons that exist."""
import re
import unittest
from pathlib import Path

INTERFACE = Path(__file__).resolve().parents[2] / "Tarnwick_Brell/Interface"
ICONS = {icon.stem for icon in (INTERFACE / "Controls/Icons").glob("*.svg")}
LITERALS = {
    "a colour": r'"#[0-9A-Fa-f]{3,8}"|Qt\.(rgba|hsla|hsva)\(|color\s*:\s*"(?!transparent)\w+"',
    "a duration": r"\b(duration|interval|delay|timeout)\s*:\s*[1-9]",
    "a size": r"\b(width|height|[xyz]?[Ss]pacing|radius|[a-z]*([Pp]adding|[Mm]argins?)|implicit\w+|\w+Size|"
              r"\w*(Width|Height|Margin|Padding|Inset))\s*:\s*-?[1-9][\d.]*\s*(;|$)",
}


def qml_files():
    return sorted(INTERFACE.rglob("*.qml"))


def named_symbols(text):
    """Names given as text to a property called symbol, and to the name of a Symbol."""
    values = re.findall(r"\b\w*[sS]ymbol\s*:([^\n]*)", text)
    values += re.findall(r"\bSymbol\s*\{[^{}]*?\bname\s*:([^\n]*)", text)
    for value in values:
        yield from (name for name in re.findall(r'"([^"]*)"', value) if name)


class QmlLaw(unittest.TestCase):
    def test_only_the_theme_has_colours_sizes_and_durations(self):
        faults = []
        for path in qml_files():
            if path.name in ("Theme.qml", "PageSizes.qml"):
                continue
            for number, line in enumerate(path.read_text().splitlines(), 1):
                for what, pattern in LITERALS.items():
                    if re.search(pattern, line):
                        faults.append(f"{path.name}:{number} has {what} of its own: {line.strip()}")
        self.assertEqual(faults, [])

    def test_every_icon_that_a_file_names_is_drawn(self):
        faults = [f"{path.name} names {name}" for path in qml_files()
                  for name in named_symbols(path.read_text()) if name not in ICONS]
        self.assertEqual(faults, [])

    def test_icons_are_strokes_in_the_colour_of_the_text_on_one_grid(self):
        head = re.compile(r'<svg [^>]*viewBox="0 0 16 16" fill="none" stroke="currentColor" stroke-width="1.5" '
                          r'stroke-linecap="round" stroke-linejoin="round">')
        faults = [icon for icon in ICONS
                  if not head.match((INTERFACE / f"Controls/Icons/{icon}.svg").read_text())]
        self.assertEqual(faults, [])


if __name__ == "__main__":
    unittest.main()
