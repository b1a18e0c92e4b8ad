#include "support/TestServices.h"
#include "window/WindowTest.h"
#include "window/binding/FieldText.h"

#include <QContextMenuEvent>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QProcess>
#include <QScrollArea>
#include <QScrollBar>
#include <QTableView>

#include <csignal>
#include <sys/resource.h>

namespace
{

class DetailTest : public WindowTest
{
protected:
    void SetUp() override
    {
        makeProtectedDocument();
        addContact(u"Zoë"_qs, u"Åström"_qs);
        enterField("webWork", u"fjord.example"_qs);
    }
    void set(const Foundation::Key &key, const QString &text)
    {
        document()->myArrayController()->setValueForSelection(key, text);
        runEvents();
    }
    // The pages of a PDF of the selected contact as text, by a reader that knows nothing of us.
    QStringList printedPages()
    {
        const QString path = pathOf(u"card.pdf"_qs);
        QPrinter &printer = controller()->cardPrinter().printer();
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path);
        printer.setPageSize(QPageSize(QPageSize::A4));
        controller()->cardPrinter().print();
        QProcess reader;
        reader.start(u"pdftotext"_qs, {u"-layout"_qs, path, u"-"_qs});
        EXPECT_TRUE(reader.waitForFinished(-1));
        QStringList pages = QString::fromUtf8(reader.readAllStandardOutput()).split(u'\f');
        pages.removeLast();
        return pages;
    }

    RecordingWorkspace workspace;
};

TEST_F(DetailTest, LookingAtAnotherContactChangesNoDictionary)
{
    addContact(u"Ada"_qs, u"Lovelace"_qs);
    const quint64 stamp = Foundation::Dictionary::lastChangeStamp();
    document()->myArrayController()->setSelectionIndex(0);
    runEvents();
    // Otherwise the next keystroke of a search looks for changes in all records.
    EXPECT_EQ(Foundation::Dictionary::lastChangeStamp(), stamp);
}

TEST_F(DetailTest, AFieldOpensByItsButtonAndAsALink)
{
    auto *button = control<QToolButton>("openWebWork");
    EXPECT_TRUE(button->isVisible());
    EXPECT_FALSE(control<QToolButton>("openWebPersonal")->isEnabled()) << "an empty field";
    EXPECT_FALSE(control<QToolButton>("openPhoneWork")->isVisible()) << "its flag is not set";
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(workspace.openedUrls, QStringList{u"http://fjord.example"_qs});

    press(Qt::Key_F2);
    auto *link = control<FieldText>("webWorkText");
    EXPECT_TRUE(link->isLink());
    EXPECT_FALSE(control<FieldText>("phoneWorkText")->isLink());
    QTest::mouseClick(link->viewport(), Qt::LeftButton, {}, QPoint(8, link->height() / 2));
    EXPECT_EQ(workspace.openedUrls.size(), 2);
    QTest::mouseClick(link->viewport(), Qt::LeftButton, {}, QPoint(link->width() - 3, link->height() / 2));
    EXPECT_EQ(workspace.openedUrls.size(), 2) << "beside the text";
    control<QWidget>("myTableView")->setFocus();
    press(Qt::Key_Tab); // to the page, which can be scrolled
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), link);
    press(Qt::Key_Return);
    EXPECT_EQ(workspace.openedUrls.size(), 3);
}

TEST_F(DetailTest, TheFocusIsScrolledIntoSight)
{
    set(RecordKey::note, u"line\n"_qs.repeated(100));
    window()->resize(window()->minimumSize());
    auto *area = control<QScrollArea>("editScrollArea");
    for (const bool backwards : {false, true}) {
        control<QWidget>("myTableView")->setFocus();
        area->verticalScrollBar()->setValue(backwards ? 0 : area->verticalScrollBar()->maximum());
        int fields = 0;
        do {
            press(backwards ? Qt::Key_Backtab : Qt::Key_Tab);
            const QWidget *now = QApplication::focusWidget();
            if (!area->widget()->isAncestorOf(now))
                continue;
            ++fields;
            EXPECT_TRUE(QRect({}, area->viewport()->size())
                            .contains(QRect(now->mapTo(area->viewport(), QPoint()), now->size())))
                << now->objectName().toStdString();
        } while (!control<QWidget>("myTableView")->hasFocus());
        EXPECT_GE(fields, 18);
    }
    press(Qt::Key_F2);
    QScrollBar *page = control<QScrollArea>("viewScrollArea")->verticalScrollBar();
    ASSERT_GT(page->maximum(), area->verticalScrollBar()->maximum());
    page->setValue(page->maximum());
    EXPECT_EQ(page->value(), page->maximum());
}

