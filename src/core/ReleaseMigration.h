#pragma once

#include "archive/ReadBudget.h"
#include "core/DecryptStatus.h"
#include "core/DocumentState.h"
#include "core/FileLayout.h"
#include "platform/Services.h"

#include <optional>
#include <unordered_map>
#include <unordered_set>

// Reads documents of release 30000 and older, in which VLCrypto enciphers every field of every record
// separately, into current records and categories. Does not change the buffers of the state, so that another
// password can be tried. The next save writes the current layout.
class ReleaseMigration
{
public:
    // Both arguments must outlive this object. `clock` gives the creation date of documents of the oldest
    // release, which have none.
    ReleaseMigration(DocumentState &state, const Foundation::Clock &clock);

    // `path` must be one of the three paths of old releases. Fails with the VLLegacyCode of the first field
    // that cannot be deciphered, because of a wrong password or damage, which cannot be distinguished.
    // Creation date and captions are read first and stored in the state even if a later field fails.
    DecryptResult<> read(DecryptPath path);

    // The results after read() succeeded: new arrays that are not yet linked to each other.
    const Foundation::Ref<Foundation::Array> &records() const { return m_records; }
    const Foundation::Ref<Foundation::Array> &categories() const { return m_categories; }
    // Whether read() changed the captions or flags of the state.
    bool hasReplacedLabels() const { return m_hasReplacedLabels; }

private:
    using Dictionary = Foundation::Dictionary;
    using Array = Foundation::Array;
    using Value = Foundation::Value;

    enum FieldKind { TextField, NumberField, ColorField, FieldKinds };
    // The results of deciphering shared buffers; they may be Null.
    using Memo = std::unordered_map<const Foundation::RefCounted *, std::optional<Value>>;

    DecryptResult<> readCreationDate(DecryptPath path);
    DecryptResult<> readLabels();
    DecryptResult<> readRecords(DecryptPath path);
    DecryptResult<> readRecord(const Dictionary &stored, DecryptPath path, Dictionary &record);
    DecryptResult<> readCategories(DecryptPath path);
    DecryptResult<> readCategory(const Dictionary &stored, DecryptPath path, qint64 number,
                                 Dictionary &category);
    // The dictionary of a record or category. Null for entries that no release wrote: another type of value,
    // a dictionary that occurs twice, or more entries than the bytes justify.
    Foundation::Ref<Dictionary> takeEntry(const Value &entry);
    // Deciphers the field under that key; an absent field counts as empty. A buffer that several fields share
    // is deciphered once, so that a small file cannot cause much work.
    DecryptResult<Value> readField(const Dictionary &stored, const Foundation::Key &key, FieldKind kind);
    // Returns Null for a colour that cannot be read.
    DecryptResult<Value> deciphered(const QByteArray &bytes, FieldKind kind);

    DocumentState &m_state;
    const Foundation::Clock &m_clock;
    Foundation::Ref<Array> m_records;
    Foundation::Ref<Array> m_categories;
    bool m_hasReplacedLabels = false;
    Memo m_memos[FieldKinds];
    // The budgets depend on the size of the buffers, each counted once.
    Foundation::ReadBudget m_entryBudget;
    Foundation::ReadBudget m_colorBudget;
    std::unordered_set<const Foundation::RefCounted *> m_sharedEntries;
};

// The last step of reading an old release. Converts colour objects under the two colour keys of the
// categories into colour dictionaries.
void adjustCategoriesFromOldRelease(Foundation::Array &categories);
// Removes the colours of the records, and gives the category id 0 to records without one.
void adjustRecordsFromOldRelease(Foundation::Array &records);
// Gives colours and ids, numbered from 1, to categories of releases that had neither.
void adjustCategoriesFromAncientRelease(Foundation::Array &categories);
