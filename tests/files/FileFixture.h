#pragma once

#include "support/ChildProcess.h"
#include "support/Files.h"
#include "support/Printers.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <functional>
#include <sys/stat.h>
#include <unistd.h>

// A folder that every user may use, and the verbs of tests about files in it. A name in it is a path from the
// folder on; absolute paths stay as they are.
class FileFixture : public testing::Test
{
protected:
    FileFixture() { chmod(qPrintable(m_folder.path()), 0777); }
    ~FileFixture() override
    {
        umask(m_umask);
        QDir::setCurrent(m_current);
    }

    QString path(const QString &name = {}) const { return QDir(m_folder.path()).filePath(name); }
    QByteArray encoded(const QString &name = {}) const { return QFile::encodeName(path(name)); }

    // Writes in place, by other means than those under test.
    void put(const QString &name, const QByteArray &bytes, mode_t mode = 0600)
    {
        putFile(path(name), bytes);
        ASSERT_EQ(chmod(encoded(name).constData(), mode), 0);
    }

    QByteArray content(const QString &name) const { return contentOf(path(name)); }

    struct stat status(const QString &name) const
    {
        struct stat status = {};
        EXPECT_EQ(stat(encoded(name).constData(), &status), 0);
        return status;
    }
    mode_t mode(const QString &name) const { return status(name).st_mode & 07777; }

    QStringList temporaryFiles() const
    {
        return QDir(m_folder.path()).entryList({u".vexarel-*"_qs}, QDir::Files | QDir::Hidden);
    }

    static bool isAdministrator() { return geteuid() == 0; }

    // Permissions do not bind the administrator: with that user, runs `body` as another one.
    static void asOrdinaryUser(const std::function<void()> &body)
    {
        constexpr id_t Nobody = 65534;
        if (!isAdministrator()) {
            body();
            return;
        }
        const int ending = inChild([&] {
            ASSERT_TRUE(setgid(Nobody) == 0 && setuid(Nobody) == 0);
            body();
        });
        EXPECT_EQ(ending, 0);
    }

private:
    QTemporaryDir m_folder;
    const mode_t m_umask = umask(022);
    const QString m_current = QDir::currentPath();
};
