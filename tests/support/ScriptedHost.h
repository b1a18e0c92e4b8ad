#pragma once

#include "browse/BrowseHost.h"
#include "support/ScriptedDocumentWindow.h"

// A BrowseHost without a document.
class ScriptedHost : public BrowseHost
{
public:
    bool isDecrypted() const override { return decrypted; }
    void updateChangeCount(int change) override { changes.append(change); }
    Foundation::UndoManager &undoManager() override { return undo; }
    void switchToEditMode() override { ++editModes; }
    BrowseWindow *browseWindow() override { return &window; }
    void askForDocumentPassword() override { ++passwordsAsked; }
    QString searchText() const override { return searched; }
    void setSearchText(const QString &text) override { searched = text; }
    void setCategoryString(const QString &category) override { categoryString = category; }
    void showSearchInfoView(bool shown) override { searchInfo.append(shown); }

    ScriptedDocumentWindow window;
    bool decrypted = true;
    QList<int> changes;
    Foundation::UndoManager undo;
    int editModes = 0;
    int passwordsAsked = 0;
    QString searched;
    QString categoryString = u"as it was"_qs;
    QList<bool> searchInfo;
};
