#!/usr/bin/env python3
"""Drives the console as a program at the other end of a pipe: whatever a line holds, it gets one line back at once.

Usage: console_test.py CONSOLE [unittest arguments]
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import threading
import unittest

PROMPT = b">>> "
RESOURCES = "TavrineCore_TavrineCore.resources"
SECONDS = 60  # for one line, by far: builds with sanitizers on a busy machine pass this test too
MEGABYTE = 1_000_000

console = None  # the program under test


class Console:
    """A running console. One that does not answer in time is killed, and its answer ends short of a prompt."""

    def __init__(self, program):
        self.process = subprocess.Popen([program], stdin=subprocess.PIPE, stdout=subprocess.PIPE, bufsize=0)
        self.greeting = self.until_prompt()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()
        self.process.stdin.close()
        self.process.stdout.close()

    def until_prompt(self):
        watchdog = threading.Timer(SECONDS, self.process.kill)
        watchdog.start()
        try:
            text = b""
            while not text.endswith(PROMPT):
                piece = os.read(self.process.stdout.fileno(), 65536)
                if not piece:
                    return text
                text += piece
            return text
        finally:
            watchdog.cancel()

    def send(self, data):
        watchdog = threading.Timer(SECONDS, self.process.kill)
        watchdog.start()
        try:
            view = memoryview(data)
            while view:
                view = view[self.process.stdin.write(view):]
        except BrokenPipeError:
            pass  # the missing answer tells
        finally:
            watchdog.cancel()

    def answer(self, line):
        """What the console prints between the line and its next prompt, without the line end."""
        self.send(line + b"\n")
        text = self.until_prompt()
        if not text.endswith(b"\n" + PROMPT):
            raise AssertionError(f"no answer to {line[:40]!r} ({len(line)} bytes): {text[:200]!r}")
        return text[: -len(PROMPT) - 1]


BAD_LINES = {
    "nothing": b"",
    "broken UTF-8": b"\xff\xfe1 + 2\xc3",
    "surrogates and overlong forms": b"\xed\xa0\x80 \xc0\xaf \xf4\x90\x80\x80",
    "NUL bytes": b"1\x00+\x00\x002",
    "control characters": bytes(c for c in range(32) if c != 10),
    "a lone combining mark": "\u0301".encode(),
    "bidirectional controls": "1 \u202e+ 2\u2066 \u202c\u2069".encode(),
    "noncharacters": "\ufffe\uffff \U0010ffff".encode(),
    "a factorial": b"9!",
    "a tower of powers": b"9^9^9^9",
    "10,000 signs": b"+" * 10_000,
    "10,000 operators": b"+ - * / " * 2_500,
    "10,000 sums": b"1+" * 10_000,
    "10,000 percent signs": b"% " * 10_000,
    "10,000 commas": b"1,2 " * 5_000,
    "brackets as deep as they may be": b"(" * 200 + b"1" + b")" * 200,
    "20,000 pairs of brackets": b"()" * 20_000,
    "closing brackets": b")" * 50_000,
}

# Beyond the limits a line is a comment, which has no answer.
LONG_LINES = {
    "100,000 open brackets": b"(" * 100_000,
    "100,000 pairs of brackets": b"()" * 100_000,
    "a megabyte of letters": b"a" * MEGABYTE,
    "a million digits": b"7" * MEGABYTE,
    "a megabyte of spaces": b" " * MEGABYTE,
    "a megabyte of emoji": "\U0001f600".encode() * (MEGABYTE // 4),
    "a megabyte of combining marks": b"a" + "\u0301".encode() * (MEGABYTE // 2),
    "a megabyte of joined emoji": "\U0001f468\u200d".encode() * (MEGABYTE // 7),
    "a megabyte of broken UTF-8": b"\xf0\x9f" * (MEGABYTE // 2),
    "a megabyte of words": b"one apple and " * (MEGABYTE // 14),
}


class BadInput(unittest.TestCase):
    def check(self, lines, is_fine):
        with Console(console) as running:
            for name, line in lines.items():
                with self.subTest(name):
                    answer = running.answer(line)
                    self.assertNotIn(b"\n", answer)
                    answer.decode()
                    self.assertTrue(is_fine(answer), answer[:100])
                    self.assertEqual(running.answer(b"1 + 2"), b"3", "and the next line as if nothing had been")

    def test_has_one_line_for_an_answer(self):
        self.check(BAD_LINES, lambda answer: len(answer) < 1000)

    def test_beyond_the_limits_is_a_comment(self):
        self.check(LONG_LINES, lambda answer: answer == b"")


class Input(unittest.TestCase):
    def run_over(self, text):
        done = subprocess.run([console], input=text, stdout=subprocess.PIPE, timeout=SECONDS, check=True)
        return done.stdout

    def test_line_ends(self):
        self.assertEqual(self.run_over(b"1 + 2\r\n\r\n2 * 3\n"), b">>> 3\n>>> \n>>> 6\n>>> ")

    def test_last_line_without_an_end(self):
        self.assertEqual(self.run_over(b"1 + 2\n2 * 3"), b">>> 3\n>>> 6\n>>> ")

    def test_no_line_at_all(self):
        self.assertEqual(self.run_over(b""), b">>> ")


class Resources(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.program = self.folder / "Console"
        shutil.copy2(console, self.program)

    def test_missing_folder_ends_with_a_message(self):
        done = subprocess.run([self.program], input=b"plums\n", stdout=subprocess.PIPE, timeout=SECONDS, check=False)
        if done.returncode == 0:
            self.skipTest("the library finds an installed copy of its resources")
        self.assertEqual(done.returncode, 1)
        self.assertIn(b"could not load resource bundle: from " + os.fsencode(self.folder / RESOURCES), done.stdout)

    def test_broken_file_leaves_fewer_words(self):
        shutil.copytree(pathlib.Path(console).parent / RESOURCES, self.folder / RESOURCES)
        broken = self.folder / RESOURCES / "en.lproj" / "LocalizedFixtures.json"
        broken.write_bytes(broken.read_bytes()[:-200])
        with Console(self.program) as running:
            self.assertEqual(running.greeting, PROMPT)
            self.assertIn(b"Failed to decode LocalizableFixtureSet from JSON: ", running.answer(b"2 plums"))
            self.assertEqual(running.answer(b"1 + 2 * 3"), b"7")


if __name__ == "__main__":
    console = os.path.abspath(sys.argv.pop(1))
    unittest.main()
