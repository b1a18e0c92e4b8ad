#include "browse/RecordCommands.h"

#include "core/RecordModel.h"

using Foundation::ActionSender;
using Foundation::Alert;

RecordCommands::RecordCommands(BrowseHost &host, FilteringArrayController &records,
                               VLColoredCategoryArrayController &categories, QObject *parent)
    : QObject(parent)
    , m_host(host)
    , m_records(records)
    , m_categories(categories)
{
}

void RecordCommands::addRow(const ActionSender &)
{
    if (!m_host.isDecrypted())
        return;
    // Without any category no record can be made, and nothing is said.
    if (const Record record = m_records.newObject())
        addTheRecord(record);
}

void RecordCommands::deleteRow(const ActionSender &)
{
    const Alert question{tr("Delete Selected Row?"),
                         tr("The selected row will be removed from the document"),
                         {tr("Delete"), tr("Cancel")}};
    m_host.beginAlert(question, [this](int returnCode) {
        if (returnCode == Alert::FirstButtonReturn && m_records.canRemove())
            deleteTheRecord(m_records.selectedObjects().back());
    });
}

void RecordCommands::deleteRows(const ActionSender &)
{
    if (!m_records.canRemove())
        return;
    const Alert question{tr("Delete the selected contact"),
                         tr("Are you sure to delete the selected contact?"),
                         {tr("Cancel"), tr("Delete Contact")}};
    m_host.beginAlert(question, [this](int returnCode) {
        if (returnCode == Alert::SecondButtonReturn && m_records.canRemove())
            deleteTheRecord(m_records.selectedObjects().front());
    });
}

void RecordCommands::isACompanySwitched(const ActionSender &)
{
    m_host.redrawColumn(QStringLiteral("name"));
}

void RecordCommands::categoryWasSet(const ActionSender &sender)
{
    const auto &categories = m_categories.arrangedObjects();
    if (sender.indexOfSelectedItem < 0 || std::size_t(sender.indexOfSelectedItem) >= categories.size())
        return;
    m_records.setCurrentObjectAccordingToCategory(categories[std::size_t(sender.indexOfSelectedItem)]);
    m_host.updateChangeCount(0);
    m_host.redrawColumn(QStringLiteral("category"));
}

void RecordCommands::controlTextDidChange(int tag)
{
    if (tag == 1)
        m_host.redrawColumn(QStringLiteral("name"));
}

void RecordCommands::recordInverse(Operation inverse, const Record &record, const QString &actionName)
{
    m_host.undoManager().registerUndo([this, inverse, record] { (this->*inverse)(record); });
    m_host.undoManager().setActionName(actionName);
}

void RecordCommands::addTheRecord(const Record &record)
{
    recordInverse(&RecordCommands::addTheRecordUndo, record, tr("Add Record"));
    m_records.addObject(record);
    m_records.rearrangeObjects();
    m_host.updateChangeCount(0);
    m_host.scrollRowToVisible(m_records.arrangedIndexOf(record));
    m_host.switchToEditMode();
    Q_EMIT recordAdded();
}

void RecordCommands::addTheRecordUndo(const Record &record)
{
    recordInverse(&RecordCommands::addTheRecord, record, tr("Add Record"));
    // A record that was made here has no stored id, so that this step moves nothing; it has always been
    // first.
    m_categories.incrementObjUsingThisInCategoryWithUniqueID(
        record->value(RecordKey::cat_uniqueID).longValue(), -1);
    m_records.removeObject(record);
    m_records.rearrangeObjects();
    m_host.updateChangeCount(0);
}

void RecordCommands::deleteTheRecord(const Record &record)
{
    recordInverse(&RecordCommands::deleteTheRecordUndo, record, tr("Delete Record"));
    m_records.removeObject(record);
    m_host.updateChangeCount(0);
}

void RecordCommands::deleteTheRecordUndo(const Record &record)
{
    recordInverse(&RecordCommands::deleteTheRecord, record, tr("Delete Record"));
    m_records.addObject(record);
    m_host.updateChangeCount(0);
}
