#include "window/sheets/AlertDialog.h"

#include "support/Printers.h"
#include "support/TestServices.h"
#include "window/controls/SafeText.h"
#include "window/controls/SheetQueue.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using Foundation::Alert;
using Foundation::AlertButton;

namespace
{

QPushButton *buttonNamed(const QWidget &dialog, const QString &title)
{
    for (QPushButton *button : dialog.findChildren<QPushButton *>()) {
        if (button->text() == title)
            return button;
    }
    return nullptr;
}

} // namespace

TEST(AlertDialog, AnswersWithThePlaceOfTheButton)
{
    using Buttons = QList<AlertButton>;
    // Titles in another language: none of them says what its button does.
    const Buttons save = {
        {u"Sichern"_qs}, {u"Abbrechen"_qs, AlertButton::Cancel}, {u"Verwerfen"_qs, AlertButton::Discard}};
    const Buttons remove = {{u"Abbrechen"_qs, AlertButton::Cancel}, {u"Kontakt entfernen"_qs}};
    const struct
    {
        const char *rule;
        Buttons buttons;
        QString pressed; // null for the Escape key, empty for the Return key
        int code;
    } cases[] = {
        {"first", save, u"Sichern"_qs, 1000},
        {"second", save, u"Abbrechen"_qs, 1001},
        {"third", save, u"Verwerfen"_qs, 1002},
        {"Return is the first", save, u""_qs, 1000},
        {"Escape is the one of that role", save, QString(), 1001},
        {"Return is the first even if that is Cancel", remove, u""_qs, 1000},
        {"Escape too", remove, QString(), 1000},
        {"the confirming one may be second", remove, u"Kontakt entfernen"_qs, 1001},
        {"Escape is the only one", {{u"OK"_qs}}, QString(), 1000},
        {"Escape without a Cancel is the last", {{u"Cancel"_qs}, {u"B"_qs}}, QString(), 1001},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.rule);
        AlertDialog dialog({u"message"_qs, u"text"_qs, c.buttons});
        dialog.open();
        if (c.pressed.isEmpty())
            QTest::keyClick(&dialog, c.pressed.isNull() ? Qt::Key_Escape : Qt::Key_Return);
        else
            buttonNamed(dialog, c.pressed)->click();
        EXPECT_EQ(dialog.result(), c.code);
        EXPECT_FALSE(dialog.isVisible());
    }
}

TEST(AlertDialog, ShowsNamesOfFilesAsTheyAre)
{
    const Alert alert{u"<h1>“R&D”</h1>"_qs, u"<img src=x>"_qs, {{u"R&D"_qs}}};
    const AlertDialog dialog(alert);
    QStringList texts;
    for (const QLabel *label : dialog.findChildren<QLabel *>()) {
        if (!label->text().isEmpty()) {
            EXPECT_EQ(label->textFormat(), Qt::PlainText);
            texts.append(label->text());
        }
    }
    EXPECT_EQ(texts, QStringList({alert.message, alert.informativeText}));
    EXPECT_TRUE(buttonNamed(dialog, u"R&&D"_qs));
}

TEST(SafeText, ReplacesOnlyWhatReordersOrHides)
{
    const struct
    {
        const char *rule;
        QString text, shown;
    } cases[] = {
        {"an override", u"a\u202egnp.exe"_qs, u"a\ufffdgnp.exe"_qs},
        {"isolates and marks", u"\u2066x\u2069\u200f\u061c"_qs, u"\ufffdx\ufffd\ufffd\ufffd"_qs},
        {"control characters", u"a\r\u0007\u0085b"_qs, u"a\ufffd\ufffd\ufffdb"_qs},
        {"line breaks stay", u"a\n\nb"_qs, u"a\n\nb"_qs},
        {"letters of every script stay", u"Zoë שלום 😀"_qs, u"Zoë שלום 😀"_qs},
    };
    for (const auto &c : cases)
        EXPECT_EQ(withoutReorderingCharacters(c.text), c.shown) << c.rule;
}

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
    EXPECT_EQ(ModalAlerts().runModal({u"message"_qs, u"text"_qs, {{u"OK"_qs}}}), 1000);
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
