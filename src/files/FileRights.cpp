#include "files/FileRights.h"

#include "files/FileDescriptor.h"

#include <algorithm>
#include <fcntl.h>

namespace Foundation
{

namespace
{

// The maximum size of a list of attributes and of a value in Linux (xattr(7)).
constexpr qsizetype MaximumAttributeSize = 65536;
constexpr char AccessList[] = "system.posix_acl_access";

// Whether the error means that the attribute is not permitted or not supported here, so that the save
// continues without it.
bool cannotBeKept(int number)
{
    constexpr int Numbers[] = {EPERM, EACCES, ENOTSUP, ENOSYS, EINVAL, E2BIG, ERANGE};
    return std::ranges::find(Numbers, number) != std::end(Numbers);
}

bool isAccessList(const QByteArray &name)
{
    return name.startsWith("system.");
}

bool isToBeKept(const QByteArray &name)
{
    return !name.isEmpty() && (!name.startsWith("security.") || name == "security.selinux");
}

// In another group, the members of the former group become others, and the new group consists of users who
// were others. So both get only the rights that both had.
mode_t modeWithoutGroup(mode_t mode)
{
    const mode_t common = (mode >> 3) & mode & 07;
    return (mode & 0700) | common << 3 | common;
}

mode_t modeOfOwnerAlone(mode_t mode)
{
    return mode & 0700;
}

} // namespace

SystemResult<> FileRights::takeFrom(int folder, const char *name, const struct stat &status,
                                    FileSystem &files)
{
    m_replacing = true;
    m_mode = status.st_mode & 0777;
    m_owner = status.st_uid;
    m_group = status.st_gid;
    constexpr int Flags = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW | O_CLOEXEC;
    const FileDescriptor file(files, uninterrupted([&] { return files.openAt(folder, name, Flags, 0); }));
    if (file.isOpen())
        return takeAttributesFrom(file.get(), files);
    if (!cannotBeKept(errno))
        return systemFailure();
    m_listsKnown = false;
    return {};
}

SystemResult<> FileRights::takeAttributesFrom(int descriptor, FileSystem &files)
{
    QByteArray buffer(MaximumAttributeSize, Qt::Uninitialized);
    const auto room = std::size_t(buffer.size());
    const ssize_t length = uninterrupted([&] { return files.flistxattr(descriptor, buffer.data(), room); });
    if (length < 0 && errno != ENOTSUP && errno != ENOSYS)
        m_listsKnown = false;
    if (length < 0) {
        if (cannotBeKept(errno))
            return {};
        return systemFailure();
    }

    const QList<QByteArray> names = QByteArray(buffer.constData(), length).split('\0');
    for (const QByteArray &name : names) {
        if (!isToBeKept(name))
            continue;
        const ssize_t size =
            uninterrupted([&] { return files.fgetxattr(descriptor, name.constData(), buffer.data(), room); });
        if (size >= 0)
            m_attributes.append({name, QByteArray(buffer.constData(), size)});
        else if (errno == ENODATA)
            continue; // It was removed after the list was read.
        else if (!cannotBeKept(errno))
            return systemFailure();
        else if (isAccessList(name))
            m_listsKnown = false;
    }
    return {};
}

SystemResult<> FileRights::giveTo(int descriptor, FileSystem &files) const
{
    mode_t mode = m_mode;
    if (m_replacing) {
        if (auto given = giveOwner(descriptor, files, mode); !given)
            return given;
        if (auto given = giveAttributes(descriptor, files, mode); !given)
            return given;
    }
    return giveMode(descriptor, files, mode);
}

SystemResult<> FileRights::giveMode(int descriptor, FileSystem &files, mode_t mode)
{
    struct stat made;
    if (uninterrupted([&] { return files.fstat(descriptor, &made); }) < 0)
        return systemFailure();
    // Some shared folders refuse every change of the mode, even to the same value.
    if ((made.st_mode & 07777) == mode || uninterrupted([&] { return files.fchmod(descriptor, mode); }) == 0)
        return {};
    // A file system without modes reports EPERM or one of the following. Any other error, including EACCES,
    // is a failure: otherwise other users would silently lose access to the file.
    constexpr int NoModes[] = {EPERM, ENOTSUP, ENOSYS, EINVAL};
    if (std::ranges::find(NoModes, errno) != std::end(NoModes))
        return {};
    return systemFailure();
}

SystemResult<> FileRights::giveOwner(int descriptor, FileSystem &files, mode_t &mode) const
{
    struct stat made;
    if (uninterrupted([&] { return files.fstat(descriptor, &made); }) < 0)
        return systemFailure();
    const auto change = [&](uid_t owner, gid_t group) {
        return uninterrupted([&] { return files.fchown(descriptor, owner, group); });
    };
    if (made.st_uid == m_owner && made.st_gid == m_group)
        return {};
    int changed = change(m_owner, m_group);
    constexpr auto SameOwner = uid_t(-1);
    if (changed < 0 && cannotBeKept(errno))
        changed = made.st_gid == m_group ? 0 : change(SameOwner, m_group);
    if (changed == 0)
        return {};
    if (!cannotBeKept(errno))
        return systemFailure();
    mode = modeWithoutGroup(mode);
    return {};
}

SystemResult<> FileRights::giveAttributes(int descriptor, FileSystem &files, mode_t &mode) const
{
    bool listsKept = m_listsKnown;
    bool hasAccessList = false;
    for (const auto &[name, value] : m_attributes) {
        hasAccessList = hasAccessList || name == AccessList;
        const auto set = [&, &name = name, &value = value] {
            return files.fsetxattr(descriptor, name.constData(), value.constData(),
                                   std::size_t(value.size()));
        };
        if (uninterrupted(set) == 0)
            continue;
        if (!cannotBeKept(errno))
            return systemFailure();
        listsKept = listsKept && !isAccessList(name);
    }
    // The new file may have got a default list from the folder, which the old file does not have.
    if (!hasAccessList && uninterrupted([&] { return files.fremovexattr(descriptor, AccessList); }) < 0 &&
        errno != ENODATA && errno != ENOTSUP && errno != ENOSYS) {
        if (!cannotBeKept(errno))
            return systemFailure();
        listsKept = false;
    }
    // For a file with a list, the group bits are the maximum rights of the list and not the rights of the
    // group. Without the list, they would give the group and others rights that the list denied.
    if (!listsKept)
        mode = modeOfOwnerAlone(mode);
    return {};
}

} // namespace Foundation
