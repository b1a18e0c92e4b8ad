#include "window/controls/SheetQueue.h"

#include "support/Printers.h"
#include "support/TestServices.h"
#include "window/sheets/AlertDialog.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>

// A window with sheets, and what their ends told.
class SheetQueueTest : public testing::Test
{
protected:
    SheetQueueTest() { window.show(); }

    void begin(const QString &name, SheetQueue::Over over = SheetQueue::Over::OpenWindow)
    {
        queue.begin(
            name,
            [this, name](QWidget *parent) {
                shown.append(name);
                return new QDialog(parent);
            },
            [this, name](int result) { ended.append(u"%1 %2"_qs.arg(name).arg(result)); }, over);
    }

    ManualQueue mainQueue;
    QWidget window;
    SheetQueue queue{&window};
    QStringList shown;
    QStringList ended;
};

// Of the program, not of the sheet: the clock may end the one below the other.
TEST_F(SheetQueueTest, AnAlertOutlivesTheSheetBelow)
{
    begin(u"a"_qs);
    QApplication::setActiveWindow(window.findChild<QDialog *>());
    QTimer::singleShot(0, &queue, [this] {
        queue.endAll();
        QTimer::singleShot(10, qApp, [] {
            if (auto *alert = qobject_cast<QDialog *>(QApplication::activeModalWidget()))
                alert->done(1000);
        });
    });
    EXPECT_EQ(ModalAlerts().runModal({u"message"_qs, {}, {{u"OK"_qs}}}), 1000);
    EXPECT_FALSE(queue.hasSheet());
}

// As the toolkit's panels ask in the midst of their own code.
TEST_F(SheetQueueTest, AQuestionOfTheSheetsOwnEndsBeforeIt)
{
    begin(u"a"_qs);
    QTimer::singleShot(0, &queue, &SheetQueue::endAll);
    {
        QDialog question(window.findChild<QDialog *>());
        EXPECT_EQ(question.exec(), QDialog::Rejected);
        EXPECT_TRUE(queue.hasSheet());
    }
    EXPECT_TRUE(QTest::qWaitFor([this] { return !queue.hasSheet(); }, 60000));
    mainQueue.drain();
    EXPECT_EQ(ended, QStringList{u"a 0"_qs});
}

TEST_F(SheetQueueTest, OneStandsAtATime)
{
    begin(u"a"_qs);
    begin(u"b"_qs);
    EXPECT_EQ(shown, QStringList({u"a"_qs}));
    queue.end(u"b"_qs, 7);
    EXPECT_TRUE(ended.isEmpty()) << "only the standing one can be ended";
    queue.end(u"a"_qs, 5);
    EXPECT_FALSE(queue.hasSheet());
    EXPECT_TRUE(ended.isEmpty()) << "the end is told later";
    begin(u"c"_qs);
    EXPECT_EQ(shown.size(), 1) << "and nothing comes before it was told";
    mainQueue.drain();
    EXPECT_EQ(ended, QStringList({u"a 5"_qs}));
    EXPECT_EQ(shown.last(), u"b"_qs);
    EXPECT_TRUE(queue.hasSheet());
}

TEST_F(SheetQueueTest, NothingStandsOnALockedWindowButWhatMay)
{
    begin(u"a"_qs);
    begin(u"b"_qs);
    queue.setLocked(true);
    begin(u"c"_qs);
    mainQueue.drain();
    EXPECT_EQ(ended, QStringList({u"a 0"_qs, u"b 0"_qs, u"c 0"_qs}));
    begin(u"d"_qs, SheetQueue::Over::LockedWindow);
    EXPECT_EQ(shown, QStringList({u"a"_qs, u"d"_qs}));
}

TEST_F(SheetQueueTest, DroppedSheetsTellNothing)
{
    begin(u"a"_qs);
    queue.end(u"a"_qs, 5);
    begin(u"b"_qs);
    queue.drop();
    mainQueue.drain();
    EXPECT_TRUE(ended.isEmpty());
    EXPECT_EQ(shown, QStringList({u"a"_qs}));
    EXPECT_FALSE(queue.hasSheet());
}
