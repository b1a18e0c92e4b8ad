#include "window/WindowTest.h"

// Every alert about passwords and locking, brought about and answered in the running application.

namespace
{

enum class Way { First, Changed, Inserted, Unlocking, Locking, LockingEdited };

struct Words
{
    QString message, informativeText;
    QStringList buttons;
};

struct AlertCase
{
    const char *rule;
    Way way;
    QStringList typed; // Into the fields of the sheet, in order.
    Words words;
    QString leadsTo; // What the first button brings up; null: the window alone.
};

const QString present = u"correct horse"_qs;
const QString good = u"battery staple"_qs;
const QString five = u"abcde"_qs;
const QString sixUnits = u"\U0001F600abcd"_qs;
const QStringList ok = {u"OK"_qs};
const QStringList retry = {u"Retry"_qs};
const QStringList retryOrCancel = {u"Retry"_qs, u"Cancel"_qs};
const QStringList okOrCancel = {u"OK"_qs, u"Cancel"_qs};
const QString firstSheet = u"mandatoryPasswordSheet"_qs;
const QString changeSheet = u"changePasswordSheet"_qs;
const QString insertSheet = u"insertPasswordSheet"_qs;

Words taken(const QString &message, const QString &which, const QString &makers)
{
    const QString text =
        u"%1 will be used when saving this document.\nData will be stored on disk encrypted using a secure "
        u"algorithm.\n\nNext time, to open this document, %2 will be required.\nStore your %3 in a safe "
        u"place.\n"
        u"There is no way, even for %4, to open the document and decrypt the data without the right password."_qs;
    return {message, text.arg(which, which.toLower(), which.section(u' ', 1), makers), ok};
}

const Words firstNotEqual{u"Password inserted in the two fields doesn't match"_qs,
                          u"You must insert exactly the same password in the two fields."_qs, retry};
const Words firstTooShort{u"Password too short"_qs,
                          u"You have to use a password which is at least six character long."_qs, retry};
const Words firstTaken =
    taken(u"Password accepted"_qs, u"This password"_qs, u"the developers of this application"_qs);
const Words mustMatch{u"Password inserted in the 'Old Master Password' field must be equal to the password "
                      u"previously used to protect this document."_qs,
                      u"No changes were applied"_qs, retryOrCancel};
const Words notEqual{
    u"Passwords inserted in the two fields doesn't match"_qs,
    u"You must insert exactly the same password in the two 'New Password' fields. No changes "
    u"were applied"_qs,
    retryOrCancel};
const Words tooShort{
    u"Password Too Short. You have to use a password which is at least six character long."_qs,
    u"No changes were applied"_qs, retryOrCancel};
const Words changed =
    taken(u"Password changed successfuly"_qs, u"This new password"_qs, u"the Brightmoor Labs"_qs);
const Words inserted = taken(u"Password accepted"_qs, u"This password"_qs, u"Brightmoor Labs"_qs);
const Words wrong{u"Wrong Password"_qs,
                  u"You inserted a wrong password.\nTo access this document you must insert exactly the "
                  u"password used to protect it"_qs,
                  ok};
const QString lockQuestion = u"Lock Document back to the crypted state?"_qs;
const QString again = u"To browse the document data again you will need to re-insert the master password"_qs;
const Words lock{lockQuestion, again, okOrCancel};
const Words lockEdited{lockQuestion, u"Before locking the document you need to save it on disk.\n"_qs + again,
                       okOrCancel};

const AlertCase alertCases[] = {
    {"the difference comes before the length", Way::First, {five, u"abcd"_qs}, firstNotEqual, firstSheet},
    {"too short", Way::First, {five, five}, firstTooShort, firstSheet},
    {"taken", Way::First, {good, good}, firstTaken, {}},
    {"units are counted", Way::First, {sixUnits, sixUnits}, firstTaken, {}},
    {"the old one comes first", Way::Changed, {u"wrong"_qs, five, u"abcd"_qs}, mustMatch, changeSheet},
    {"a blank counts", Way::Changed, {present, u"abcdef"_qs, u"abcdef "_qs}, notEqual, changeSheet},
    {"five are too few", Way::Changed, {present, five, five}, tooShort, changeSheet},
    {"changed", Way::Changed, {present, good, good}, changed, {}},
    {"its retry leads to the sheet of changes", Way::Inserted, {good, five}, notEqual, changeSheet},
    {"so does this", Way::Inserted, {five, five}, tooShort, changeSheet},
    {"inserted", Way::Inserted, {good, good}, inserted, {}},
    {"wrong at unlocking", Way::Unlocking, {u"wrong horse"_qs}, wrong, {}},
    {"locked without changes", Way::Locking, {}, lock, {}},
    {"locked with changes", Way::LockingEdited, {}, lockEdited, {}},
};

class PasswordAlertsTest : public WindowTest
{
protected:
    void fill(const QString &sheetName, const QStringList &texts)
    {
        ASSERT_TRUE(sheetComes(sheetName));
        fillIn(texts);
        press(Qt::Key_Return);
    }
    void bringAbout(const AlertCase &c)
    {
        switch (c.way) {
        case Way::First:
            makeNewDocument();
            EXPECT_EQ(control<QLineEdit>("password")->echoMode(), QLineEdit::Password);
            fill(firstSheet, c.typed);
            break;
        case Way::Changed:
            item("passwordItem")->trigger();
            fill(changeSheet, c.typed);
            break;
        case Way::Inserted:
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
    void expectTaken(const AlertCase &c, bool isTaken) const
    {
        const QString former = c.way == Way::First ? u""_qs : present;
        EXPECT_EQ(document()->plainPassword(), isTaken ? c.typed.last() : former);
        EXPECT_EQ(window()->isWindowModified(), isTaken);
        EXPECT_EQ(document()->plainPasswordInserted().isEmpty(), isTaken);
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
        if (c.way != Way::First) {
            makeProtectedDocument();
            saveTo(u"Alerts %1.vexcards"_qs.arg(&c - alertCases));
        }
        bringAbout(c);
        EXPECT_EQ(nextAlert(), QStringList({c.words.message, c.words.informativeText}));
        ASSERT_TRUE(sheet());
        QStringList buttons = c.words.buttons;
        buttons.sort();
        EXPECT_EQ(buttonsOfTheAlert(), buttons);
        if (c.way <= Way::Inserted)
            expectTaken(c, c.words.buttons == ok);
        answer(c.words.buttons.first());
        if (c.leadsTo.isNull()) {
            EXPECT_TRUE(windowIsActive());
        } else {
            ASSERT_TRUE(sheetComes(c.leadsTo));
            // Once the other two sheets were answered, what is typed shows: that is how the flag is left.
            EXPECT_EQ(control<QLineEdit>("password")->echoMode(),
                      c.way == Way::Changed ? QLineEdit::Password : QLineEdit::Normal);
            EXPECT_EQ(field("password"), c.typed.value(c.typed.size() - 2)) << "it comes back as it was left";
        }
        document()->close();
        ASSERT_TRUE(isClosed());
    }
}

} // namespace
