#pragma once

#include "browse/FilteringArrayController.h"
#include "browse/UndoneRecords.h"
#include "platform/Actions.h"

// The commands that add, duplicate and delete records. Each change is a pair of inverse operations. Each
// operation records the other with the undo manager and marks the document as edited, so that undo and redo
// are calls of the other operation. A responder of the document.
class RecordCommands : public QObject
{
    Q_OBJECT

public:
    using Record = Foundation::ArrayController::Object;

    // The arguments are not owned and must outlive this object.
    RecordCommands(BrowseHost &host, FilteringArrayController &records,
                   VLColoredCategoryArrayController &categories, QObject *parent = nullptr);

    // Add a new record, or a copy of the first selected record after it. Do nothing while the document is
    // locked.
    Q_INVOKABLE void addRow(const Foundation::ActionSender &sender);
    Q_INVOKABLE void duplicateRow(const Foundation::ActionSender &sender);
    // Required: both ask and then delete exactly one record, however many are selected. deleteRow() deletes
    // the last selected record, deleteRows() the first. The buttons of the two questions have opposite
    // orders.
    Q_INVOKABLE void deleteRow(const Foundation::ActionSender &sender);
    Q_INVOKABLE void deleteRows(const Foundation::ActionSender &sender);
    bool deleteRowShouldBeEnabled(const Foundation::ActionSender &sender) const;
    // For documents that get their first password only when data is added. Prescribed; no caller yet.
    Q_INVOKABLE void askToInsertPasswordBeforeAddingData(const Foundation::ActionSender &sender);
    // Action of the company switch in the form: redraws the names in the table.
    Q_INVOKABLE void isACompanySwitched(const Foundation::ActionSender &sender);
    // Do nothing. Prescribed; no caller yet.
    Q_INVOKABLE void deleteContact(const Foundation::ActionSender &sender);
    Q_INVOKABLE void recordEdited(const Foundation::ActionSender &sender);

    void addTheRecord(const Record &record);
    void addTheRecordUndo(const Record &record);
    void duplicateTheRecord(const Record &record);
    void duplicateTheRecordUndo(const Record &record);
    void deleteTheRecord(const Record &record);
    void deleteTheRecordUndo(const Record &record);

    // The records to which the undo stack refers.
    UndoneRecords &undoneRecords() { return m_undoneRecords; }

    // The user typed into a field of the form. Fields with tag 1 are part of the name, so the names in the
    // table are redrawn.
    void controlTextDidChange(int tag);

Q_SIGNALS:
    // A record was added, by a command or by redo. A filter may hide it.
    void recordAdded(const Foundation::ArrayController::Object &record);

private:
    using Operation = void (RecordCommands::*)(const Record &);
    void recordInverse(Operation inverse, const Record &record, const QString &actionName);
    void beginAlert(const Foundation::Alert &alert, Foundation::AlertAnswer answered);
    void redrawNames();
    // Redoing an addition must check this: if a filter hid the record, undoing did not remove it.
    bool isInContent(const Record &record);

    BrowseHost &m_host;
    FilteringArrayController &m_records;
    VLColoredCategoryArrayController &m_categories;
    UndoneRecords m_undoneRecords;
};
