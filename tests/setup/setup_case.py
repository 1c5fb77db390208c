"""A machine of its own for the scripts at the top: a folder of programs, most of them the system's, and some that
stand in for those that would change it. Each of those writes down what it was called with."""

import pathlib
import shutil
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
# What a minimal Debian has and the scripts use.
TOOLS = ["awk", "bash", "cat", "cp", "dirname", "env", "ln", "locale", "mkdir", "nproc", "realpath", "rm", "sed",
         "sleep", "tail", "tput", "tr"]


class SetupCase(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.home = pathlib.Path(folder.name)
        self.bin = self.home / "bin"
        self.bin.mkdir()
        for tool in TOOLS:
            found = shutil.which(tool)
            self.assertIsNotNone(found, tool)
            (self.bin / tool).symlink_to(found)
        self.calls = self.home / "calls"
        self.calls.touch()
        self.installed = self.home / "installed"
        self.installed.touch()
        self.user(0)
        self.program("ischroot", "exit 1", silent=True)
        self.program("dpkg-query", 'grep="${@: -1}"\n'
                     f'while read -r name; do [[ $name != "$grep" ]] || echo -n installed; done <"{self.installed}"',
                     silent=True)
        self.program("apt-get", '[[ $1 == install ]] || exit 0\n'
                     f'for word in "$@"; do [[ $word == -* ]] || echo "$word"; done >>"{self.installed}"')
        self.program("sudo", '[[ $1 == -v ]] || exec "$@"')

    def program(self, name, body, silent=False):
        path = self.bin / name
        path.unlink(missing_ok=True)
        note = "" if silent else f'printf "%s\\n" "{name} $*" >>"{self.calls}"\n'
        path.write_text(f"#!/bin/bash\n{note}{body}\n")
        path.chmod(0o755)

    def user(self, number):
        self.program("id", f"echo {number}", silent=True)

    def remove(self, *names):
        for name in names:
            (self.bin / name).unlink()

    def run_script(self, *command, **environment):
        """Exit status and everything that was printed."""
        done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False,
                              stdin=subprocess.DEVNULL, env=self.environment(**environment), timeout=50)
        return done.returncode, done.stdout

    def environment(self, **more):
        return {"PATH": str(self.bin), "HOME": str(self.home), "LC_ALL": "C.UTF-8"} | more

    def in_setup(self, lines, **environment):
        """Runs lines of a script that has taken in setup.sh, as ./check does."""
        script = f'set -euo pipefail\nroot="{self.home}"\nsource "{ROOT}/tools/setup.sh"\n{lines}\n'
        return self.run_script(str(self.bin / "bash"), "-c", script, **environment)

    def called(self):
        """The calls of the programs that stand in, without the options of apt-get."""
        calls = []
        for line in self.calls.read_text().splitlines():
            words = line.split()
            if "install" in words:
                words = [word for word in words if word != "env" and not word.startswith("-") and "=" not in word]
            calls.append(" ".join(words))
        return calls
