#include "browse/SharedFieldEdits.h"

#include "lists/ReplacedObjects.h"

#include <unordered_set>

using Foundation::ArrayController;
using Foundation::Key;
using Foundation::UndoManager;
using Foundation::Value;

SharedFieldEdits::SharedFieldEdits(BrowseHost &host, ArrayController &records)
    : m_host(host)
    , m_records(records)
{
}

void SharedFieldEdits::willSetValueOfSelection(const Key &key, const Value &value)
{
    const quint64 stamp = m_records.selectionStamp();
    if (m_current && m_current->key == key && m_current->selectionStamp == stamp) {
        for (Change &change : m_current->changes)
            change.after = value;
        return;
    }
    auto edit = std::make_shared<Edit>(Edit{key, stamp, {}});
    for (const Record &selected : m_records.selectedObjects())
        edit->changes.push_back({selected, selected->value(key), value});
    record(edit);
    m_current = std::move(edit);
}

void SharedFieldEdits::record(const std::shared_ptr<Edit> &edit)
{
    UndoManager &manager = m_host.undoManager();
    if (!std::exchange(m_followsUndoManager, true)) {
        // Any other command ends the visit. Otherwise later input would be part of a step from before that
        // command.
        connect(&manager, &UndoManager::changed, this, [this] {
            if (!m_isRecording)
                endVisit();
        });
    }
    std::erase_if(m_edits, [](const auto &known) { return known.expired(); });
    m_edits.push_back(edit);
    m_isRecording = true;
    manager.registerUndo([this, edit] { undo(*edit); });
    manager.setActionName(tr("Change in Several Contacts"));
    m_isRecording = false;
}

void SharedFieldEdits::replaceRecords(const Foundation::Array &former, const Foundation::Array &present)
{
    std::vector<Record *> records;
    for (const auto &known : m_edits) {
        if (const auto edit = known.lock()) {
            for (Change &change : edit->changes)
                records.push_back(&change.record);
        }
    }
    Foundation::replaceObjects(former, present, records);
    endVisit();
}

std::vector<SharedFieldEdits::Change> SharedFieldEdits::changesOfPresentRecords(const Edit &edit) const
{
    std::unordered_set<const Foundation::RefCounted *> present;
    for (const Value &entry : m_records.content()->values)
        present.insert(entry.sharedObject());
    std::vector<Change> changes;
    for (const Change &change : edit.changes) {
        if (present.contains(change.record.get()) && change.record->value(edit.key) == change.after)
            changes.push_back({change.record, change.after, change.before});
    }
    return changes;
}

void SharedFieldEdits::undo(const Edit &edit)
{
    auto inverse = std::make_shared<Edit>(Edit{edit.key, 0, changesOfPresentRecords(edit)});
    if (inverse->changes.empty())
        return;
    record(inverse);
    std::vector<std::pair<Record, Value>> values;
    ArrayController::Objects records;
    for (const Change &change : inverse->changes) {
        values.emplace_back(change.record, change.after);
        records.push_back(change.record);
    }
    m_records.setValues(edit.key, values);
    if (auto shown = m_records.positionsOf(records); !shown.empty())
        m_records.setSelectionIndexes(std::move(shown));
    m_host.updateChangeCount(0);
}
