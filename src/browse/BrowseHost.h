#pragma once

#include "browse/BrowseWindow.h"
#include "documents/UndoManager.h"

#include <QString>

// What the list, the categories and the commands on records need from their document. MyDocument implements
// it.
class BrowseHost
{
public:
    virtual ~BrowseHost() = default;

    virtual bool isDecrypted() const = 0;
    // `change` is a Foundation::Document::ChangeType; 0 marks the document as edited.
    virtual void updateChangeCount(int change) = 0;
    virtual Foundation::UndoManager &undoManager() = 0;
    virtual void switchToEditMode() = 0;
    // Null if the document has no window.
    virtual BrowseWindow *browseWindow() = 0;
    // Opens the sheet that asks for a new password of the document.
    virtual void askForDocumentPassword() = 0;

    // The text of the search field.
    virtual QString searchText() const = 0;
    virtual void setSearchText(const QString &text) = 0;
    // Stores the name of the shown category for the check marks of the menus. Does not filter the list.
    virtual void setCategoryString(const QString &category) = 0;
    // Shows or hides the strip that says which filter is active.
    virtual void showSearchInfoView(bool shown) = 0;
};
