"""A press room at a chosen minute of its world, which all but stands still there."""
import time

from harness import PressRoom

# Long ago, so that even the slowest speed that the press room takes reaches the first minutes.
SECONDS_SINCE_ANCHOR = 20_000


class World:
    """One world: equal incidents have equal times in each of its rooms."""

    def __init__(self):
        self.anchor = int(time.time()) - SECONDS_SINCE_ANCHOR

    def room(self, minute, *options, log=None):
        speed = max(60 * minute / (time.time() - self.anchor), 0.01)
        return PressRoom("--anchor", self.anchor, "--speed", f"{speed:.6f}", *options, log=log)
