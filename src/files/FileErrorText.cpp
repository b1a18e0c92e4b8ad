#include "files/FileErrorText.h"

#include <QCoreApplication>

#include <cerrno>

namespace Foundation
{

namespace
{

class Words
{
    Q_DECLARE_TR_FUNCTIONS(FileErrorText)
public:
    static constexpr struct
    {
        int number;
        const char *text;
    } Known[] = {
        {ENOSPC, QT_TR_NOOP("The disk is full.")},
        {EDQUOT, QT_TR_NOOP("Your share of the disk is used up.")},
        {EROFS, QT_TR_NOOP("The disk is read-only.")},
        {EIO, QT_TR_NOOP("The disk reported an error.")},
        {EFBIG, QT_TR_NOOP("The file is too large for this disk.")},
        {ENAMETOOLONG, QT_TR_NOOP("The name is too long.")},
        {ELOOP, QT_TR_NOOP("The links lead in a circle.")},
        {ENOMEM, QT_TR_NOOP("There is not enough memory.")},
        {EMFILE, QT_TR_NOOP("Too many files are open.")},
        {ENFILE, QT_TR_NOOP("Too many files are open.")},
        {EINTR, QT_TR_NOOP("The work was interrupted.")},
        {EAGAIN, QT_TR_NOOP("The file is in use by another program.")},
        {EBUSY, QT_TR_NOOP("The file is in use by another program.")},
        {ETXTBSY, QT_TR_NOOP("The file is in use by another program.")},
        {EREMOTEIO, QT_TR_NOOP("The disk reported an error.")},
        {ENODEV, QT_TR_NOOP("The disk or the network folder cannot be reached.")},
        {ENXIO, QT_TR_NOOP("The disk or the network folder cannot be reached.")},
        {ESTALE, QT_TR_NOOP("The disk or the network folder cannot be reached.")},
        {ENOTCONN, QT_TR_NOOP("The disk or the network folder cannot be reached.")},
        {ETIMEDOUT, QT_TR_NOOP("The disk or the network folder cannot be reached.")},
        {EHOSTDOWN, QT_TR_NOOP("The disk or the network folder cannot be reached.")},
        {EHOSTUNREACH, QT_TR_NOOP("The disk or the network folder cannot be reached.")},
    };
};

} // namespace

QString fileErrorText(std::errc error, const QString &denied, const QString &missing)
{
    const int number = static_cast<int>(error);
    if (number == EACCES || number == EPERM)
        return denied;
    if (number == ENOENT || number == ENOTDIR)
        return missing;
    for (const auto &known : Words::Known) {
        if (known.number == number)
            return Words::tr(known.text);
    }
    return Words::tr("The system reported error %1.").arg(number);
}

} // namespace Foundation
