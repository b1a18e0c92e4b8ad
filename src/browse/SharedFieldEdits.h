#pragma once

#include "browse/BrowseHost.h"
#include "lists/ArrayController.h"

#include <memory>

// Undo of values that were set in several selected records at once. What was typed for one record is undone
// in its field; for several, the field has no text to go back to, and the document's undo manager keeps what
// each record held. All that is typed in one visit of a field is one step.
//
// Undo and redo leave records alone whose value was changed since, and those that are no longer in the list's
// content. The records that they change get selected, as far as the list shows them.
class SharedFieldEdits : public QObject
{
    Q_OBJECT

public:
    // Both outlive the edits; nothing is owned.
    SharedFieldEdits(BrowseHost &host, Foundation::ArrayController &records);

    // The value is about to be set in all selected records.
    void willSetValueOfSelection(const Foundation::Key &key, const Foundation::Value &value);
    // What is set from now on is another step.
    void endVisit() { m_current = nullptr; }
    // A decryption made new objects of the records: the steps mean these from then on.
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
    std::vector<std::weak_ptr<Edit>> m_edits; // of the undo manager's entries
    std::shared_ptr<Edit> m_current;          // goes on with the next value that is set
    bool m_isRecording = false;
    bool m_followsUndoManager = false;
};
