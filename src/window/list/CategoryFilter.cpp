#include "window/list/CategoryFilter.h"

#include "core/RecordModel.h"
#include "values/DisplayText.h"
#include "window/controls/ShownPart.h"

#include <QStandardItemModel>

#include <algorithm>

using Foundation::ArrayController;
using Foundation::MenuItem;

namespace
{

constexpr int TitleItem = 0;
constexpr int ShowAllItem = 1;
constexpr int FirstCategoryItem = 2;
// The role of the whole title of an item, since a very long title is shown in part.
constexpr int TitleRole = Qt::UserRole + 1;
// Filling and laying out a menu of the toolkit takes more than linear time, and a long menu is hard to use.
constexpr int MostCategoriesInMenu = 300;

QString nameOfCategory(const ArrayController::Object &category)
{
    return Foundation::displayText(category->value(CategoryKey::cat_category));
}

} // namespace

CategoryFilter::CategoryFilter(MyDocument &document, ActionDispatcher &dispatcher, QComboBox *popUp)
    : m_document(document)
    , m_records(document.myArrayController())
    , m_dispatcher(dispatcher)
    , m_popUp(popUp)
    , m_categoryMenu(tr("Show &Category"))
{
    setUpPopUp();
    connect(m_records, &FilteringArrayController::filterChanged, this, [this] {
        takeFilter();
        showFilter();
    });
    const auto *categories = document.myCategoryArrayController();
    connect(categories, &ArrayController::objectsChanged, this, &CategoryFilter::followName);
    // Unlocking replaces all categories by new objects.
    connect(categories, &ArrayController::arrangedObjectsChanged, this, &CategoryFilter::takeFilter);
    connect(&m_categoryMenu, &QMenu::aboutToShow, this, &CategoryFilter::fillMenu);
}

void CategoryFilter::setUpPopUp()
{
    // The title item cannot be chosen.
    qobject_cast<QStandardItemModel *>(m_popUp->model())->item(TitleItem)->setEnabled(false);
    m_popUp->setItemData(ShowAllItem, QStringLiteral("showAllCategory"));
    m_popUp->setItemData(ShowAllItem, m_popUp->itemText(ShowAllItem), TitleRole);
    m_popUp->setCurrentIndex(ShowAllItem);
    connect(m_popUp, &QComboBox::activated, this, &CategoryFilter::sendActionOfItem);
}

void CategoryFilter::removeItemAtIndex(qsizetype index)
{
    const bool isShown = index == m_popUp->currentIndex();
    m_popUp->removeItem(int(index));
    if (isShown) // The selected item was removed; none of its neighbours is selected instead.
        m_popUp->setCurrentIndex(-1);
}

void CategoryFilter::insertItem(const QString &title, const QString &action, qsizetype index)
{
    m_popUp->insertItem(int(index), shownLine(title), action);
    m_popUp->setItemData(int(index), title, TitleRole);
    if (m_popUp->currentIndex() < 0 && title == titleOfFilter())
        m_popUp->setCurrentIndex(int(index));
}

QString CategoryFilter::titleOfSelectedItem() const
{
    return m_popUp->currentIndex() < 0 ? QString() : m_popUp->currentData(TitleRole).toString();
}

void CategoryFilter::selectItemWithTitle(const QString &title)
{
    m_popUp->setCurrentIndex(
        m_popUp->findData(title, TitleRole, Qt::MatchFixedString | Qt::MatchCaseSensitive));
}

void CategoryFilter::sendActionOfItem(int index)
{
    const auto categories = m_document.myCategoryArrayController()->arrangedObjects();
    const auto row = std::size_t(index - FirstCategoryItem);
    if (index >= FirstCategoryItem && row < categories.size())
        m_category = categories[row]; // By row, since other categories may have the same name.
    Foundation::ActionSender sender;
    sender.title = m_popUp->itemData(index, TitleRole).toString();
    m_dispatcher.send(m_popUp->itemData(index).toString(), sender);
}

QString CategoryFilter::titleOfFilter() const
{
    const QString category = m_records->categoryString();
    return category.isEmpty() ? CategoryCommands::ShowAllTitle : category;
}

void CategoryFilter::showFilter()
{
    selectItemWithTitle(titleOfFilter());
    m_popUp->setPlaceholderText(shownLine(
        m_records->categoryString())); // The item of the category may be removed or have another name.
}

bool CategoryFilter::isFiltered(const ArrayController::Object &category) const
{
    return nameOfCategory(category) == m_records->categoryString();
}

void CategoryFilter::takeFilter()
{
    if (m_isFollowingName)
        return;
    const auto categories = m_document.myCategoryArrayController()->arrangedObjects();
    const bool isThere = std::find(categories.begin(), categories.end(), m_category) != categories.end();
    const bool hasFilter = !m_records->categoryString().isEmpty();
    if (hasFilter && isThere && isFiltered(m_category))
        return;
    m_category = nullptr;
    if (!hasFilter)
        return;
    const auto found = std::find_if(categories.begin(), categories.end(),
                                    [this](const auto &category) { return isFiltered(category); });
    if (found != categories.end())
        m_category = *found;
}

void CategoryFilter::followName()
{
    if (!m_category || isFiltered(m_category))
        return;
    // While the user types, the name may be empty for a moment. This means no filter, but the filter must
    // still follow the category.
    m_isFollowingName = true;
    m_records->setCategoryString(nameOfCategory(m_category));
    m_isFollowingName = false;
    m_records->rearrangeObjects();
}

void CategoryFilter::fillMenu()
{
    m_categoryMenu.clear();
    addItemToMenu(ShowAllItem);
    m_categoryMenu.addSeparator();
    const int end = qMin(m_popUp->count(), FirstCategoryItem + MostCategoriesInMenu);
    for (int index = FirstCategoryItem; index < end; ++index)
        addItemToMenu(index);
    if (end == m_popUp->count())
        return;
    m_categoryMenu.addSeparator();
    if (m_popUp->currentIndex() >= end)
        addItemToMenu(m_popUp->currentIndex());
    QAction *all =
        m_categoryMenu.addAction(tr("&All %1 Categories…").arg(m_popUp->count() - FirstCategoryItem));
    connect(all, &QAction::triggered, m_popUp, [popUp = m_popUp] {
        popUp->setFocus(Qt::PopupFocusReason);
        popUp->showPopup();
    });
}

void CategoryFilter::addItemToMenu(int index)
{
    MenuItem menuItem{m_popUp->itemData(index).toString(), m_popUp->itemData(index, TitleRole).toString()};
    QAction *item = m_categoryMenu.addAction(titleOfText(shownLine(menuItem.title)));
    item->setCheckable(true);
    item->setEnabled(m_dispatcher.isEnabled(menuItem));
    item->setChecked(menuItem.isChecked);
    connect(item, &QAction::triggered, this, [this, index] { sendActionOfItem(index); });
}
