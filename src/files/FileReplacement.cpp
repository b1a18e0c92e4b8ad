#include "files/FileReplacement.h"

#include "files/FileErrorText.h"

#include <climits>
#include <fcntl.h>
#include <unistd.h>

namespace Foundation
{

namespace
{

QString missingFolderText()
{
    return QStringLiteral("The folder does not exist.");
}

QString folderErrorText(int number)
{
    return fileErrorText(number, QStringLiteral("You do not have permission to open the folder."),
                         missingFolderText());
}

QString writeErrorText(int number)
{
    return fileErrorText(number, QStringLiteral("You do not have permission to write the file."),
                         missingFolderText());
}

QString interferenceText()
{
    return QStringLiteral("Another program changed the file while it was being saved.");
}

struct SplitPath
{
    QByteArray folder;
    QByteArray name;
};

SplitPath split(const QByteArray &path)
{
    const qsizetype slash = path.lastIndexOf('/');
    if (slash < 0)
        return {".", path};
    return {slash == 0 ? QByteArray("/") : path.left(slash), path.mid(slash + 1)};
}

} // namespace

bool FileReplacement::fail(const QString &text)
{
    m_error = text;
    return false;
}

bool FileReplacement::locate(const QByteArray &path)
{
    QByteArray realPath = path;
    if (!followLinks(realPath))
        return false;
    const SplitPath parts = split(realPath);
    if (parts.name.isEmpty() || parts.name == "." || parts.name == "..")
        return fail(QStringLiteral("The name is that of a folder."));
    m_name = parts.name;
    constexpr int Flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
    m_folder.reset(
        uninterrupted([&] { return m_files.openAt(AT_FDCWD, parts.folder.constData(), Flags, 0); }));
    return m_folder.isOpen() || fail(folderErrorText(errno));
}

bool FileReplacement::followLinks(QByteArray &path)
{
    // Lets the system follow them first: it knows circles, and links that others planted in a shared folder.
    if (uninterrupted([&] { return m_files.accessAt(AT_FDCWD, path.constData(), F_OK); }) < 0 &&
        errno != ENOENT)
        return fail(folderErrorText(errno));
    constexpr int MaximumLinks = 40; // As many as the system follows.
    for (int links = 0; links < MaximumLinks; ++links) {
        QByteArray target(PATH_MAX, Qt::Uninitialized);
        const ssize_t length = uninterrupted(
            [&] { return m_files.readLink(path.constData(), target.data(), std::size_t(target.size())); });
        if (length < 0)
            return errno == EINVAL || errno == ENOENT || fail(folderErrorText(errno));
        target.truncate(length);
        path = target.startsWith('/') ? target : split(path).folder + '/' + target;
    }
    return fail(folderErrorText(ELOOP));
}

bool FileReplacement::examineOldFile(const std::optional<FileIdentity> &expected)
{
    struct stat status;
    if (uninterrupted([&] { return m_files.fstatAt(m_folder.get(), m_name.constData(), &status); }) < 0)
        return errno == ENOENT || fail(folderErrorText(errno));
    if (S_ISDIR(status.st_mode))
        return fail(QStringLiteral("The name is that of a folder."));
    if (!S_ISREG(status.st_mode))
        return fail(QStringLiteral("The name is that of a device or another special file."));

    const auto readOnly = QStringLiteral("The file is read-only.");
    if ((status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0)
        return fail(readOnly);
    if (uninterrupted([&] { return m_files.accessAt(m_folder.get(), m_name.constData(), W_OK); }) < 0)
        return fail(fileErrorText(errno, readOnly, missingFolderText()));
    m_oldFile = FileIdentity::fromStatus(status);
    if (expected && !m_oldFile->hasSameContentAs(*expected))
        return fail(interferenceText());
    if (const int error = m_rights.takeFrom(m_folder.get(), m_name.constData(), status, m_files))
        return fail(writeErrorText(error));
    return true;
}

bool FileReplacement::writeTemporaryFile(const QByteArray &bytes)
{
    // An interrupted flush or close has failed like any other, but no disk is at fault: take a fresh file.
    constexpr int MaximumAttempts = 3;
    int error = EINTR;
    for (int attempt = 0; attempt < MaximumAttempts && error == EINTR; ++attempt) {
        if (const int failure = m_temporary.create(m_folder.get()))
            return fail(
                fileErrorText(failure, QStringLiteral("The folder is not writable."), missingFolderText()));
        error = fillTemporaryFile(bytes);
    }
    return error == 0 || fail(writeErrorText(error));
}

int FileReplacement::fillTemporaryFile(const QByteArray &bytes)
{
    const int file = m_temporary.descriptor();
    if (const int error = writeAll(file, bytes))
        return error;
    if (const int error = m_rights.giveTo(file, m_files))
        return error;
    if (m_files.fsync(file) < 0)
        return errno;
    struct stat status;
    if (uninterrupted([&] { return m_files.fstat(file, &status); }) < 0)
        return errno;
    m_newFile = FileIdentity::fromStatus(status);
    return m_temporary.close();
}

int FileReplacement::writeAll(int descriptor, const QByteArray &bytes)
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t count = uninterrupted([&] {
            return m_files.write(descriptor, bytes.constData() + written,
                                 std::size_t(bytes.size() - written));
        });
        if (count <= 0)
            return count < 0 ? errno : EIO;
        written += count;
    }
    return 0;
}

std::optional<FileIdentity> FileReplacement::putInPlace()
{
    if (!oldFileUnchanged())
        return std::nullopt;
    if (const int error = m_temporary.renameTo(m_name)) {
        fail(fileErrorText(error, QStringLiteral("You do not have permission to replace the file."),
                           interferenceText()));
        return std::nullopt;
    }
    const FileIdentity identity = identityInPlace();
    // Unlike a file, a folder holds no data of ours that an interrupted flush could lose: it may be repeated.
    // Some file systems have no flush for folders and say that the call is invalid.
    if (uninterrupted([&] { return m_files.fsync(m_folder.get()); }) < 0 && errno != EINVAL)
        fail(QStringLiteral("The new file is in its place, but the disk did not confirm it. A power failure "
                            "may bring the old one back."));
    return identity;
}

bool FileReplacement::oldFileUnchanged()
{
    struct stat status;
    if (uninterrupted([&] { return m_files.fstatAt(m_folder.get(), m_name.constData(), &status); }) < 0) {
        if (errno != ENOENT)
            return fail(folderErrorText(errno));
        // A file that somebody removed is no reason to refuse: nothing is overwritten.
        return true;
    }
    return m_oldFile == FileIdentity::fromStatus(status) || fail(interferenceText());
}

FileIdentity FileReplacement::identityInPlace()
{
    // Renaming moves the time of the last change of status. If another program was faster and its file has
    // the name already, the earlier identity is the right one: it differs, and so the next save will notice.
    struct stat status;
    if (uninterrupted([&] { return m_files.fstatAt(m_folder.get(), m_name.constData(), &status); }) < 0)
        return m_newFile;
    const FileIdentity inPlace = FileIdentity::fromStatus(status);
    const bool isNewFile = inPlace.device == m_newFile.device && inPlace.inode == m_newFile.inode;
    return isNewFile ? inPlace : m_newFile;
}

} // namespace Foundation
