#include "window/CategoryFilter.h"

#include "browse/CategoryCommands.h"

#include <QStandardItemModel>

using Foundation::MenuItem;

namespace
{

constexpr int TitleItem = 0;
constexpr int ShowAllItem = 1;

} // namespace

CategoryFilter::CategoryFilter(FilteringArrayController *records, ActionDispatcher &dispatcher,
                               Foundation::Document &document, QComboBox *popUp)
    : m_records(records)
    , m_dispatcher(dispatcher)
    , m_document(document)
    , m_popUp(popUp)
    , m_categoryMenu(tr("Show &Category"))
{
    setUpPopUp();
    connect(records, &FilteringArrayController::filterChanged, this, &CategoryFilter::showFilter);
    connect(&m_categoryMenu, &QMenu::aboutToShow, this, &CategoryFilter::fillMenu);
}

void CategoryFilter::setUpPopUp()
{
    // The title heads the list and is no choice.
    qobject_cast<QStandardItemModel *>(m_popUp->model())->item(TitleItem)->setEnabled(false);
    m_popUp->setItemData(ShowAllItem, QStringLiteral("showAllCategory"));
    m_popUp->setCurrentIndex(ShowAllItem);
    connect(m_popUp, &QComboBox::activated, this, &CategoryFilter::sendActionOfItem);
}

void CategoryFilter::removeItemAtIndex(qsizetype index)
{
    m_popUp->removeItem(int(index));
}

void CategoryFilter::insertItem(const QString &title, const QString &action, qsizetype index)
{
    m_popUp->insertItem(int(index), title, action);
    showFilter();
}

QString CategoryFilter::titleOfSelectedItem() const
{
    return m_popUp->currentIndex() < 0 ? QString() : m_popUp->currentText();
}

void CategoryFilter::selectItemWithTitle(const QString &title)
{
    m_popUp->setCurrentIndex(m_popUp->findText(title, Qt::MatchFixedString | Qt::MatchCaseSensitive));
}

void CategoryFilter::sendActionOfItem(int index)
{
    Foundation::ActionSender sender;
    sender.title = m_popUp->itemText(index);
    m_dispatcher.send(m_popUp->itemData(index).toString(), sender);
}

void CategoryFilter::showFilter()
{
    const QString category = m_records->categoryString();
    selectItemWithTitle(category.isEmpty() ? CategoryCommands::ShowAllTitle : category);
    m_popUp->setPlaceholderText(category); // Its item may have gone, or bear another name.
}

void CategoryFilter::fillMenu()
{
    m_categoryMenu.clear();
    for (int index = ShowAllItem; index < m_popUp->count(); ++index) {
        MenuItem menuItem{m_popUp->itemData(index).toString(), m_popUp->itemText(index)};
        QAction *item = m_categoryMenu.addAction(titleOfText(menuItem.title));
        item->setCheckable(true);
        item->setEnabled(m_document.validateMenuItem(menuItem));
        item->setChecked(menuItem.isChecked);
        connect(item, &QAction::triggered, this, [this, index] { sendActionOfItem(index); });
        if (index == ShowAllItem)
            m_categoryMenu.addSeparator();
    }
}
