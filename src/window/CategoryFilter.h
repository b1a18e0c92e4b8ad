#pragma once

#include "browse/FilteringArrayController.h"
#include "foundation/Document.h"
#include "window/ActionDispatcher.h"

#include <QComboBox>
#include <QMenu>

// The pop-up of categories that narrows the list, and the same categories in a menu.
class CategoryFilter : public QObject, public PopUpMenu
{
    Q_OBJECT

public:
    // None is owned; all outlive this.
    CategoryFilter(FilteringArrayController *records, ActionDispatcher &dispatcher,
                   Foundation::Document &document, QComboBox *popUp);

    // As the pop-up has it.
    QMenu &categoryMenu() { return m_categoryMenu; }

    qsizetype numberOfItems() const override { return m_popUp->count(); }
    void removeItemAtIndex(qsizetype index) override;
    void insertItem(const QString &title, const QString &action, qsizetype index) override;
    QString titleOfSelectedItem() const override;
    void selectItemWithTitle(const QString &title) override;

private:
    void setUpPopUp();
    void sendActionOfItem(int index);
    void showFilter();
    void fillMenu();

    FilteringArrayController *m_records;
    ActionDispatcher &m_dispatcher;
    Foundation::Document &m_document;
    QComboBox *m_popUp;
    QMenu m_categoryMenu;
};
