#include "support/DocumentFixture.h"

#include <QPointer>

namespace
{

class PasswordSheet : public DocumentFixture
{
protected:
    void enter(const QString &inserted, const QString &retyped)
    {
        document->setPlainPasswordInserted(inserted);
        document->setPlainPasswordInsertedRetype(retyped);
        pressSheetButton(1000);
    }
};

TEST_F(PasswordSheet, ComesOnceWhenTheWindowOfANewDocumentBecomesKey)
{
    newDocument();
    EXPECT_TRUE(window->sheet().isNull());
    document->windowDidBecomeKey();
    EXPECT_TRUE(window->sheet().isNull()) << "only after the window has finished becoming active";
    queue.drain();
    EXPECT_EQ(window->sheet(), u"mandatoryPasswordSheet");
    document->windowDidBecomeKey();
    EXPECT_EQ(queue.waiting(), 0U);
}

TEST_F(PasswordSheet, RefusesInThisOrderAndComesBackAsItWas)
{
    const QString emoji = QStringLiteral("\U0001F600abcd"); // six UTF-16 units
    const struct
    {
        const char *rule;
        QString inserted, retyped, message, informativeText;
    } refusals[] = {
        {"the difference comes first", QStringLiteral("abc"), QStringLiteral("abd"),
         QStringLiteral("Password inserted in the two fields doesn't match"),
         QStringLiteral("You must insert exactly the same password in the two fields.")},
        {"five are too few", QStringLiteral("abcde"), QStringLiteral("abcde"),
         QStringLiteral("Password too short"),
         QStringLiteral("You have to use a password which is at least six character long.")},
        {"blanks count but are not trimmed", QStringLiteral("abcdef "), QStringLiteral("abcdef"),
         QStringLiteral("Password inserted in the two fields doesn't match"),
         QStringLiteral("You must insert exactly the same password in the two fields.")},
    };
    newDocument();
    document->askMandatoryPasswordToProtectDocument();
    for (const auto &c : refusals) {
        SCOPED_TRACE(c.rule);
        enter(c.inserted, c.retyped);
        EXPECT_EQ(window->alert().message, c.message);
        EXPECT_EQ(window->alert().informativeText, c.informativeText);
        EXPECT_EQ(window->alert().buttons, QStringList{QStringLiteral("Retry")});
        EXPECT_TRUE(document->showClearPasswordInInsertPasswordSheet());
        EXPECT_FALSE(document->isDocumentEdited());
        window->answer(1000);
        EXPECT_TRUE(window->sheet().isNull());
        queue.drain();
        EXPECT_EQ(window->sheet(), u"mandatoryPasswordSheet");
        EXPECT_EQ(document->plainPasswordInserted(), c.inserted);
        EXPECT_EQ(document->plainPassword(), u"");
    }
    enter(emoji, emoji);
    EXPECT_EQ(document->plainPassword(), emoji);
    EXPECT_EQ(document->plainPasswordInserted(), u"");
    EXPECT_EQ(document->plainPasswordInsertedRetype(), u"");
    EXPECT_TRUE(document->isDocumentEdited());
    EXPECT_EQ(window->alert().message, u"Password accepted");
    EXPECT_EQ(window->alert().informativeText,
              u"This password will be used when saving this document.\nData will be stored on disk encrypted "
              u"using a secure algorithm.\n\nNext time, to open this document, this password will be "
              u"required.\nStore your password in a safe place.\nThere is no way, even for the developers of "
              u"this application, to open the document and decrypt the data without the right password.");
    EXPECT_EQ(window->alert().buttons, QStringList{QStringLiteral("OK")});
}

TEST_F(PasswordSheet, CancellingClosesTheDocumentWithoutAQuestion)
{
    newDocument();
    QPointer<MyDocument> watched(document.release()); // closing deletes it
    watched->askMandatoryPasswordToProtectDocument();
    watched->updateChangeCount(0);
    Foundation::ActionSender cancel;
    cancel.tag = 1001;
    watched->confirmMandatoryPasswordSheet(cancel);
    EXPECT_FALSE(window->closed) << "the sheet has to go first";
    queue.drain();
    EXPECT_TRUE(window->closed);
    EXPECT_FALSE(window->hasAlert());
    endEvent();
    EXPECT_TRUE(watched.isNull());
}

const QString noChanges = QStringLiteral("No changes were applied");
const QString mustMatch =
    QStringLiteral("Password inserted in the 'Old Master Password' field must be equal to the password "
                   "previously used to protect this document.");
const QString notEqual = QStringLiteral("Passwords inserted in the two fields doesn't match");
const QString notEqualText =
    QStringLiteral("You must insert exactly the same password in the two 'New Password' fields. "
                   "No changes were applied");
const QString tooShort =
    QStringLiteral("Password Too Short. You have to use a password which is at least six character long.");

TEST_F(PasswordSheet, AChangeIsRefusedInThisOrderAndComesBackAsItWas)
{
    const QString good = QStringLiteral("battery staple");
    const struct
    {
        const char *rule;
        QString previous, inserted, retyped, message, informativeText;
    } refusals[] = {
        {"the old one comes first", QStringLiteral("wrong"), QStringLiteral("abc"), QStringLiteral("abd"),
         mustMatch, noChanges},
        {"then the difference", password, QStringLiteral("abc"), QStringLiteral("abd"), notEqual,
         notEqualText},
        {"then the length", password, QStringLiteral("abcde"), QStringLiteral("abcde"), tooShort, noChanges},
    };
    newProtectedDocument();
    document->setPlainPasswordInserted(QStringLiteral("left over"));
    document->documentPassword({});
    EXPECT_EQ(window->sheet(), u"changePasswordSheet");
    EXPECT_EQ(document->plainPasswordInserted(), u"");
    for (const auto &c : refusals) {
        SCOPED_TRACE(c.rule);
        document->setPlainPasswordPrevious(c.previous);
        document->setPlainPasswordInserted(c.inserted);
        document->setPlainPasswordInsertedRetype(c.retyped);
        document->setShowClearPasswordInInsertPasswordSheet(true);
        document->confirmChangePasswordSheet({});
        EXPECT_TRUE(window->sheet().isNull());
        EXPECT_FALSE(document->showClearPasswordInInsertPasswordSheet());
        EXPECT_EQ(window->alert().message, c.message);
        EXPECT_EQ(window->alert().informativeText, c.informativeText);
        EXPECT_EQ(window->alert().buttons, (QStringList{QStringLiteral("Retry"), QStringLiteral("Cancel")}));
        window->answer(1000);
        EXPECT_TRUE(window->sheet().isNull()) << "the alert has to go first";
        queue.drain();
        EXPECT_EQ(window->sheet(), u"changePasswordSheet");
        EXPECT_EQ(document->plainPasswordInserted(), c.inserted);
        EXPECT_EQ(document->plainPassword(), password);
        EXPECT_FALSE(document->isDocumentEdited());
    }
    document->setPlainPasswordInserted(good);
    document->setPlainPasswordInsertedRetype(good);
    document->confirmChangePasswordSheet({});
    EXPECT_EQ(document->plainPassword(), good);
    EXPECT_EQ(document->plainPasswordPrevious() + document->plainPasswordInserted() +
                  document->plainPasswordInsertedRetype(),
              u"");
    EXPECT_TRUE(document->isDocumentEdited());
    EXPECT_EQ(window->alert().message, u"Password changed successfuly");
    EXPECT_EQ(
        window->alert().informativeText,
        u"This new password will be used when saving this document.\nData will be stored on disk encrypted "
        u"using a secure algorithm.\n\nNext time, to open this document, this new password will be "
        u"required.\nStore your new password in a safe place.\nThere is no way, even for the Brightmoor "
        u"Labs, to open the document and decrypt the data without the right password.");
    EXPECT_EQ(window->alert().buttons, QStringList{QStringLiteral("OK")});
}

TEST_F(PasswordSheet, CancellingAChangeLeavesEverything)
{
    newProtectedDocument();
    document->documentPassword({});
    document->setPlainPasswordInserted(QStringLiteral("another one"));
    document->cancelChangePasswordSheet({});
    EXPECT_TRUE(window->sheet().isNull());
    document->passwordMustMatch(window.get());
    window->answer(1001);
    queue.drain();
    EXPECT_TRUE(window->sheet().isNull());
    EXPECT_EQ(document->plainPassword(), password);
    EXPECT_FALSE(document->isDocumentEdited());

    document->setPlainPassword(QStringLiteral(""));
    document->documentPassword({});
    EXPECT_EQ(window->sheet(), u"mandatoryPasswordSheet") << "a document without a password";
}

TEST_F(PasswordSheet, InsertingRefusesLikeAChangeAndItsRetryLeadsThere)
{
    newDocument();
    const auto confirm = [this](const QString &inserted, const QString &retyped) {
        document->showInsertPasswordSheet(window.get(), nullptr);
        EXPECT_EQ(window->sheet(), u"insertPasswordSheet");
        document->setPlainPasswordInserted(inserted);
        document->setPlainPasswordInsertedRetype(retyped);
        document->confirmInsertPasswordSheet({});
        EXPECT_TRUE(document->showClearPasswordInInsertPasswordSheet());
    };
    confirm(QStringLiteral("abc"), QStringLiteral("abd"));
    EXPECT_EQ(window->alert().message, notEqual);
    window->answer(1001);
    confirm(QStringLiteral("abc"), QStringLiteral("abc"));
    EXPECT_EQ(window->alert().message, tooShort);
    window->answer(1000);
    queue.drain();
    EXPECT_EQ(window->sheet(), u"changePasswordSheet");
    document->cancelChangePasswordSheet({});

    document->showInsertPasswordSheet(window.get(), nullptr);
    document->cancelInsertPasswordSheet({});
    EXPECT_FALSE(window->hasAlert());
    EXPECT_EQ(document->plainPassword(), u"");
    confirm(password, password);
    EXPECT_EQ(document->plainPassword(), password);
    EXPECT_TRUE(document->isDocumentEdited());
    EXPECT_EQ(window->alert().message, u"Password accepted");
    EXPECT_EQ(
        window->alert().informativeText,
        u"This password will be used when saving this document.\nData will be stored on disk encrypted "
        u"using a secure algorithm.\n\nNext time, to open this document, this password will be "
        u"required.\nStore your password in a safe place.\nThere is no way, even for Brightmoor Labs, to "
        u"open the document and decrypt the data without the right password.");
}

} // namespace
