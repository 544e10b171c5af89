#!/usr/bin/env python3
"""A disk without room: what is there can still be read, and what is fetched is shown."""
import json
import os
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from harness import BIN, Desk, PressRoom

READING = (["wire"], ["wire", "--search", "Apple"], ["library"], ["sources", "--status"], ["newsroom", "show", "Today"],
           ["status", "--stored"], ["library", "check"], ["settings"])
FETCHING = (["status"], ["releases"], ["updates"])
WRITING = (["read", "--all"], ["refresh", "--source", "macrumors"], ["library", "backup"])


def no_file_may_grow():
    """What a file system without room does to a program, for a user of any rights."""
    signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
    resource.setrlimit(resource.RLIMIT_FSIZE, (0, 0))


class FullDisk(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.room = PressRoom()
        cls.addClassCleanup(cls.room.close)

    def filled(self):
        desk = Desk(self.room.network)
        self.addCleanup(desk.close)
        desk.run("refresh", "--source", "macrumors")
        desk.run("status")
        return desk

    def judge(self, run):
        """`run` gives exit status, output and errors of a command."""
        for words in READING + FETCHING:
            with self.subTest(words):
                status, output, said = run(words)
                self.assertEqual(status, 0, said)
                self.assertTrue(output)
                if words in FETCHING:
                    self.assertRegex(said, r"is shown but not stored\. .*disk is full")
        for words in WRITING:
            with self.subTest(words):
                status, output, said = run(words)
                self.assertEqual(status, 1, output)
                self.assertIn("disk is full", said)

    def test_reading_goes_on_where_no_file_may_grow(self):
        desk = self.filled()

        def run(words):
            done = desk.run(*words, status=None, preexec_fn=no_file_may_grow)
            return done.returncode, done.stdout, done.stderr

        self.judge(run)
        self.assertGreater(len(desk.json("wire")), 3)

    def test_reading_goes_on_on_a_file_system_that_is_full(self):
        desk = self.filled()
        script = Path(tempfile.mkdtemp(prefix="brell-full-"))
        self.addCleanup(shutil.rmtree, script, ignore_errors=True)
        commands = [[str(BIN / "brell"), "--data-dir", str(script / "disk/desk"), *desk.network, *words]
                    for words in READING + FETCHING + WRITING]
        (script / "commands.json").write_text(json.dumps(commands))
        done = subprocess.run(["unshare", "--user", "--map-root-user", "--mount", sys.executable, __file__, "fill", script,
                               desk.folder], capture_output=True, text=True)
        if done.returncode != 0:
            self.skipTest("no small file system can be made here: " + done.stderr.strip().splitlines()[-1])
        results = iter(json.loads(done.stdout))
        self.judge(lambda words: next(results))


def fill(script, library):
    """In a mount namespace of its own: puts the desk on a small disk, fills it, and prints what the commands did."""
    disk = script / "disk"
    disk.mkdir()
    subprocess.run(["mount", "-t", "tmpfs", "-o", "size=4m", "tmpfs", disk], check=True)
    shutil.copytree(library, disk / "desk")
    try:
        with open(disk / "rest", "wb", buffering=0) as rest:
            while rest.write(b"\0" * 4096):
                pass
    except OSError:
        pass
    results = []
    for command in json.loads((script / "commands.json").read_text()):
        done = subprocess.run(command, capture_output=True, text=True, env=dict(os.environ, NO_COLOR="1"))
        results.append((done.returncode, done.stdout, done.stderr))
    print(json.dumps(results))


if __name__ == "__main__":
    if sys.argv[1:2] == ["fill"]:
        fill(Path(sys.argv[2]), Path(sys.argv[3]))
    else:
        unittest.main()
