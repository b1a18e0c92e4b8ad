#include "files/DurableFile.h"

#include "files/FileDescriptor.h"
#include "files/FileErrorText.h"
#include "files/FileReplacement.h"

#include <QLocale>

#include <fcntl.h>
#include <sys/mman.h>

namespace Foundation
{

namespace
{

QString readErrorText(int number)
{
    return fileErrorText(number, QStringLiteral("You do not have permission to read the file."),
                         QStringLiteral("The file does not exist."));
}

QString badNameText()
{
    return QStringLiteral("The name contains characters that a file name cannot have.");
}

QString notRegularText()
{
    return QStringLiteral("It is a folder, a device or another special file.");
}

// Whether that much can be had. A container that cannot get its memory ends the program, and with it all
// unsaved work; asking the system beforehand costs nothing, as the pages are never touched.
bool memoryAvailable(qint64 size)
{
    if (size == 0)
        return true;
    void *const pages =
        mmap(nullptr, std::size_t(size), PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return pages != MAP_FAILED && munmap(pages, std::size_t(size)) == 0;
}

// One way through an open file, start to end.
class FilePass
{
public:
    FilePass(int descriptor, FileSystem &files, const FileEndsCheck &canBeIt)
        : m_files(files)
        , m_descriptor(descriptor)
        , m_canBeIt(canBeIt)
    {
    }

    // False if the file changed meanwhile and nothing else is wrong; then `result` means nothing.
    bool read(qint64 maxBytes, FileReadResult &result);

private:
    std::optional<FileIdentity> identity(FileReadResult &result);
    // The number of bytes read, less than asked at the end of the file only, or -1.
    qint64 fill(char *buffer, qint64 size, qint64 offset);
    // True for small files too, of which nothing is read beforehand, and where reading fails, which it will
    // again.
    bool canBeIt(qint64 size);

    FileSystem &m_files;
    const int m_descriptor;
    const FileEndsCheck &m_canBeIt;
};

bool FilePass::read(qint64 maxBytes, FileReadResult &result)
{
    result = {};
    const std::optional<FileIdentity> before = identity(result);
    if (!before)
        return true;
    if (before->size > maxBytes) {
        const QString limit = QLocale::c().formattedDataSize(maxBytes, 0);
        result.error = QStringLiteral("The file is larger than %1.").arg(limit);
        return true;
    }
    if (!canBeIt(before->size)) {
        result.identity = *before;
        return true;
    }
    if (!memoryAvailable(before->size)) {
        result.error = readErrorText(ENOMEM);
        return true;
    }

    QByteArray bytes(qsizetype(before->size), Qt::Uninitialized);
    char probe = 0;
    const qint64 filled = fill(bytes.data(), before->size, 0);
    const qint64 beyond = filled == before->size ? fill(&probe, 1, filled) : 0;
    if (filled < 0 || beyond < 0) {
        result.error = readErrorText(errno);
        return true;
    }
    const std::optional<FileIdentity> after = identity(result);
    if (!after)
        return true;
    // Times alone do not tell: two changes within a tick of the system's clock bear the same.
    if (filled < before->size || beyond > 0 || before != after)
        return false;
    result.bytes = bytes;
    result.identity = *after;
    return true;
}

std::optional<FileIdentity> FilePass::identity(FileReadResult &result)
{
    struct stat status;
    if (uninterrupted([&] { return m_files.fstat(m_descriptor, &status); }) < 0)
        result.error = readErrorText(errno);
    else if (!S_ISREG(status.st_mode))
        result.error = notRegularText();
    else
        return FileIdentity::fromStatus(status);
    return std::nullopt;
}

qint64 FilePass::fill(char *buffer, qint64 size, qint64 offset)
{
    qint64 filled = 0;
    while (filled < size) {
        const ssize_t count = uninterrupted([&] {
            return m_files.readAt(m_descriptor, buffer + filled, std::size_t(size - filled), offset + filled);
        });
        if (count < 0)
            return -1;
        if (count == 0)
            break;
        filled += count;
    }
    return filled;
}

bool FilePass::canBeIt(qint64 size)
{
    constexpr qint64 QuicklyRead = 1 << 20;
    constexpr qint64 EndSize = 64;
    if (!m_canBeIt || size <= QuicklyRead)
        return true;
    char head[EndSize];
    char tail[EndSize];
    return fill(head, EndSize, 0) != EndSize || fill(tail, EndSize, size - EndSize) != EndSize ||
           m_canBeIt({head, EndSize}, {tail, EndSize}, size);
}

} // namespace

FileReadResult readRegularFile(const QString &path, qint64 maxBytes, FileSystem &files,
                               const FileEndsCheck &canBeIt)
{
    FileReadResult result;
    const std::optional<QByteArray> name = encodedPath(path);
    if (!name) {
        result.error = badNameText();
        return result;
    }
    constexpr int Flags = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    const FileDescriptor file(
        files, uninterrupted([&] { return files.openAt(AT_FDCWD, name->constData(), Flags, 0); }));
    if (!file.isOpen()) {
        // A socket, or a device without anything behind it.
        result.error = errno == ENXIO || errno == ENODEV ? notRegularText() : readErrorText(errno);
        return result;
    }
    FilePass pass(file.get(), files, canBeIt);
    if (!pass.read(maxBytes, result) && !pass.read(maxBytes, result))
        result.error = QStringLiteral("Another program keeps changing the file.");
    return result;
}

FileWriteResult writeFileDurably(const QString &path, const QByteArray &bytes,
                                 const std::optional<FileIdentity> &expected, FileSystem &files)
{
    FileWriteResult result;
    const std::optional<QByteArray> name = encodedPath(path);
    // U+FFFD stands where a name had bytes that are no text. Unless a file is really named so, the one that
    // the user chose has another name.
    const bool isDoubtful = path.section(u'/', -1).contains(QChar::ReplacementCharacter);
    if (!name || (isDoubtful && !identityOfFile(path))) {
        result.error = badNameText();
        return result;
    }
    FileReplacement replacement(files);
    if (replacement.locate(*name) && replacement.examineOldFile(expected)) {
        // Before anything is written: on a full disk what is left of a killed save may be what is missing.
        replacement.removeAbandonedFiles();
        if (replacement.writeTemporaryFile(bytes))
            result.identity = replacement.putInPlace();
    }
    result.error = replacement.error();
    return result;
}

void removeAbandonedFiles(const QString &path, FileSystem &files)
{
    const std::optional<QByteArray> name = encodedPath(path);
    FileReplacement replacement(files);
    if (name && replacement.locate(*name))
        replacement.removeAbandonedFiles();
}

} // namespace Foundation
