#include "files/FileReplacement.h"

#include "files/FileErrorText.h"

#include <QCoreApplication>

#include <climits>
#include <fcntl.h>
#include <unistd.h>

namespace Foundation
{

namespace
{

class Words
{
    Q_DECLARE_TR_FUNCTIONS(FileReplacement)
};

QString missingFolderText()
{
    return Words::tr("The folder does not exist.");
}

Failure<FileError> failureInWords(const Failure<std::errc> &cause, const QString &denied,
                                  const QString &missing)
{
    return {FileError::System, fileErrorText(cause.code, denied, missing)};
}

Failure<FileError> folderFailure(const Failure<std::errc> &cause)
{
    return failureInWords(cause, Words::tr("You do not have permission to open the folder."),
                          missingFolderText());
}

Failure<FileError> writeFailure(const Failure<std::errc> &cause)
{
    return failureInWords(cause, Words::tr("You do not have permission to write the file."),
                          missingFolderText());
}

Failure<FileError> folderNameFailure()
{
    return {FileError::WrongKind, Words::tr("The name is that of a folder.")};
}

Failure<FileError> interference()
{
    return {FileError::Interference, Words::tr("Another program changed the file while it was being saved.")};
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

FileResult<> FileReplacement::locate(const QByteArray &path)
{
    const auto realPath = followLinks(path);
    if (!realPath)
        return realPath.failure();
    const SplitPath parts = split(*realPath);
    if (parts.name.isEmpty() || parts.name == "." || parts.name == "..")
        return folderNameFailure();
    m_name = parts.name;
    constexpr int Flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
    m_folder.reset(
        uninterrupted([&] { return m_files.openAt(AT_FDCWD, parts.folder.constData(), Flags, 0); }));
    if (!m_folder.isOpen())
        return folderFailure(systemFailure());
    return {};
}

FileResult<QByteArray> FileReplacement::followLinks(const QByteArray &path)
{
    // The system follows the links first, because it detects circles, and dangerous links in shared folders.
    if (uninterrupted([&] { return m_files.accessAt(AT_FDCWD, path.constData(), F_OK); }) < 0 &&
        errno != ENOENT)
        return folderFailure(systemFailure());
    QByteArray followed = path;
    constexpr int MaximumLinks = 40; // The same limit as that of the system.
    for (int links = 0; links < MaximumLinks; ++links) {
        QByteArray target(PATH_MAX, Qt::Uninitialized);
        const ssize_t length = uninterrupted([&] {
            return m_files.readLink(followed.constData(), target.data(), std::size_t(target.size()));
        });
        if (length < 0 && errno != EINVAL && errno != ENOENT)
            return folderFailure(systemFailure());
        if (length < 0)
            return followed;
        target.truncate(length);
        followed = target.startsWith('/') ? target : split(followed).folder + '/' + target;
    }
    return folderFailure(Failure{std::errc::too_many_symbolic_link_levels});
}

FileResult<> FileReplacement::examineOldFile(const std::optional<FileIdentity> &expected)
{
    struct stat status;
    if (uninterrupted([&] { return m_files.fstatAt(m_folder.get(), m_name.constData(), &status); }) < 0) {
        if (errno == ENOENT)
            return {};
        return folderFailure(systemFailure());
    }
    if (S_ISDIR(status.st_mode))
        return folderNameFailure();
    if (!S_ISREG(status.st_mode))
        return Failure{FileError::WrongKind,
                       Words::tr("The name is that of a device or another special file.")};

    const QString readOnly = Words::tr("The file is read-only.");
    if ((status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0)
        return Failure{FileError::System, readOnly};
    if (uninterrupted([&] { return m_files.accessAt(m_folder.get(), m_name.constData(), W_OK); }) < 0)
        return failureInWords(systemFailure(), readOnly, missingFolderText());
    m_oldFile = FileIdentity::fromStatus(status);
    if (expected && !m_oldFile->hasSameContentAs(*expected))
        return interference();
    if (const auto taken = m_rights.takeFrom(m_folder.get(), m_name.constData(), status, m_files); !taken)
        return writeFailure(taken.failure());
    return {};
}

FileResult<> FileReplacement::writeTemporaryFile(const QByteArray &bytes)
{
    // An interrupted flush or close has failed, but not because of the disk, so try again with a new file.
    constexpr int MaximumAttempts = 3;
    SystemResult<> written;
    for (int attempt = 0; attempt < MaximumAttempts; ++attempt) {
        if (const auto made = m_temporary.create(m_folder.get()); !made)
            return failureInWords(made.failure(), Words::tr("The folder is not writable."),
                                  missingFolderText());
        written = fillTemporaryFile(bytes);
        if (!written.failedWith(std::errc::interrupted))
            break;
    }
    if (!written)
        return writeFailure(written.failure());
    return {};
}

SystemResult<> FileReplacement::fillTemporaryFile(const QByteArray &bytes)
{
    const int file = m_temporary.descriptor();
    if (auto written = writeAll(file, bytes); !written)
        return written;
    if (auto given = m_rights.giveTo(file, m_files); !given)
        return given;
    if (m_files.fsync(file) < 0)
        return systemFailure();
    struct stat status;
    if (uninterrupted([&] { return m_files.fstat(file, &status); }) < 0)
        return systemFailure();
    m_newFile = FileIdentity::fromStatus(status);
    return m_temporary.close();
}

SystemResult<> FileReplacement::writeAll(int descriptor, const QByteArray &bytes)
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t count = uninterrupted([&] {
            return m_files.write(descriptor, bytes.constData() + written,
                                 std::size_t(bytes.size() - written));
        });
        if (count < 0)
            return systemFailure();
        if (count == 0)
            return Failure{std::errc::io_error};
        written += count;
    }
    return {};
}

FileResult<> FileReplacement::putInPlace()
{
    if (auto unchanged = checkOldFileUnchanged(); !unchanged)
        return unchanged;
    if (const auto renamed = m_temporary.renameTo(m_name); !renamed)
        return failureInWords(renamed.failure(), Words::tr("You do not have permission to replace the file."),
                              interference().words);
    m_inPlace = lookAtPlace();
    // An interrupted flush of a folder may be repeated, because no written data can get lost. Some file
    // systems cannot flush folders and report an invalid call.
    if (uninterrupted([&] { return m_files.fsync(m_folder.get()); }) < 0 && errno != EINVAL)
        return Failure{FileError::Unconfirmed,
                       Words::tr("The new file is in its place, but the disk did not confirm it. A power "
                                 "failure may bring the old one back.")};
    return {};
}

FileResult<> FileReplacement::checkOldFileUnchanged()
{
    struct stat status;
    if (uninterrupted([&] { return m_files.fstatAt(m_folder.get(), m_name.constData(), &status); }) < 0) {
        // If the old file was removed, nothing is overwritten.
        if (errno == ENOENT)
            return {};
        return folderFailure(systemFailure());
    }
    if (m_oldFile != FileIdentity::fromStatus(status))
        return interference();
    return {};
}

FileIdentity FileReplacement::lookAtPlace()
{
    // Renaming changes the time of the last status change, so the identity is read again. If another program
    // has already replaced the file, the former identity is returned; it differs from the file, so the next
    // save will notice.
    struct stat status;
    if (uninterrupted([&] { return m_files.fstatAt(m_folder.get(), m_name.constData(), &status); }) < 0)
        return m_newFile;
    const FileIdentity inPlace = FileIdentity::fromStatus(status);
    const bool isNewFile = inPlace.device == m_newFile.device && inPlace.inode == m_newFile.inode;
    return isNewFile ? inPlace : m_newFile;
}

} // namespace Foundation
