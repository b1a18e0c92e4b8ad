import pathlib
import tempfile
import unittest

from support import load

check_layers = load("check-layers")


class Layers(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.qt = pathlib.Path(folder.name)
        for header in ("QtCore/QString", "QtCore/qstring.h", "QtGui/QColor", "QtGui/qcolor.h", "QtWidgets/QLabel",
                       "QtNetwork/QNetworkReply", "QtTest/QSignalSpy"):
            self.qt.joinpath(header).parent.mkdir(exist_ok=True)
            self.qt.joinpath(header).touch()

    def test_includes_reach_downwards_only(self):
        cases = [
            # path, include, allowed
            ("src/core/A.cpp", '"core/B.h"', True),
            ("src/core/A.cpp", '"values/Value.h"', True),
            ("src/core/A.cpp", '"browse/List.h"', False),
            ("src/exchange/A.cpp", '"lifecycle/MyDocument.h"', False),
            ("src/lifecycle/A.cpp", '"exchange/Reader.h"', True),
            ("src/core/A.cpp", '"B.h"', False),
            ("src/core/A.cpp", '"../browse/List.h"', False),
            ("src/core/A.cpp", '"moc_A.cpp"', True),
            ("src/core/A.cpp", '"A.moc"', True),
            ("src/attic/A.cpp", '"values/Value.h"', False),
            ("src/window/application/main.cpp", '"shell/MyAppDelegate.h"', True),
            ("tests/core/ATest.cpp", '"support/Printers.h"', True),
            ("tests/core/ATest.cpp", '"shell/MyAppDelegate.h"', False),
            ("src/files/A.cpp", '"archive/KeyedArchive.h"', False),
            ("src/helpers/views/A.cpp", '"platform/SplitView.h"', True),
            ("src/window/list/A.cpp", '"window/controls/TextLabel.h"', True),
            ("src/window/list/A.cpp", '"window/card/RecordCard.h"', False),
            ("src/window/attic/A.cpp", '"window/list/ArrayTable.h"', False),
            ("tests/support/A.cpp", '"values/Value.h"', True),
        ]
        self.check(cases)

    def test_widgets_stay_in_the_window_code(self):
        cases = [
            ("src/core/A.cpp", "<QString>", True),
            ("src/core/A.cpp", "<qstring.h>", True),
            ("src/core/A.cpp", "<QtCore/QString>", True),
            ("src/core/A.cpp", "<optional>", True),
            ("src/core/A.cpp", "<QColor>", False),
            ("src/core/A.cpp", '"qcolor.h"', False),
            ("src/core/A.cpp", "<QtGui/QColor>", False),
            ("src/core/A.cpp", "<QtWidgets/QLabel>", False),
            ("src/core/A.cpp", "<QtWidgets>", False),
            ("src/core/A.cpp", '"ui_Importer.h"', False),
            ("src/core/A.cpp", "<QNetworkReply>", False),
            ("src/shell/A.cpp", "<QNetworkReply>", True),
            ("src/shell/A.cpp", "<QLabel>", False),
            ("src/shell/A.cpp", "<QSignalSpy>", False),
            ("tests/shell/ATest.cpp", "<QSignalSpy>", True),
            ("tests/core/ATest.cpp", "<QColor>", False),
            ("tools/probe/main.cpp", "<QColor>", False),
            ("src/window/list/A.cpp", "<QtWidgets/QLabel>", True),
            ("tests/window/ATest.cpp", "<QLabel>", True),
            ("tools/tour/main.cpp", "<QLabel>", True),
            ("src/main.cpp", "<QLabel>", False),
        ]
        self.check(cases)

    def test_a_complaint_names_the_line(self):
        text = '#pragma once\n\n#include <QString>\n  #  include <QColor>\n'
        self.assertEqual([line for line, _ in check_layers.complaints("src/core/A.h", text, self.qt)], [4])

    def test_a_library_names_every_file_of_its_folder(self):
        folder = self.qt / "list"
        folder.joinpath("table").mkdir(parents=True)
        for file in ("A.h", "A.cpp", "table/B.h", "table/A.h"):
            folder.joinpath(file).touch()
        folder.joinpath("CMakeLists.txt").write_text("f(HEADERS A.h\n  table/B.h\nSOURCES\n  A.cxx)\n", encoding="utf-8")
        found = check_layers.unlisted(folder)
        self.assertEqual([file.relative_to(folder).as_posix() for file in found], ["A.cpp", "table/A.h"])

    def check(self, cases):
        for path, include, allowed in cases:
            with self.subTest(path=path, include=include):
                found = list(check_layers.complaints(path, f"#include {include}\n", self.qt))
                self.assertEqual(not found, allowed, found)


if __name__ == "__main__":
    unittest.main()
