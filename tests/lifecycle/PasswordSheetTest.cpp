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

} // namespace
