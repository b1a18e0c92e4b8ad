#pragma once

#include "documents/DocumentType.h"
#include "documents/RecoveryFile.h"

#include <QStringList>

#include <memory>
#include <vector>

namespace Foundation
{

// The folder of the recovery files of an application, in its state folder (XDG Base Directory Specification,
// $XDG_STATE_HOME). Only the user can access it. The files have the extension of documents.
class RecoveryFolder
{
public:
    explicit RecoveryFolder(DocumentType type)
        : m_type(std::move(type))
    {
    }

    QString path() const;
    // A recovery file with a new name; the file itself does not exist yet. Makes the folder.
    FileResult<std::unique_ptr<RecoveryFile>> newFile() const;
    // Takes all files that no open document has, the oldest first. Removes other leftovers of dead processes.
    [[nodiscard]] std::vector<std::unique_ptr<RecoveryFile>> takeAbandoned() const;

private:
    // The regular files whose names end with `suffix`, the oldest first.
    QStringList pathsEndingWith(const QString &suffix) const;

    DocumentType m_type;
};

} // namespace Foundation
