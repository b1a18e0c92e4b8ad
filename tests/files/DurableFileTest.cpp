#include "files/DurableFile.h"

#include "files/FileFixture.h"
#include "support/FaultyFileSystem.h"

#include <QRegularExpression>

#include <csignal>
#include <sys/xattr.h>

using namespace Foundation;

namespace
{

const QString Name = u"document"_qs;
const QString Application = u"vexarel"_qs;
const QByteArray Old(3000, 'o');
const QByteArray New(5000, 'n');

class DurableFile : public FileFixture
{
protected:
    // With everything that a save has to look after. Only the administrator can own a foreign file.
    void putOldFile()
    {
        put(Name, Old, 0640);
        setxattr(encoded(Name).constData(), "user.origin", "somewhere", 9, 0);
        EXPECT_EQ(isAdministrator() ? chown(encoded(Name).constData(), 1234, 5678) : 0, 0);
    }

    FileWriteResult save(FileSystem &files = FileSystem::system())
    {
        return writeFileDurably(path(Name), New, Application, std::nullopt, files);
    }

    QList<QByteArray> callsOfASave()
    {
        putOldFile();
        FaultyFileSystem files;
        EXPECT_EQ(save(files).words(), QString());
        return files.calls;
    }

    static qsizetype openFiles() { return QDir(u"/proc/self/fd"_qs).entryList(QDir::AllEntries).size(); }
};

// What may fail without a failed save: closing what was only looked at or locked, the lock, the look at the
// placed file, and whatever is kept as far as permitted.
bool isTolerated(const QByteArray &call, int error)
{
    const QList<QByteArray> anyError = {"close old", "close folder",   "close lock",
                                        "lock lock", "fstatAt placed", "readNames folder"};
    const QList<QByteArray> permissions = {"openAt old", "flistxattr old", "fgetxattr old",
                                           "fchown new", "fsetxattr new",  "fremovexattr new"};
    return anyError.contains(call) || ((error == EACCES || error == EPERM) && permissions.contains(call)) ||
           (error == EPERM && call == "fchmod new");
}

TEST_F(DurableFile, AnyFailureIsToldAndLeavesAWholeFile)
{
    const QList<QByteArray> calls = callsOfASave();
    for (const int error : {ENOSPC, EIO, EACCES, EDQUOT, EPERM}) {
        for (qsizetype n = 0; n < 2 * calls.size(); ++n) {
            const bool forGood = n >= calls.size();
            const qsizetype first = n % calls.size();
            SCOPED_TRACE(calls.at(first).toStdString() + (forGood ? " and all after: " : ": ") +
                         strerror(error));
            putOldFile();
            FaultyFileSystem files;
            files.before = [&](const QByteArray &, qsizetype number) {
                return number == first || (forGood && number > first) ? error : 0;
            };
            const qsizetype openBefore = openFiles();
            const FileWriteResult result = save(files);
            EXPECT_EQ(openFiles(), openBefore);

            const auto tolerated = [&](const QByteArray &call) { return isTolerated(call, error); };
            const auto lastOrdered = forGood ? calls.end() : calls.begin() + first + 1;
            EXPECT_EQ(result.succeeded(), std::all_of(calls.begin() + first, lastOrdered, tolerated));
            const bool isInPlace = first > calls.indexOf("renameAt new") || result.succeeded();
            EXPECT_EQ(content(Name), isInPlace ? New : Old);
            EXPECT_EQ(result.identity.has_value(), isInPlace);
            EXPECT_EQ(result.failedWith(FileError::Unconfirmed), isInPlace && !result.succeeded());
            EXPECT_FALSE(result.words().contains(QRegularExpression(u"[0-9]"_qs)));
            for (const QString &leftover : temporaryFiles()) {
                EXPECT_TRUE(forGood && files.calls.contains("unlinkAt new")) << qPrintable(leftover);
                QFile::remove(path(leftover));
            }
        }
    }
}

TEST_F(DurableFile, InterruptionsAndSmallPortionsAreOvercome)
{
    const QList<QByteArray> calls = callsOfASave();
    for (qsizetype n = 0; n < calls.size(); ++n) {
        SCOPED_TRACE(calls.at(n).constData());
        putOldFile();
        FaultyFileSystem files;
        files.largestTransfer = 700;
        files.before = [&](const QByteArray &, qsizetype number) { return number == n ? EINTR : 0; };
        EXPECT_EQ(save(files).words(), QString());
        EXPECT_EQ(content(Name), New);
        EXPECT_EQ(temporaryFiles(), QStringList());
        // Interrupted or not: a flush that failed is not repeated on the same file.
        EXPECT_EQ(files.calls.count("fsync new"),
                  files.calls.count("openAt new") - (calls.at(n) == "openAt new"));

        putOldFile();
        files.before = [&](const QByteArray &title, qsizetype) { return title == calls.at(n) ? EINTR : 0; };
        const FileWriteResult result = save(files); // Comes back at all.
        EXPECT_EQ(content(Name), result.identity ? New : Old);
    }
}

// What a power cut could leave of a save, from what the disk was made to confirm.
struct PowerCut
{
    bool contentConfirmed = false; // All of the new file as it stands, its rights included.
    bool renamed = false;
    bool nameConfirmed = false;

