#pragma once

#include "lifecycle/MyDocument.h"
#include "window/controls/ActionDispatcher.h"

#include <QComboBox>
#include <QMenu>

// The pop-up of categories that filters the list, and the menu with the same items. The filter is the name of
// a category; if the chosen category is renamed, the filter gets the new name.
class CategoryFilter : public QObject, public PopUpMenu
{
    Q_OBJECT

public:
    // The arguments are not owned and must outlive this object.
    CategoryFilter(MyDocument &document, ActionDispatcher &dispatcher, QComboBox *popUp);

    // The menu with the items of the pop-up. With more than some hundred categories, its last item opens the
    // pop-up.
    QMenu &categoryMenu() { return m_categoryMenu; }

    qsizetype numberOfItems() const override { return m_popUp->count(); }
    void removeItemAtIndex(qsizetype index) override;
    void insertItem(const QString &title, const QString &action, qsizetype index) override;
    QString titleOfSelectedItem() const override;
    void selectItemWithTitle(const QString &title) override;

private:
    void setUpPopUp();
    void sendActionOfItem(int index);
    QString titleOfFilter() const;
    void showFilter();
    void fillMenu();
    void addItemToMenu(int index);
    void takeFilter();
    void followName();
    bool isFiltered(const Foundation::ArrayController::Object &category) const;

    MyDocument &m_document;
    FilteringArrayController *m_records;
    ActionDispatcher &m_dispatcher;
    QComboBox *m_popUp;
    Foundation::ArrayController::Object m_category; // the category whose name is the filter, or null
    bool m_isFollowingName = false;
    QMenu m_categoryMenu;
};
