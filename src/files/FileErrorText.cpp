#include "files/FileErrorText.h"

#include <cerrno>

namespace Foundation
{

namespace
{

constexpr const char *Unreachable = "The disk or the network folder cannot be reached.";
constexpr const char *InUse = "The file is in use by another program.";

constexpr struct
{
    int number;
    const char *text;
} KnownErrors[] = {
    {ENOSPC, "The disk is full."},
    {EDQUOT, "Your share of the disk is used up."},
    {EROFS, "The disk is read-only."},
    {EIO, "The disk reported an error."},
    {EFBIG, "The file is too large for this disk."},
    {ENAMETOOLONG, "The name is too long."},
    {ELOOP, "The links lead in a circle."},
    {ENOMEM, "There is not enough memory."},
    {EMFILE, "Too many files are open."},
    {ENFILE, "Too many files are open."},
    {EINTR, "The work was interrupted."},
    {EAGAIN, InUse},
    {EBUSY, InUse},
    {ETXTBSY, InUse},
    {EREMOTEIO, "The disk reported an error."},
    {ENODEV, Unreachable},
    {ENXIO, Unreachable},
    {ESTALE, Unreachable},
    {ENOTCONN, Unreachable},
    {ETIMEDOUT, Unreachable},
    {EHOSTDOWN, Unreachable},
    {EHOSTUNREACH, Unreachable},
};

} // namespace

QString fileErrorText(int number, const QString &denied, const QString &missing)
{
    if (number == EACCES || number == EPERM)
        return denied;
    if (number == ENOENT || number == ENOTDIR)
        return missing;
    for (const auto &known : KnownErrors) {
        if (known.number == number)
            return QString::fromLatin1(known.text);
    }
    return QStringLiteral("The system reported error %1.").arg(number);
}

} // namespace Foundation
