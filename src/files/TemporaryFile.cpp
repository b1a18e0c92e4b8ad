#include "files/TemporaryFile.h"

#include <QCryptographicHash>
#include <QList>
#include <QRandomGenerator>
#include <QSysInfo>

#include <algorithm>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

namespace Foundation
{

namespace
{

constexpr int DigitCount = 16;

// What all names of this user's files on this machine begin with.
QByteArray ownPrefix()
{
    const QByteArray owner = QSysInfo::machineUniqueId() + ' ' + QByteArray::number(::geteuid());
    const QByteArray digest = QCryptographicHash::hash(owner, QCryptographicHash::Sha256);
    return ".vexarel-" + digest.toHex().first(DigitCount) + '-';
}

bool isOwnName(const QByteArray &name, const QByteArray &prefix)
{
    const auto isDigit = [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); };
    const QByteArray digits = name.mid(prefix.size());
    return name.startsWith(prefix) && digits.size() == DigitCount &&
           std::all_of(digits.begin(), digits.end(), isDigit);
}

// Empty if the folder cannot be read.
QList<QByteArray> ownNamesIn(int folder)
{
    struct Closing
    {
        void operator()(DIR *list) const { ::closedir(list); }
    };
    const int reading = ::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    const std::unique_ptr<DIR, Closing> list(reading < 0 ? nullptr : ::fdopendir(reading));
    if (!list) {
        if (reading >= 0)
            ::close(reading);
        return {};
    }
    const QByteArray prefix = ownPrefix();
    QList<QByteArray> names;
    while (const dirent *entry = ::readdir(list.get())) {
        if (isOwnName(entry->d_name, prefix))
            names.append(entry->d_name);
    }
    return names;
}

// A file with a second hard link is kept: another program or the user may have linked it to save its content.
bool isLeftover(const struct stat &status)
{
    return S_ISREG(status.st_mode) && status.st_uid == ::geteuid() && status.st_nlink == 1;
}

} // namespace

int TemporaryFile::create(int folder)
{
    constexpr int Flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    constexpr int MaximumAttempts = 10;
    int error = EEXIST;
    for (int attempt = 0; attempt < MaximumAttempts && error == EEXIST; ++attempt) {
        remove();
        // Independent of the real name, which may be as long as names can be.
        const quint64 random = QRandomGenerator::system()->generate64();
        const QByteArray name = ownPrefix() + QByteArray::number(random, 16).rightJustified(DigitCount, '0');
        m_content.reset(uninterrupted(
            [&] { return m_files.openAt(folder, name.constData(), Flags, S_IRUSR | S_IWUSR); }));
        error = m_content.isOpen() ? 0 : errno;
        if (error != 0)
            continue;
        m_folder = folder;
        m_name = name;
        error = lock();
    }
    return error;
}

int TemporaryFile::lock()
{
    m_lock.reset(uninterrupted([&] { return m_files.duplicate(m_content.get()); }));
    if (!m_lock.isOpen())
        return errno;
    // A file system without locks is no obstacle. A process that looks for abandoned files may have taken
    // this one for such a file in the moment before it was locked: then it is lost.
    if (uninterrupted([&] { return m_files.lock(m_lock.get()); }) < 0 && errno == EWOULDBLOCK)
        return EEXIST;
    struct stat status;
    if (uninterrupted([&] { return m_files.fstat(m_lock.get(), &status); }) < 0)
        return errno;
    return status.st_nlink == 0 ? EEXIST : 0;
}

int TemporaryFile::close()
{
    return m_content.close() < 0 ? errno : 0;
}

int TemporaryFile::renameTo(const QByteArray &name)
{
    if (uninterrupted([&] { return m_files.renameAt(m_folder, m_name.constData(), name.constData()); }) < 0)
        return errno;
    m_name.clear();
    m_lock.close();
    return 0;
}

void TemporaryFile::remove()
{
    if (m_name.isEmpty())
        return;
    // If this fails too there is nothing more to do; the error that led here is the one to tell.
    uninterrupted([&] { return m_files.unlinkAt(m_folder, m_name.constData()); });
    m_name.clear();
    m_content.close();
    m_lock.close();
}

void TemporaryFile::removeAbandoned(int folder, FileSystem &files)
{
    for (const QByteArray &name : ownNamesIn(folder)) {
        struct stat named;
        if (files.fstatAt(folder, name.constData(), &named) < 0 || !isLeftover(named))
            continue;
        // Some network folders lock only what is open for writing.
        constexpr int Flags = O_WRONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC;
        const FileDescriptor file(files, files.openAt(folder, name.constData(), Flags, 0));
        struct stat opened;
        if (file.isOpen() && files.fstat(file.get(), &opened) == 0 && opened.st_dev == named.st_dev &&
            opened.st_ino == named.st_ino && files.lock(file.get()) == 0)
            files.unlinkAt(folder, name.constData());
    }
}

} // namespace Foundation
