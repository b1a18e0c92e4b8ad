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
    const QString emoji = u"\U0001F600abcd"_qs; // six UTF-16 units
    const struct
    {
        const char *rule;
        QString inserted, retyped, message;
    } refusals[] = {
        {"the difference comes first", u"abc"_qs, u"abd"_qs,
         u"Password inserted in the two fields doesn't match"_qs},
        {"five are too few", u"abcde"_qs, u"abcde"_qs, u"Password too short"_qs},
        {"blanks count but are not trimmed", u"abcdef "_qs, u"abcdef"_qs,
         u"Password inserted in the two fields doesn't match"_qs},
    };
    newDocument();
    document->askMandatoryPasswordToProtectDocument();
    for (const auto &c : refusals) {
        SCOPED_TRACE(c.rule);
        enter(c.inserted, c.retyped);
        EXPECT_EQ(window->alert().message, c.message);
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

const QString mustMatch =
    u"Password inserted in the 'Old Master Password' field must be equal to the password "
    "previously used to protect this document."_qs;
const QString notEqual = u"Passwords inserted in the two fields doesn't match"_qs;
const QString tooShort =
    u"Password Too Short. You have to use a password which is at least six character long."_qs;

TEST_F(PasswordSheet, AChangeIsRefusedInThisOrderAndComesBackAsItWas)
{
    const QString good = u"battery staple"_qs;
    const struct
    {
        const char *rule;
        QString previous, inserted, retyped, message;
    } refusals[] = {
        {"the old one comes first", u"wrong"_qs, u"abc"_qs, u"abd"_qs, mustMatch},
        {"then the difference", password, u"abc"_qs, u"abd"_qs, notEqual},
        {"then the length", password, u"abcde"_qs, u"abcde"_qs, tooShort},
    };
    newProtectedDocument();
    document->setPlainPasswordInserted(u"left over"_qs);
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
}

TEST_F(PasswordSheet, CancellingAChangeLeavesEverything)
{
    newProtectedDocument();
    document->documentPassword({});
    document->setPlainPasswordInserted(u"another one"_qs);
    document->cancelChangePasswordSheet({});
    EXPECT_TRUE(window->sheet().isNull());
    document->passwordMustMatch(window.get());
    window->answer(1001);
    queue.drain();
    EXPECT_TRUE(window->sheet().isNull());
    EXPECT_EQ(document->plainPassword(), password);
    EXPECT_FALSE(document->isDocumentEdited());

    document->setPlainPassword(u""_qs);
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
    confirm(u"abc"_qs, u"abd"_qs);
    EXPECT_EQ(window->alert().message, notEqual);
    window->answer(1001);
    confirm(u"abc"_qs, u"abc"_qs);
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
}

} // namespace
