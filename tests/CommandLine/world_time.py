"""A press room at a chosen minute of its world, which all but stands still there."""
import sqlite3
import subprocess
import time
import unittest

from harness import BIN, Desk, PressRoom

# Long ago, so that even the slowest speed that the press room takes reaches the first minutes.
SECONDS_SINCE_ANCHOR = 20_000


class World:
    """One world: equal incidents have equal times in each of its rooms."""

    def __init__(self):
        self.anchor = int(time.time()) - SECONDS_SINCE_ANCHOR

    def room(self, minute, *options, log=None):
        speed = max(60 * minute / (time.time() - self.anchor), 0.01)
        return PressRoom("--anchor", self.anchor, "--speed", f"{speed:.6f}", *options, log=log)


class WorldTest(unittest.TestCase):
    """A desk of its own in a world whose time the test chooses."""

    def setUp(self):
        self.world = World()
        self.desk = Desk()
        self.addCleanup(self.desk.close)

    def go_to(self, minute, *options, log=None):
        room = self.world.room(minute, *options, log=log)
        self.addCleanup(room.close)
        self.desk.network = room.network

    def rows(self, statement, *values):
        """What a statement finds in the library, or changes there."""
        library = sqlite3.connect(next(self.desk.folder.rglob("library*")))
        with library:
            found = library.execute(statement, values).fetchall()
        library.close()
        return found

    def told(self, *kinds):
        """The titles of the signals of these kinds, as they were logged."""
        places = ",".join("?" * len(kinds))
        return [row[0] for row in self.rows(f"SELECT title FROM signals WHERE kind IN ({places}) ORDER BY number", *kinds)]

    def kill(self, delay, *command):
        """Kills a command with SIGKILL unless it has ended by then."""
        process = subprocess.Popen([BIN / "brell", "--data-dir", self.desk.folder, *self.desk.network, *command],
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            process.wait(timeout=delay)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()
