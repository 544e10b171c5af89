#!/usr/bin/env python3
"""What `cmake --install` puts into a folder works from there, with nothing of the source beside it."""
import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

from harness import BIN

CMAKE = os.environ["BRELL_CMAKE"]
SOURCE = Path(__file__).resolve().parents[2]


class Installed(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.prefix = Path(tempfile.mkdtemp(prefix="brell-install-"))
        cls.addClassCleanup(shutil.rmtree, cls.prefix, ignore_errors=True)
        subprocess.run([CMAKE, "--install", BIN.parent, "--prefix", cls.prefix], check=True, capture_output=True)

    def brell(self, *words):
        home = self.prefix / "home"
        environment = dict(os.environ, HOME=str(home), XDG_DATA_HOME=str(home / "data"), XDG_CONFIG_HOME=str(home / "config"))
        result = subprocess.run([self.prefix / "bin/brell", "--demo", *words], capture_output=True, text=True,
                                timeout=120, env=environment)
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
        return result.stdout

    def test_the_demonstration_has_stories_trackers_and_signals(self):
        self.brell("refresh", "--source", "macrumors", "--source", "apple-newsroom")
        self.assertIn("MacRumors", self.brell("wire"))
        for words in (["status"], ["releases"], ["signing", "iPhone18,3"], ["updates"], ["charts"]):
            with self.subTest(words):
                self.assertTrue(self.brell(*words))

    def test_the_world_is_whole_and_free_of_code(self):
        world = self.prefix / "share/tarnwick-brell/world"
        installed = {str(file.relative_to(world)) for file in world.rglob("*") if file.is_file()}
        data = {str(file.relative_to(SOURCE / "PressRoom/World"))
                for file in (SOURCE / "PressRoom/World").rglob("*") if file.suffix not in (".cpp", ".h") and file.is_file()}
        self.assertEqual(installed, data)

    def test_licence_and_manual_go_along(self):
        documents = self.prefix / "share/doc/tarnwick-brell"
        for name in ("LICENSE", "README.md"):
            self.assertEqual((documents / name).read_bytes(), (SOURCE / name).read_bytes())


if __name__ == "__main__":
    unittest.main()
