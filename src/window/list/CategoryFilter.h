#pragma once

#include "lifecycle/MyDocument.h"
#include "window/controls/ActionDispatcher.h"

#include <QComboBox>
#include <QMenu>

// The pop-up of categories that narrows the list, and the same categories in a menu. The list's filter is a
// name; when the category that was chosen gets another one, the filter follows.
class CategoryFilter : public QObject, public PopUpMenu
{
    Q_OBJECT

public:
    // None is owned; all outlive this.
    CategoryFilter(MyDocument &document, ActionDispatcher &dispatcher, QComboBox *popUp);

    // The items of the pop-up. Beyond some hundred categories, the last item opens the pop-up instead.
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
    Foundation::ArrayController::Object m_category; // whose name is the filter; null without one
    bool m_isFollowingName = false;
    QMenu m_categoryMenu;
};
