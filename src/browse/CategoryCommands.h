#pragma once

#include "browse/FilteringArrayController.h"

// The commands on the categories of a document: their sheet, the pop-up that filters by one, the choice for
// the selected record, and the redraw of whatever shows a category's name or colours. None can be undone.
// Takes part in the responder chain of its document.
class CategoryCommands : public QObject
{
    Q_OBJECT

public:
    using ActionSender = Foundation::ActionSender;
    using Category = Foundation::ArrayController::Object;

    static const QString CategorySheet;
    // The second item of the pop-up, compared by its title; an interface file provides it and a title item.
    static const QString ShowAllTitle;

    // None is owned; all outlive the commands. `forMenu` shows the same categories in the order in which they
    // stand in the pop-up of the record form.
    CategoryCommands(BrowseHost &host, FilteringArrayController &records,
                     VLColoredCategoryArrayController &categories, Foundation::ArrayController &forMenu,
                     QObject *parent = nullptr);

    // The order of the categories. Nothing sets one so far: they stand as they were made.
    const std::vector<Foundation::SortDescriptor> &categoryDescriptor() const { return m_categoryDescriptor; }
    void setCategoryDescriptor(std::vector<Foundation::SortDescriptor> descriptors);

    Q_INVOKABLE void editCategoriesSheet(const Foundation::ActionSender &sender);
    Q_INVOKABLE void closeCategoriesSheet(const Foundation::ActionSender &sender);
    Q_INVOKABLE void scrollCategoryViewToBottom(const Foundation::ActionSender &sender);
    Q_INVOKABLE void addNewCategory(const Foundation::ActionSender &sender);
    // Asks nothing, looks at no count and does not mark the document as edited. Records keep a category that
    // was removed, and go on showing it, until the document is next decrypted.
    Q_INVOKABLE void removeCategory(const Foundation::ActionSender &sender);

    // The category pop-up of the record form. An item that is not there is ignored.
    Q_INVOKABLE void categoryWasSet(const Foundation::ActionSender &sender);
    void executePostCategorySet(const Category &category);

    // An item of the filtering pop-up: its title is the filter. The selection is left alone, and so is the
    // document's own note of the category shown, so that the check mark stays at the item that shows all.
    Q_INVOKABLE void doSelectCatMenu(const Foundation::ActionSender &sender);
    Q_INVOKABLE void showAllCategory(const Foundation::ActionSender &sender);
    Q_INVOKABLE void showAllAndResetFilter(const Foundation::ActionSender &sender);
    // Does nothing; a target for interface files.
    Q_INVOKABLE void showOnlySpecificCategory(const Foundation::ActionSender &sender);
    // Fills the filtering pop-up anew behind its first two items.
    Q_INVOKABLE void synkCategorySubMenu(const Foundation::ActionSender &sender);
    Q_INVOKABLE void setUpCategorySubMenu(const Foundation::ActionSender &sender);

    // A name or colour of a category changed: redraws what shows it and marks the document as edited.
    void synkNotesWithCategory();
    // The colour panel is one for all, and so every open document is marked as edited by any change in it,
    // locked ones too.
    Q_INVOKABLE void colorChanged(const Foundation::ActionSender &sender);

private:
    void synkCategorySubMenuLater();

    BrowseHost &m_host;
    FilteringArrayController &m_records;
    VLColoredCategoryArrayController &m_categories;
    Foundation::ArrayController &m_forMenu;
    std::vector<Foundation::SortDescriptor> m_categoryDescriptor;
};
