#include "core/DecryptPipeline.h"
#include "core/DocumentReader.h"
#include "files/DurableFile.h"
#include "support/ChildProcess.h"
#include "support/FaultyFileSystem.h"
#include "support/TestServices.h"
#include "window/WindowTest.h"

#include <csignal>

// Saves in a real window while the disk fails, or while the process is killed. Every call of a save fails
// once, and with VEXAREL_FAULT_RUNS=all in every way.

namespace
{

class SavingFaultsTest : public WindowTest
{
protected:
    void SetUp() override
    {
        makeProtectedDocument();
        addContact(u"Ada"_qs, u"Byron"_qs);
        saveTo(u"Faulty.vexcards"_qs);
        QFile::setPermissions(path, usualRights);
        Foundation::FileSystem::setSystem(&files);
        save(u"1"_qs);
        ASSERT_EQ(noteInTheFile(), u"1");
        calls = files.calls.size();
    }
    void TearDown() override { Foundation::FileSystem::setSystem(nullptr); }

    void save(const QString &note)
    {
        control<QPlainTextEdit>("note")->setFocus();
        press(Qt::Key_A, Qt::ControlModifier);
        type(note);
        files.forget();
        press(Qt::Key_S, Qt::ControlModifier);
    }
    // What the file would show to somebody who opened it; null if it does not open.
    QString noteInTheFile()
    {
        const auto file = Foundation::readRegularFile(path, Foundation::Document::LargestFile, realFiles);
        DocumentState state;
        if (!file || !readDocument(file->bytes, state, Foundation::Services::shared().clock()))
            return {};
        state.plainPassword = password;
        DecryptPipeline pipeline(state, Foundation::Services::shared().clock(),
                                 [] { return newCategoryRecord(u"Generic"_qs, 1); });
        if (!pipeline.decript() || state.myArray->count() != 1)
            return {};
        return state.myArray->values[0].dictionary()->value(RecordKey::note).stringValue();
    }
    // Also tells how many distinct situations there are.
    static int runs(qsizetype usual, qsizetype all)
    {
        const int count = int(qgetenv("VEXAREL_FAULT_RUNS") == "all" ? all : usual);
        RecordProperty("situations", count);
        return count;
    }
    // With the mode that it had, but where the system forbids to find out whom the old file let in.
    void expectTheFileAlone(int error = 0) const
    {
        const QFileInfoList there = QDir(folder.path()).entryInfoList(QDir::Files | QDir::Hidden);
        ASSERT_EQ(there.size(), 1) << there.value(0).fileName().toStdString();
        const auto rightsOfOthers = there[0].permissions() & 0x77;
        EXPECT_TRUE(rightsOfOthers == QFile::ReadGroup || (!rightsOfOthers && error == EACCES));
        QFile::setPermissions(path, usualRights);
    }

    static constexpr auto usualRights = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
    const QString path = pathOf(u"Faulty.vexcards"_qs);
    ManualTimers timers; // Nothing is saved but by the test.
    Foundation::FileSystem realFiles;
    FaultyFileSystem files;
    qsizetype calls = 0;
};

TEST_F(SavingFaultsTest, WhateverFailsTheUserIsToldAndNothingIsLost)
{
    const int errors[] = {EIO, ENOSPC, EACCES, EDQUOT, EROFS, EINTR};
    int refused = 0;
    const int count = runs(calls, 2 * std::ssize(errors) * calls);
    for (int run = 0; run < count; ++run) {
        const qsizetype failing = run % calls;
        const int error = errors[(failing + run / calls / 2) % std::ssize(errors)];
        const bool forGood = (run / calls) % 2 == 1;
        SCOPED_TRACE(std::to_string(failing) + ": " + strerror(error) + (forGood ? " for good" : ""));
        const QString before = noteInTheFile();
        const QString written = u"note %1"_qs.arg(run);
        files.before = [&](const QByteArray &, qsizetype number) {
            return number == failing || (forGood && number > failing) ? error : 0;
        };
        save(written);
        files.before = nullptr;
        const QString after = noteInTheFile();
        if (!sheet()) {
            EXPECT_FALSE(document()->isDocumentEdited());
            EXPECT_EQ(after, written);
            expectTheFileAlone(error);
            continue;
        }
        ++refused;
        const QStringList alert = nextAlert();
        // The first call looks for the file.
        EXPECT_EQ(alert.value(0), failing == 0
                                      ? u"The file of the document “Faulty.vexcards” is no longer there."_qs
                                      : u"The document “Faulty.vexcards” could not be saved."_qs);
        EXPECT_FALSE(alert.value(1).isEmpty());
        failing == 0 ? dismiss(u"Cancel"_qs) : dismiss(Qt::Key_Return);
        EXPECT_TRUE(window()->isWindowModified());
        EXPECT_TRUE(after == before || after == written) << after.toStdString();
        save(written + u'+');
        EXPECT_FALSE(document()->isDocumentEdited()) << "the disk is well again";
        EXPECT_EQ(noteInTheFile(), written + u'+');
        expectTheFileAlone(error);
        ASSERT_TRUE(windowIsActive());
    }
    EXPECT_GT(refused, 0);
}

TEST_F(SavingFaultsTest, AKilledApplicationLeavesTheOldOrTheNewFile)
{
    int replaced = 0;
    qsizetype left = 0;
    const int count = runs(2 * calls, 2 * calls);
    for (int moment = 0; moment < count; ++moment) {
        SCOPED_TRACE(moment);
        const QString before = noteInTheFile();
        const QString written = u"note %1"_qs.arg(moment);
        const int ending = inChild([&] {
            const auto die = [moment](qsizetype reached) { return reached == moment ? raise(SIGKILL) : 0; };
            files.before = [&](const QByteArray &, qsizetype number) { return die(2 * number); };
            files.after = [&](const QByteArray &, qsizetype number) { die(2 * number + 1); };
            save(written);
        });
        EXPECT_TRUE(WIFSIGNALED(ending)) << ending;
        const QString after = noteInTheFile();
        EXPECT_TRUE(after == before || after == written) << after.toStdString();
        left += QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size() - 1;
        save(u"mine %1"_qs.arg(moment));
        if (after != before) {
            // For this process another one wrote the file.
            ++replaced;
            EXPECT_TRUE(nextAlert().value(0).endsWith(u"has been changed by another program."));
            dismiss(u"Save Anyway"_qs);
        }
        EXPECT_EQ(noteInTheFile(), u"mine %1"_qs.arg(moment));
        expectTheFileAlone();
    }
    EXPECT_GT(replaced, 0);
    EXPECT_GT(left, 0);
}

} // namespace
