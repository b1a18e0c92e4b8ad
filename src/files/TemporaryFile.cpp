#include "files/TemporaryFile.h"

#include <QCryptographicHash>
#include <QFile>
#include <QRandomGenerator>
#include <QSysInfo>

#include <algorithm>
#include <fcntl.h>
#include <unistd.h>

namespace Foundation
{

namespace
{

constexpr int DigitCount = 16;

// The prefix of all names of this user on this machine.
QByteArray ownPrefix(const QString &application)
{
    const QByteArray owner = QSysInfo::machineUniqueId() + ' ' + QByteArray::number(::geteuid());
    const QByteArray digest = QCryptographicHash::hash(owner, QCryptographicHash::Sha256);
    return '.' + QFile::encodeName(application) + '-' + digest.toHex().first(DigitCount) + '-';
}

bool isOwnName(const QByteArray &name, const QByteArray &prefix)
{
    const auto isDigit = [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); };
    const QByteArray digits = name.mid(prefix.size());
    return name.startsWith(prefix) && digits.size() == DigitCount &&
           std::all_of(digits.begin(), digits.end(), isDigit);
}

// A file with a second hard link is kept, because a program or the user may have linked it to keep its
// content.
bool isLeftover(const struct stat &status)
{
    return S_ISREG(status.st_mode) && status.st_uid == ::geteuid() && status.st_nlink == 1;
}

} // namespace

SystemResult<> TemporaryFile::create(int folder)
{
    constexpr int Flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    constexpr int MaximumAttempts = 10;
    SystemResult<> made;
    for (int attempt = 0; attempt < MaximumAttempts; ++attempt) {
        remove();
        // The name does not contain the real name, which may already have the maximum length.
        const quint64 random = QRandomGenerator::system()->generate64();
        const QByteArray name =
            ownPrefix(m_application) + QByteArray::number(random, 16).rightJustified(DigitCount, '0');
        m_content.reset(uninterrupted(
            [&] { return m_files.openAt(folder, name.constData(), Flags, S_IRUSR | S_IWUSR); }));
        if (m_content.isOpen()) {
            m_folder = folder;
            m_name = name;
            made = lock();
        } else {
            made = systemFailure();
        }
        if (!made.failedWith(std::errc::file_exists))
            break;
    }
    return made;
}

SystemResult<> TemporaryFile::lock()
{
    m_lock.reset(uninterrupted([&] { return m_files.duplicate(m_content.get()); }));
    if (!m_lock.isOpen())
        return systemFailure();
    // A file system without locks is accepted. Another process may have removed the file as a leftover in the
    // moment before it was locked; then another name is tried.
    if (uninterrupted([&] { return m_files.lock(m_lock.get()); }) < 0 && errno == EWOULDBLOCK)
        return Failure{std::errc::file_exists};
    struct stat status;
    if (uninterrupted([&] { return m_files.fstat(m_lock.get(), &status); }) < 0)
        return systemFailure();
    if (status.st_nlink == 0)
        return Failure{std::errc::file_exists};
    return {};
}

SystemResult<> TemporaryFile::close()
{
    if (m_content.close() < 0)
        return systemFailure();
    return {};
}

SystemResult<> TemporaryFile::renameTo(const QByteArray &name)
{
    if (uninterrupted([&] { return m_files.renameAt(m_folder, m_name.constData(), name.constData()); }) < 0)
        return systemFailure();
    m_name.clear();
    m_lock.close();
    return {};
}

void TemporaryFile::remove()
{
    if (m_name.isEmpty())
        return;
    // An error here is ignored; the error that led here is reported.
    (void)uninterrupted([&] { return m_files.unlinkAt(m_folder, m_name.constData()); });
    m_name.clear();
    m_content.close();
    m_lock.close();
}

void TemporaryFile::removeAbandoned(int folder) const
{
    QList<QByteArray> names;
    (void)m_files.readNames(folder, &names); // The next save reads the names again.
    const QByteArray prefix = ownPrefix(m_application);
    for (const QByteArray &name : names) {
        struct stat named;
        if (!isOwnName(name, prefix) || m_files.fstatAt(folder, name.constData(), &named) < 0 ||
            !isLeftover(named))
            continue;
        // Some network folders lock only files that are open for writing.
        constexpr int Flags = O_WRONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC;
        const FileDescriptor file(m_files, m_files.openAt(folder, name.constData(), Flags, 0));
        struct stat opened;
        if (file.isOpen() && m_files.fstat(file.get(), &opened) == 0 && opened.st_dev == named.st_dev &&
            opened.st_ino == named.st_ino && m_files.lock(file.get()) == 0)
            (void)m_files.unlinkAt(folder, name.constData()); // The next save tries again.
    }
}

} // namespace Foundation
