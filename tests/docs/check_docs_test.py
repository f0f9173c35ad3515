#!/usr/bin/env python3
"""Whether scripts/check-docs sees what is wrong in a page: check_docs_test.py BUILD."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
BUILD = sys.argv.pop(1)


class CheckDocs(unittest.TestCase):
    def setUp(self):
        self.directory = tempfile.TemporaryDirectory()
        self.page = pathlib.Path(self.directory.name) / "page.md"

    def tearDown(self):
        self.directory.cleanup()

    def check(self, text, *options):
        self.page.write_text(text)
        return subprocess.run([ROOT / "scripts/check-docs", BUILD, *options, self.page],
                              stdout=subprocess.PIPE, text=True, check=False)

    def expect(self, text, *parts):
        """The page is refused with every part in the message, or passes when there is none."""
        checked = self.check(text)
        self.assertEqual(checked.returncode, 1 if parts else 0, checked.stdout)
        for part in parts:
            self.assertIn(part, checked.stdout)

    def test_what_is_shown_passes(self):
        self.expect("```console\n$ echo one; echo two >&2\none\ntwo\n$ true\n```\n")

    def test_another_output_is_a_difference(self):
        self.expect("```console\n$ echo one\ntwo\n```\n", "-two", "+one")

    def test_output_that_is_not_shown_is_a_difference(self):
        self.expect("```console\n$ echo one\n```\n", "+one")

    def test_output_that_is_missing_is_a_difference(self):
        self.expect("```console\n$ true\none\n```\n", "-one")

    def test_a_failure_has_to_be_shown(self):
        self.expect("```console\n$ false\n```\n", "$ false\n  ends with 1")
        self.expect("```console\n$ false\n$ echo $?\n1\n```\n")

    def test_a_page_is_one_session(self):
        self.expect("```console\n$ mkdir a && cd a\n$ B=c\n```\n\n```console\n$ pwd; echo $B\n"
                    "/home/ada/ovalis/a\nc\n```\n")

    def test_commands_go_over_several_lines(self):
        self.expect("```console\n$ cat <<END\n> one\n> END\none\n```\n")

    def test_files_are_there_for_later_commands(self):
        self.expect("```text a.txt\none\n```\n\n```text a.txt\ntwo\n```\n\n"
                    "```console\n$ cat a.txt\none\ntwo\n```\n")

    def test_times_may_differ(self):
        self.expect("```console\n$ echo 'time 0.17 ms'\ntime 8e-2 ms\n```\n")

    def test_other_numbers_may_not(self):
        self.expect("```console\n$ echo 17 shapes\n18 shapes\n```\n", "-18", "+17")

    def test_every_example_is_marked(self):
        self.expect("```\nno language\n```\n", "without a language")
        self.expect("```text\n$ ovalis list trial\n```\n", "not run")
        self.expect("    ovalis list trial\n", "not run")
        self.expect("```cpp\nint main() {}\n```\n", "not compiled")

    def test_update_shows_what_is_said(self):
        self.check("```console\n$ echo one\ntwo\n$ echo three\n```\nEnd.\n", "--update")
        self.assertEqual(self.page.read_text(),
                         "```console\n$ echo one\none\n$ echo three\nthree\n```\nEnd.\n")


if __name__ == "__main__":
    unittest.main()
