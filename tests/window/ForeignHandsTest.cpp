#include "documents/RecoveryFile.h"
#include "window/WindowTest.h"

#include <QProcess>

#include <sys/stat.h>

// A document's file in the hands of others while it stands open or locked in a window.

namespace
{

class ForeignHandsTest : public WindowTest
{
protected:
    void SetUp() override
    {
        makeProtectedDocument();
        addContact(u"Ada"_qs, u"Byron"_qs);
        saveAs(path);
    }
    void saveAs(const QString &target)
    {
        chooseNextPath(target);
        press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
        ASSERT_TRUE(eventually([&] { return document()->fileURL() == target; }));
        ASSERT_TRUE(windowIsActive());
    }
    void typeNote(const QString &text)
    {
        control<QPlainTextEdit>("note")->setFocus();
        press(Qt::Key_A, Qt::ControlModifier);
        type(text);
    }
    void save() { press(Qt::Key_S, Qt::ControlModifier); }
    void lockWithChanges()
    {
        typeNote(u"mine"_qs);
        press(Qt::Key_L, Qt::ControlModifier);
        nextAlert();
        answer(u"OK"_qs);
        ASSERT_TRUE(eventually([this] { return document()->isEncrypted(); }));
        ASSERT_TRUE(windowIsActive());
    }
    void unlockAndChange()
    {
        unlock(password);
        ASSERT_TRUE(document()->isDecrypted());
        EXPECT_EQ(note(), u"mine") << "what was changed before the lock";
        typeNote(u"mine, too"_qs);
    }
    QString note() const { return control<QPlainTextEdit>("note")->toPlainText(); }

    const QString path = pathOf(u"Shared.vexcards"_qs);
};

TEST_F(ForeignHandsTest, AFileReplacedUnderALockIsAskedAboutAndNeverOverwrittenInSilence)
{
    lockWithChanges();
    putFile(path, "theirs");
    unlockAndChange();
    EXPECT_TRUE(document()->autosave());
    EXPECT_EQ(contentOf(path), "theirs") << "saved unasked only into a recovery file";
    EXPECT_TRUE(document()->isRecoverable());
    save();
    EXPECT_EQ(nextAlert().value(0),
              u"The file of the document “Shared.vexcards” has been changed by another program.");
    dismiss(Qt::Key_Escape);
    EXPECT_EQ(contentOf(path), "theirs");
    EXPECT_TRUE(window()->isWindowModified());
    save();
    nextAlert();
    dismiss(u"Save Anyway"_qs);
    EXPECT_FALSE(window()->isWindowModified());
    EXPECT_FALSE(document()->isRecoverable());
    typeNote(u"again"_qs);
    save();
    EXPECT_FALSE(window()->isWindowModified()) << "the file is ours again";
}

TEST_F(ForeignHandsTest, AFileRemovedUnderALockIsMadeAgainOnlyWhenWanted)
{
    lockWithChanges();
    ASSERT_TRUE(QFile::remove(path));
    unlockAndChange();
    save();
    EXPECT_EQ(nextAlert().value(0), u"The file of the document “Shared.vexcards” is no longer there.");
    dismiss(u"Cancel"_qs);
    EXPECT_FALSE(QFile::exists(path));
    window()->close();
    EXPECT_EQ(nextAlert().value(0), u"Do you want to save the changes to the document “Shared.vexcards”?");
    press(Qt::Key_Return);
    EXPECT_EQ(nextAlert().value(0), u"The file of the document “Shared.vexcards” is no longer there.");
    putFile(path, "made meanwhile");
    answer(u"Save Anyway"_qs);
    EXPECT_TRUE(nextAlert().value(0).endsWith(u"has been changed by another program."));
    EXPECT_EQ(contentOf(path), "made meanwhile");
    answer(u"Save Anyway"_qs);
    EXPECT_TRUE(isClosed());
    EXPECT_NE(contentOf(path), "made meanwhile");
}

TEST_F(ForeignHandsTest, SavingOverAnotherOpenDocumentMakesThatOneAsk)
{
    const QString second = pathOf(u"Second.vexcards"_qs);
    MyDocument *first = document();
    makeProtectedDocument();
    addContact(u"Boris"_qs, u"Kant"_qs);
    saveAs(second);
    typeNote(u"over it"_qs);
    chooseNextPath(path);
    press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(nextAlert().value(0), u"“Shared.vexcards” already exists. Do you want to replace it?");
    answer(u"Replace"_qs);
    ASSERT_TRUE(eventually([&] { return document()->fileURL() == path; }));
    first->recordCommands().addRow({});
    const QByteArray written = contentOf(path);
    EXPECT_TRUE(first->autosave());
    EXPECT_EQ(contentOf(path), written);
    EXPECT_TRUE(first->isRecoverable());
}

TEST_F(ForeignHandsTest, WhatMustNotBeWrittenSaysSo)
{
    typeNote(u"changed"_qs);
    ASSERT_EQ(chmod(qPrintable(path), 0444), 0);
    save();
    EXPECT_EQ(nextAlert(), (QStringList{u"The document “Shared.vexcards” could not be saved."_qs,
                                        u"The file is read-only."_qs}));
    dismiss(Qt::Key_Return);
    EXPECT_TRUE(window()->isWindowModified());
    ASSERT_EQ(chmod(qPrintable(path), 0640), 0);
    save();
    EXPECT_FALSE(window()->isWindowModified()) << "changed rights are no changed content";
    EXPECT_EQ(QFile::permissions(path) & QFile::ReadGroup, QFile::ReadGroup);
}

} // namespace
