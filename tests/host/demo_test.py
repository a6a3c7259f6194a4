#!/usr/bin/env python3
"""Runs the demonstration program under Wine: all samples, a folder with blanks, and files that are no votes.

Usage: demo_test.py RUNNER PROGRAM SAMPLES FOLDER
"""
import pathlib
import subprocess
import sys
import unittest

RUNNER, PROGRAM, SAMPLES, FOLDER = sys.argv[1:5]


def windows(path):
    return "Z:" + str(path).replace("/", "\\")


class DemoTest(unittest.TestCase):
    def setUp(self):
        self.out = pathlib.Path(FOLDER) / "demo test"
        self.out.mkdir(parents=True, exist_ok=True)

    def run_demo(self, *files, options=()):
        command = [RUNNER, PROGRAM, *options, "--out", windows(self.out), *map(windows, files)]
        result = subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, timeout=300)
        return result.returncode, result.stdout.decode(), result.stderr.decode()

    def check_report(self, name, questions):
        report = (self.out / (name + ".html")).read_bytes()
        self.assertTrue(report.startswith(b"<html><head><title>Vote Report</title>\r\n"))
        self.assertTrue(report.endswith(b"</body>\r\n"))
        self.assertEqual(report.count(b"<strong>"), questions)
        self.assertNotIn(b"No answers yet", report)
        return report

    def test_samples(self):
        samples = sorted(pathlib.Path(SAMPLES).glob("*.vot"))
        self.assertEqual(len(samples), 3)
        code, out, err = self.run_demo(*samples)
        self.assertEqual((code, err), (0, ""), out)
        self.assertEqual(out.count("for all 27 who see it"), 9, out)
        self.check_report("board-election", 5)
        self.check_report("team-survey", 12)
        # A signed vote names its voters, in the writer's code page.
        self.assertIn("Zo\u00eb Laurent".encode("cp1252"), self.check_report("budget-ballot", 4))
        # What was saved can be played again.
        code, out, err = self.run_demo(self.out / "board-election-saved.vot", options=["--verbose"])
        self.assertEqual((code, err), (0, ""), out)
        self.assertIn("is told: OnPendingAnswers", out)

    def test_unreadable_files(self):
        words = self.out / "no vote.vot"
        words.write_text("This is not a vote.")
        for file, sentence in ((words, "could not be read"), (self.out / "missing.vot", "There is no such file.")):
            code, out, err = self.run_demo(file)
            self.assertEqual((code, out), (2, ""))
            self.assertIn(file.name + ": ", err)
            self.assertIn(sentence, err)

    def test_usage(self):
        self.assertEqual(self.run_demo()[0], 2)
        self.assertEqual(self.run_demo(options=["--unknown"])[0], 2)


unittest.main(argv=sys.argv[:1])
