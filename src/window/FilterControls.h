#pragma once

#include "browse/FilteringArrayController.h"
#include "foundation/Document.h"
#include "window/ActionDispatcher.h"
#include "window/SearchField.h"

#include <QComboBox>
#include <QMenu>
#include <QToolBar>

// The controls that narrow the list: the pop-up of categories and the search field at the end of the toolbar,
// and the same categories in a menu.
class FilterControls : public QObject, public PopUpMenu
{
    Q_OBJECT

public:
    struct Controls
    {
        QToolBar *toolbar;
        QComboBox *popUp;
        SearchField *searchField;
    };

    // None is owned; all outlive this.
    FilterControls(FilteringArrayController *records, ActionDispatcher &dispatcher,
                   Foundation::Document &document, const Controls &controls);

    // As the pop-up has it.
    QMenu &categoryMenu() { return m_categoryMenu; }

    qsizetype numberOfItems() const override { return m_controls.popUp->count(); }
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
    Controls m_controls;
    QMenu m_categoryMenu;
};
