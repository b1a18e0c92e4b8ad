#include "window/desktop/DesktopWorkspace.h"

#include "support/Files.h"

#include <QDesktopServices>
#include <QTemporaryDir>
#include <QUrl>

// Stands in for the desktop: keeps what it is handed.
class UrlCatcher : public QObject
{
    Q_OBJECT

public:
    UrlCatcher()
    {
        for (const QString &scheme : schemes)
            QDesktopServices::setUrlHandler(scheme, this, "take");
    }
    ~UrlCatcher() override
    {
        for (const QString &scheme : schemes)
            QDesktopServices::unsetUrlHandler(scheme);
    }
    Q_INVOKABLE void take(const QUrl &url) { urls.append(url); }

    const QStringList schemes = {u"file"_qs, u"https"_qs};
    QList<QUrl> urls;
};

TEST(DesktopWorkspace, ShowsProgramsInTheirFolderAndOpensTheRest)
{
    const std::tuple<const char *, QByteArray, bool, bool> cases[] = {
        {"letter.txt", "Dear Ada", false, false},
        {"card.pdf", "%PDF-1.4", false, false},
        {"run.txt", "Dear Ada", true, true},
        {"start.desktop", "[Desktop Entry]\nType=Application\nExec=true\n", false, true},
        {"START.Desktop", "anything", false, true},
        {"script.sh", "echo", false, true},
        {"hidden.pdf", "#!/bin/sh\necho\n", false, true},
        {"setup.exe", "MZ", false, true},
        {"tool.py", "print(1)", false, true},
    };
    const QTemporaryDir folder;
    UrlCatcher desktop;
    DesktopWorkspace workspace;
    for (const auto &[name, content, isExecutable, isProgram] : cases) {
        SCOPED_TRACE(name);
        const QString path = folder.filePath(QString::fromLatin1(name));
        putFile(path, content);
        if (isExecutable)
            QFile::setPermissions(path, QFile::permissions(path) | QFile::ExeOwner | QFile::ExeUser);
        EXPECT_TRUE(workspace.openUrl(QUrl::fromLocalFile(path)));
        EXPECT_EQ(desktop.urls.last(), QUrl::fromLocalFile(isProgram ? folder.path() : path));
    }
}

TEST(DesktopWorkspace, OpensAddressesAndNothingElse)
{
    UrlCatcher desktop;
    DesktopWorkspace workspace;
    const QUrl page(u"https://example.org/a?b=c"_qs);
    EXPECT_TRUE(workspace.openUrl(page));
    EXPECT_EQ(desktop.urls, QList<QUrl>{page});
    EXPECT_FALSE(workspace.openUrl(QUrl()));
    EXPECT_FALSE(workspace.openFile(u"/nowhere/at all"_qs));
    EXPECT_EQ(desktop.urls.size(), 1);
}

#include "DesktopWorkspaceTest.moc"
