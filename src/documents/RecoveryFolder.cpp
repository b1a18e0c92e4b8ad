#include "documents/RecoveryFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QUuid>

#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>

namespace Foundation
{

namespace
{

class Words
{
    Q_DECLARE_TR_FUNCTIONS(RecoveryFolder)
};

// Makes a folder and its missing parents.
SystemResult<> makeFolder(const QByteArray &path)
{
    constexpr mode_t AsTheUserWishes = 0777; // The umask of the user is subtracted.
    const auto make = [&path] {
        return uninterrupted(
            [&] { return FileSystem::system().mkdirAt(AT_FDCWD, path.constData(), AsTheUserWishes); });
    };
    if (make() == 0 || errno == EEXIST)
        return {};
    const qsizetype slash = path.lastIndexOf('/');
    if (errno != ENOENT || slash <= 0)
        return systemFailure();
    if (auto parent = makeFolder(path.left(slash)); !parent)
        return parent;
    if (make() < 0 && errno != EEXIST)
        return systemFailure();
    return {};
}

} // namespace

QString RecoveryFolder::path() const
{
    const QString state = qEnvironmentVariable("XDG_STATE_HOME");
    // The XDG Base Directory Specification wants relative paths to be ignored.
    const QString base =
        QDir::isAbsolutePath(state) ? state : QDir::homePath() + QStringLiteral("/.local/state");
    return QStringLiteral("%1/%2/autosaved").arg(base, m_type.application);
}

FileResult<std::unique_ptr<RecoveryFile>> RecoveryFolder::newFile() const
{
    const auto failure = [] {
        return Failure{FileError::System, Words::tr("The folder for unsaved documents cannot be made.")};
    };
    const auto folder = encodedPath(path());
    if (!folder || !makeFolder(*folder))
        return failure();
    // A file system without modes refuses this. The files have their own rights.
    (void)FileSystem::system().chmodAt(AT_FDCWD, folder->constData(), S_IRWXU);
    const QString name = QUuid::createUuid().toString(QUuid::WithoutBraces) + u'.' + m_type.fileNameExtension;
    auto file = RecoveryFile::hold(path() + u'/' + name, m_type.application);
    if (!file)
        return failure();
    return std::move(*file);
}

QStringList RecoveryFolder::pathsEndingWith(const QString &suffix) const
{
    FileSystem &files = FileSystem::system();
    const auto folder = encodedPath(path());
    constexpr int Flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
    const FileDescriptor open(files, folder ? files.openAt(AT_FDCWD, folder->constData(), Flags, 0) : -1);
    QList<QByteArray> names;
    if (!open.isOpen() || files.readNames(open.get(), &names) < 0)
        return {};
    std::sort(names.begin(), names.end());
    std::vector<std::pair<FileIdentity::Moment, QString>> found;
    for (const QByteArray &name : names) {
        struct stat status;
        const QString decoded = QFile::decodeName(name);
        if (!decoded.startsWith(u'.') && decoded.endsWith(suffix) &&
            files.statAt(open.get(), name.constData(), &status) == 0 && S_ISREG(status.st_mode))
            found.emplace_back(FileIdentity::fromStatus(status).contentChanged, path() + u'/' + decoded);
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto &a, const auto &b) { return a.first < b.first; });
    QStringList paths;
    for (const auto &[changed, file] : found)
        paths.append(file);
    return paths;
}

std::vector<std::unique_ptr<RecoveryFile>> RecoveryFolder::takeAbandoned() const
{
    std::vector<std::unique_ptr<RecoveryFile>> taken;
    const QString suffix = u'.' + m_type.fileNameExtension;
    for (const QString &file : pathsEndingWith(suffix)) {
        auto held = RecoveryFile::hold(file, m_type.application);
        if (held && (*held)->exists()) // Its owner may have removed it after the names were read.
            taken.push_back(std::move(*held));
    }
    removeAbandonedFiles(path() + u'/' + suffix, m_type.application);
    // Lock files of processes that were killed before they wrote the recovery file or after they removed it.
    for (const QString &lock : pathsEndingWith(suffix + RecoveryFile::LockSuffix)) {
        const QString file = lock.chopped(RecoveryFile::LockSuffix.size());
        if (identityOfFile(file))
            continue;
        if (const auto held = RecoveryFile::hold(file, m_type.application))
            (*held)->remove();
    }
    return taken;
}

} // namespace Foundation
