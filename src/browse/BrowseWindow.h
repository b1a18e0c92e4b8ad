#pragma once

#include "documents/DocumentWindow.h"

// A pop-up button whose items the logic fills.
class PopUpMenu
{
public:
    virtual ~PopUpMenu() = default;
    virtual qsizetype numberOfItems() const = 0;
    virtual void removeItemAtIndex(qsizetype index) = 0;
    virtual void insertItem(const QString &title, const QString &action, qsizetype index) = 0;
    // Null without a selected item.
    virtual QString titleOfSelectedItem() const = 0;
    // Nothing is selected if no item bears the title.
    virtual void selectItemWithTitle(const QString &title) = 0;
};

// What the list, the categories and the captions ask of the window that shows them.
class BrowseWindow : public Foundation::DocumentWindow
{
public:
    // Of the record table. A row that is not there is ignored.
    virtual void scrollRowToVisible(qsizetype row) = 0;
    // Of the record table; identifiers are those of the interface file: "category" and "name".
    virtual void redrawColumn(const QString &identifier) = 0;
    // The labels of the category beside the selected record.
    virtual void redrawCategoryViews() = 0;
    virtual void redrawCategoryTable() = 0;
    // To the last row.
    virtual void scrollCategoryViewToBottom() = 0;
    virtual void scrollListViewToBottom() = 0;
    // The pop-up that filters by category: a title item, "Show All", and one for each category.
    virtual PopUpMenu &actionPopUp() = 0;
    // Hangs the menu of categories into the menu of actions.
    virtual void attachCategoryMenu() = 0;
};
