#pragma once

#include "documents/DocumentType.h"
#include "documents/RecoveryFile.h"

#include <QStringList>

#include <memory>
#include <vector>

namespace Foundation
{

// The recovery files of an application: a folder of its state (XDG Base Directory Specification,
// $XDG_STATE_HOME) that only the user can look into. Their names have the extension of its documents.
class RecoveryFolder
{
public:
    explicit RecoveryFolder(DocumentType type)
        : m_type(std::move(type))
    {
    }

    QString path() const;
    // A new name, and nothing behind it yet. Makes the folder.
    FileResult<std::unique_ptr<RecoveryFile>> newFile() const;
    // The files that no living document holds, oldest first; each is held from here on. Removes what else is
    // left of dead processes.
    [[nodiscard]] std::vector<std::unique_ptr<RecoveryFile>> takeAbandoned() const;

private:
    // The regular files with such an end of their names, oldest first.
    QStringList pathsEndingWith(const QString &suffix) const;

    DocumentType m_type;
};

} // namespace Foundation
