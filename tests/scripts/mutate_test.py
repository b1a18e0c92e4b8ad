import unittest

from support import load

mutate = load("mutate")


class Mutants(unittest.TestCase):
    def test_one_operator_or_constant_changes_at_a_time(self):
        cases = [
            # rule, text, what comes of it
            ("a comparison", "if (a < b)", ["if (a <= b)"]),
            ("no brackets of templates", "QList<int> f(const A &a, B &&b);", []),
            ("operators at the end of a line", "a &&\n    b", ["a ||\n    b"]),
            ("numbers", "f(0x0f, 10'000, 1.5, 8u)",
             ["f(0x10, 10'000, 1.5, 8u)", "f(0x0f, 10001, 1.5, 8u)", "f(0x0f, 10'000, 2.5, 8u)", "f(0x0f, 10'000, 1.5, 9u)"]),
            ("no numbers in names", "utf8(x2)", []),
            ("steps, negations and truth", "!a(++b, true)", ["a(++b, true)", "!a(--b, true)", "!a(++b, false)"]),
            ("nothing in comments, texts, characters and directives",
             "#if A == 1\n// a == 1\n/* 1\n */ f(\"1 == \\\"2\", '1', R\"x(1 + \")\" 2)x\");\n", []),
            ("nothing in assertions", "Q_ASSERT(a == 1 && b);\nstatic_assert(A == 1);", []),
        ]
        for rule, text, results in cases:
            with self.subTest(rule):
                self.assertEqual([each.applied_to(text) for each in mutate.mutants_of("a.cpp", text)], results)

    def test_a_mutant_names_its_line(self):
        self.assertEqual([each.line for each in mutate.mutants_of("a.cpp", "a\n// 1\nb = 1;\n")], [3])


if __name__ == "__main__":
    unittest.main()
