#pragma once

#include "browse/FilteringArrayController.h"

// The commands on the categories of a document: their sheet, the pop-up that filters the list by category,
// the choice of a category for the selected record, and the redraw of everything that shows the name or the
// colours of a category. None of them can be undone. A responder of the document.
class CategoryCommands : public QObject
{
    Q_OBJECT

public:
    using ActionSender = Foundation::ActionSender;
    using Category = Foundation::ArrayController::Object;

    static const QString CategorySheet;
    // The title of the second item of the filtering pop-up. The interface file provides the first two items:
    // a title item and this one.
    static const QString ShowAllTitle;

    // The arguments are not owned and must outlive this object. `forMenu` has the same categories in the
    // order of the pop-up of the record form.
    CategoryCommands(BrowseHost &host, FilteringArrayController &records,
                     VLColoredCategoryArrayController &categories, Foundation::ArrayController &forMenu,
                     QObject *parent = nullptr);

    // The sort order of the categories. Without one, they have the order in which they were made. Prescribed;
    // no caller yet.
    const std::vector<Foundation::SortDescriptor> &categoryDescriptor() const { return m_categoryDescriptor; }
    void setCategoryDescriptor(std::vector<Foundation::SortDescriptor> descriptors);

    Q_INVOKABLE void editCategoriesSheet(const Foundation::ActionSender &sender);
    Q_INVOKABLE void closeCategoriesSheet(const Foundation::ActionSender &sender);
    Q_INVOKABLE void scrollCategoryViewToBottom(const Foundation::ActionSender &sender);
    Q_INVOKABLE void addNewCategory(const Foundation::ActionSender &sender);
    // Removes the selected category. Required: it does not ask, does not check whether the category is in
    // use, and does not mark the document as edited. Records keep a removed category and show it until the
    // document is deciphered the next time.
    Q_INVOKABLE void removeCategory(const Foundation::ActionSender &sender);

    // Action of the category pop-up in the record form: assigns the category of the selected item. Ignores an
    // index without a category.
    Q_INVOKABLE void categoryWasSet(const Foundation::ActionSender &sender);
    void executePostCategorySet(const Category &category);

    // Action of an item of the filtering pop-up: filters by the title of the item. Required: does not call
    // setCategoryString() of the host, so that the check mark stays at the item that shows all.
    Q_INVOKABLE void doSelectCatMenu(const Foundation::ActionSender &sender);
    Q_INVOKABLE void showAllCategory(const Foundation::ActionSender &sender);
    Q_INVOKABLE void showAllAndResetFilter(const Foundation::ActionSender &sender);
    // Does nothing. Prescribed; no caller yet.
    Q_INVOKABLE void showOnlySpecificCategory(const Foundation::ActionSender &sender);
    // Replaces the items of the filtering pop-up after its first two.
    Q_INVOKABLE void synkCategorySubMenu(const Foundation::ActionSender &sender);
    Q_INVOKABLE void setUpCategorySubMenu(const Foundation::ActionSender &sender);

    // Must be called when the name or a colour of a category has changed. Redraws what shows it and marks the
    // document as edited.
    void synkNotesWithCategory();
    // The colour panel has another colour. All documents share one panel, so every open document is marked as
    // edited, also locked ones.
    Q_INVOKABLE void colorChanged(const Foundation::ActionSender &sender);

private:
    void synkCategorySubMenuLater();

    BrowseHost &m_host;
    FilteringArrayController &m_records;
    VLColoredCategoryArrayController &m_categories;
    Foundation::ArrayController &m_forMenu;
    std::vector<Foundation::SortDescriptor> m_categoryDescriptor;
};
