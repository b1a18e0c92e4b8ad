#include "documents/Autosaver.h"
#include "support/ChildProcess.h"
#include "support/DocumentFixture.h"
#include "support/FaultyFileSystem.h"

#include <csignal>

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
            static_cast<MyDocument *>(open)->setWindow(nullptr);
        qunsetenv("XDG_STATE_HOME");
    }
    void showDocumentsOf(DocumentController &shown)
    {
        QObject::connect(&shown, &DocumentController::documentAdded, [this](Document *added) {
            windows.push_back(std::make_unique<ScriptedDocumentWindow>());
            static_cast<MyDocument *>(added)->setWindow(windows.back().get());
            added->windowControllerDidLoadNib();
        });
    }
    MyDocument *newOne() { return newOne(controller); }
    MyDocument *newOne(const QString &path)
    {
        MyDocument *saved = newOne();
        EXPECT_EQ(saved->writeToFile(path).words(), QString());
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
    void unlock(MyDocument *locked)
    {
        ActionSender field;
        field.stringValue = password;
        locked->submitPasswordToDecrypt(field);
    }
    static qsizetype numberOfFiles(const QString &in)
    {
        return QDir(in).entryList(QDir::Files | QDir::Hidden).size();
    }
    QStringList recoveryFiles() const
    {
        return QDir(recoveryFolder.path()).entryList({u"*.vexcards"_qs}, QDir::Files);
    }
    QString noteIn(const QString &path)
    {
        if (!open(path))
            return u"unreadable"_qs;
        submit(password);
        return note();
    }

    const RecoveryFolder recoveryFolder{MyDocument::type()};
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

TEST_F(Autosaving, NothingIsWrittenWithoutAPassword)
{
    newOne()->setPlainPassword(u""_qs);
    autosaver.autosaveAll();
    EXPECT_TRUE(recoveryFiles().isEmpty());
}

TEST_F(Autosaving, TheFileStaysWhileTheUserIsAskedAndWhileItIsLockedAndTheChangesAreSafe)
{
    const QString path = pathOf("b.vexcards");
    MyDocument *edited = newOne(path);
    type(edited, u"mine"_qs);
    edited->canCloseDocument([](bool) {});
    timers.advance(100);
    EXPECT_TRUE(edited->isDocumentEdited());
    EXPECT_EQ(noteIn(path), u"") << "who discards the changes must not find them in the file";
    ASSERT_EQ(recoveryFiles().size(), 1);
    EXPECT_EQ(noteIn(recoveryFolder.path() + u'/' + recoveryFiles().front()), u"mine");
    windows.back()->answer(1001);
    edited->doLockDocument();
    timers.advance(100);
    autosaver.autosaveAll();
    EXPECT_EQ(noteIn(path), u"");
    unlock(edited);
    timers.advance(100);
    EXPECT_EQ(noteIn(path), u"mine");
    EXPECT_TRUE(recoveryFiles().isEmpty());
}

TEST_F(Autosaving, AMarkWithoutAChangeWritesAndAsksNothing)
{
    const QString path = pathOf("marked.vexcards");
    MyDocument *marked = newOne(path);
    putFile(folder.filePath(u"state"_qs), {}); // where the folder should be
    const std::tuple<const char *, bool, bool> cases[] = {{"its file has it all", true, false},
                                                          {"its file was touched", false, true}};
    for (const auto &[which, isFileOurs, isEditedAfterwards] : cases) {
        SCOPED_TRACE(which);
        if (!isFileOurs)
            putFile(path, "theirs");
        const QByteArray before = contentOf(path);
        marked->categoryCommands().colorChanged({}); // Another document's.
        EXPECT_TRUE(marked->isDocumentEdited());
        timers.advance(Autosaver::QuietSeconds);
        EXPECT_FALSE(windows.back()->hasAlert());
        EXPECT_EQ(contentOf(path), before);
        EXPECT_EQ(marked->isDocumentEdited(), isEditedAfterwards);
    }
}

TEST_F(Autosaving, WhatALockTakesAlongIsSafeOrCountsAsEditedAfterwards)
{
    const auto byHand = [this](MyDocument *edited) {
        edited->lockDocument({});
        windows.back()->answer(1000);
    };
    const auto byItself = [](MyDocument *edited) { edited->lockAutomatically(); };
    const auto discarded = [this](MyDocument *edited) {
        edited->canCloseDocument([edited](bool closes) { closes ? edited->close() : void(); });
        windows.back()->answer(1002);
        edited->lockAutomatically();
    };
    const std::tuple<const char *, std::function<void(MyDocument *)>, bool, bool, bool> cases[] = {
        {"by hand", byHand, false, true, true},
        {"by the clock", byItself, false, true, true},
        {"with no place for them", byItself, true, true, false},
        {"by hand with no place for them", byHand, true, true, false},
        {"nothing to keep", byItself, false, false, false},
        {"discarded before the lock comes", discarded, false, true, false},
    };
    const QString path = pathOf("kept.vexcards");
    for (const auto &[how, lock, isBlocked, isEdited, isKept] : cases) {
        SCOPED_TRACE(how);
        MyDocument *edited = newOne(path);
        const QString obstacle = folder.filePath(u"state"_qs);
        if (isBlocked) {
            QDir(obstacle).removeRecursively();
            putFile(obstacle, {});
        }
        if (isEdited)
            type(edited, u"typed just now"_qs);
        const QByteArray before = contentOf(path);
        lock(edited);
        queue.drain();
        EXPECT_EQ(contentOf(path), before);
        ASSERT_EQ(recoveryFiles().size(), isKept ? 1 : 0);
        for (const QString &name : recoveryFiles())
            EXPECT_EQ(noteIn(recoveryFolder.path() + u'/' + name), u"typed just now");
        if (controller.documents().contains(edited)) {
            autosaver.autosaveAll(); // as at the end of the session
            unlock(edited);
            EXPECT_EQ(edited->isDocumentEdited(), isEdited);
        }
        if (isBlocked)
            QFile::remove(obstacle);
        timers.advance(Autosaver::QuietSeconds);
        EXPECT_TRUE(recoveryFiles().isEmpty()) << "saved";
        if (controller.documents().contains(edited))
            edited->close();
        endEvent();
        QFile::remove(path);
    }
}

TEST_F(Autosaving, ADocumentWithoutAFileIsUnsavedWheneverItIsOpen)
{
    MyDocument *unnamed = newOne();
    unnamed->doLockDocument();
    timers.advance(100);
    EXPECT_TRUE(recoveryFiles().isEmpty());
    unlock(unnamed);
    EXPECT_TRUE(unnamed->isDocumentEdited());
    timers.advance(100);
    EXPECT_EQ(recoveryFiles().size(), 1);
}

// Somebody else saves while this document is being enciphered.
TEST_F(Autosaving, AFileThatIsTouchedMeanwhileIsLeftAlone)
{
    class SlowDocument : public Foundation::Document
    {
    public:
        std::optional<QByteArray> dataOfType(const QString &) override
        {
            meanwhile();
            return QByteArray("mine");
        }
        bool readFromData(const QByteArray &, const QString &, Failure<DocumentError> *) override
        {
            return true;
        }
        DocumentType documentType() const override { return MyDocument::type(); }
        std::function<void()> meanwhile = [] {};
    };
    const QString path = pathOf("e.vexcards");
    putFile(path, "old");
    SlowDocument edited;
    ASSERT_TRUE(edited.readFromFile(path));
    edited.updateChangeCount(0);
    edited.meanwhile = [&path] { putFile(path, "theirs, just saved"); };
    EXPECT_TRUE(edited.autosave());
    EXPECT_EQ(contentOf(path), "theirs, just saved");
    EXPECT_TRUE(edited.isRecoverable());
    EXPECT_TRUE(edited.isDocumentEdited());
    EXPECT_EQ(edited.writeToFile(path, Foundation::FileIdentity()).words(),
              u"Another program changed the file while it was being saved.");
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

TEST_F(Autosaving, WhatCannotBeSavedInPlaceIsSafeInARecoveryFile)
{
    const QString path = pathOf("full.vexcards");
    MyDocument *edited = newOne(path);
    type(edited, u"mine"_qs);
    FaultyFileSystem files;
    files.before = [&files](const QByteArray &title, qsizetype) {
        return title == "fsync new" && files.calls.count(title) == 1 ? EIO : 0;
    };
    FileSystem::setSystem(&files);
    timers.advance(Autosaver::QuietSeconds);
    FileSystem::setSystem(nullptr);
    EXPECT_TRUE(windows.back()->hasAlert()) << "the user is told all the same";
    EXPECT_EQ(noteIn(path), u"");
    ASSERT_EQ(recoveryFiles().size(), 1);
    EXPECT_EQ(noteIn(recoveryFolder.path() + u'/' + recoveryFiles().front()), u"mine");
    edited->close(); // Its lock was made by that file system.
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
        const QFileInfo file(recoveryFolder.path() + u'/' + recoveryFiles().front());
        EXPECT_EQ(file.permissions() & others, QFile::Permissions());
        EXPECT_EQ(QFileInfo(recoveryFolder.path()).permissions() & others, QFile::Permissions());
        EXPECT_EQ(controller.recoverDocuments(recoveryFolder), 0) << "its document is open";
    } // The process ends without closing it.
    DocumentController next(maker);
    showDocumentsOf(next);
    ASSERT_EQ(next.recoverDocuments(recoveryFolder), 1);
    auto *recovered = static_cast<MyDocument *>(next.documents().front());
    EXPECT_TRUE(recovered->isEncrypted());
    EXPECT_TRUE(recovered->fileURL().isNull());
    unlock(recovered);
    EXPECT_TRUE(recovered->isDocumentEdited());
    EXPECT_EQ(recovered->myArrayController()->valueForSelection(u"note").stringValue(), u"never saved");
    EXPECT_EQ(recoveryFiles().size(), 1) << "until it has a name or was given up";
    windows.back()->savePath = pathOf("d.vexcards");
    recovered->saveDocument({});
    queue.drain();
    EXPECT_TRUE(recoveryFiles().isEmpty());
    EXPECT_TRUE(QFile::exists(pathOf("d.vexcards")));
    recovered->setWindow(nullptr);
}

TEST_F(Autosaving, WhatSomebodyDecidedToLoseIsGoneAndNothingElse)
{
    const std::tuple<const char *, std::function<void(MyDocument *)>, bool> cases[] = {
        {"discarded",
         [this](MyDocument *unnamed) {
             unnamed->performClose({});
             windows.back()->answer(1002);
         },
         false},
        {"locked by hand and closed",
         [this](MyDocument *unnamed) {
             unnamed->lockDocument({});
             windows.back()->answer(1000);
             queue.drain();
             unnamed->performClose({});
         },
         false},
        {"locked without being asked, and closed",
         [](MyDocument *unnamed) {
             unnamed->doLockDocument();
             unnamed->performClose({});
         },
         true},
    };
    for (const auto &[how, end, isKept] : cases) {
        SCOPED_TRACE(how);
        MyDocument *unnamed = newOne();
        timers.advance(Autosaver::QuietSeconds);
        ASSERT_EQ(recoveryFiles().size(), 1);
        end(unnamed);
        endEvent();
        EXPECT_TRUE(controller.documents().isEmpty());
        EXPECT_EQ(numberOfFiles(recoveryFolder.path()), isKept ? 2 : 0) << "with its lock";
    }
    putFile(recoveryFolder.path() + u"/damaged.vexcards"_qs, "damaged");
    modalAlerts.nextAnswers = {1000};
    ASSERT_EQ(controller.recoverDocuments(recoveryFolder), 1);
    EXPECT_EQ(modalAlerts.shown.value(0).message, u"Changes that were kept for you could not be opened.");
    QFile::remove(recoveryFolder.path() + u"/damaged.vexcards"_qs);
    controller.closeAllDocuments([](bool) {});
    endEvent();
    EXPECT_EQ(recoveryFiles().size(), 1) << "nobody has looked at it yet";
}

TEST_F(Autosaving, ARecoveryFileThatSomebodyRemovedOrBlockedIsMadeAnew)
{
    const std::tuple<const char *, std::function<void(const QString &)>> cases[] = {
        {"folder", [this](const QString &) { QDir(recoveryFolder.path()).removeRecursively(); }},
        {"file and lock",
         [](const QString &path) { QFile::remove(path), QFile::remove(path + u".lock"_qs); }},
        {"blocked", [](const QString &path) { QFile::setPermissions(path, QFile::ReadOwner); }},
    };
    MyDocument *edited = newOne();
    for (const auto &[what, spoil] : cases) {
        SCOPED_TRACE(what);
        for (const QString &text : {u"before"_qs, QString::fromLatin1(what)}) {
            type(edited, text);
            autosaver.autosaveAll();
            ASSERT_EQ(recoveryFiles().size(), 1);
            const QString path = recoveryFolder.path() + u'/' + recoveryFiles().front();
            EXPECT_EQ(noteIn(path), text);
            if (text == u"before")
                spoil(path);
        }
        DocumentController another([] { return std::make_unique<MyDocument>(); });
        EXPECT_EQ(another.recoverDocuments(recoveryFolder), 0) << "it is held";
    }
}

TEST_F(Autosaving, ARecoveryFileThatTheSystemRefusesIsAFailure)
{
    FaultyFileSystem files;
    QByteArray refused;
    files.before = [&refused](const QByteArray &title, qsizetype) { return title == refused ? EPERM : 0; };
    FileSystem::setSystem(&files);
    MyDocument *unnamed = newOne();
    for (const char *call : {"mkdirAt folder", "openAt new", "lock new", "fstat new"}) {
        refused = call;
        EXPECT_EQ(unnamed->autosave().words(), u"The folder for unsaved documents cannot be made.") << call;
    }
    refused = "chmodAt folder";
    EXPECT_TRUE(unnamed->autosave()) << "a file system without modes";
    refused = "statAt placed"; // The name that FaultyFileSystem gives to calls after a renaming.
    EXPECT_FALSE(identityOfFile(folder.path()));
    unnamed->close(); // It holds a lock that `files` opened.
    endEvent();
    FileSystem::setSystem(nullptr);
}

TEST_F(Autosaving, WhatKilledSavesLeftGoesAtTheNextOpening)
{
    const QString path = pathOf("killed.vexcards");
    type(newOne(path), u"lost"_qs);
    FaultyFileSystem files;
    files.before = [](const QByteArray &title, qsizetype) {
        return title == "fsync new" ? raise(SIGKILL) : 0;
    };
    for (const bool isNamed : {true, false}) {
        EXPECT_EQ(inChild([&] {
                      FileSystem::setSystem(&files);
                      (void)(isNamed ? controller.documents()[0] : newOne())->autosave();
                  }),
                  SIGKILL);
    }
    EXPECT_EQ(numberOfFiles(folder.path()), 2);
    EXPECT_EQ(numberOfFiles(recoveryFolder.path()), 2) << "a temporary file and a lock";
    EXPECT_TRUE(open(path));
    EXPECT_EQ(controller.recoverDocuments(recoveryFolder), 0);
    EXPECT_EQ(numberOfFiles(folder.path()), 1);
    EXPECT_EQ(numberOfFiles(recoveryFolder.path()), 0);
}

TEST(SystemTimers, MayBeDroppedByWhatTheyCallAndTakeAnyInterval)
{
    auto &timers = Services::shared().timers();
    int fired = 0;
    constexpr int SeventeenYears = 536'870'912; // 1000 times as much is 0 in 32 bits
    const auto absurd = timers.schedule(SeventeenYears, [&fired] { fired += 1000; });
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
