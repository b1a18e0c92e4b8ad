#include "browse/CategoryCommands.h"

#include "core/RecordModel.h"
#include "platform/ColorPanel.h"
#include "platform/Services.h"
#include "values/DisplayText.h"

#include <QPointer>

using Foundation::ColorPanel;
using Foundation::Services;

const QString CategoryCommands::CategorySheet = QStringLiteral("myCategorySheet");
const QString CategoryCommands::ShowAllTitle = QStringLiteral("Show All");

namespace
{
constexpr qsizetype FirstCategoryItem = 2;
}

CategoryCommands::CategoryCommands(BrowseHost &host, FilteringArrayController &records,
                                   VLColoredCategoryArrayController &categories,
                                   Foundation::ArrayController &forMenu, QObject *parent)
    : QObject(parent)
    , m_host(host)
    , m_records(records)
    , m_categories(categories)
    , m_forMenu(forMenu)
{
}

void CategoryCommands::setCategoryDescriptor(std::vector<Foundation::SortDescriptor> descriptors)
{
    m_categoryDescriptor = std::move(descriptors);
}

void CategoryCommands::editCategoriesSheet(const ActionSender &sender)
{
    if (BrowseWindow *window = m_host.browseWindow())
        window->beginSheet(CategorySheet, [this, sender](int) { synkCategorySubMenu(sender); });
}

void CategoryCommands::closeCategoriesSheet(const ActionSender &)
{
    if (BrowseWindow *window = m_host.browseWindow())
        window->endSheet(CategorySheet);
    ColorPanel::shared().close();
}

void CategoryCommands::scrollCategoryViewToBottom(const ActionSender &)
{
    if (BrowseWindow *window = m_host.browseWindow())
        window->scrollCategoryViewToBottom();
}

void CategoryCommands::addNewCategory(const ActionSender &sender)
{
    m_categories.addDefault(sender);
    m_host.updateChangeCount(0);
    // After the current event, when the table has its new row.
    Services::shared().mainQueue().addOperation([commands = QPointer(this), sender] {
        if (commands)
            commands->scrollCategoryViewToBottom(sender);
    });
    synkCategorySubMenuLater();
}

void CategoryCommands::removeCategory(const ActionSender &sender)
{
    m_categories.remove(sender);
    synkCategorySubMenuLater();
}

void CategoryCommands::synkCategorySubMenuLater()
{
    Services::shared().mainQueue().addOperation([commands = QPointer(this)] {
        if (commands)
            commands->synkCategorySubMenu({});
    });
}

void CategoryCommands::categoryWasSet(const ActionSender &sender)
{
    const auto &categories = m_forMenu.arrangedObjects();
    if (sender.indexOfSelectedItem < 0 || std::size_t(sender.indexOfSelectedItem) >= categories.size())
        return;
    BrowseWindow *window = m_host.browseWindow();
    if (window)
        window->redrawColumn(QStringLiteral("category"));
    executePostCategorySet(categories[std::size_t(sender.indexOfSelectedItem)]);
    m_host.updateChangeCount(0);
    if (window)
        window->redrawCategoryViews();
}

void CategoryCommands::executePostCategorySet(const Category &category)
{
    m_records.setCurrentObjectAccordingToCategory(category);
}

void CategoryCommands::doSelectCatMenu(const ActionSender &sender)
{
    m_records.setCategoryString(sender.title);
    m_records.rearrangeObjects();
}

void CategoryCommands::showAllCategory(const ActionSender &)
{
    m_records.setCategoryString(QStringLiteral(""));
    m_records.rearrangeObjects();
    m_host.setCategoryString(QStringLiteral(""));
    BrowseWindow *window = m_host.browseWindow();
    if (window && window->actionPopUp().titleOfSelectedItem() != ShowAllTitle)
        window->actionPopUp().selectItemWithTitle(ShowAllTitle);
}

void CategoryCommands::showAllAndResetFilter(const ActionSender &sender)
{
    showAllCategory(sender);
    m_host.setSearchText(QStringLiteral(""));
    m_records.search(sender);
}

void CategoryCommands::showOnlySpecificCategory(const ActionSender &) {}

void CategoryCommands::synkCategorySubMenu(const ActionSender &)
{
    m_categories.setSortDescriptors(m_categoryDescriptor);
    BrowseWindow *window = m_host.browseWindow();
    if (!window)
        return;
    PopUpMenu &popUp = window->actionPopUp();
    for (qsizetype last = popUp.numberOfItems() - 1; last >= FirstCategoryItem; --last)
        popUp.removeItemAtIndex(last);
    qsizetype index = FirstCategoryItem;
    for (const Category &category : m_categories.arrangedObjects()) {
        const QString name = Foundation::displayText(category->value(CategoryKey::cat_category));
        popUp.insertItem(name.isNull() ? QStringLiteral("") : name, QStringLiteral("doSelectCatMenu"),
                         index++);
    }
}

void CategoryCommands::setUpCategorySubMenu(const ActionSender &)
{
    if (BrowseWindow *window = m_host.browseWindow())
        window->attachCategoryMenu();
}

void CategoryCommands::synkNotesWithCategory()
{
    if (BrowseWindow *window = m_host.browseWindow()) {
        window->redrawColumn(QStringLiteral("category"));
        window->redrawCategoryTable();
    }
    m_host.updateChangeCount(0);
}

void CategoryCommands::colorChanged(const ActionSender &)
{
    synkNotesWithCategory();
}
