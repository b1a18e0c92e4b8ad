#pragma once

#include "platform/Services.h"

// Opens addresses and files with the programs of the desktop.
//
// A file that could be run as a program (because of its permissions, its type, or as a desktop entry) is
// never opened: its folder is shown instead. The address of a file is treated like the file.
class DesktopWorkspace : public Foundation::Workspace
{
public:
    bool openUrl(const QUrl &url) override;
    bool openFile(const QString &path) override;

    // Whether opening the file could run it as a program.
    static bool isProgram(const QString &path);
};
