#include "files/DurableFile.h"

#include "files/FileDescriptor.h"
#include "files/FileErrorText.h"
#include "files/FileReplacement.h"

#include <QCoreApplication>
#include <QLocale>

#include <fcntl.h>
#include <sys/mman.h>

namespace Foundation
{

namespace
{

class Words
{
    Q_DECLARE_TR_FUNCTIONS(DurableFile)
};

Failure<FileError> readFailure(const Failure<std::errc> &cause)
{
    return {FileError::System,
            fileErrorText(cause.code, Words::tr("You do not have permission to read the file."),
                          Words::tr("The file does not exist."))};
}

Failure<FileError> badName()
{
    return {FileError::BadName, Words::tr("The name contains characters that a file name cannot have.")};
}

Failure<FileError> notRegular()
{
    return {FileError::WrongKind, Words::tr("It is a folder, a device or another special file.")};
}

// Whether that much memory is available. A container that cannot allocate ends the program, and unsaved work
// is lost. Asking the system first is cheap, because the pages are never touched.
bool memoryAvailable(qint64 size)
{
    if (size == 0)
        return true;
    void *const pages =
        mmap(nullptr, std::size_t(size), PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return pages != MAP_FAILED && munmap(pages, std::size_t(size)) == 0;
}

// Reads an open file once from start to end.
class FilePass
{
public:
    FilePass(int descriptor, FileSystem &files, const FileEndsCheck &canBeIt)
        : m_files(files)
        , m_descriptor(descriptor)
        , m_canBeIt(canBeIt)
    {
    }

    // FileError::Interference if the file changed meanwhile and nothing else is wrong.
    FileResult<FileContent> read(qint64 maxBytes);

private:
    FileResult<FileIdentity> identity();
    // The number of bytes read, or -1. It is less than `size` only at the end of the file.
    qint64 fill(char *buffer, qint64 size, qint64 offset);
    // True also for small files, which are not checked, and if reading fails, because reading the whole file
    // will fail again.
    bool canBeIt(qint64 size);

    FileSystem &m_files;
    const int m_descriptor;
    const FileEndsCheck &m_canBeIt;
};

FileResult<FileContent> FilePass::read(qint64 maxBytes)
{
    const auto before = identity();
    if (!before)
        return before.failure();
    if (before->size > maxBytes) {
        const QString limit = QLocale::c().formattedDataSize(maxBytes, 0);
        return Failure{FileError::TooLarge, Words::tr("The file is larger than %1.").arg(limit)};
    }
    if (!canBeIt(before->size))
        return FileContent{{}, *before};
    if (!memoryAvailable(before->size))
        return readFailure(Failure{std::errc::not_enough_memory});

    QByteArray bytes(qsizetype(before->size), Qt::Uninitialized);
    char probe = 0;
    const qint64 filled = fill(bytes.data(), before->size, 0);
    const qint64 beyond = filled == before->size ? fill(&probe, 1, filled) : 0;
    if (filled < 0 || beyond < 0)
        return readFailure(systemFailure());
    const auto after = identity();
    if (!after)
        return after.failure();
    // The size is checked too, because two changes within one tick of the system clock have the same time.
    if (filled < before->size || beyond > 0 || *before != *after)
        return Failure{FileError::Interference, Words::tr("Another program keeps changing the file.")};
    return FileContent{bytes, *after};
}

FileResult<FileIdentity> FilePass::identity()
{
    struct stat status;
    if (uninterrupted([&] { return m_files.fstat(m_descriptor, &status); }) < 0)
        return readFailure(systemFailure());
    if (!S_ISREG(status.st_mode))
        return notRegular();
    return FileIdentity::fromStatus(status);
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

FileResult<FileContent> readRegularFile(const QString &path, qint64 maxBytes, FileSystem &files,
                                        const FileEndsCheck &canBeIt)
{
    const std::optional<QByteArray> name = encodedPath(path);
    if (!name)
        return badName();
    constexpr int Flags = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    const FileDescriptor file(
        files, uninterrupted([&] { return files.openAt(AT_FDCWD, name->constData(), Flags, 0); }));
    if (!file.isOpen()) {
        // A socket, or a device file without a device.
        if (errno == ENXIO || errno == ENODEV)
            return notRegular();
        return readFailure(systemFailure());
    }
    FilePass pass(file.get(), files, canBeIt);
    auto content = pass.read(maxBytes);
    if (content.failedWith(FileError::Interference))
        content = pass.read(maxBytes);
    return content;
}

FileWriteResult writeFileDurably(const QString &path, const QByteArray &bytes, const QString &application,
                                 const std::optional<FileIdentity> &expected, FileSystem &files)
{
    const std::optional<QByteArray> name = encodedPath(path);
    // U+FFFD replaces bytes of a name that are no text. If no file has exactly this name, the user chose a
    // file with another name.
    const bool isDoubtful = path.section(u'/', -1).contains(QChar::ReplacementCharacter);
    if (!name || (isDoubtful && !identityOfFile(path, files)))
        return {badName(), {}};
    FileReplacement replacement(application, files);
    if (const auto located = replacement.locate(*name); !located)
        return {located.failure(), {}};
    if (const auto examined = replacement.examineOldFile(expected); !examined)
        return {examined.failure(), {}};
    // Before anything is written, because on a full disk a leftover file may take the space that is needed.
    replacement.removeAbandonedFiles();
    if (const auto written = replacement.writeTemporaryFile(bytes); !written)
        return {written.failure(), {}};
    const auto placed = replacement.putInPlace();
    return {placed, replacement.identityInPlace()};
}

void removeAbandonedFiles(const QString &path, const QString &application, FileSystem &files)
{
    const std::optional<QByteArray> name = encodedPath(path);
    FileReplacement replacement(application, files);
    if (name && replacement.locate(*name))
        replacement.removeAbandonedFiles();
}

} // namespace Foundation
