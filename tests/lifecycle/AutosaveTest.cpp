#include "foundation/Autosaver.h"
#include "support/DocumentFixture.h"

using namespace Foundation;

namespace
{

// Documents of a controller that are saved unasked, and the folder of those that have no name.
class Autosaving : public DocumentFixture
{
protected:
    Autosaving()
    {
        qputenv("XDG_STATE_HOME", folder.filePath(u"state"_qs).toLocal8Bit());
        showDocumentsOf(controller);
    }
    ~Autosaving() override
    {
        for (Document *open : controller.documents())
            open->setWindow(nullptr);
        qunsetenv("XDG_STATE_HOME");
    }
    void showDocumentsOf(DocumentController &shown)
    {
        QObject::connect(&shown, &DocumentController::documentAdded, [this](Document *added) {
            windows.push_back(std::make_unique<ScriptedDocumentWindow>());
            added->setWindow(windows.back().get());
            added->windowControllerDidLoadNib();
        });
    }
    MyDocument *newOne() { return newOne(controller); }
    MyDocument *newOne(const QString &path)
    {
        MyDocument *saved = newOne();
        QString reason;
        EXPECT_TRUE(saved->writeToFile(path, &reason)) << qPrintable(reason);
        return saved;
    }
    MyDocument *newOne(DocumentController &owner)
    {
        auto *added = static_cast<MyDocument *>(owner.newDocument());
        added->setPlainPassword(password);
        added->recordCommands().addRow({});
        return added;
    }
    void type(MyDocument *into, const QString &text)
    {
        into->myArrayController()->setValueForSelection(RecordKey::note, text);
        into->controlTextDidChange(0);
    }
    static QStringList recoveryFiles()
    {
        return QDir(RecoveryFile::folder()).entryList({u"*.vexcards"_qs}, QDir::Files);
    }
    QString noteIn(const QString &path)
    {
        if (!open(path))
            return u"unreadable"_qs;
        submit(password);
        return note();
    }

