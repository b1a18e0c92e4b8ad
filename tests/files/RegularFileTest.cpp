#include "files/DurableFile.h"
#include "files/FileFixture.h"
#include "support/FaultyFileSystem.h"

#include <sys/resource.h>

using namespace Foundation;

namespace
{

class RegularFile : public FileFixture
{
};

TEST_F(RegularFile, ReadsWholeFilesWithinTheLimitAndNothingElse)
{
    put(u"empty"_qs, {});
    put(u"ten"_qs, "0123456789");
    put(u"eleven"_qs, "0123456789a");
    QFile::link(u"ten"_qs, path(u"link"_qs));
    QFile::link(u"nothing"_qs, path(u"dangling"_qs));
    QFile::link(u"circle"_qs, path(u"circle"_qs));
    mkfifo(encoded(u"fifo"_qs).constData(), 0600);
    const QString special = u"It is a folder, a device or another special file."_qs;
    const QString missing = u"The file does not exist."_qs;
    const QString badName = u"The name contains characters that a file name cannot have."_qs;
    const std::tuple<const char *, QString, QByteArray, QString> cases[] = {
        {"an empty file has no bytes", u"empty"_qs, {}, {}},
        {"as long as the limit", u"ten"_qs, "0123456789", {}},
        {"one byte longer", u"eleven"_qs, {}, u"The file is larger than 10 bytes."_qs},
        {"through a link", u"link"_qs, "0123456789", {}},
        {"a link to nothing", u"dangling"_qs, {}, missing},
        {"a link to itself", u"circle"_qs, {}, u"The links lead in a circle."_qs},
        {"nothing", u"nothing"_qs, {}, missing},
        {"a file taken for a folder", u"ten/x"_qs, {}, missing},
        {"a folder", u"."_qs, {}, special},
        {"a FIFO that nobody writes", u"fifo"_qs, {}, special},
        {"a device without an end", u"/dev/zero"_qs, {}, special},
        {"half a surrogate pair", u"ten"_qs + QChar(0xD83D), {}, badName},
        {"a null character", u"ten"_qs + QChar(0), {}, badName},
    };
    for (const auto &[rule, name, bytes, error] : cases) {
        SCOPED_TRACE(rule);
        const auto result = readRegularFile(path(name), 10);
        EXPECT_EQ(result.words(), error);
        EXPECT_EQ(result ? result->bytes : QByteArray(), bytes);
        EXPECT_TRUE(!result || result->identity == identityOfFile(path(name)));
    }
    asOrdinaryUser([&] {
        put(u"locked"_qs, "x", 0);
        EXPECT_EQ(readRegularFile(path(u"locked"_qs), 10).words(),
                  u"You do not have permission to read the file."_qs);
    });
}

TEST_F(RegularFile, NeverMixesTwoVersions)
{
    const QByteArray former(5000, 'f');
    const std::tuple<const char *, QByteArray, int, QString> cases[] = {
        {"grows once", QByteArray(9000, 'g'), 1, {}},
        {"shrinks once", QByteArray(20, 's'), 1, {}},
        {"keeps its length", QByteArray(5000, 'k'), 1, {}},
        {"becomes empty once", {}, 1, {}},
        {"beyond the limit", QByteArray(10241, 'g'), 1, u"The file is larger than 10 KiB."_qs},
        {"changes each time", QByteArray(9000, 'g'), 2, u"Another program keeps changing the file."_qs},
    };
    for (const auto &[change, bytes, changes, error] : cases) {
        SCOPED_TRACE(change);
        put(u"file"_qs, former);
        const timespec longAgo[2] = {};
        ASSERT_EQ(utimensat(AT_FDCWD, encoded(u"file"_qs).constData(), longAgo, 0), 0);
        FaultyFileSystem files;
        files.largestTransfer = 1000;
        files.after = [&](const QByteArray &title, qsizetype) {
            const qsizetype reads = files.calls.count(title);
            if (title == "readAt old" && (reads == 2 || (reads == 8 && changes == 2)))
                put(u"file"_qs, bytes + QByteArray(reads == 2 ? 0 : 1, 'x'));
        };
        const auto result = readRegularFile(path(u"file"_qs), 10240, files);
        EXPECT_EQ(result.words(), error);
        EXPECT_EQ(result ? result->bytes : QByteArray(), error.isNull() ? bytes : QByteArray());
    }
}

// As some file systems of the kernel's own do, whose files are made up when they are read.
class LyingFileSystem : public FileSystem
{
public:
    off_t surplus = 0;
    int fstat(int file, struct stat *status) override
    {
        const int told = FileSystem::fstat(file, status);
        status->st_size += surplus;
        return told;
    }
};

TEST_F(RegularFile, BelievesNoLength)
{
    put(u"file"_qs, "0123456789");
    LyingFileSystem files;
    for (const off_t surplus : {-1, 1}) {
        files.surplus = surplus;
        EXPECT_FALSE(readRegularFile(path(u"file"_qs), 100, files).succeeded()) << surplus;
    }
}

TEST_F(RegularFile, SurvivesInterruptionsAndTellsErrors)
{
    put(u"file"_qs, QByteArray(5000, 'f'));
    FaultyFileSystem rehearsal;
    rehearsal.largestTransfer = 3000;
    ASSERT_TRUE(readRegularFile(path(u"file"_qs), 5000, rehearsal).succeeded());
    for (const int error : {EINTR, EIO}) {
        for (qsizetype n = 0; n < rehearsal.calls.size(); ++n) {
            SCOPED_TRACE(rehearsal.calls.at(n).toStdString() + ' ' + strerror(error));
            FaultyFileSystem files;
            files.largestTransfer = 3000;
            files.before = [&](const QByteArray &, qsizetype number) { return number == n ? error : 0; };
            const auto result = readRegularFile(path(u"file"_qs), 5000, files);
            const bool expected = error == EINTR || rehearsal.calls.at(n) == "close old";
            EXPECT_EQ(result.words(), expected ? QString() : u"The disk reported an error."_qs);
            EXPECT_EQ(result ? result->bytes : QByteArray(), QByteArray(expected ? 5000 : 0, 'f'));
        }
    }
}

TEST_F(RegularFile, ThatItsEndsRuleOutIsNotReadWhole)
{
    const QByteArray middle(2 << 20, 'x');
    put(u"file"_qs, "head" + middle + "tail");
    for (const bool isWanted : {true, false}) {
        FaultyFileSystem files;
        const auto check = [&](QByteArrayView head, QByteArrayView tail, qint64 size) {
            EXPECT_TRUE(head.startsWith("head") && tail.endsWith("tail"));
            EXPECT_EQ(size, middle.size() + 8);
            return isWanted;
        };
        const auto result = readRegularFile(path(u"file"_qs), 5 << 20, files, check);
        ASSERT_TRUE(result.succeeded());
        EXPECT_EQ(result->bytes.size(), isWanted ? middle.size() + 8 : 0);
        EXPECT_EQ(files.calls.count("readAt old") > 2, isWanted);
    }
}

TEST_F(RegularFile, BeyondTheMemoryIsAnErrorAndNoEndOfTheProgram)
{
    const qint64 pagesInUse = content(u"/proc/self/statm"_qs).split(' ').first().toLongLong();
    if (pagesInUse * sysconf(_SC_PAGESIZE) > 1 << 30)
        GTEST_SKIP() << "a sanitizer uses more memory than the limit would leave";
    constexpr qint64 FourGiB = qint64(1) << 32;
    put(u"sparse"_qs, {});
    ASSERT_EQ(truncate(encoded(u"sparse"_qs).constData(), FourGiB), 0);
    const int ending = inChild([&] {
        const rlimit oneGiB = {1 << 30, 1 << 30};
        ASSERT_EQ(setrlimit(RLIMIT_AS, &oneGiB), 0);
        EXPECT_EQ(readRegularFile(path(u"sparse"_qs), FourGiB).words(), u"There is not enough memory."_qs);
    });
    EXPECT_EQ(ending, 0);
}

} // namespace
