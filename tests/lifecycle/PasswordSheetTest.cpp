#include "support/DocumentFixture.h"

namespace
{

// What is refused and taken, in which words, and where it leads is seen in the windows' tests.
class PasswordSheet : public DocumentFixture
{
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

TEST_F(PasswordSheet, GivingUpLeavesEverything)
{
    newProtectedDocument();
    document->setPlainPasswordInserted(u"left over"_qs);
    document->documentPassword({});
    EXPECT_EQ(document->plainPasswordInserted(), u"");
    document->setPlainPasswordInserted(u"another one"_qs);
    document->cancelChangePasswordSheet({});
    EXPECT_TRUE(window->sheet().isNull());
    document->passwordMustMatch(window.get());
    window->answer(1001);
    queue.drain();
    EXPECT_TRUE(window->sheet().isNull());
    document->showInsertPasswordSheet(window.get(), nullptr);
    document->cancelInsertPasswordSheet({});
    EXPECT_FALSE(window->hasAlert());
    EXPECT_EQ(document->plainPassword(), password);
    EXPECT_FALSE(document->isDocumentEdited());
    const auto insert = [this](const QString &text) {
        document->showInsertPasswordSheet(window.get(), nullptr);
        document->setPlainPasswordInserted(text);
        document->setPlainPasswordInsertedRetype(text);
    };
    insert(u"inserted"_qs);
    document->confirmInsertPasswordSheet({});
    queue.drain();
    insert(u"half typed"_qs);
    window->endAllSheets();
    queue.drain();
    EXPECT_EQ(document->plainPassword(), u"inserted") << "as a lock ends it";

    document->setPlainPassword(u""_qs);
    document->documentPassword({});
    EXPECT_EQ(window->sheet(), u"mandatoryPasswordSheet") << "a document without a password";
}

} // namespace
