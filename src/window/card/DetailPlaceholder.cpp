#include "window/card/DetailPlaceholder.h"

#include "window/controls/ArrayTable.h"
#include "window/controls/TextLabel.h"

using Foundation::ArrayController;

DetailPlaceholder::DetailPlaceholder(MyDocument *document, Parts parts, QObject *parent)
    : QObject(parent)
    , m_document(document)
    , m_parts(parts)
{
    const FilteringArrayController *records = document->myArrayController();
    connect(records, &ArrayController::arrangedObjectsChanged, this, &DetailPlaceholder::refresh);
    connect(records, &ArrayController::selectionChanged, this, &DetailPlaceholder::refresh);
    connect(document, &MyDocument::selectedViewChanged, this, &DetailPlaceholder::refresh);
    refresh();
}

DetailPlaceholder::Texts DetailPlaceholder::texts() const
{
    const FilteringArrayController &records = *m_document->myArrayController();
    const std::size_t selected = records.selectionIndexes().size();
    if (selected > 1 && m_document->selectedView() == MyDocument::ViewMode)
        return {tr("%1 contacts selected").arg(selected),
                tr("Press Edit to change what they have in common")};
    if (selected > 0)
        return {};
    if (!records.arrangedObjects().empty())
        return {tr("No contact selected"), tr("Select a contact in the list to see it here")};
    if (records.filterInAction())
        return {tr("No contact matches"), tr("Show all contacts or search for something else")};
    return {tr("No contacts yet"), tr("Press Add to make your first contact")};
}

void DetailPlaceholder::refresh()
{
    const Texts shown = texts();
    const bool isNeeded = !shown.title.isNull();
    m_parts.title->setText(shown.title);
    m_parts.hint->setText(shown.hint);
    m_parts.placeholder->setVisible(isNeeded);
    m_parts.detail->setVisible(!isNeeded);
    if (m_document->myArrayController()->arrangedObjects().empty())
        m_parts.table->setEmptyHint(shown.title);
}
