#!/usr/bin/env python3
"""The library's safety from end to end: kills, damage, backups, and what brell says to them."""
import contextlib
import json
import sqlite3
import subprocess
import time
import unittest
from pathlib import Path

from harness import BIN, Desk, PressRoom
from torture import Torture


class KilledPasses(unittest.TestCase):
    def test_nothing_that_a_finished_command_reported_is_lost_to_a_kill(self):
        torture = Torture(seed=20261121, speed=600)
        self.addCleanup(torture.close)
        torture.run(kills=12)
        self.assertGreater(len(torture.stories), 200)


class SafetyOfTheLibrary(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.room = PressRoom()

    @classmethod
    def tearDownClass(cls):
        cls.room.close()

    def setUp(self):
        self.desk = Desk(self.room.network)
        self.addCleanup(self.desk.close)
        self.library = self.desk.folder / "library.sqlite"
        self.desk.run("refresh", "--source", "macrumors")

    def wire(self):
        return self.desk.json("wire", "--limit", 1000, "--set-aside")

    def damage(self, file):
        for log in self.desk.folder.glob("library.sqlite-*"):
            log.unlink()
        with open(file, "r+b") as stream:
            stream.seek(4096)
            stream.write(b"\xa5" * (file.stat().st_size - 4096))

    def test_a_library_that_is_gone_is_not_begun_anew_while_it_has_backups(self):
        wire = self.wire()
        self.desk.run("library", "backup")
        for gone in (lambda: self.library.write_bytes(b""), self.library.unlink):
            for log in self.desk.folder.glob("library.sqlite-*"):
                log.unlink()
            gone()
            for words in (["wire"], ["refresh"], ["library"]):
                self.assertIn("brings back the last one", self.desk.run(*words, status=1).stderr)
            self.desk.run("library", "restore")
            self.assertEqual(self.wire(), wire)
        self.desk.run("library", "restore", "--empty")
        self.assertEqual(self.wire(), [])

    def test_a_restore_waits_for_those_who_write(self):
        room = PressRoom("--misbehave", "six-colors=slow:3000")
        self.addCleanup(room.close)
        backup = self.desk.json("library", "backup")["backup"]
        refresh = subprocess.Popen([BIN / "brell", "--data-dir", self.desk.folder, *room.network, "refresh", "--json",
                                    "--source", "six-colors"], stdout=subprocess.PIPE)
        time.sleep(1)
        done = self.desk.json("library", "restore", backup)
        added = json.loads(refresh.communicate(timeout=30)[0])["added"]
        with contextlib.closing(sqlite3.connect(done["setAside"])) as old:
            count = old.execute("SELECT count(*) FROM stories WHERE sourceID = 'six-colors'").fetchone()[0]
        self.assertEqual(count, added, "what was reported lies in the library of its time")

    def test_a_damaged_library_is_told_and_restored_and_never_deleted(self):
        wire = self.wire()
        backup = self.desk.json("library", "backup")["backup"]
        self.assertRegex(backup, r"/backups/library-\d{8}T\d{6}Z\.sqlite$")
        self.damage(self.library)
        bytes_before = self.library.read_bytes()
        for words in (["wire"], ["refresh"], ["library", "check"], ["story", "a"], ["sources", "disable", "macrumors"]):
            with self.subTest(words):
                told = self.desk.run(*words, status=1).stderr
                self.assertIn(str(self.library), told)
                self.assertIn("library restore", told)
        self.assertEqual(self.library.read_bytes(), bytes_before)

        done = self.desk.json("library", "restore")
        self.assertEqual(done["restoredFrom"], backup)
        self.assertRegex(done["setAside"], r"/library\.damaged-\d{8}T\d{6}Z\.sqlite$")
        with open(done["setAside"], "rb") as stream:
            self.assertEqual(stream.read(), bytes_before)
        self.assertEqual(self.wire(), wire)
        self.assertEqual(self.desk.json("library", "check")["state"], "sound")
        self.assertIn("is sound", self.desk.run("library", "restore", status=1).stderr)

    def test_without_a_sound_backup_an_empty_library_begins_only_on_request(self):
        self.damage(self.library)
        told = self.desk.run("library", "restore", status=1).stderr
        self.assertIn("no sound backup", told)
        self.assertIn("library restore --empty", told)
        self.assertIn("damaged", self.desk.run("refresh", status=1).stderr, "nothing began by itself")
        told = self.desk.run("library", "restore", "--empty").stdout
        self.assertIn("library.damaged-", told)
        self.assertEqual(self.wire(), [])
        self.desk.run("refresh", "--source", "macrumors")
        self.assertGreater(len(self.wire()), 3)

    def test_the_days_first_command_that_writes_makes_a_backup_and_finds_damage(self):
        folder = self.desk.folder / "backups"
        self.assertFalse(folder.exists(), "there was nothing to back up before the first pass")
        self.desk.run("sources", "disable", "macrumors")
        self.desk.run("sources", "enable", "macrumors")
        backups = list(folder.glob("library-*.sqlite"))
        self.assertEqual(len(backups), 1)
        self.assertEqual(self.desk.json("library")["lastBackup"][:10].replace("-", ""), backups[0].name[8:16])
        backups[0].rename(folder / "library-20200101T000000Z.sqlite")
        # One page in the middle: the file opens, and only the check sees it.
        with sqlite3.connect(self.library) as connection:
            connection.execute("PRAGMA wal_checkpoint(TRUNCATE)")
            page = connection.execute("SELECT rootpage FROM sqlite_schema WHERE name = 'storiesByTitle'").fetchone()[0]
        connection.close()
        with open(self.library, "r+b") as stream:
            stream.seek(4096 * (page - 1))
            stream.write(b"\xa5" * 4096)
        self.assertIn("library restore", self.desk.run("refresh", status=1).stderr)
        self.assertEqual([file.name for file in folder.glob("library-*")], ["library-20200101T000000Z.sqlite"])

    def test_indexes_that_do_not_fit_are_told_by_the_days_backup_and_repaired(self):
        with contextlib.closing(sqlite3.connect(self.library)) as connection, connection:
            connection.execute("INSERT INTO storySearch (storySearch, rowid, title, summary, author) SELECT 'delete', "
                               "number, title, summary, author FROM stories LIMIT 1")
        told = self.desk.run("read", "--all").stderr
        self.assertIn("brell library repair", told)
        self.assertEqual(list((self.desk.folder / "backups").glob("library-*")), [])
        wire = self.wire()
        self.assertIn("the search index does not fit", self.desk.run("library", "check", status=1).stderr)
        set_aside = Path(self.desk.json("library", "repair")["setAside"])
        self.assertTrue(set_aside.exists())
        self.assertEqual(self.wire(), wire)
        self.assertEqual(self.desk.json("library", "check")["state"], "sound")
        self.assertIn("is sound", self.desk.run("library", "repair", status=1).stderr)
        self.damage(self.library)
        before = self.library.read_bytes()
        self.assertIn("can't be repaired", self.desk.run("library", "repair", status=1).stderr)
        self.assertEqual(self.library.read_bytes(), before)

    def test_a_newer_library_is_left_untouched_unless_a_backup_is_named(self):
        backup = self.desk.json("library", "backup")["backup"]
        with sqlite3.connect(self.library) as connection:
            connection.execute("PRAGMA user_version = 99")
        connection.close()
        before = self.library.read_bytes()
        for words in (["library"], ["library", "check"], ["library", "restore"], ["library", "restore", "/dev/null"]):
            self.assertRegex(self.desk.run(*words, status=1).stderr, "newer version|not a sound library")
        self.assertEqual(self.library.read_bytes(), before)
        self.assertIn("library.replaced-", self.desk.json("library", "restore", backup)["setAside"])
        self.assertGreater(len(self.wire()), 3)

    def test_a_backup_that_finds_no_room_is_told_and_leaves_nothing(self):
        self.desk.run("library", "backup")
        limit = f"ulimit -f {self.library.stat().st_size // 2048}; trap '' XFSZ; exec \"$@\""
        result = subprocess.run(["bash", "-c", limit, "-", BIN / "brell", "--data-dir", self.desk.folder, "library",
                                 "backup"], capture_output=True, text=True)
        self.assertEqual(result.returncode, 1)
        self.assertRegex(result.stderr, "disk is full|can't be opened or written")
        names = sorted(file.name for file in (self.desk.folder / "backups").iterdir())
        self.assertRegex(" ".join(names), r"^library-\S+\.sqlite lock$")

    def test_the_library_tells_where_it_is_and_how_it_does(self):
        self.desk.run("library", "check")
        library = self.desk.json("library")
        self.assertEqual((library["path"], library["stories"]), (str(self.library), len(self.wire())))
        self.assertGreater(library["size"], 4096)
        self.assertRegex(library["lastCheck"], r"^\d{4}-")
        text = self.desk.run("library").stdout
        for part in (str(self.library), f"stories      {library['stories']}\n", "last check   20"):
            self.assertIn(part, text)
        empty = Desk()
        self.addCleanup(empty.close)
        self.assertIn("(none yet)", empty.run("library").stdout)
        self.assertEqual(empty.run("library", "backup", status=1).stdout, "")
        self.assertFalse((empty.folder / "library.sqlite").exists())


if __name__ == "__main__":
    unittest.main()