    ManualTimers timers;
    DocumentController controller{[] { return std::make_unique<MyDocument>(); }};
    Autosaver autosaver{controller};
    std::vector<std::unique_ptr<ScriptedDocumentWindow>> windows;
};

TEST_F(Autosaving, SavesInPlaceAfterAQuietTimeAndInTheMidstOfLongTyping)
{
    const QString path = pathOf("a.vexcards");
    MyDocument *edited = newOne(path);
    type(edited, u"one"_qs);
    timers.advance(Autosaver::QuietSeconds - 1);
    EXPECT_TRUE(edited->isDocumentEdited());
    timers.advance(1);
    EXPECT_FALSE(edited->isDocumentEdited());
    EXPECT_EQ(noteIn(path), u"one");
    for (int second = 0; second < Autosaver::LongestSeconds; ++second) {
        type(edited, u"typing %1"_qs.arg(second));
        timers.advance(1);
    }
    EXPECT_FALSE(edited->isDocumentEdited()) << "not put off for ever";
    type(edited, u"left"_qs);
    autosaver.autosaveAll();
    EXPECT_EQ(noteIn(path), u"left") << "at once when the application is left";
    EXPECT_TRUE(recoveryFiles().isEmpty());
}

TEST_F(Autosaving, NothingIsWrittenWithoutAPasswordWhileLockedOrWhileTheUserIsAsked)
{
    MyDocument *unprotected = newOne();
    unprotected->setPlainPassword(u""_qs);
    autosaver.autosaveAll();
    EXPECT_TRUE(recoveryFiles().isEmpty());
    unprotected->close();

    const QString path = pathOf("b.vexcards");
    MyDocument *edited = newOne(path);
    type(edited, u"kept in memory"_qs);
    edited->canCloseDocument([](bool) {});
    timers.advance(100);
    EXPECT_TRUE(edited->isDocumentEdited()) << "who discards the changes must not find them in the file";
    windows.back()->answer(1001);
    edited->doLockDocument();
    timers.advance(100);
    autosaver.autosaveAll();
    EXPECT_EQ(noteIn(path), u"");
    EXPECT_EQ(recoveryFiles().size(), 1) << "what nobody locked by hand is safe";
}

TEST_F(Autosaving, AFileThatSomebodyTouchedIsLeftAloneAndTheChangesAreSafe)
{
    const QString path = pathOf("c.vexcards");
    MyDocument *edited = newOne(path);
    putFile(path, "theirs");
    type(edited, u"mine"_qs);
    timers.advance(Autosaver::QuietSeconds);
    EXPECT_EQ(contentOf(path), "theirs");
    EXPECT_TRUE(edited->isDocumentEdited());
    EXPECT_FALSE(windows.back()->hasAlert());
    ASSERT_EQ(recoveryFiles().size(), 1);
    EXPECT_EQ(noteIn(RecoveryFile::folder() + u'/' + recoveryFiles().front()), u"mine");
    QString reason;
    ASSERT_TRUE(edited->writeToFile(path, &reason));
    EXPECT_TRUE(recoveryFiles().isEmpty());
}

TEST_F(Autosaving, AFailureIsToldOnceUntilItGoesRight)
{
    MyDocument *edited = newOne();
    // A file where the folder should be.
    const QString obstacle = folder.filePath(u"state"_qs);
    putFile(obstacle, {});
    for (int round = 0; round < 2; ++round) {
        type(edited, u"round %1"_qs.arg(round));
        timers.advance(Autosaver::QuietSeconds);
        EXPECT_EQ(windows.back()->hasAlert(), round == 0);
        if (round == 0) {
            EXPECT_EQ(windows.back()->alert().message,
                      u"The document “Untitled” could not be saved automatically.");
            windows.back()->answer(1000);
        }
    }
    EXPECT_TRUE(edited->isDocumentEdited());
    QFile::remove(obstacle);
    type(edited, u"room again"_qs);
    timers.advance(Autosaver::QuietSeconds);
    EXPECT_EQ(recoveryFiles().size(), 1);
}

TEST_F(Autosaving, ADocumentWithoutANameOutlivesItsProcess)
{
    const auto maker = [] { return std::make_unique<MyDocument>(); };
    {
        DocumentController dying(maker);
        Autosaver itsAutosaver(dying);
        showDocumentsOf(dying);
        MyDocument *unnamed = newOne(dying);
        type(unnamed, u"never saved"_qs);
        timers.advance(Autosaver::QuietSeconds);
        EXPECT_TRUE(unnamed->isDocumentEdited()) << "no file of the user's has it";
        ASSERT_EQ(recoveryFiles().size(), 1);
        const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
        const QFileInfo file(RecoveryFile::folder() + u'/' + recoveryFiles().front());
        EXPECT_EQ(file.permissions() & others, QFile::Permissions());
        EXPECT_EQ(QFileInfo(RecoveryFile::folder()).permissions() & others, QFile::Permissions());
        EXPECT_EQ(controller.recoverDocuments(), 0) << "its document is open";
    } // The process ends without closing it.
    DocumentController next(maker);
    showDocumentsOf(next);
    ASSERT_EQ(next.recoverDocuments(), 1);
    auto *recovered = static_cast<MyDocument *>(next.documents().front());
    EXPECT_TRUE(recovered->isEncrypted());
    EXPECT_TRUE(recovered->fileURL().isNull());
    ActionSender field;
    field.stringValue = password;
    recovered->submitPasswordToDecrypt(field);
    EXPECT_TRUE(recovered->isDocumentEdited());
    EXPECT_EQ(recovered->myArrayController()->valueForSelection(u"note").stringValue(), u"never saved");
    EXPECT_EQ(recoveryFiles().size(), 1) << "until it has a name or was given up";
    windows.back()->savePath = pathOf("d.vexcards");
    recovered->saveDocument({});
    EXPECT_TRUE(recoveryFiles().isEmpty());
    EXPECT_TRUE(QFile::exists(pathOf("d.vexcards")));
    recovered->setWindow(nullptr);
}

TEST_F(Autosaving, WhatIsDiscardedOrClosedLockedIsGone)
{
    for (const bool isLocked : {false, true}) {
        MyDocument *unnamed = newOne();
        timers.advance(Autosaver::QuietSeconds);
        ASSERT_EQ(recoveryFiles().size(), 1);
        if (isLocked) {
            unnamed->lockDocument({}); // by hand
            windows.back()->answer(1000);
            queue.drain();
        }
        unnamed->performClose({});
        if (!isLocked)
            windows.back()->answer(1002);
        EXPECT_TRUE(recoveryFiles().isEmpty());
        endEvent();
    }
}

TEST(SystemTimers, MayBeDroppedByWhatTheyCallAndAreSilentThen)
{
    auto &timers = Services::shared().timers();
    int fired = 0;
    Timers::Timer dropping;
    dropping = timers.schedule(0, [&] {
        ++fired;
        dropping = nullptr;
    });
    timers.schedule(0, [&fired] { fired += 100; });
    for (int turn = 0; turn < 1000 && fired == 0; ++turn)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    QCoreApplication::processEvents();
    EXPECT_EQ(fired, 1) << "the one that nobody kept was called off";
}

} // namespace
