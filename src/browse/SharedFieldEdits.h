#pragma once

#include "browse/BrowseHost.h"
#include "lists/ArrayController.h"

#include <memory>

// Undo of values that were set in several selected records at once. Text that was typed for one record is
// undone in its field. For several records the field has no single text to restore, so the undo manager of
// the document stores the former value of each record. All input during one visit of a field is one step.
//
// Undo and redo skip records whose value was changed since, and records that are no longer in the content of
// the list. They select the changed records that the list shows.
class SharedFieldEdits : public QObject
{
    Q_OBJECT

public:
    // The arguments are not owned and must outlive this object.
    SharedFieldEdits(BrowseHost &host, Foundation::ArrayController &records);

    // Must be called before a value is set in all selected records.
    void willSetValueOfSelection(const Foundation::Key &key, const Foundation::Value &value);
    // Values that are set after this belong to another step.
    void endVisit() { m_current = nullptr; }
    // Must be called when deciphering has replaced all records: the steps then refer to the new ones.
    void replaceRecords(const Foundation::Array &former, const Foundation::Array &present);

private:
    using Record = Foundation::ArrayController::Object;

    struct Change
    {
        Record record;
        Foundation::Value before;
        Foundation::Value after;
    };
    struct Edit
    {
        Foundation::Key key;
        quint64 selectionStamp;
        std::vector<Change> changes;
    };

    void record(const std::shared_ptr<Edit> &edit);
    void undo(const Edit &edit);
    std::vector<Change> changesOfPresentRecords(const Edit &edit) const;

    BrowseHost &m_host;
    Foundation::ArrayController &m_records;
    std::vector<std::weak_ptr<Edit>> m_edits; // those that entries of the undo manager keep alive
    std::shared_ptr<Edit> m_current; // the step that the next value extends; null if it begins a step
    bool m_isRecording = false;
    bool m_followsUndoManager = false;
};
