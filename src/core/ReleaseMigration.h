#pragma once

#include "archive/ReadBudget.h"
#include "core/DecryptStatus.h"
#include "core/DocumentState.h"
#include "core/FileLayout.h"
#include "platform/Services.h"

#include <optional>
#include <unordered_map>
#include <unordered_set>

// Reads documents of release 30000 and before, in which every field of every record is enciphered by itself
// under VLCrypto, into records and categories as they are today. Works on the buffers of the state and
// changes none of them, so that another password can be tried; a save then writes the current layout.
class ReleaseMigration
{
public:
    // Both outlive this. The clock dates documents of the oldest release, which have no creation date.
    ReleaseMigration(DocumentState &state, const Foundation::Clock &clock);

    // One of the three paths of old releases. Fails with the VLLegacyCode of the first field that does not
    // open: a wrong password, or damage, which nothing tells apart. Takes the creation date, and then the
    // captions, before anything else is tried, and leaves them so whatever comes after.
    DecryptResult<> read(DecryptPath path);

    // After a read that succeeded: new arrays, not yet linked to each other.
    const Foundation::Ref<Foundation::Array> &records() const { return m_records; }
    const Foundation::Ref<Foundation::Array> &categories() const { return m_categories; }
    // Whether the captions or flags of the state changed.
    bool hasReplacedLabels() const { return m_hasReplacedLabels; }

private:
    using Dictionary = Foundation::Dictionary;
    using Array = Foundation::Array;
    using Value = Foundation::Value;

    enum FieldKind { TextField, NumberField, ColorField, FieldKinds };
    // What shared buffers decipher to, which may be Null.
    using Memo = std::unordered_map<const Foundation::RefCounted *, std::optional<Value>>;

    DecryptResult<> readCreationDate(DecryptPath path);
    DecryptResult<> readLabels();
    DecryptResult<> readRecords(DecryptPath path);
    DecryptResult<> readRecord(const Dictionary &stored, DecryptPath path, Dictionary &record);
    DecryptResult<> readCategories(DecryptPath path);
    DecryptResult<> readCategory(const Dictionary &stored, DecryptPath path, qint64 number,
                                 Dictionary &category);
    // The dictionary of a record or category. Null for what no release wrote: another kind of value, a
    // dictionary met before, or more of them than there are bytes for.
    Foundation::Ref<Dictionary> takeEntry(const Value &entry);
    // The field under that key; an absent one is an empty one. A buffer of several fields is deciphered once,
    // so that a small file cannot ask for much.
    DecryptResult<Value> readField(const Dictionary &stored, const Foundation::Key &key, FieldKind kind);
    // Null for a colour that cannot be read.
    DecryptResult<Value> deciphered(const QByteArray &bytes, FieldKind kind);

    DocumentState &m_state;
    const Foundation::Clock &m_clock;
    Foundation::Ref<Array> m_records;
    Foundation::Ref<Array> m_categories;
    bool m_hasReplacedLabels = false;
    Memo m_memos[FieldKinds];
    // By the size of the buffers, each counted once.
    Foundation::ReadBudget m_entryBudget;
    Foundation::ReadBudget m_colorBudget;
    std::unordered_set<const Foundation::RefCounted *> m_sharedEntries;
};

// What every read of an old release ends with, and the list controllers offer by themselves. The array holds
// categories: colour objects under the two colour keys become colour dictionaries.
void adjustCategoriesFromOldRelease(Foundation::Array &categories);
// The array holds records: they lose colours of their own, and get the id 0 if they have none.
void adjustRecordsFromOldRelease(Foundation::Array &records);
// Categories from before there were colours and ids: gives them those, numbered from 1 in their order.
void adjustCategoriesFromAncientRelease(Foundation::Array &categories);
