import unittest

from support import load

check_headers = load("check-headers")


class Options(unittest.TestCase):
    def test_are_those_of_a_source_file_without_what_belongs_to_it(self):
        command = ("/usr/bin/env A=b /usr/bin/ccache /usr/bin/c++ -DQT_CORE_LIB -I/p/src -isystem /qt -O2 -Winvalid-pch "
                   "-include /p/build/cmake_pch.hxx -std=c++20 -MD -MT a.o -MF a.o.d -o a.o -c /p/src/a/A.cpp")
        self.assertEqual(check_headers.options_of(command),
                         ["/usr/bin/c++", "-DQT_CORE_LIB", "-I/p/src", "-isystem", "/qt", "-O2", "-std=c++20"])


if __name__ == "__main__":
    unittest.main()
