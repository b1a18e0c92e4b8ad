#include "foundation/RecoveryFile.h"
#include "support/Printers.h"
#include "window/WindowTest.h"

#include <QPlainTextEdit>
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
        addContact(QStringLiteral("Ada"), QStringLiteral("Byron"));
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
        typeNote(QStringLiteral("mine"));
        press(Qt::Key_L, Qt::ControlModifier);
        nextAlert();
        answer(QStringLiteral("OK"));
        ASSERT_TRUE(eventually([this] { return document()->isEncrypted(); }));
        ASSERT_TRUE(windowIsActive());
    }
    void unlockAndChange()
    {
        unlock(password);
        ASSERT_TRUE(document()->isDecrypted());
        EXPECT_EQ(note(), u"mine") << "what was changed before the lock";
        typeNote(QStringLiteral("mine, too"));
    }
    QString note() const { return control<QPlainTextEdit>("note")->toPlainText(); }
    static QByteArray contentOf(const QString &file)
    {
        QFile opened(file);
        return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray();
    }
    static void replaceFile(const QString &file, const QByteArray &bytes)
    {
        QFile opened(file);
        ASSERT_TRUE(opened.open(QIODevice::WriteOnly) && opened.write(bytes) == bytes.size());
    }

    const QString path = pathOf(QStringLiteral("Shared.vexcards"));
};

TEST_F(ForeignHandsTest, AFileReplacedUnderALockIsAskedAboutAndNeverOverwrittenInSilence)
{
    lockWithChanges();
    replaceFile(path, "theirs");
    unlockAndChange();
    QString reason;
    EXPECT_TRUE(document()->autosave(&reason));
    EXPECT_EQ(contentOf(path), "theirs") << "saved unasked only into a recovery file";
    EXPECT_TRUE(document()->isRecoverable());
    save();
    EXPECT_EQ(nextAlert().value(0),
              u"The file of the document “Shared.vexcards” has been changed by another program.");
    press(Qt::Key_Escape);
    ASSERT_TRUE(windowIsActive());
    EXPECT_EQ(contentOf(path), "theirs");
    EXPECT_TRUE(window()->isWindowModified());
    save();
    nextAlert();
    answer(QStringLiteral("Save Anyway"));
    ASSERT_TRUE(windowIsActive());
    EXPECT_FALSE(window()->isWindowModified());
    EXPECT_FALSE(document()->isRecoverable());
}

TEST_F(ForeignHandsTest, AFileRemovedUnderALockIsMadeAgainOnlyWhenWanted)
{
    lockWithChanges();
    ASSERT_TRUE(QFile::remove(path));
    unlockAndChange();
    save();
    EXPECT_EQ(nextAlert().value(0), u"The file of the document “Shared.vexcards” is no longer there.");
    answer(QStringLiteral("Cancel"));
    ASSERT_TRUE(windowIsActive());
    EXPECT_FALSE(QFile::exists(path));
    window()->close();
    EXPECT_EQ(nextAlert().value(0), u"Do you want to save the changes to the document “Shared.vexcards”?");
    press(Qt::Key_Return);
    EXPECT_EQ(nextAlert().value(0), u"The file of the document “Shared.vexcards” is no longer there.");
    answer(QStringLiteral("Save Anyway"));
    EXPECT_TRUE(eventually([this] { return document() == nullptr; }));
    EXPECT_TRUE(QFile::exists(path));
}

TEST_F(ForeignHandsTest, TwoProcessesOnOneFileHearOfEachOther)
{
    replaceFile(pathOf(QStringLiteral("password")), password.toUtf8());
    QProcess second;
    second.start(QStringLiteral(VEXAREL_PROBE),
                 {QStringLiteral("save"), path, pathOf(QStringLiteral("password"))});
    ASSERT_TRUE(second.waitForFinished() && second.exitCode() == 0);
    const QByteArray theirs = contentOf(path);
    typeNote(QStringLiteral("mine"));
    save();
    EXPECT_TRUE(nextAlert().value(0).endsWith(u"has been changed by another program."));
    answer(QStringLiteral("Cancel"));
    ASSERT_TRUE(windowIsActive());
    EXPECT_EQ(contentOf(path), theirs);
    const QString elsewhere = pathOf(QStringLiteral("Mine.vexcards"));
    saveAs(elsewhere);
    EXPECT_FALSE(window()->isWindowModified()) << "both versions are there";
    EXPECT_EQ(contentOf(path), theirs);
}

TEST_F(ForeignHandsTest, SavingOverAnotherOpenDocumentMakesThatOneAsk)
{
    const QString second = pathOf(QStringLiteral("Second.vexcards"));
    MyDocument *first = document();
    makeProtectedDocument();
    addContact(QStringLiteral("Boris"), QStringLiteral("Kant"));
    saveAs(second);
    typeNote(QStringLiteral("over it"));
    chooseNextPath(path);
    press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(nextAlert().value(0), u"“Shared.vexcards” already exists. Do you want to replace it?");
    answer(QStringLiteral("Replace"));
    ASSERT_TRUE(eventually([&] { return document()->fileURL() == path; }));
    first->recordCommands().addRow({});
    QString reason;
    const QByteArray written = contentOf(path);
    EXPECT_TRUE(first->autosave(&reason));
    EXPECT_EQ(contentOf(path), written);
    EXPECT_TRUE(first->isRecoverable());
}

TEST_F(ForeignHandsTest, WhatMustNotBeWrittenSaysSoAndLinksStayLinks)
{
    typeNote(QStringLiteral("changed"));
    ASSERT_EQ(chmod(qPrintable(path), 0444), 0);
    save();
    EXPECT_EQ(nextAlert(), (QStringList{QStringLiteral("The document “Shared.vexcards” could not be saved."),
                                        QStringLiteral("The file is read-only.")}));
    press(Qt::Key_Return);
    ASSERT_TRUE(windowIsActive());
    EXPECT_TRUE(window()->isWindowModified());
    ASSERT_EQ(chmod(qPrintable(path), 0640), 0);
    save();
    EXPECT_FALSE(window()->isWindowModified()) << "changed rights are no changed content";
    EXPECT_EQ(QFile::permissions(path) & QFile::ReadGroup, QFile::ReadGroup);

    const QString link = pathOf(QStringLiteral("Link.vexcards"));
    ASSERT_TRUE(QFile::link(path, link));
    document()->close();
    ASSERT_TRUE(eventually([this] { return document() == nullptr; }));
    openDocument(link);
    unlock(password);
    typeNote(QStringLiteral("through the link"));
    save();
    EXPECT_FALSE(window()->isWindowModified());
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(contentOf(path), contentOf(link));
    EXPECT_FALSE(QFileInfo(path).isSymLink());

    const QString missing = pathOf(QStringLiteral("none/Document.vexcards"));
    typeNote(QStringLiteral("nowhere"));
    chooseNextPath(missing);
    press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(nextAlert().value(1), u"The folder does not exist.");
    press(Qt::Key_Return);
    ASSERT_TRUE(windowIsActive());
    EXPECT_EQ(document()->fileURL(), link) << "it keeps its file";
    EXPECT_TRUE(window()->isWindowModified());
}

} // namespace
