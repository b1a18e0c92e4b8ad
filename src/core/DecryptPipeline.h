#pragma once

#include "core/DocumentState.h"
#include "core/FileLayout.h"
#include "platform/Services.h"

#include <functional>
#include <optional>

// What a decryption reports beside the ciphers' own negative statuses. Callers only tell zero from the rest.
enum DecryptStatus : qint32 {
    DecryptSuccess = 0,
    DecryptWrongPassword = 1,   // the digest of the check value differs, or nothing can decipher such a file
    DecryptUnreadableField = 2, // of a file whose fields are enciphered one by one
    DecryptDamagedContent = 3,  // behind a right password
};

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

    // A DecryptStatus or a VLCipherStatus; 0 is success.
    qint32 decript();
    // Whether the last decript() replaced the captions, which may happen before it failed.
    bool hasReplacedLabels() const { return m_hasReplacedLabels; }

    // The first category with that id, or null.
    static Foundation::Ref<Dictionary> catInArray(const Array &categories, qint64 withUniqueID);
    // Gives every record its category by id, the first one where the id is unknown, and counts their uses.
    // Both arrays must hold dictionaries only.
    void restoreFromSaveOperationContent(const Array &records, Array &categoryArray);

private:
    qint32 readWithEngine(bool resetsOpenFlags);
    qint32 readOldRelease(DecryptPath path);
    // Puts both in place, linked to each other.
    void finish(const Foundation::Ref<Array> &records, const Foundation::Ref<Array> &categories);
    qint32 provePassword();
    // Deciphers a buffer and reads the archive in it.
    qint32 openBuffer(const QByteArray &buffer, Foundation::Value *root);
    // The steps behind a right password. A step that succeeds consumes its buffer, except that of the
    // captions.
    qint32 takeDictionaries(QByteArray &buffer, Foundation::Ref<Array> *dictionaries);
    qint32 readLabels(bool resetsFlags);
    qint32 takeCreationDate();

    DocumentState &m_state;
    const Foundation::Clock &m_clock; // for documents that have no creation date
    DefaultCategoryMaker m_makeDefaultCategory;
    bool m_hasReplacedLabels = false;
};