    void follow(const QByteArray &call)
    {
        if (call == "fsync new")
            contentConfirmed = true;
        else if (call == "renameAt new")
            renamed = true;
        else if (call == "fsync folder")
            nameConfirmed = renamed;
        else if (call.endsWith(" new") && call != "fstat new" && call != "close new")
            contentConfirmed = false;
    }
    bool mayDamage() const { return renamed && !contentConfirmed; }
    bool mayLoseTheNewFile() const { return !(renamed && contentConfirmed && nameConfirmed); }
};

TEST_F(DurableFile, APowerCutLeavesAWholeFileAndTheNewOneAfterSuccess)
{
    const qsizetype calls = callsOfASave().size();
    for (const int error : {0, EINTR, EIO, ENOSPC, EACCES}) {
        for (qsizetype n = 0; n < (error ? calls : 1); ++n) {
            SCOPED_TRACE(std::to_string(n) + ": " + strerror(error));
            putOldFile();
            PowerCut disk;
            FaultyFileSystem files;
            files.largestTransfer = 2000;
            files.before = [&](const QByteArray &, qsizetype number) { return number == n ? error : 0; };
            files.after = [&](const QByteArray &title, qsizetype) {
                disk.follow(title);
                EXPECT_FALSE(disk.mayDamage()) << title.constData();
            };
            EXPECT_FALSE(save(files).succeeded() && disk.mayLoseTheNewFile());
        }
    }
    // Some file systems keep no folders to flush, and say that the call is invalid.
    FaultyFileSystem files;
    files.before = [](const QByteArray &title, qsizetype) { return title == "fsync folder" ? EINVAL : 0; };
    EXPECT_EQ(save(files).words(), QString());
}

TEST_F(DurableFile, RemovesWhatKilledSavesLeftAndNothingElse)
{
    const auto leaveOne = [&] {
        const int ending = inChild([&] {
            FaultyFileSystem files;
            files.before = [](const QByteArray &title, qsizetype) {
                return title == "fsync new" ? raise(SIGKILL) : 0;
            };
            (void)save(files); // Does not come back.
        });
        EXPECT_EQ(ending, SIGKILL);
        EXPECT_EQ(temporaryFiles().size(), 1);
        return temporaryFiles().value(0);
    };
    put(Name, Old);
    const QString leftover = leaveOne();
    EXPECT_EQ(save().words(), QString());
    EXPECT_EQ(temporaryFiles(), QStringList()) << "by the next save";
    leaveOne();
    removeAbandonedFiles(path(Name), Application);
    EXPECT_EQ(temporaryFiles(), QStringList()) << "or by an opening";

    const auto withDigits = [&](QChar digit) { return leftover.chopped(16) + QString(16, digit); };
    QStringList others = {u".vexarel-0123456789abcdef"_qs, leftover + u'0', leftover.chopped(1),
                          withDigits(u'A'), u".vexarel-0123456789abcdef-0123456789abcdef"_qs};
    for (const QString &other : others)
        put(other, Old);
    if (isAdministrator()) {
        others += withDigits(u'0');
        put(others.last(), Old);
        EXPECT_EQ(chown(encoded(others.last()).constData(), 1234, 5678), 0);
    }
    put(withDigits(u'1'), Old);
    EXPECT_EQ(::link(encoded(withDigits(u'1')).constData(), encoded(u"kept"_qs).constData()), 0);
    QFile::link(path(Name), path(withDigits(u'2')));
    mkfifo(encoded(withDigits(u'3')).constData(), 0600);
    QDir(path()).mkdir(withDigits(u'4'));
    const auto all = [&] { return QDir(path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System); };
    const QStringList before = all();
    FaultyFileSystem files;
    files.before = [&](const QByteArray &title, qsizetype) {
        if (title == "fsync new") {
            const QStringList withOneInUse = temporaryFiles();
            EXPECT_EQ(save().words(), QString());
            EXPECT_EQ(temporaryFiles(), withOneInUse);
        }
        return 0;
    };
    EXPECT_EQ(save(files).words(), u"Another program changed the file while it was being saved.");
    EXPECT_EQ(all(), before);
}

// Another process that looks for abandoned files sees the new one in the moment before it is locked.
TEST_F(DurableFile, AFileThatWasTakenForAbandonedIsMadeAgain)
{
    putOldFile();
    int made = 0;
    FaultyFileSystem files;
    files.before = [&](const QByteArray &title, qsizetype) {
        if (title == "lock lock" && ++made == 1)
            removeAbandonedFiles(path(Name), Application);
        return 0;
    };
    EXPECT_EQ(save(files).words(), QString());
    EXPECT_EQ(made, 2);
    EXPECT_EQ(content(Name), New);
}

TEST_F(DurableFile, TellsWhatStandsInTheWay)
{
    QDir(path()).mkdir(u"folder"_qs);
    mkfifo(encoded(u"fifo"_qs).constData(), 0600);
    QFile::link(u"circle"_qs, path(u"circle"_qs));
    put(u"marked"_qs, Old, 0444);
    const QString folder = u"The name is that of a folder."_qs;
    const QString missing = u"The folder does not exist."_qs;
    const std::tuple<const char *, QString, QString> cases[] = {
        {"a folder", u"folder"_qs, folder},
        {"a name that ends as a folder's", u"folder/"_qs, folder},
        {"a folder that is not there", u"none/document"_qs, missing},
        {"a file taken for a folder", u"marked/document"_qs, missing},
        {"a FIFO", u"fifo"_qs, u"The name is that of a device or another special file."_qs},
        {"a link to itself", u"circle"_qs, u"The links lead in a circle."_qs},
        {"marked read-only, for the administrator too", u"marked"_qs, u"The file is read-only."_qs},
        {"256 bytes", QString(256, u'x'), u"The name is too long."_qs},
        {"what became of a name that is no UTF-8", u"M\uFFFDller"_qs,
         u"The name contains characters that a file name cannot have."_qs},
    };
    const QStringList before = QDir(path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System);
    for (const auto &[rule, name, error] : cases) {
        SCOPED_TRACE(rule);
        const FileWriteResult result = writeFileDurably(path(name), New, Application);
        EXPECT_EQ(result.words(), error);
        EXPECT_FALSE(result.identity);
    }
    EXPECT_EQ(QDir(path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System), before);
    EXPECT_EQ(content(u"marked"_qs), Old);
}

TEST_F(DurableFile, TellsOfMissingPermissions)
{
    const std::tuple<const char *, mode_t, mode_t, QString> cases[] = {
        {"a folder to look into only", 0555, 0600, u"The folder is not writable."_qs},
        {"a folder to write into only", 0333, 0600, u"You do not have permission to open the folder."_qs},
        {"a file that others alone may write", 0777, 0466, u"The file is read-only."_qs},
        {"a file to write only", 0777, 0222, {}},
    };
    asOrdinaryUser([&] {
        QDir(path()).mkdir(u"shared"_qs);
        for (const auto &[rule, folderMode, fileMode, error] : cases) {
            SCOPED_TRACE(rule);
            const QString name = u"shared/document"_qs;
            put(name, Old, fileMode);
            chmod(encoded(u"shared"_qs).constData(), folderMode);
            EXPECT_EQ(writeFileDurably(path(name), New, Application).words(), error);
            chmod(encoded(u"shared"_qs).constData(), 0777);
            // What the list of rights says of others is unknown without reading it.
            EXPECT_EQ(mode(name), error.isNull() ? fileMode & 0700 : fileMode);
            chmod(encoded(name).constData(), 0600);
            EXPECT_EQ(content(name), error.isNull() ? New : Old);
        }
    });
}

TEST_F(DurableFile, FollowsLinksAndTakesAnyName)
{
    const QString longName(255, u'x');
    QDir::setCurrent(path());
    QDir(path()).mkdir(u"folder"_qs);
    for (const QString &name : {longName, u"folder/real"_qs, u"twin"_qs})
        put(name, Old);
    ASSERT_EQ(::link(encoded(u"twin"_qs).constData(), encoded(u"other twin"_qs).constData()), 0);
    QFile::link(u"folder/second"_qs, path(u"first"_qs));
    QFile::link(path(u"folder/third"_qs), path(u"folder/second"_qs));
    QFile::link(u"real"_qs, path(u"folder/third"_qs));
    QFile::link(u"folder/new"_qs, path(u"dangling"_qs));
    const std::tuple<const char *, QString, QString> cases[] = {
        {"a new file", u"fresh"_qs, u"fresh"_qs},
        {"the longest name", longName, longName},
        {"a chain of links, each relative to its own folder", u"first"_qs, u"folder/real"_qs},
        {"a dangling link", u"dangling"_qs, u"folder/new"_qs},
        {"one of two hard links", u"twin"_qs, u"twin"_qs},
    };
    for (const auto &[rule, name, real] : cases) {
        for (const QString &given : {name, path(name)}) {
            SCOPED_TRACE(rule + std::string(" as ") + qPrintable(given));
            const bool isLink = QFileInfo(given).isSymLink();
            const FileWriteResult result = writeFileDurably(given, given.toUtf8(), Application);
            EXPECT_EQ(result.words(), QString());
            EXPECT_EQ(result.identity, identityOfFile(path(real)));
            EXPECT_EQ(content(real), given.toUtf8());
            EXPECT_EQ(QFileInfo(given).isSymLink(), isLink);
        }
    }
    EXPECT_EQ(content(u"other twin"_qs), Old);
}

TEST_F(DurableFile, KeepsTheModeAndIsPrivateWhenNew)
{
    for (const mode_t mask : {0U, 077U, 0777U}) {
        umask(mask);
        for (const mode_t kept : {0600U, 0640U, 0604U, 0666U, 0755U}) {
            put(Name, Old, kept);
            EXPECT_EQ(save().words(), QString());
            EXPECT_EQ(mode(Name), kept);
        }
        QFile::remove(path(Name));
        EXPECT_EQ(save().words(), QString());
        EXPECT_EQ(mode(Name), 0600U);
    }
    put(Name, Old, 06755);
    EXPECT_EQ(save().words(), QString());
    EXPECT_EQ(mode(Name), 0755U) << "a document runs as nobody";
}

TEST_F(DurableFile, NobodyGainsRightsWhenTheGroupIsLost)
{
    if (!isAdministrator())
        GTEST_SKIP() << "only the administrator can make a file of somebody else";
    const std::tuple<mode_t, mode_t> cases[] = {
        {0600, 0600}, {0640, 0600}, {0604, 0600}, {0664, 0644}, {0666, 0666}, {0627, 0622},
    };
    for (const auto &[before, after] : cases) {
        SCOPED_TRACE(before);
        putOldFile();
        chmod(encoded(Name).constData(), before);
        EXPECT_EQ(save().words(), QString());
        EXPECT_EQ(mode(Name), before);
        EXPECT_EQ(status(Name).st_uid, 1234U);
        EXPECT_EQ(status(Name).st_gid, 5678U);

        FaultyFileSystem files;
        files.before = [](const QByteArray &title, qsizetype) { return title == "fchown new" ? EPERM : 0; };
        EXPECT_EQ(save(files).words(), QString());
        EXPECT_EQ(mode(Name), after);
    }
}

// The binary form of access lists (linux/posix_acl_xattr.h): owner and others as in mode 0640, user 12345 may
// read and write as far as the upper bound, 4, allows, and the group nothing.
const QByteArray AccessList = QByteArray::fromHex("02000000"
                                                  "01000600ffffffff"
                                                  "0200060039300000"
                                                  "04000000ffffffff"
                                                  "10000400ffffffff"
                                                  "20000000ffffffff");

QByteArray attribute(const QByteArray &path, const char *name)
{
    char value[256];
    const ssize_t size = getxattr(path.constData(), name, value, sizeof value);
    return size < 0 ? QByteArray() : QByteArray(value, size);
}

TEST_F(DurableFile, KeepsAccessListsAndAttributes)
{
    const char List[] = "system.posix_acl_access";
    const char FolderList[] = "system.posix_acl_default";
    const QByteArray file = encoded(Name);
    const auto set = [](const QByteArray &path, const char *name, const QByteArray &value) {
        return setxattr(path.constData(), name, value.constData(), std::size_t(value.size()), 0) == 0;
    };
    putOldFile();
    if (!set(file, List, AccessList) || !set(file, "user.origin", "somewhere"))
        GTEST_SKIP() << "the temporary folder is on a file system without access lists or attributes";
    EXPECT_EQ(save().words(), QString());
    EXPECT_EQ(attribute(file, List), AccessList);
    EXPECT_EQ(attribute(file, "user.origin"), "somewhere");
    EXPECT_EQ(mode(Name), 0640U);

    FaultyFileSystem files;
    files.before = [](const QByteArray &title, qsizetype) { return title == "fsetxattr new" ? EPERM : 0; };
    EXPECT_EQ(save(files).words(), QString());
    EXPECT_EQ(mode(Name), 0600U) << "the bound of the list must not become the right of the group";

    putOldFile();
    ASSERT_TRUE(set(encoded(), FolderList, AccessList));
    EXPECT_EQ(save().words(), QString());
    EXPECT_EQ(mode(Name), 0640U);
    EXPECT_EQ(attribute(file, List), QByteArray())
        << "the folder must not give rights that the old file did not";
}

TEST_F(DurableFile, NoticesOtherPrograms)
{
    const QByteArray theirs(3000, 't');
    const QString interference = u"Another program changed the file while it was being saved."_qs;
    const auto change = [&] { put(Name, theirs); };
    const auto remove = [&] { QFile::remove(path(Name)); };
    const auto replace = [&] {
        put(u"other"_qs, theirs);
        rename(encoded(u"other"_qs).constData(), encoded(Name).constData());
    };
    const std::tuple<const char *, bool, const char *, std::function<void()>, QString, QByteArray> cases[] = {
        {"changed in place", false, "fsync new", change, interference, theirs},
        {"replaced", false, "fsync new", replace, interference, theirs},
        {"created", true, "fsync new", change, interference, theirs},
        {"removed", false, "fsync new", remove, {}, New},
        {"replaced at once after the save", false, "renameAt new", replace, {}, theirs},
    };
    for (const auto &[rule, isNew, when, act, error, left] : cases) {
        SCOPED_TRACE(rule);
        putOldFile();
        if (isNew)
            remove();
        FaultyFileSystem files;
        files.after = [&](const QByteArray &title, qsizetype) { title == when ? act() : void(); };
        const FileWriteResult result = save(files);
        EXPECT_EQ(result.words(), error);
        EXPECT_EQ(content(Name), left);
        EXPECT_EQ(result.identity == identityOfFile(path(Name)), left == New);
    }
}

} // namespace
