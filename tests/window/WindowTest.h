#pragma once

#include "core/RecordModel.h"
#include "support/Files.h"
#include "support/Printers.h"
#include "tour/WindowUser.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

// A running application that a test uses as a person would, with a folder for its documents.
class WindowTest : public testing::Test, protected WindowUser
{
protected:
    static const QString password;

    WindowTest() { setApplication(&application); }

    bool expect(bool holds, const QString &what) const override;

    void makeProtectedDocument() const { WindowUser::makeProtectedDocument(password); }
    QString pathOf(const QString &name) const { return folder.filePath(name); }
    // The next save goes to that path without a panel.
    void chooseNextPath(const QString &path);
    // By the key, into that file of the folder; a document with a file keeps it.
    void saveTo(const QString &name);
    bool isClosed() const
    {
        return eventually([this] { return document() == nullptr; });
    }
    void openDocument(const QString &path);

    QTemporaryDir folder;
    Application application;
    QStringList suggestedPaths;
};
