#pragma once

#include "core/DecryptStatus.h"
#include "core/DocumentState.h"
#include "core/FileLayout.h"
#include "platform/Services.h"

#include <functional>

// Deciphers the buffers of a document: proves the password by the check pair, deciphers records, categories,
// captions and creation date, and links every record to its category.
//
// Documents of old releases have no check pair and are read by ReleaseMigration.
//
// Works on the buffers of the state and never on the file, so it is used after reading and after a lock.
// Blocks for six key derivations. A wrong password changes only the cipher engine; for old releases it may
// also replace the captions and the creation date. If the content is damaged, buffers that were deciphered
// before the damage are gone and the captions may be replaced, but records and categories do not change.
class DecryptPipeline
{
public:
    using Dictionary = Foundation::Dictionary;
    using Array = Foundation::Array;

    // Makes the category of a document that has none. The pipeline adds it to the array.
    using DefaultCategoryMaker = std::function<Foundation::Ref<Dictionary>()>;

    DecryptPipeline(DocumentState &state, const Foundation::Clock &clock,
                    DefaultCategoryMaker makeDefaultCategory)
        : m_state(state)
        , m_clock(clock)
        , m_makeDefaultCategory(std::move(makeDefaultCategory))
    {
    }

    // Fails with a VLCipherStatus, a VLLegacyCode or a DecryptStatus as the code; see DecryptStatus.h.
    DecryptResult<> decript();
    // Whether the last decript() replaced the captions, which may happen even if it failed.
    bool hasReplacedLabels() const { return m_hasReplacedLabels; }

    // The first category with that id, or null.
    static Foundation::Ref<Dictionary> catInArray(const Array &categories, qint64 withUniqueID);
    // Links every record to the category with its id, or to the first category if the id is unknown, and
    // counts the uses of the categories. Both arrays must contain dictionaries only.
    void restoreFromSaveOperationContent(const Array &records, Array &categoryArray);

private:
    DecryptResult<> readWithEngine(bool resetsOpenFlags);
    DecryptResult<> readOldRelease(DecryptPath path);
    // Links records and categories and stores them in the state.
    void finish(const Foundation::Ref<Array> &records, const Foundation::Ref<Array> &categories);
    DecryptResult<> provePassword() const;
    // Deciphers a buffer and reads its archive.
    DecryptResult<Foundation::Value> openBuffer(const QByteArray &buffer) const;
    // The steps after the password is proved. A step that succeeds clears its buffer, except that of the
    // captions.
    DecryptResult<Foundation::Ref<Array>> takeDictionaries(QByteArray &buffer);
    DecryptResult<> readLabels(bool resetsFlags);
    DecryptResult<> takeCreationDate();

    DocumentState &m_state;
    const Foundation::Clock &m_clock; // for documents that have no creation date
    DefaultCategoryMaker m_makeDefaultCategory;
    bool m_hasReplacedLabels = false;
};
