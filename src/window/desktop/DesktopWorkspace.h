#pragma once

#include "platform/Services.h"

// Opens addresses and files through the desktop.
//
// A file that could run as a program (by its rights, its type or as a desktop entry) is never handed on: its
// folder is shown instead. A file's address is treated as the file.
class DesktopWorkspace : public Foundation::Workspace
{
public:
    bool openUrl(const QUrl &url) override;
    bool openFile(const QString &path) override;

    // Whether opening the file could run it.
    static bool isProgram(const QString &path);
};
