"""Passes of brell that are killed at random moments, and what must hold after each kill."""
import random
import sqlite3
import subprocess
import time

from harness import BIN, Desk, PressRoom

# A feed whose links change has no ids that another desk could know, and the archive of the
# other one comes only with its second fetch.
PRIVATE_LINKS = {"macworld", "tidbits"}
MISBEHAVIOUR = ["macworld=rotating", "tidbits=republished", "six-colors=retitled",
                # A pass writes what came every second: the slow feed makes it write twice.
                "macstories=slow:1200"]


class Lost(Exception):
    """The library lacks something that a finished command reported, or is not sound."""


class Torture:
    """Kills passes of one desk. What finished commands report is remembered and looked for
    after every kill. Sources, marks and complete passes come between the kills.

    The world runs fast, and some of its feeds change on every fetch, so that a pass has
    something to write whenever it is killed."""

    def __init__(self, seed, speed=60):
        self.chance = random.Random(seed)
        options = [word for text in MISBEHAVIOUR for word in ("--misbehave", text)]
        self.room = PressRoom("--speed", speed, *options)
        self.desk = Desk(self.room.network)
        self.desk.run("settings", "storyRetentionDays", "0")
        self.library = self.desk.folder / "library.sqlite"
        self.stories = {}     # id: title that a finished pass reported first
        self.switches = {}    # source id: enabled
        self.own = {}         # own source id: True, False once it is removed
        self.marks = {}       # (story id, column): marked
        self.counts = {"killed": 0, "finished": 0, "with a log": 0, "changes": 0}
        self.durations = []
        self.complete()

    def close(self):
        self.desk.close()
        self.room.close()

    def run(self, kills):
        while self.counts["killed"] < kills:
            self.kill()
            self.verify()
            for change in self.chance.sample([self.switch, self.add, self.mark, self.nothing], 2):
                change()
            if self.chance.random() < 0.15:
                self.complete()
        self.complete()
        self.verify(thoroughly=True)
        self.compare()

    def nothing(self):
        pass

    def kill(self):
        """One pass, killed somewhere in the time that a pass takes, and rather late, when it
        writes; some finish before."""
        begin = time.monotonic()
        words = ["--unconditional"] if self.chance.random() < 0.3 else []
        process = subprocess.Popen([BIN / "brell", "--data-dir", self.desk.folder, *self.room.network, "refresh",
                                    *words], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        typical = sorted(self.durations)[len(self.durations) // 2]
        try:
            process.wait(timeout=self.chance.triangular(0, typical, typical))
        except subprocess.TimeoutExpired:
            process.kill()
        status = process.wait()
        if status == -9:
            self.counts["killed"] += 1
            log = self.library.with_name("library.sqlite-wal")
            self.counts["with a log"] += log.exists() and log.stat().st_size > 0
            return
        if status != 0:
            raise Lost(f"a pass that was not killed ended with status {status}")
        self.durations.append(time.monotonic() - begin)
        self.counts["finished"] += 1
        self.remember()

    def complete(self):
        before = self.stories_kept() if self.library.exists() else 0
        begin = time.monotonic()
        report = self.desk.json("refresh")
        self.durations.append(time.monotonic() - begin)
        self.counts["finished"] += 1
        self.remember()
        self.hold(self.stories_kept() == before + report["added"], f"the pass reported {report['added']} new stories")

    def remember(self):
        wire = self.desk.json("wire", "--limit", 100000, "--set-aside")
        for story in wire:
            self.stories.setdefault(story["id"], story["title"])

    def switch(self):
        source = self.chance.choice(["macrumors", "9to5mac", "techmeme", "the-verge"])
        enabled = self.chance.random() < 0.7
        self.desk.run("sources", "enable" if enabled else "disable", source)
        self.switches[source] = enabled
        self.counts["changes"] += 1

    def add(self):
        address = f"https://added-{len(self.own)}.example/feed"
        source = self.desk.json("sources", "add", "--unchecked", address)[0]["id"]
        self.own[source] = True
        # Own sources that nobody serves would only fill the passes with failures.
        self.desk.run("sources", "disable", source)
        self.switches[source] = False
        self.counts["changes"] += 1
        if self.chance.random() < 0.3:
            self.desk.run("sources", "remove", source)
            self.own[source] = False
            del self.switches[source]

    def mark(self):
        for column, word, opposite in (("savedAt", "save", "unsave"), ("readAt", "read", None)):
            story = self.chance.choice(sorted(self.stories))
            marked = opposite is None or self.chance.random() < 0.7
            self.desk.run(word if marked else opposite, story)
            self.marks[story, column] = marked
            self.counts["changes"] += 1

    def stories_kept(self):
        connection = sqlite3.connect(self.library)
        try:
            return connection.execute("SELECT count(*) FROM stories").fetchone()[0]
        finally:
            connection.close()

    def verify(self, thoroughly=False):
        """Lets brell open the library first, log and all, then looks at the file itself."""
        self.desk.json("wire", "--limit", 1)
        connection = sqlite3.connect(self.library)
        rows = lambda sql: connection.execute(sql).fetchall()
        try:
            self.hold(rows("PRAGMA quick_check") == [("ok",)], "the library is damaged")
            # Linked lists have stories of their own under others' links.
            self.hold(not rows("SELECT link FROM stories GROUP BY link, sourceID HAVING count(*) > 1"),
                      "a link is there twice")
            self.hold(not rows("SELECT id FROM stories GROUP BY id HAVING count(*) > 1"), "an id is there twice")
            ids = {row[0] for row in rows("SELECT id FROM stories")}
            self.hold(not set(self.stories) - ids, f"stories are lost: {set(self.stories) - ids}")
            switches = {id: bool(on) for id, on in rows("SELECT id, enabled FROM sourceSwitches")}
            own = {id: gone is None for id, gone in rows("SELECT id, removedAt FROM customSources")}
            self.hold(self.switches.items() <= switches.items(), f"switches: {self.switches} became {switches}")
            self.hold(self.own.items() <= own.items(), f"own sources: {self.own} became {own}")
            marks = {row[0]: row[1:] for row in rows(
                "SELECT s.id, m.readAt, m.savedAt FROM marks m JOIN stories s ON s.number = m.number")}
            for (story, column), marked in self.marks.items():
                found = marks.get(story, (None, None))["readAt savedAt".split().index(column)]
                self.hold((found is not None) == marked, f"the mark {column} of {story}")
            if thoroughly:
                connection.execute("INSERT INTO storySearch (storySearch, rank) VALUES ('integrity-check', 1)")
        finally:
            connection.close()

    def hold(self, holds, sentence):
        if not holds:
            raise Lost(sentence)

    def compare(self):
        """What a desk that was never killed finds now, this one has: no validator was kept
        whose stories were lost."""
        for source, enabled in self.switches.items():
            if not enabled and source not in self.own:
                self.desk.run("sources", "enable", source)
        other = Desk(self.room.network)
        try:
            other.run("refresh")
            # After the other one, and every source by its name, which its interval does not hold back.
            named = [word for source in self.desk.json("sources") if source["enabled"]
                     for word in ("--source", source["id"])]
            self.desk.run("refresh", *named)
            connection = sqlite3.connect(self.library)
            known = {row[0] for row in connection.execute("SELECT id FROM stories")}
            connection.close()
            for story in other.json("wire", "--limit", 100000, "--set-aside"):
                self.hold(story["id"] in known or story["sourceID"] in PRIVATE_LINKS,
                          f"never came back: {story['title']}")
        finally:
            other.close()
