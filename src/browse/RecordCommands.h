#pragma once

#include "browse/FilteringArrayController.h"
#include "browse/UndoneRecords.h"
#include "platform/Actions.h"

// The commands with which the user adds, duplicates and deletes records. Each change goes through a pair of
// operations that record one another with the undo manager, so that undo and redo simply call the other half;
// both halves mark the document as edited. Takes part in the responder chain of its document.
class RecordCommands : public QObject
{
    Q_OBJECT

public:
    using Record = Foundation::ArrayController::Object;

    // None is owned; all outlive the commands.
    RecordCommands(BrowseHost &host, FilteringArrayController &records,
                   VLColoredCategoryArrayController &categories, QObject *parent = nullptr);

    // Adds a new record, or a copy of the first selected one behind it, unless the document is locked.
    Q_INVOKABLE void addRow(const Foundation::ActionSender &sender);
    Q_INVOKABLE void duplicateRow(const Foundation::ActionSender &sender);
    // Both ask first and then delete exactly one record, however many are selected: the last selected, and
    // the first. The buttons of the two questions stand in opposite orders.
    Q_INVOKABLE void deleteRow(const Foundation::ActionSender &sender);
    Q_INVOKABLE void deleteRows(const Foundation::ActionSender &sender);
    bool deleteRowShouldBeEnabled(const Foundation::ActionSender &sender) const;
    // For documents that are to get their first password only when there is something to protect.
    Q_INVOKABLE void askToInsertPasswordBeforeAddingData(const Foundation::ActionSender &sender);
    // The company switch of the form changes the name in the table.
    Q_INVOKABLE void isACompanySwitched(const Foundation::ActionSender &sender);
    // Do nothing; targets for interface files.
    Q_INVOKABLE void deleteContact(const Foundation::ActionSender &sender);
    Q_INVOKABLE void recordEdited(const Foundation::ActionSender &sender);

    void addTheRecord(const Record &record);
    void addTheRecordUndo(const Record &record);
    void duplicateTheRecord(const Record &record);
    void duplicateTheRecordUndo(const Record &record);
    void deleteTheRecord(const Record &record);
    void deleteTheRecordUndo(const Record &record);

    // The records that the undo stack holds, in place of which a decryption puts new ones.
    UndoneRecords &undoneRecords() { return m_undoneRecords; }

    // A field of the form was typed into. Fields of tag 1 feed the name in the table.
    void controlTextDidChange(int tag);

Q_SIGNALS:
    // A record was added, anew or by redo. A filter may hide it.
    void recordAdded(const Foundation::ArrayController::Object &record);

private:
    using Operation = void (RecordCommands::*)(const Record &);
    void recordInverse(Operation inverse, const Record &record, const QString &actionName);
    void beginAlert(const Foundation::Alert &alert, Foundation::AlertAnswer answered);
    void redrawNames();
    // Where a filter hid a record, its removal took nothing out, and redoing must not make it two.
    bool isInContent(const Record &record);

    BrowseHost &m_host;
    FilteringArrayController &m_records;
    VLColoredCategoryArrayController &m_categories;
    UndoneRecords m_undoneRecords;
};
