#include "window/sheets/AlertDialog.h"

#include "support/Printers.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>

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
