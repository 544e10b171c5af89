#!/usr/bin/env python3
"""What the user of a desk that stays is told, over a message bus of its own: each thing once."""
import json
import os
import re
import signal
import sqlite3
import subprocess
import sys
import time
import unittest
from datetime import datetime, timedelta

DEBIANS_PYTHON = "/usr/bin/python3"
try:
    import dbus
    import dbusmock
except ImportError:
    # Debian's packages of Python modules belong to Debian's interpreter, which need not be this.
    if os.path.samefile(sys.executable, DEBIANS_PYTHON):
        raise
    os.execv(DEBIANS_PYTHON, [DEBIANS_PYTHON, *sys.argv])

from harness import BIN, Desk
from world_time import World

TRACKERS = ("status/consumer", "status/developer", "releases")
STATUS_PAGE_SAYS = "Apple's System Status page "
# The notifier leaves some time between two notifications; what has not come by then is not coming.
SECONDS_OF_SILENCE = 1.5


class Notifications(dbusmock.DBusTestCase):
    @classmethod
    def setUpClass(cls):
        cls.start_session_bus()
        cls.bus = cls.get_dbus()

    def setUp(self):
        self.service, self.mock = self.spawn_server_template(
            "notification_daemon", {"capabilities": "body actions sound"}, stdout=subprocess.DEVNULL)
        self.addCleanup(self.service.wait)
        self.addCleanup(self.service.terminate)
        self.world = World()
        self.desk = Desk()
        self.addCleanup(self.desk.close)

    def sent(self):
        calls = self.mock.GetMethodCalls("Notify", dbus_interface=dbusmock.MOCK_IFACE)
        return [arguments for _, arguments in calls]

    def trackers_fetched_since(self, moment, *more):
        library = sqlite3.connect(f"file:{self.desk.folder / 'library.sqlite'}?mode=ro", uri=True)
        try:
            rows = dict(library.execute("SELECT name, lastSuccess FROM trackerHealth"))
        except sqlite3.OperationalError:  # not there yet
            rows = {}
        finally:
            library.close()
        names = [*TRACKERS, *(name for name in rows if name.split("/")[0] in more)]
        return {*more} <= {name.split("/")[0] for name in names} and all(
            (rows.get(name) or 0) >= moment * 1e6 for name in names)

    def let_a_day_pass(self):
        """So that the next desk takes nothing in the library for fresh."""
        library = sqlite3.connect(self.desk.folder / "library.sqlite")
        day = 86_400_000_000
        with library:
            library.execute("UPDATE trackerHealth SET lastAttempt = lastAttempt - ?, lastSuccess = lastSuccess - ?", (day, day))
            library.execute("UPDATE trackerCopies SET fetchedAt = fetchedAt - ?", (day,))
        library.close()

    def let_minutes_pass(self, minutes):
        """For what is held back: as if the desk had held it for so long already."""
        library = sqlite3.connect(self.desk.folder / "library.sqlite")
        (held,) = library.execute("SELECT value FROM deskState WHERE key = 'alertDelivery'").fetchone()
        earlier = re.sub(r"\d{4}-\d\d-\d\dT[0-9:.]+Z",
                         lambda time: (datetime.fromisoformat(time[0].replace("Z", "+00:00"))
                                       - timedelta(minutes=minutes)).isoformat().replace("+00:00", "Z"), held)
        with library:
            library.execute("UPDATE deskState SET value = ? WHERE key = 'alertDelivery'", (earlier,))
        library.close()

    def panels_with_alerts(self, *kinds):
        """A newsroom whose panels have their alerts on; its releases are those of iOS."""
        self.desk.run("newsroom", "new", "Alerts", "--panels", ",".join(kinds))
        spec = json.loads(self.desk.run("newsroom", "export", "Alerts").stdout)
        self.desk.run("newsroom", "remove", "Alerts")
        for panel in spec["panels"]:
            panel["options"].update(alerts=True, platforms=["iOS"])
        return self.desk.run("newsroom", "import", "-", stdin=json.dumps(spec).encode()).stdout

    def settings(self):
        return (self.desk.folder / "settings.ini").read_text()

    def opener(self):
        """A folder whose xdg-open writes down what it is to open, and the file that it writes."""
        folder = self.desk.folder / "opener"
        folder.mkdir()
        opened = folder / "opened"
        (folder / "xdg-open").write_text(f'#!/bin/sh\necho "$1" >> {opened}\n')
        (folder / "xdg-open").chmod(0o755)
        return {"PATH": f"{folder}:{os.environ['PATH']}"}, opened

    def choose(self, title):
        """Chooses the last notification of that title, once it is there, as its user does."""
        self.wait_for(f"no notification: {title}", lambda: title in [str(call[3]) for call in self.sent()])
        # The service counts what it shows from 1; what takes another's place keeps its number.
        numbers, last = {}, 0
        for call in self.sent():
            last += 0 if call[1] else 1
            numbers[str(call[3])] = int(call[1]) or last
        interface = "org.freedesktop.Notifications"
        for name, types, value in (("ActivationToken", "us", "token"), ("ActionInvoked", "us", "default")):
            self.mock.EmitSignal(interface, name, types, [dbus.UInt32(numbers[title]), value],
                                 dbus_interface=dbusmock.MOCK_IFACE)

    def wait_for(self, what, holds):
        deadline = time.time() + 30
        while not holds():
            self.assertLess(time.time(), deadline, what)
            time.sleep(0.1)

    def start(self, program, *words, minute, **changes):
        room = self.world.room(minute)
        self.addCleanup(room.close)
        process = subprocess.Popen(
            [BIN / program, "--data-dir", self.desk.folder, *room.network, *words], env=dict(os.environ, **changes),
            stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
        self.addCleanup(process.communicate)
        self.addCleanup(process.kill)
        return process

    def end(self, process):
        process.send_signal(signal.SIGTERM)
        return process.communicate(timeout=20)[1].splitlines()

    def watch_at(self, minute, expected, *trackers):
        """One run of a desk at that minute of the world; what it sent and what it printed. It
        lasts until those trackers are fetched and as much as `expected` has come, and a while
        longer."""
        room = self.world.room(minute)
        already = len(self.sent())
        begun = time.time()
        process = subprocess.Popen(
            [BIN / "brell", "--data-dir", self.desk.folder, *room.network, "watch", "--source", "webkit"],
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        self.addCleanup(process.kill)
        while not (self.desk.folder / "library.sqlite").exists() or not self.trackers_fetched_since(begun, *trackers):
            self.assertLess(time.time(), begun + 60, "the trackers have not been fetched")
            self.assertIsNone(process.poll())
            time.sleep(0.1)
        deadline = time.time() + 20
        while len(self.sent()) < already + expected and time.time() < deadline:
            time.sleep(0.1)
        time.sleep(SECONDS_OF_SILENCE)
        process.send_signal(signal.SIGINT)
        out, err = process.communicate(timeout=20)
        self.assertEqual((process.returncode, err), (0, ""))
        room.close()
        self.let_a_day_pass()
        return self.sent()[already:], out.splitlines()

    def test_each_problem_recovery_and_build_is_told_once_and_nothing_at_first(self):
        betas = [f"{system} 27.2 beta 3" for system in ("iOS", "iPadOS", "macOS", "watchOS")]
        bodies = {}
        for minute, titles in (
                (16, []),
                (30, ["Apple Music: outage", *betas]),
                (30, []),
                (47, ["App Store: issue", "Apple Music is working again"]),
                (65, ["App Store is working again"]),
                (93, ["Apple Music: outage", "iCloud Mail: maintenance", "TestFlight: issue"]),
                (128, ["Apple Music is working again", "TestFlight is working again",
                       "iCloud Mail is working again", "macOS 27.1.2", "visionOS 27.2 beta 3"]),
                (140, ["Weather: issue"]),
                (155, ["Weather is working again", "visionOS 27.2 beta 2"]),
                (170, [])):
            sent, printed = self.watch_at(minute, len(titles))
            self.assertEqual(sorted(str(call[3]) for call in sent), sorted(titles), f"minute {minute}")
            for title in titles:
                self.assertEqual(len([line for line in printed if line.startswith(f"» {title}. ")]), 1, printed)
            bodies.update((str(call[3]), call) for call in sent)
        self.assertEqual(bodies["TestFlight: issue"][4], "New builds may take longer to reach testers.")
        self.assertEqual(bodies["Weather is working again"][4], STATUS_PAGE_SAYS + "shows it resolved.")
        self.assertIn("24C5052a", bodies["iOS 27.2 beta 3"][4])
        for call in bodies.values():
            self.assertEqual(call[5][0], "default", "choosing it opens a page")
            self.assertTrue(call[6]["suppress-sound"])

    def test_settings_hold_at_the_moment_of_the_alert_and_what_went_untold_stays_so(self):
        self.watch_at(5, 0)
        for key, value in (("alertServiceStatus", "off"), ("alertReleases", "off"), ("alertSound", "on")):
            self.desk.run("settings", key, value)
        sent, printed = self.watch_at(25, 0)
        self.assertEqual(sent, [])
        self.assertTrue(any("App Store: outage" in line for line in printed), "the desk itself still says so")
        self.desk.run("settings", "alertServiceStatus", "on")
        sent, _ = self.watch_at(65, 2)
        self.assertEqual(sorted(str(call[3]) for call in sent),
                         ["App Store is working again", "Apple Music is working again"])
        for call in sent:
            self.assertIn("sound-name", call[6])
        self.desk.run("settings", "notifications", "off")
        self.assertEqual(self.watch_at(93, 0)[0], [])

    def test_choosing_a_notification_shows_the_page_in_the_window_and_the_link_without_one(self):
        changes, opened = self.opener()
        self.watch_at(16, 0)
        process = self.start("tarnwick-brell", minute=30, QT_QPA_PLATFORM="offscreen", QT_QUICK_BACKEND="software",
                             XDG_RUNTIME_DIR=str(self.desk.folder), QT_FORCE_STDERR_LOGGING="1", **changes)
        for title, place in (("Apple Music: outage", "tracker:status"), ("iOS 27.2 beta 3", "tracker:software")):
            self.choose(title)
            self.wait_for(f"{title} does not lead to {place}", lambda: place in self.settings())
        # Qt's words for a window that it can't bring to the front where there are no others.
        self.assertEqual(self.end(process), ["This plugin does not support raise()"] * 2)
        self.assertFalse(opened.exists(), "the browser has been opened")

        self.let_a_day_pass()
        process = self.start("brell", "watch", minute=47, **changes)
        self.choose("App Store: issue")
        self.wait_for("nothing has been opened", opened.exists)
        self.assertEqual(opened.read_text(), "https://www.apple.com/support/systemstatus/\n")
        self.assertEqual(self.end(process), [])

    def test_panels_with_alerts_tell_of_their_news_whatever_the_settings_say(self):
        said = self.panels_with_alerts("status", "releases", "records", "backend", "scoops")
        self.assertIn("raises notifications: new builds of iOS.", said)
        self.assertNotIn("Scoops raises", said)
        for key in ("alertServiceStatus", "alertReleases"):
            self.desk.run("settings", key, "off")
        for minute, titles in (
                (16, []),
                (30, ["Apple Music: outage", "iOS 27.2 beta 3"]),
                (42, ["Apple Music is working again"]),
                (42, ["Build 24C5046c of iOS 27.2 appeared.", "iOS 27.1 is no longer signed",
                      "iPadOS 27.1 is no longer signed", "robots.txt blocks /home/get-started."])):
            # What is no longer signed, and what Apple's files say, is told once two answers say so.
            sent, _ = self.watch_at(minute, len(titles), "signing")
            # Where the world's time stands, a token that changes with time looks as if it stayed.
            told = sorted(str(call[3]) for call in sent if not call[3].startswith('Setting "'))
            self.assertEqual(told, titles, f"minute {minute}")

    def test_rules_are_told_once_held_back_and_kept_for_the_next_run(self):
        self.desk.run("alerts", "off", "new builds")
        self.desk.run("alerts", "new", "Betas", "--kind", "release", "--words", "beta", "--minutes", "240")
        self.desk.run("alerts", "new", "Outages", "--kind", "service", "--least-weight", "major", "--quiet")
        self.desk.run("alerts", "new", "Silent", "--kind", "release", "--off")
        self.assertEqual(self.watch_at(16, 0)[0], [], "what is there at first is no news")
        sent, _ = self.watch_at(30, 2)
        told = sorted(str(call[3]) for call in sent)
        self.assertEqual(len(told), 2, told)
        self.assertEqual(told[0], "Apple Music: outage")
        self.assertTrue(told[1].startswith("Betas: "), told)
        history = json.loads(self.desk.run("alerts", "history", "--json").stdout)
        how = sorted((alert["ruleName"], alert["how"]) for alert in history)
        self.assertEqual(how, [("Betas", "held")] * 3 + [("Betas", "notified"), ("Outages", "quiet"),
                                                         ("Service problems and recoveries", "notified")])
        self.assertEqual(self.watch_at(30, 0)[0], [], "a restart tells nothing again")
        self.let_minutes_pass(241)
        sent, _ = self.watch_at(30, 1)
        self.assertEqual([str(call[3]) for call in sent], ["Betas: 3 alerts"])
        history = json.loads(self.desk.run("alerts", "history", "Betas", "--json").stdout)
        self.assertEqual([alert["how"] for alert in history], ["summarised"] * 3 + ["notified"])


if __name__ == "__main__":
    unittest.main()
