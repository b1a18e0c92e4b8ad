#pragma once

#include "foundation/Alert.h"
#include "foundation/UndoManager.h"

#include <QString>

// What the list, the categories and the commands on records need of the document that they belong to.
class BrowseHost
{
public:
    virtual ~BrowseHost() = default;

    virtual bool isDecrypted() const = 0;
    // 0 for a change done, as Foundation::Document::ChangeType.
    virtual void updateChangeCount(int change) = 0;
    virtual Foundation::UndoManager &undoManager() = 0;
    // A sheet on the document's window.
    virtual void beginAlert(const Foundation::Alert &alert, Foundation::AlertAnswer answered) = 0;
    virtual void switchToEditMode() = 0;
    // Nothing happens for a row that is not there.
    virtual void scrollRowToVisible(qsizetype row) = 0;
    // Of the record table; identifiers as in the interface file.
    virtual void redrawColumn(const QString &identifier) = 0;
};
