#include "window/FilterControls.h"

#include "browse/CategoryCommands.h"

#include <QListView>

using Foundation::MenuItem;

namespace
{

constexpr int TitleItem = 0;
constexpr int ShowAllItem = 1;

} // namespace

FilterControls::FilterControls(FilteringArrayController *records, ActionDispatcher &dispatcher,
                               Foundation::Document &document, const Controls &controls)
    : m_records(records)
    , m_dispatcher(dispatcher)
    , m_document(document)
    , m_controls(controls)
    , m_categoryMenu(tr("Show &Category"))
{
    auto *spacer = new QWidget(m_controls.toolbar);
    spacer->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    m_controls.toolbar->addWidget(spacer);
    m_controls.toolbar->addWidget(m_controls.popUp);
    m_controls.toolbar->addWidget(m_controls.searchField);
    setUpPopUp();
    connect(records, &FilteringArrayController::filterChanged, this, &FilterControls::showFilter);
    connect(&m_categoryMenu, &QMenu::aboutToShow, this, &FilterControls::fillMenu);
}

void FilterControls::setUpPopUp()
{
    QComboBox *popUp = m_controls.popUp;
    // The title is no choice; it only keeps its place in front.
    auto *rows = new QListView(popUp);
    popUp->setView(rows);
    rows->setRowHidden(TitleItem, true);
    popUp->setItemData(ShowAllItem, QStringLiteral("showAllCategory"));
    popUp->setCurrentIndex(ShowAllItem);
    connect(popUp, &QComboBox::activated, this, &FilterControls::sendActionOfItem);
}

void FilterControls::removeItemAtIndex(qsizetype index)
{
    m_controls.popUp->removeItem(int(index));
}

void FilterControls::insertItem(const QString &title, const QString &action, qsizetype index)
{
    m_controls.popUp->insertItem(int(index), title, action);
    showFilter();
}

QString FilterControls::titleOfSelectedItem() const
{
    return m_controls.popUp->currentIndex() < 0 ? QString() : m_controls.popUp->currentText();
}

void FilterControls::selectItemWithTitle(const QString &title)
{
    m_controls.popUp->setCurrentIndex(
        m_controls.popUp->findText(title, Qt::MatchFixedString | Qt::MatchCaseSensitive));
}

void FilterControls::sendActionOfItem(int index)
{
    Foundation::ActionSender sender;
    sender.title = m_controls.popUp->itemText(index);
    m_dispatcher.send(m_controls.popUp->itemData(index).toString(), sender);
}

void FilterControls::showFilter()
{
    const QString category = m_records->categoryString();
    selectItemWithTitle(category.isEmpty() ? CategoryCommands::ShowAllTitle : category);
    m_controls.popUp->setPlaceholderText(category); // Its item may have gone, or bear another name.
}

void FilterControls::fillMenu()
{
    m_categoryMenu.clear();
    for (int index = ShowAllItem; index < m_controls.popUp->count(); ++index) {
        MenuItem menuItem{m_controls.popUp->itemData(index).toString(), m_controls.popUp->itemText(index)};
        QAction *item = m_categoryMenu.addAction(titleOfText(menuItem.title));
        item->setCheckable(true);
        item->setEnabled(m_document.validateMenuItem(menuItem));
        item->setChecked(menuItem.isChecked);
        connect(item, &QAction::triggered, this, [this, index] { sendActionOfItem(index); });
        if (index == ShowAllItem)
            m_categoryMenu.addSeparator();
    }
}
