#include "archive/KeyedArchive.h"
#include "core/FileLayout.h"
#include "support/DocumentFixture.h"

#include <QFile>

using Foundation::Value;

namespace
{

class MyDocumentTest : public DocumentFixture
{
protected:
    static QString sample(const char *name)
    {
        return QStringLiteral(VEXAREL_TEST_DATA "/documents/") + QString::fromLatin1(name);
    }
};

TEST_F(MyDocumentTest, ANewDocumentComesUpCleanWithOneCategoryAndIsDatedByItsWindow)
{
    ManualClock clock(QDateTime(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC));
    document = std::make_unique<MyDocument>();
    EXPECT_EQ(document->myCategoryArray()->count(), 0);
    clock.moment = clock.moment.addSecs(60);
    newDocument();
    EXPECT_EQ(document->documentCreationDate(), Value::date(60));
    EXPECT_EQ(document->myCategoryArray()->count(), 1);
    EXPECT_FALSE(document->isDocumentEdited());
    EXPECT_TRUE(window->visible);
    EXPECT_EQ(document->displayName(), u"Untitled");
    EXPECT_TRUE(document->autosavingFileType().isNull());
}

TEST_F(MyDocumentTest, UnlockingShowsItsProgressAndAnAttemptIsNotRolledBack)
{
    newProtectedDocument();
    EXPECT_FALSE(document->autosavingFileType().isNull());
    document->recordCommands().addRow({});
    EXPECT_EQ(document->selectedView(), MyDocument::EditMode);
    saveTo(pathOf("a.vexcards"));
    ASSERT_TRUE(open(pathOf("a.vexcards")));
    EXPECT_FALSE(window->toolbarVisible);
    document->windowDidBecomeKey();
    EXPECT_EQ(queue.waiting(), 0U) << "a file has its password already";
    submit(QString());
    EXPECT_TRUE(window->progress.isEmpty() && !window->hasAlert()) << "an empty password does nothing";
    submit(u"wrong"_qs);
    EXPECT_TRUE(document->isEncrypted());
    EXPECT_EQ(document->plainPassword(), u"wrong");
    window->answer(1000);

    document->updateChangeCount(0);
    submit(password);
    EXPECT_EQ(window->progress, (QList<bool>{true, false, true, false}));
    EXPECT_FALSE(document->isEncrypted() || document->isDocumentEdited());
    EXPECT_EQ(document->plainPasswordInserted(), u"");
    EXPECT_TRUE(window->passwordFieldCleared);
    EXPECT_EQ(document->selectedView(), MyDocument::ViewMode);
    EXPECT_EQ(document->myAllArrayController()->arrangedObjects().size(), 1U);
}

TEST_F(MyDocumentTest, AFileWithoutCategoriesGetsOneThatIsFreeInTheFormerList)
{
    ASSERT_TRUE(open(sample("categories-empty.vexcards")));
    submit(password);
    ASSERT_FALSE(document->isEncrypted());
    const auto category = document->myCategoryArray()->at(0).dictionary();
    // The window had a category of its own by then.
    EXPECT_EQ(category->value(CategoryKey::cat_category).stringValue(), u"Generic 1");
    EXPECT_EQ(category->value(CategoryKey::cat_uniqueID).longValue(), 2);
    EXPECT_EQ(category->value(CategoryKey::cat_howManyUsingThis).intValue(), 2);
}

TEST_F(MyDocumentTest, ANewerFileIsRefusedAndTheSiteAskedForTwice)
{
    for (const int answer : {1001, 1000}) {
        modalAlerts.nextAnswers = {answer};
        EXPECT_FALSE(open(sample("version-refused-30601.vexcards")));
        EXPECT_TRUE(refusal.isNull());
        EXPECT_EQ(workspace.openedUrls.size(), answer == 1000 ? 2 : 0);
    }
    EXPECT_EQ(modalAlerts.shown.size(), 2);
}

TEST_F(MyDocumentTest, WhatIsNoDocumentIsRefusedInPlainWords)
{
    EXPECT_FALSE(open(sample("hostile-text.vexcards")));
    EXPECT_EQ(refusal, u"It is not a Vexarel document or is damaged.");
    Foundation::DocumentController controller([] { return std::make_unique<MyDocument>(); });
    modalAlerts.nextAnswers = {1000, 1000};
    EXPECT_EQ(controller.openDocument(sample("hostile-cut.vexcards")), nullptr);
    EXPECT_EQ(modalAlerts.shown.last().message, u"The document “hostile-cut.vexcards” could not be opened.");
    EXPECT_EQ(controller.openDocument(pathOf("missing.vexcards")), nullptr);
    EXPECT_FALSE(modalAlerts.shown.last().informativeText.isEmpty());
    EXPECT_TRUE(controller.documents().isEmpty());
}

TEST_F(MyDocumentTest, NothingIsEverWrittenThatNobodyCouldOpen)
{
    const QString path = pathOf("kept.vexcards");
    ASSERT_TRUE(QFile::copy(sample("version-30600.vexcards"), path));
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
    const auto isRefused = [&] { return !document->writeToFile(path).words().isEmpty(); };

    ASSERT_TRUE(open(path));
    for (const bool isLockedAgain : {false, true}) {
        EXPECT_TRUE(isRefused());
        EXPECT_TRUE(document->autosavingFileType().isNull());
        document->saveDocument({});
        EXPECT_TRUE(window->hasAlert());
        window->answer(1000);
        // A wrong text that becomes the password changes nothing of that.
        submit(u"wrong"_qs);
        window->answer(1000);
        EXPECT_TRUE(isRefused());
        submit(password);
        EXPECT_TRUE(document->isDecrypted()) << "the refused saves have left the buffers alone";
        if (!isLockedAgain)
            document->doLockDocument();
    }
    saveTo(path);
    ASSERT_TRUE(open(path));
    submit(password);
    EXPECT_EQ(document->myArray()->count(), 6);

    newDocument(); // without a password nobody could ever type one
    EXPECT_TRUE(isRefused());
}

} // namespace
