#include "support/Printers.h"
#include "window/WindowTest.h"

#include <QPushButton>

// Every alert about passwords and locking, brought about and answered in the running application.

namespace
{

enum class Way { FirstPassword, ChangedPassword, InsertedPassword, Unlocking, Locking, LockingEdited };

struct AlertCase
{
    const char *rule;
    Way way;
    QStringList typed; // Into the fields of the sheet, in order.
    QString message;
    QString informativeText;
    QStringList buttons;
    QString leadsTo; // What the first button brings up; null: the window alone.
};

const QString present = QStringLiteral("correct horse");
const QString good = QStringLiteral("battery staple");
const QString five = QStringLiteral("abcde");
const QString other = QStringLiteral("abcdef ");
const QStringList ok = {QStringLiteral("OK")};
const QStringList retry = {QStringLiteral("Retry")};
const QStringList retryOrCancel = {QStringLiteral("Retry"), QStringLiteral("Cancel")};
const QStringList okOrCancel = {QStringLiteral("OK"), QStringLiteral("Cancel")};
const QString mandatorySheet = QStringLiteral("mandatoryPasswordSheet");
const QString changeSheet = QStringLiteral("changePasswordSheet");
const QString insertSheet = QStringLiteral("insertPasswordSheet");
const QString noChanges = QStringLiteral("No changes were applied");
const QString accepted = QStringLiteral("Password accepted");
const QString mustMatch =
    QStringLiteral("Password inserted in the 'Old Master Password' field must be equal to the password "
                   "previously used to protect this document.");
const QString notEqual = QStringLiteral("Passwords inserted in the two fields doesn't match");
const QString notEqualText =
    QStringLiteral("You must insert exactly the same password in the two 'New Password' fields. "
                   "No changes were applied");
const QString tooShort =
    QStringLiteral("Password Too Short. You have to use a password which is at least six character long.");
const QString lockQuestion = QStringLiteral("Lock Document back to the crypted state?");

QString acceptedText(const QString &which, const QString &makers)
{
    const bool isNew = which == u"This new password";
    return which +
           QStringLiteral(
               " will be used when saving this document.\nData will be stored on disk encrypted using a "
               "secure algorithm.\n\nNext time, to open this document, ") +
           which.toLower() + QStringLiteral(" will be required.\nStore your ") +
           (isNew ? QStringLiteral("new password") : QStringLiteral("password")) +
           QStringLiteral(" in a safe place.\nThere is no way, even for ") + makers +
           QStringLiteral(", to open the document and decrypt the data without the right password.");
}

const AlertCase alertCases[] = {
    {"the two differ, which comes before the length",
     Way::FirstPassword,
     {five, QStringLiteral("abcd")},
     QStringLiteral("Password inserted in the two fields doesn't match"),
     QStringLiteral("You must insert exactly the same password in the two fields."),
     retry,
     mandatorySheet},
    {"too short",
     Way::FirstPassword,
     {five, five},
     QStringLiteral("Password too short"),
     QStringLiteral("You have to use a password which is at least six character long."),
     retry,
     mandatorySheet},
    {"taken",
     Way::FirstPassword,
     {good, good},
     accepted,
     acceptedText(QStringLiteral("This password"), QStringLiteral("the developers of this application")),
     ok,
     {}},
    {"the old one is wrong, which comes first",
     Way::ChangedPassword,
     {QStringLiteral("wrong"), five, QStringLiteral("abcd")},
     mustMatch,
     noChanges,
     retryOrCancel,
     changeSheet},
    {"a blank makes a difference",
     Way::ChangedPassword,
     {present, QStringLiteral("abcdef"), other},
     notEqual,
     notEqualText,
     retryOrCancel,
     changeSheet},
    {"five are too few",
     Way::ChangedPassword,
     {present, five, five},
     tooShort,
     noChanges,
     retryOrCancel,
     changeSheet},
    {"changed",
     Way::ChangedPassword,
     {present, good, good},
     QStringLiteral("Password changed successfuly"),
     acceptedText(QStringLiteral("This new password"), QStringLiteral("the Brightmoor Labs")),
     ok,
     {}},
    {"its retry leads to the sheet of changes",
     Way::InsertedPassword,
     {good, other},
     notEqual,
     notEqualText,
     retryOrCancel,
     changeSheet},
    {"so does this", Way::InsertedPassword, {five, five}, tooShort, noChanges, retryOrCancel, changeSheet},
    {"inserted",
     Way::InsertedPassword,
     {good, good},
     accepted,
     acceptedText(QStringLiteral("This password"), QStringLiteral("Brightmoor Labs")),
     ok,
     {}},
    {"wrong at unlocking",
     Way::Unlocking,
     {QStringLiteral("wrong horse")},
     QStringLiteral("Wrong Password"),
     QStringLiteral("You inserted a wrong password.\nTo access this document you must insert exactly the "
                    "password used to protect it"),
     ok,
     {}},
    {"locked without changes",
     Way::Locking,
     {},
     lockQuestion,
     QStringLiteral("To browse the document data again you will need to re-insert the master password"),
     okOrCancel,
     {}},
    {"locked with changes",
     Way::LockingEdited,
     {},
     lockQuestion,
     QStringLiteral("Before locking the document you need to save it on disk.\n"
                    "To browse the document data again you will need to re-insert the master password"),
     okOrCancel,
     {}},
};

class PasswordAlertsTest : public WindowTest
{
protected:
    void fill(const QString &sheetName, const QStringList &texts)
    {
        ASSERT_TRUE(sheetComes(sheetName));
        for (const QString &text : texts) {
            press(Qt::Key_A, Qt::ControlModifier);
            type(text);
            press(Qt::Key_Tab);
        }
        press(Qt::Key_Return);
    }
    void bringAbout(const AlertCase &c)
    {
        switch (c.way) {
        case Way::FirstPassword:
            makeNewDocument();
            fill(mandatorySheet, c.typed);
            break;
        case Way::ChangedPassword:
            window()->findChild<QAction *>(QStringLiteral("passwordItem"))->trigger();
            fill(changeSheet, c.typed);
            break;
        case Way::InsertedPassword:
            document()->showInsertPasswordSheet(controller(), nullptr);
            fill(insertSheet, c.typed);
            break;
        case Way::Unlocking:
            document()->doLockDocument();
            unlock(c.typed.value(0));
            break;
        case Way::LockingEdited:
            addContact(QStringLiteral("Ada"), QStringLiteral("Byron"));
            press(Qt::Key_L, Qt::ControlModifier);
            break;
        case Way::Locking:
            press(Qt::Key_L, Qt::ControlModifier);
            break;
        }
    }
    QStringList buttonsOfTheAlert() const
    {
        QStringList titles;
        for (const QPushButton *button : sheet()->findChildren<QPushButton *>())
            titles.append(titleWithoutMnemonic(button->text()));
        titles.sort(); // Where they stand follows the desktop.
        return titles;
    }
};

TEST_F(PasswordAlertsTest, EachComesInItsExactWordsAndLeadsOn)
{
    for (const AlertCase &c : alertCases) {
        SCOPED_TRACE(c.rule);
        if (c.way != Way::FirstPassword) {
            makeProtectedDocument();
            chooseNextPath(pathOf(QStringLiteral("Alerts %1.vexcards").arg(&c - alertCases)));
            press(Qt::Key_S, Qt::ControlModifier);
            ASSERT_FALSE(document()->isDocumentEdited());
        }
        bringAbout(c);
        EXPECT_EQ(nextAlert(), QStringList({c.message, c.informativeText}));
        ASSERT_TRUE(sheet());
        QStringList buttons = c.buttons;
        buttons.sort();
        EXPECT_EQ(buttonsOfTheAlert(), buttons);
        answer(c.buttons.first());
        if (c.leadsTo.isNull())
            EXPECT_TRUE(windowIsActive());
        else
            EXPECT_TRUE(sheetComes(c.leadsTo));
        document()->close();
        ASSERT_TRUE(eventually([this] { return document() == nullptr; }));
    }
}

} // namespace
