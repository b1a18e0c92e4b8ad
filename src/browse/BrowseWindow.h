#pragma once

#include "documents/DocumentWindow.h"

// A pop-up button whose items the logic sets.
class PopUpMenu
{
public:
    virtual ~PopUpMenu() = default;
    virtual qsizetype numberOfItems() const = 0;
    virtual void removeItemAtIndex(qsizetype index) = 0;
    virtual void insertItem(const QString &title, const QString &action, qsizetype index) = 0;
    // Null if no item is selected.
    virtual QString titleOfSelectedItem() const = 0;
    // Selects nothing if no item has the title.
    virtual void selectItemWithTitle(const QString &title) = 0;
};

// What the list, the categories and the captions need from the window that shows them.
class BrowseWindow : public Foundation::DocumentWindow
{
public:
    // Scrolls the record table. Ignores a row that does not exist.
    virtual void scrollRowToVisible(qsizetype row) = 0;
    // Redraws a column of the record table: "category" or "name".
    virtual void redrawColumn(const QString &identifier) = 0;
    // Redraws the category labels of the selected record.
    virtual void redrawCategoryViews() = 0;
    virtual void redrawCategoryTable() = 0;
    // Both scroll to the last row.
    virtual void scrollCategoryViewToBottom() = 0;
    virtual void scrollListViewToBottom() = 0;
    // The pop-up that filters by category: a title item, "Show All", and one for each category.
    virtual PopUpMenu &actionPopUp() = 0;
    // Adds the menu of categories to the menu of actions.
    virtual void attachCategoryMenu() = 0;
};
