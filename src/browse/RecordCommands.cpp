#include "browse/RecordCommands.h"

#include "core/RecordModel.h"
#include "platform/Services.h"

#include <QPointer>

#include <algorithm>

using Foundation::ActionSender;
using Foundation::Alert;
using Foundation::AlertButton;

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
    // Without any category no record can be made, and the user is not told.
    if (const Record record = m_records.newObject())
        addTheRecord(record);
}

void RecordCommands::duplicateRow(const ActionSender &)
{
    if (m_host.isDecrypted() && m_records.canRemove())
        duplicateTheRecord(m_records.duplicateSelection());
}

void RecordCommands::beginAlert(const Alert &alert, Foundation::AlertAnswer answered)
{
    if (BrowseWindow *window = m_host.browseWindow())
        window->beginAlert(alert, std::move(answered));
}

void RecordCommands::deleteRow(const ActionSender &)
{
    const Alert question{tr("Delete Selected Row?"),
                         tr("The selected row will be removed from the document"),
                         {{tr("Delete")}, {tr("Cancel"), AlertButton::Cancel}}};
    beginAlert(question, [this](int returnCode) {
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
                         {{tr("Cancel"), AlertButton::Cancel}, {tr("Delete Contact")}}};
    beginAlert(question, [this](int returnCode) {
        if (returnCode == Alert::SecondButtonReturn && m_records.canRemove())
            deleteTheRecord(m_records.selectedObjects().front());
    });
}

bool RecordCommands::deleteRowShouldBeEnabled(const ActionSender &) const
{
    return m_records.canRemove() && m_host.isDecrypted();
}

void RecordCommands::askToInsertPasswordBeforeAddingData(const ActionSender &)
{
    const Alert question{tr("A password must be defined before adding data"),
                         tr("After defining a password used to protect this document, it will be possible "
                            "to add data."),
                         {{tr("Define Password")}, {tr("Cancel"), AlertButton::Cancel}},
                         Alert::Style::Informational};
    beginAlert(question, [this](int returnCode) {
        if (returnCode != Alert::FirstButtonReturn)
            return;
        // The sheet can begin only after this alert has ended.
        Foundation::Services::shared().mainQueue().addOperation([commands = QPointer(this)] {
            if (commands)
                commands->m_host.askForDocumentPassword();
        });
    });
}

void RecordCommands::redrawNames()
{
    if (BrowseWindow *window = m_host.browseWindow())
        window->redrawColumn(QStringLiteral("name"));
}

void RecordCommands::isACompanySwitched(const ActionSender &)
{
    redrawNames();
}

void RecordCommands::deleteContact(const ActionSender &) {}

void RecordCommands::recordEdited(const ActionSender &) {}

void RecordCommands::controlTextDidChange(int tag)
{
    if (tag == 1)
        redrawNames();
}

void RecordCommands::recordInverse(Operation inverse, const Record &record, const QString &actionName)
{
    m_host.undoManager().registerUndo(
        [this, inverse, held = m_undoneRecords.hold(record)] { (this->*inverse)(*held); });
    m_host.undoManager().setActionName(actionName);
}

bool RecordCommands::isInContent(const Record &record)
{
    const auto &content = m_records.contentObjects();
    return std::find(content.begin(), content.end(), record) != content.end();
}

void RecordCommands::addTheRecord(const Record &record)
{
    recordInverse(&RecordCommands::addTheRecordUndo, record, tr("Add Record"));
    if (!isInContent(record))
        m_records.addObject(record);
    m_records.rearrangeObjects();
    m_host.updateChangeCount(0);
    if (BrowseWindow *window = m_host.browseWindow())
        window->scrollRowToVisible(m_records.arrangedIndexOf(record));
    m_host.switchToEditMode();
    Q_EMIT recordAdded(record);
}

void RecordCommands::addTheRecordUndo(const Record &record)
{
    recordInverse(&RecordCommands::addTheRecord, record, tr("Add Record"));
    // Required as the first step, although it changes nothing for a record made in this session, which has no
    // stored id.
    m_categories.incrementObjUsingThisInCategoryWithUniqueID(
        record->value(RecordKey::cat_uniqueID).longValue(), -1);
    m_records.removeObject(record);
    m_records.rearrangeObjects();
    m_host.updateChangeCount(0);
}

void RecordCommands::duplicateTheRecord(const Record &record)
{
    recordInverse(&RecordCommands::duplicateTheRecordUndo, record, tr("Duplicate Record"));
    if (!isInContent(record))
        m_records.addObjectAfterSelection(record);
    m_records.rearrangeObjects();
    m_host.updateChangeCount(0);
}

void RecordCommands::duplicateTheRecordUndo(const Record &record)
{
    recordInverse(&RecordCommands::duplicateTheRecord, record, tr("Duplicate Record"));
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
    if (!isInContent(record))
        m_records.addObject(record);
    m_host.updateChangeCount(0);
}
