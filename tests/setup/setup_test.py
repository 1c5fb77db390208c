#!/usr/bin/env python3
"""What tools/setup.sh does on machines with and without packages, root and sudo, and what it shows meanwhile."""

import os
import pty
import re
import select
import subprocess
import unittest

from setup_case import ROOT, SetupCase

INSTALL = 'may_install cmake g++\nstage "packages" install_packages cmake g++\necho "went on"'


class Packages(SetupCase):
    def test_nothing_is_fetched_when_all_is_there(self):
        self.installed.write_text("cmake\ng++\n")
        self.user(1000)
        self.remove("sudo")
        status, output = self.in_setup(INSTALL)
        self.assertEqual(status, 0, output)
        self.assertEqual(self.called(), [])

    def test_root_installs_what_is_missing_and_only_that(self):
        self.installed.write_text("cmake\n")
        self.remove("sudo")
        status, output = self.in_setup(INSTALL)
        self.assertEqual(status, 0, output)
        self.assertEqual(self.called(), ["apt-get install g++"])

    def test_a_name_that_begins_like_an_installed_one_is_missing(self):
        self.installed.write_text("cmake-data\ng++-12\n")
        self.in_setup(INSTALL)
        self.assertIn("apt-get install cmake g++", self.called())

    def test_package_lists_are_fetched_when_the_first_try_fails(self):
        lists = self.home / "lists"
        self.program("apt-get", f'if [[ $1 == update ]]; then : >"{lists}"; else [[ -e "{lists}" ]]; fi')
        status, output = self.in_setup(INSTALL)
        self.assertEqual(status, 0, output)
        self.assertEqual(self.called(),
                         ["apt-get install cmake g++", "apt-get update", "apt-get install cmake g++"])

    def test_what_apt_says_is_shown_when_it_fails(self):
        self.program("apt-get", 'echo "E: no space left"; exit 100')
        status, output = self.in_setup(INSTALL)
        self.assertEqual(status, 1)
        self.assertIn("E: no space left", output)
        self.assertIn("packages failed; its output is in", output)
        self.assertNotIn("went on", output)

    def test_a_user_with_sudo_is_asked_before_the_step(self):
        self.user(1000)
        status, output = self.in_setup(INSTALL)
        self.assertEqual(status, 0, output)
        self.assertEqual(self.called(), ["sudo -v", "sudo apt-get install cmake g++", "apt-get install cmake g++"])

    def test_without_root_and_sudo_one_line_names_what_is_missing(self):
        self.installed.write_text("cmake\n")
        self.user(1000)
        self.remove("sudo")
        status, output = self.in_setup(INSTALL)
        self.assertEqual(status, 1)
        self.assertEqual(output, "packages are missing; install them as root: apt-get install g++\n")
        self.assertEqual(self.called(), [])

    def test_a_sudo_that_refuses_is_as_none(self):
        self.user(1000)
        self.program("sudo", "exit 1")
        status, output = self.in_setup(INSTALL)
        self.assertEqual(status, 1)
        self.assertEqual(output, "packages are missing; install them as root: apt-get install cmake g++\n")

    def test_other_systems_take_what_is_there(self):
        self.user(1000)
        self.remove("dpkg-query", "apt-get", "sudo")
        status, output = self.in_setup(INSTALL)
        self.assertEqual(status, 0, output)
        self.assertIn("not a Debian system", output)
        self.assertIn("went on", output)

    def test_the_disk_is_not_waited_for_in_a_chroot(self):
        self.program("ischroot", "exit 0")
        self.in_setup(INSTALL)
        self.assertIn("-o Dpkg::Options::=--force-unsafe-io", self.calls.read_text())

    def test_every_package_has_its_reason_and_one_place(self):
        script = (ROOT / "tools/setup.sh").read_text(encoding="utf-8")
        packages = [name for names in re.findall(r"^packages_\w+=\((.*?)\)", script, re.MULTILINE | re.DOTALL)
                    for name in names.split()]
        self.assertGreater(len(packages), 20)
        self.assertEqual(sorted(set(packages)), sorted(packages))
        reasons = (ROOT / "docs/dependencies.md").read_text(encoding="utf-8")
        self.assertEqual([name for name in packages if f"`{name}`" not in reasons], [])


class Progress(SetupCase):
    def shown(self, *lines):
        log = self.home / "log"
        log.write_text("".join(line + "\n" for line in lines))
        return self.in_setup(f'progress_of "{log}"')[1].strip()

    def test_a_build_shows_its_share_and_file(self):
        self.assertEqual(self.shown("-- Generating done",
                                    "[30/120] Building CXX object src/CMakeFiles/Core.dir/imaging/Resize.cpp.o"),
                         "25 %  imaging/Resize.cpp.o")
        self.assertEqual(self.shown("[119/120] Linking CXX executable bin/VostelTests"),
                         "99 %  Linking CXX executable bin/VostelTests")

    def test_an_installation_shows_its_share_whatever_follows(self):
        self.assertEqual(self.shown("dlstatus:7:12.5:Retrieving file 7 of 195", "Get:8 http://deb.debian.org x"),
                         "12 %  Retrieving file 7 of 195")
        self.assertEqual(self.shown("dlstatus:9:97.1:Retrieving file 9 of 9",
                                    "pmstatus:cmake:45.0:Unpacking cmake (amd64)", "Unpacking cmake ..."),
                         "45 %  Unpacking cmake (amd64)")

    def test_other_steps_show_their_last_line(self):
        self.assertEqual(self.shown("-- Found PNG", "", "\x1b[1m-- Found JPEG", ""), "[1m-- Found JPEG")
        self.assertEqual(self.shown(), "")

    LONG = 'work() { echo "[1/4] Linking x"; sleep 1.5; }\nstage "a step" work'

    def test_a_pipe_gets_a_line_now_and_then_and_the_time(self):
        status, output = self.in_setup(self.LONG, PROGRESS_SECONDS="1")
        self.assertEqual(status, 0)
        self.assertRegex(output, r"\A  a step:  25 %  Linking x\na step {28} +\d+\.\d s\n\Z")

    def test_a_terminal_gets_one_line_that_changes(self):
        main, terminal = pty.openpty()
        process = subprocess.Popen([str(self.bin / "bash"), "-c",
                                    f'root="{self.home}"\nsource "{ROOT}/tools/setup.sh"\n{self.LONG}'],
                                   stdin=subprocess.DEVNULL, stdout=terminal, stderr=terminal,
                                   env=self.environment(TERM="xterm"))
        os.close(terminal)
        output = b""
        while select.select([main], [], [], 20)[0]:
            try:
                output += os.read(main, 4096)
            except OSError:    # the other end is closed
                break
        os.close(main)
        self.assertEqual(process.wait(), 0)
        lines = output.decode().split("\r\n")
        self.assertEqual(len(lines), 2, output)
        parts = lines[0].split("\r")
        self.assertIn("a step".ljust(34) + " 25 %  Linking x\x1b[K", parts)
        self.assertRegex(parts[-1], r"\A\x1b\[Ka step {28} +\d+\.\d s\Z")

    def test_a_step_that_fails_ends_the_script(self):
        status, output = self.in_setup('work() { echo "what was wrong"; return 3; }\nstage "a step" work\necho on')
        self.assertEqual(status, 1)
        self.assertIn("what was wrong\na step failed; its output is in", output)
        self.assertNotIn("\non", output)


if __name__ == "__main__":
    unittest.main()
