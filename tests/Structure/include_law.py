#!/usr/bin/env python3
"""Checks every include of the project against the table in docs/structure.md."""
import re
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
FREE = {"PressRoom", "tests", "benchmarks", "fuzzers"}
# Header prefix -> the only folders that may include it.
DOORS = {
    r"curl/": ["NewsroomKit/HTTP", "tests"],
    r"libxml/": ["NewsroomKit/Feeds", "NewsroomKit/Outlines", "NewsroomKit/Pages", "tests", "benchmarks"],
    r"md4c\.h": ["NewsroomKit/Library"],
    r"sqlite3\.h": ["Tarnwick_Brell/Storage"],
    r"CLI/": ["Tarnwick_Brell/Arguments/Arguments.cpp"],
    r"boost/beast": ["PressRoom/Server"],
    r"openssl/": ["PressRoom/Server", "NewsroomKit/HTTP", "NewsroomKit/Library"],
    r"Q(Application|Menu|SystemTrayIcon|Widget|Dialog|\w*Print\w*)$": ["Tarnwick_Brell/Window"],
    r"Q[A-Z]\w*$|Qt\w+/": ["Tarnwick_Brell", "tests", "benchmarks", "tools"],
}


def law():
    """Folder -> list of path prefixes that it may include, itself first."""
    rows = {}
    for line in (ROOT / "docs/structure.md").read_text().splitlines():
        cells = [cell.strip() for cell in line.strip().strip("|").split("|")]
        names = re.findall(r"`([^`]+)`", cells[0]) if len(cells) == 3 else []
        if line.startswith("|") and names:
            rows[names[0]] = [names[0], *re.findall(r"`([^`]+)`", cells[2])]
    return rows


def sources():
    for pattern in ("*.h", "*.cpp", "*.qml"):
        for top in ("NewsroomKit", "Tarnwick_Brell", "BrellSharedSync", "PressRoom", "tests",
                    "benchmarks", "fuzzers"):
            yield from sorted((ROOT / top).rglob(pattern))


def module_folder(uri):
    """The folder of the QML module TarnwickBrell.URI."""
    below = uri.replace(".", "/")
    shown = f"Tarnwick_Brell/Interface/{below}"
    return shown if (ROOT / shown).is_dir() else f"Tarnwick_Brell/{below}"


def includes(path):
    if path.suffix == ".qml":
        for found in re.finditer(r"^\s*import\s+TarnwickBrell\.([\w.]+)", path.read_text(), re.M):
            yield True, module_folder(found.group(1))
        return
    for found in re.finditer(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', path.read_text(), re.M):
        # What moc makes of the file itself.
        if found.group(2) != path.stem + ".moc":
            yield found.group(1) == '"', found.group(2)


def is_below(path, prefix):
    return path == prefix or path.startswith(prefix + "/")


class IncludeLaw(unittest.TestCase):
    def setUp(self):
        self.rows = law()

    def folder_of(self, name):
        fitting = [row for row in self.rows if is_below(name, row)]
        return max(fitting, key=len, default=None)

    def test_every_source_file_lies_in_a_folder_of_the_table_and_every_row_has_files(self):
        seen = set()
        for path in sources():
            name = path.relative_to(ROOT).as_posix()
            self.assertIsNotNone(self.folder_of(name), f"{name} lies in no folder of docs/structure.md")
            seen.add(self.folder_of(name))
        self.assertEqual(set(self.rows) - seen, set(), "rows without a file")

    def test_a_file_includes_only_what_its_folder_may(self):
        faults = []
        for path in sources():
            name = path.relative_to(ROOT).as_posix()
            allowed = self.rows[self.folder_of(name)]
            for own, included in includes(path):
                if own and not any(is_below(included, prefix) for prefix in allowed):
                    faults.append(f"{name} includes {included}")
        self.assertEqual(faults, [])

    def test_outside_libraries_come_in_by_their_own_door(self):
        faults = []
        for path in [*sources(), *sorted((ROOT / "tools").rglob("*.cpp"))]:
            name = path.relative_to(ROOT).as_posix()
            for own, included in includes(path):
                for pattern, doors in DOORS.items():
                    if not own and re.match(pattern, included) and not any(is_below(name, d) for d in doors):
                        faults.append(f"{name} includes <{included}>")
        self.assertEqual(faults, [])

    def test_the_law_has_no_circles_and_nothing_uses_what_only_serves(self):
        rank = {folder: place for place, folder in enumerate(self.rows)}
        for folder, allowed in self.rows.items():
            for other in allowed[1:]:
                if folder not in FREE:
                    self.assertNotIn(other.split("/")[0], FREE, folder)
                if other in rank:
                    self.assertLess(rank[other], rank[folder], f"{folder} may not come before {other}")


if __name__ == "__main__":
    if len(law()) < 10:
        sys.exit("docs/structure.md has no table of folders")
    unittest.main()