TEST_F(DetailTest, ACardIsPrintedAsTextAndNeverCutsALine)
{
    set(RecordKey::addressWork, u"Havnegata 12\n0150 Oslo"_qs);
    const QSize shown = control<QWidget>("whiteView")->size();
    QStringList pages = printedPages();
    ASSERT_EQ(pages.size(), 1);
    for (const QString &text : {u"Zoë Åström"_qs, u"fjord.example"_qs, u"0150 Oslo"_qs, u"Generic"_qs})
        EXPECT_TRUE(pages[0].contains(text)) << text.toStdString() << "\n" << pages[0].toStdString();
    EXPECT_EQ(control<QWidget>("whiteView")->size(), shown);

    QStringList lines;
    for (int line = 0; line < 150; ++line)
        lines.append(u"Line number %1."_qs.arg(line));
    set(RecordKey::note, lines.join(u'\n'));
    pages = printedPages();
    EXPECT_GE(pages.size(), 3);
    const QString all = pages.join(u' ');
    for (const QString &line : lines)
        EXPECT_EQ(all.count(line), 1) << line.toStdString();

    addContact(u"Борис"_qs, u"Кант"_qs);
    document()->myArrayController()->setSelectionIndexes({0, 1});
    const QStringList both = printedPages();
    EXPECT_EQ(both.size(), pages.size() + 1) << "each contact has pages of its own";
    EXPECT_TRUE(both.last().contains(u"Борис Кант"_qs)) << both.last().toStdString();
    EXPECT_FALSE(both.join(u' ').contains(u"Multiple Values"_qs));

    // What no printer takes is told.
    controller()->cardPrinter().printer().setOutputFileName(u"/no/such/folder/card.pdf"_qs);
    controller()->cardPrinter().print();
    EXPECT_EQ(nextAlert().value(0), u"The contact could not be printed"_qs);
}

TEST_F(DetailTest, PrintingBeginsWithADialogAndTellsNoName)
{
    press(Qt::Key_P, Qt::ControlModifier);
    ASSERT_TRUE(eventually([this] { return qobject_cast<QPrintDialog *>(sheet()) != nullptr; }));
    EXPECT_EQ(controller()->cardPrinter().printer().docName(), u"Vexarel");
    sheet()->reject();
    EXPECT_TRUE(windowIsActive());
}

TEST_F(DetailTest, PrintsOnThePaperThatWasSetUpAndRefusesOneWithoutRoom)
{
    document()->runPageLayout({});
    ASSERT_TRUE(eventually([this] { return qobject_cast<QPageSetupDialog *>(sheet()) != nullptr; }));
    auto *sizes = control<QComboBox>("pageSizeCombo");
    sizes->setCurrentIndex(sizes->findText(u"A10"_qs));
    sheet()->accept();
    EXPECT_TRUE(windowIsActive());
    ASSERT_EQ(controller()->cardPrinter().printer().pageLayout().pageSize().id(), QPageSize::A10);
    controller()->cardPrinter().print();
    EXPECT_TRUE(nextAlert().value(1).startsWith(u"The margins leave no room on the paper."_qs));
}

TEST_F(DetailTest, APdfThatTheDiskDoesNotTakeAsAWholeIsToldAndRemoved)
{
    ASSERT_EQ(printedPages().size(), 1);
    const rlimit full{.rlim_cur = 4096, .rlim_max = RLIM_INFINITY};
    const rlimit unlimited{.rlim_cur = RLIM_INFINITY, .rlim_max = RLIM_INFINITY};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &full);
    controller()->cardPrinter().print();
    setrlimit(RLIMIT_FSIZE, &unlimited);
    std::signal(SIGXFSZ, handler);
    EXPECT_TRUE(nextAlert().value(1).startsWith(u"The file could not be written completely."_qs));
    EXPECT_FALSE(QFile::exists(pathOf(u"card.pdf"_qs)));
}

TEST_F(DetailTest, MoreOpensItsMenuWhenItIsPressed)
{
    auto *more = control<QToolButton>("myActionButton");
    QTest::mousePress(more, Qt::LeftButton);
    auto *menu = control<QMenu>("myActionMenu");
    EXPECT_TRUE(menu->isVisible());
    EXPECT_FALSE(more->isDown());
    menu->close();
    more->setFocus();
    QTest::keyClick(more, Qt::Key_Space);
    EXPECT_TRUE(menu->isVisible());
    menu->close();
    QWidget *list = control<QTableView>("myTableView")->viewport();
    QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, list->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(list, &event);
    EXPECT_TRUE(menu->isVisible()) << "the list has the same menu";
}

} // namespace
