#include "window/AlertDialog.h"

#include "support/Printers.h"
#include "support/TestServices.h"
#include "window/SafeText.h"
#include "window/SheetQueue.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>

using Foundation::Alert;

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

Alert alertWith(const QStringList &buttons)
{
    return {QStringLiteral("message"), QStringLiteral("text"), buttons};
}

} // namespace

TEST(AlertDialog, AnswersWithThePlaceOfTheButton)
{
    const QStringList save = {QStringLiteral("Save"), QStringLiteral("Cancel"), QStringLiteral("Discard")};
    const QStringList remove = {QStringLiteral("Cancel"), QStringLiteral("Delete Contact")};
    const struct
    {
        const char *rule;
        QStringList buttons;
        QString pressed; // null for the Escape key, empty for the Return key
        int code;
    } cases[] = {
        {"first", save, QStringLiteral("Save"), 1000},
        {"second", save, QStringLiteral("Cancel"), 1001},
        {"third", save, QStringLiteral("Discard"), 1002},
        {"Return is the first", save, QStringLiteral(""), 1000},
        {"Escape is the one named so", save, QString(), 1001},
        {"Return is the first even if that is Cancel", remove, QStringLiteral(""), 1000},
        {"Escape too", remove, QString(), 1000},
        {"the confirming one may be second", remove, QStringLiteral("Delete Contact"), 1001},
        {"Escape is the only one", {QStringLiteral("OK")}, QString(), 1000},
        {"Escape without a Cancel is the last", {QStringLiteral("A"), QStringLiteral("B")}, QString(), 1001},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.rule);
        AlertDialog dialog(alertWith(c.buttons));
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
    const Alert alert{
        QStringLiteral("<h1>“R&D”</h1>"), QStringLiteral("<img src=x>"), {QStringLiteral("R&D")}};
    const AlertDialog dialog(alert);
    QStringList texts;
    for (const QLabel *label : dialog.findChildren<QLabel *>()) {
        if (!label->text().isEmpty()) {
            EXPECT_EQ(label->textFormat(), Qt::PlainText);
            texts.append(label->text());
        }
    }
    EXPECT_EQ(texts, QStringList({alert.message, alert.informativeText}));
    EXPECT_TRUE(buttonNamed(dialog, QStringLiteral("R&&D")));
}

TEST(SafeText, ReplacesOnlyWhatReordersOrHides)
{
    const struct
    {
        const char *rule;
        QString text;
        QString shown;
    } cases[] = {
        {"an override", QStringLiteral("a\u202egnp.exe"), QStringLiteral("a\ufffdgnp.exe")},
        {"isolates and marks", QStringLiteral("\u2066x\u2069\u200f\u061c"),
         QStringLiteral("\ufffdx\ufffd\ufffd\ufffd")},
        {"control characters", QStringLiteral("a\r\u0007\u0085b"), QStringLiteral("a\ufffd\ufffd\ufffdb")},
        {"line breaks stay", QStringLiteral("a\n\nb"), QStringLiteral("a\n\nb")},
        {"letters of every script stay", QStringLiteral("Zoë שלום 😀"), QStringLiteral("Zoë שלום 😀")},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.rule);
        EXPECT_EQ(withoutReorderingCharacters(c.text), c.shown);
    }
}

// A window with sheets, and what their ends told.
class SheetQueueTest : public testing::Test
{
protected:
    SheetQueueTest() { window.show(); }

    void begin(const QString &name)
    {
        queue.begin(
            name,
            [this, name](QWidget *parent) {
                shown.append(name);
                return new QDialog(parent);
            },
            [this, name](int result) { ended.append(QStringLiteral("%1 %2").arg(name).arg(result)); });
    }

    ManualQueue mainQueue;
    QWidget window;
    SheetQueue queue{&window};
    QStringList shown;
    QStringList ended;
};

TEST_F(SheetQueueTest, OneStandsAtATime)
{
    begin(QStringLiteral("a"));
    begin(QStringLiteral("b"));
    EXPECT_EQ(shown, QStringList({QStringLiteral("a")}));
    queue.end(QStringLiteral("b"), 7);
    EXPECT_TRUE(ended.isEmpty()) << "only the standing one can be ended";
    queue.end(QStringLiteral("a"), 5);
    EXPECT_FALSE(queue.hasSheet());
    EXPECT_TRUE(ended.isEmpty()) << "the end is told later";
    begin(QStringLiteral("c"));
    EXPECT_EQ(shown.size(), 1) << "and nothing comes before it was told";
    mainQueue.drain();
    EXPECT_EQ(ended, QStringList({QStringLiteral("a 5")}));
    EXPECT_EQ(shown.last(), QStringLiteral("b"));
    EXPECT_TRUE(queue.hasSheet());
}

TEST_F(SheetQueueTest, DroppedSheetsTellNothing)
{
    begin(QStringLiteral("a"));
    queue.end(QStringLiteral("a"), 5);
    begin(QStringLiteral("b"));
    queue.drop();
    mainQueue.drain();
    EXPECT_TRUE(ended.isEmpty());
    EXPECT_EQ(shown, QStringList({QStringLiteral("a")}));
    EXPECT_FALSE(queue.hasSheet());
}
