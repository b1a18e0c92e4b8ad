#pragma once

#include "core/DecryptStatus.h"
#include "core/DocumentState.h"
#include "core/FileLayout.h"
#include "platform/Services.h"

#include <functional>

// Opens the buffers of a document with its password: proves the password by the check pair, deciphers
// records, categories, captions and creation date, and links every record to its category.
//
// Documents of old releases, which have no check pair, are read by ReleaseMigration.
//
// Works from the state's buffers only, never from the file, so that it serves after a reading and after a
// lock. Blocks for six key derivations. A wrong password changes nothing but the engine. Damage behind a
// right password leaves what was done done: buffers already opened are gone and the captions may be replaced,
// while records and categories stay as they were.
class DecryptPipeline
{
public:
    using Dictionary = Foundation::Dictionary;
    using Array = Foundation::Array;

    // Gives the category of a document without any, not yet in the array.
    using DefaultCategoryMaker = std::function<Foundation::Ref<Dictionary>()>;

    DecryptPipeline(DocumentState &state, const Foundation::Clock &clock,
                    DefaultCategoryMaker makeDefaultCategory)
        : m_state(state)
        , m_clock(clock)
        , m_makeDefaultCategory(std::move(makeDefaultCategory))
    {
    }

    // The code of a failure is of one of three families: VLCipherStatus, VLLegacyCode or the pipeline's own;
    // see DecryptStatus.
    DecryptResult<> decript();
    // Whether the last decript() replaced the captions, which may happen before it failed.
    bool hasReplacedLabels() const { return m_hasReplacedLabels; }

    // The first category with that id, or null.
    static Foundation::Ref<Dictionary> catInArray(const Array &categories, qint64 withUniqueID);
    // Gives every record its category by id, the first one where the id is unknown, and counts their uses.
    // Both arrays must hold dictionaries only.
    void restoreFromSaveOperationContent(const Array &records, Array &categoryArray);

private:
    DecryptResult<> readWithEngine(bool resetsOpenFlags);
    DecryptResult<> readOldRelease(DecryptPath path);
    // Puts both in place, linked to each other.
    void finish(const Foundation::Ref<Array> &records, const Foundation::Ref<Array> &categories);
    DecryptResult<> provePassword() const;
    // Deciphers a buffer and reads the archive in it.
    DecryptResult<Foundation::Value> openBuffer(const QByteArray &buffer) const;
    // The steps behind a right password. A step that succeeds consumes its buffer, except that of the
    // captions.
    DecryptResult<Foundation::Ref<Array>> takeDictionaries(QByteArray &buffer);
    DecryptResult<> readLabels(bool resetsFlags);
    DecryptResult<> takeCreationDate();

    DocumentState &m_state;
    const Foundation::Clock &m_clock; // for documents that have no creation date
    DefaultCategoryMaker m_makeDefaultCategory;
    bool m_hasReplacedLabels = false;
};
