"""A folder of its own, the press room as a process, and brell run against it."""
import fcntl
import json
import os
import pty
import shutil
import struct
import subprocess
import tempfile
import termios
from pathlib import Path

BIN = Path(os.environ["BRELL_BIN"])
# Texts with times are the same wherever the tests run.
os.environ["TZ"] = "UTC"


def written_to(controller):
    """All that has been written to a terminal whose other end is closed by now or will be."""
    written = b""
    while True:
        try:
            part = os.read(controller, 65536)
        except OSError:  # how Linux tells that the other end is closed
            break
        if not part:
            break
        written += part
    os.close(controller)
    return written.decode("utf-8")


class PressRoom:
    """A running press room; `network` are the options that lead brell to it. What it writes
    to standard error goes to the file `log`."""

    def __init__(self, *options, log=None):
        self.process = subprocess.Popen(
            [BIN / "pressroom", "--ready-json", "--exit-with-parent", *map(str, options)],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=log)
        ready = json.loads(self.process.stdout.readline())
        self.network = ["--connect-to", f"{ready['host']}:{ready['port']}", "--ca-file", ready["authority"]]
        self.private_authority = Path(ready["privateAuthority"])

    def close(self):
        self.process.stdin.close()
        self.process.wait(timeout=10)
        self.process.stdout.close()


def display(clean_up):
    """Starts an X server without a screen; `clean_up` takes what ends it. Gives its name."""
    read, write = os.pipe()
    server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", "1400x900x24"],
                              pass_fds=[write], stderr=subprocess.DEVNULL)
    clean_up(server.wait)
    clean_up(server.terminate)
    os.close(write)
    with os.fdopen(read) as number:
        return ":" + number.readline().strip()


class Desk:
    """One user's brell: a data folder and the network that it reaches."""

    def __init__(self, network=()):
        self.folder = Path(tempfile.mkdtemp(prefix="brell-test-"))
        self.network = list(network)

    def close(self):
        subprocess.run(["chmod", "-R", "u+w", self.folder], check=False)
        shutil.rmtree(self.folder, ignore_errors=True)

    def on_terminal(self, columns, *words, **environment):
        """What brell writes to a terminal that is so wide."""
        controller, terminal = pty.openpty()
        fcntl.ioctl(terminal, termios.TIOCSWINSZ, struct.pack("HHHH", 40, columns, 0, 0))
        variables = {name: value for name, value in os.environ.items() if name not in ("COLUMNS", "TERM_PROGRAM")}
        variables.update({"NO_COLOR": "1", "TERM": "xterm", **environment})
        process = subprocess.Popen([BIN / "brell", "--data-dir", self.folder, *self.network, *map(str, words)],
                                   stdout=terminal, stderr=subprocess.DEVNULL, env=variables)
        os.close(terminal)
        written = written_to(controller)
        process.wait(timeout=120)
        return written.replace("\r\n", "\n")

    def run(self, *words, stdin=None, status=0, environment=None, **options):
        environment = {**os.environ, "NO_COLOR": "1", **(environment or {})}
        result = subprocess.run(
            [BIN / "brell", "--data-dir", self.folder, *self.network, *(word if isinstance(word, bytes) else str(word) for word in words)],
            input=stdin, capture_output=True, timeout=120, env=environment, **options)
        result.stdout = result.stdout.decode("utf-8")
        result.stderr = result.stderr.decode("utf-8")
        if status is not None and result.returncode != status:
            raise AssertionError(
                f"brell {' '.join(map(str, words))}: status {result.returncode} instead of {status}\n"
                f"{result.stdout}{result.stderr}")
        return result

    def json(self, *words, **options):
        return json.loads(self.run(*words, "--json", **options).stdout)

    def inspect(self, kind, *lines):
        text = "".join((line if isinstance(line, str) else json.dumps(line)) + "\n" for line in lines)
        answers = self.run("inspect", kind, stdin=text.encode("utf-8", "surrogateescape")).stdout
        return [json.loads(answer) for answer in answers.splitlines()]
