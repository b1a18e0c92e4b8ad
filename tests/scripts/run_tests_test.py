import pathlib
import tempfile
import unittest

from support import load

run_tests = load("run-tests")

PASSED = {"name": "A", "status": "RUN", "result": "COMPLETED"}
SKIPPED = {"name": "B", "status": "RUN", "result": "SKIPPED"}
DISABLED = {"name": "C", "status": "NOTRUN", "result": "SUPPRESSED"}
FAILED = {"name": "D", "status": "RUN", "result": "COMPLETED", "failures": [{"failure": "x.cpp:1\n1 is not 2"}]}

CRASHED_LOG = """[ RUN      ] Suite.First
[       OK ] Suite.First (0 ms)
[ RUN      ] Suite.Second/0
[  FAILED  ] Suite.Second/0, where GetParam() = 2 (0 ms)
[ RUN      ] Suite.Third
[  SKIPPED ] Suite.Third (0 ms)
[ RUN      ] Suite.Fourth
Segmentation fault
"""


def report(*cases):
    return {"testsuites": [{"name": "Suite", "testsuite": list(cases)}]}


class Judging(unittest.TestCase):
    def test_counts_every_case_and_every_way_to_fail(self):
        cases = [
            # rule, status, report, log, passed, failed, skipped
            ("all well", 0, report(PASSED, PASSED), "", 2, 0, 0),
            ("skipped and disabled cases are no passed ones", 0, report(PASSED, SKIPPED, DISABLED), "", 1, 0, 2),
            ("a failed case counts once", 1, report(PASSED, FAILED), "", 1, 1, 0),
            ("a leak found at the end fails", 1, report(PASSED), "leak", 1, 1, 0),
            ("a program without tests fails", 0, report(), "", 0, 1, 0),
            ("an early exit fails", 0, None, "[       OK ] Suite.First (0 ms)", 1, 1, 0),
            ("a crash keeps what passed before", -11, None, CRASHED_LOG, 1, 2, 1),
            ("a hang too", None, None, CRASHED_LOG, 1, 2, 1),
            ("a hang behind the last test", None, report(PASSED), "", 1, 1, 0),
        ]
        for rule, status, told, log, passed, failed, skipped in cases:
            with self.subTest(rule):
                outcome = run_tests.judge(status, told, log)
                self.assertEqual((outcome.passed, len(outcome.failures), outcome.skipped), (passed, failed, skipped))

    def test_a_crash_names_the_case(self):
        outcome = run_tests.judge(-11, None, CRASHED_LOG)
        self.assertIn("ended with status -11 in Suite.Fourth", outcome.failures[-1])


class Running(unittest.TestCase):
    def test_a_program_has_a_home_of_its_own_and_ends_in_time(self):
        with tempfile.TemporaryDirectory() as folder:
            logs = pathlib.Path(folder)
            outcome, _ = run_tests.run("hangs", ["sh", "-c", 'echo "home=$HOME"; sleep 100'], 0.5, logs)
            home = logs.joinpath("hangs.log").read_text(encoding="utf-8").strip().removeprefix("home=")
        self.assertIn("ran out of time", outcome.failures[0])
        self.assertNotEqual(pathlib.Path(home), pathlib.Path.home())
        self.assertFalse(pathlib.Path(home).exists())


if __name__ == "__main__":
    unittest.main()
