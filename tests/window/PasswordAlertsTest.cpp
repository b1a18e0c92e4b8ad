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

const QString present = u"correct horse"_qs;
const QString good = u"battery staple"_qs;
const QString five = u"abcde"_qs;
const QString other = u"abcdef "_qs;
const QStringList ok = {u"OK"_qs};
const QStringList retry = {u"Retry"_qs};
const QStringList retryOrCancel = {u"Retry"_qs, u"Cancel"_qs};
const QStringList okOrCancel = {u"OK"_qs, u"Cancel"_qs};
const QString mandatorySheet = u"mandatoryPasswordSheet"_qs;
const QString changeSheet = u"changePasswordSheet"_qs;
const QString insertSheet = u"insertPasswordSheet"_qs;
const QString noChanges = u"No changes were applied"_qs;
const QString accepted = u"Password accepted"_qs;
const QString mustMatch =
    u"Password inserted in the 'Old Master Password' field must be equal to the password "
    "previously used to protect this document."_qs;
const QString notEqual = u"Passwords inserted in the two fields doesn't match"_qs;
const QString notEqualText = u"You must insert exactly the same password in the two 'New Password' fields. "
                             "No changes were applied"_qs;
const QString tooShort =
    u"Password Too Short. You have to use a password which is at least six character long."_qs;
const QString lockQuestion = u"Lock Document back to the crypted state?"_qs;

QString acceptedText(const QString &which, const QString &makers)
{
    const bool isNew = which == u"This new password";
    return which +
           QStringLiteral(
               " will be used when saving this document.\nData will be stored on disk encrypted using a "
               "secure algorithm.\n\nNext time, to open this document, ") +
           which.toLower() + u" will be required.\nStore your "_qs +
           (isNew ? u"new password"_qs : u"password"_qs) +
           u" in a safe place.\nThere is no way, even for "_qs + makers +
           u", to open the document and decrypt the data without the right password."_qs;
}

const AlertCase alertCases[] = {
    {"the two differ, which comes before the length",
     Way::FirstPassword,
     {five, u"abcd"_qs},
     u"Password inserted in the two fields doesn't match"_qs,
     u"You must insert exactly the same password in the two fields."_qs,
     retry,
     mandatorySheet},
    {"too short",
     Way::FirstPassword,
     {five, five},
     u"Password too short"_qs,
     u"You have to use a password which is at least six character long."_qs,
     retry,
     mandatorySheet},
    {"taken",
     Way::FirstPassword,
     {good, good},
     accepted,
     acceptedText(u"This password"_qs, u"the developers of this application"_qs),
     ok,
     {}},
    {"the old one is wrong, which comes first",
     Way::ChangedPassword,
     {u"wrong"_qs, five, u"abcd"_qs},
     mustMatch,
     noChanges,
     retryOrCancel,
     changeSheet},
    {"a blank makes a difference",
     Way::ChangedPassword,
     {present, u"abcdef"_qs, other},
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
     u"Password changed successfuly"_qs,
     acceptedText(u"This new password"_qs, u"the Brightmoor Labs"_qs),
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
     acceptedText(u"This password"_qs, u"Brightmoor Labs"_qs),
     ok,
     {}},
    {"wrong at unlocking",
     Way::Unlocking,
     {u"wrong horse"_qs},
     u"Wrong Password"_qs,
     u"You inserted a wrong password.\nTo access this document you must insert exactly the "
     "password used to protect it"_qs,
     ok,
     {}},
    {"locked without changes",
     Way::Locking,
     {},
     lockQuestion,
     u"To browse the document data again you will need to re-insert the master password"_qs,
     okOrCancel,
     {}},
    {"locked with changes",
     Way::LockingEdited,
     {},
     lockQuestion,
     u"Before locking the document you need to save it on disk.\n"
     "To browse the document data again you will need to re-insert the master password"_qs,
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
            window()->findChild<QAction *>(u"passwordItem"_qs)->trigger();
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
            addContact(u"Ada"_qs, u"Byron"_qs);
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
            chooseNextPath(pathOf(u"Alerts %1.vexcards"_qs.arg(&c - alertCases)));
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
