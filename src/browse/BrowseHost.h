#pragma once

#include "browse/BrowseWindow.h"
#include "documents/UndoManager.h"

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
    virtual void switchToEditMode() = 0;
    // Null without a window.
    virtual BrowseWindow *browseWindow() = 0;
    // Asks for a password of the document, with its own sheet.
    virtual void askForDocumentPassword() = 0;

    // The content of the search field.
    virtual QString searchText() const = 0;
    virtual void setSearchText(const QString &text) = 0;
    // The document's own note of the category shown, for check marks; the list has its filter.
    virtual void setCategoryString(const QString &category) = 0;
    // The strip that tells which filter is in force.
    virtual void showSearchInfoView(bool shown) = 0;
};
