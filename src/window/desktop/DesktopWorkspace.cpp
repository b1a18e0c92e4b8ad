#include "window/desktop/DesktopWorkspace.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QUrl>

bool DesktopWorkspace::isProgram(const QString &path)
{
    static const QStringList programTypes = {QStringLiteral("application/x-executable"),
                                             QStringLiteral("application/x-sharedlib"),
                                             QStringLiteral("application/x-desktop"),
                                             QStringLiteral("application/x-shellscript"),
                                             QStringLiteral("application/x-perl"),
                                             QStringLiteral("application/x-ruby"),
                                             QStringLiteral("text/x-python"),
                                             QStringLiteral("application/javascript"),
                                             QStringLiteral("application/x-msdownload"),
                                             QStringLiteral("application/x-ms-dos-executable"),
                                             QStringLiteral("application/x-msi"),
                                             QStringLiteral("application/x-bat"),
                                             QStringLiteral("application/x-java-archive"),
                                             QStringLiteral("application/x-java-jnlp-file"),
                                             QStringLiteral("application/vnd.appimage"),
                                             QStringLiteral("application/x-iso9660-appimage"),
                                             QStringLiteral("application/vnd.flatpak.ref")};
    const QFileInfo file(path);
    if (!file.isFile())
        return false;
    if (file.isExecutable() || file.suffix().compare(QLatin1String("desktop"), Qt::CaseInsensitive) == 0)
        return true;
    // Checks the type by name and by content, since the two may differ.
    const QMimeDatabase types;
    for (const auto mode : {QMimeDatabase::MatchExtension, QMimeDatabase::MatchContent}) {
        const QMimeType type = types.mimeTypeForFile(file, mode);
        for (const QString &program : programTypes) {
            if (type.inherits(program))
                return true;
        }
    }
    return false;
}

bool DesktopWorkspace::openUrl(const QUrl &url)
{
    if (!url.isValid())
        return false;
    return url.isLocalFile() ? openFile(url.toLocalFile()) : QDesktopServices::openUrl(url);
}

bool DesktopWorkspace::openFile(const QString &path)
{
    if (!QFileInfo::exists(path))
        return false;
    const QString opened = isProgram(path) ? QFileInfo(path).absolutePath() : path;
    return QDesktopServices::openUrl(QUrl::fromLocalFile(opened));
}
