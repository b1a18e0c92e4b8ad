#include "core/SavePipeline.h"

#include "archive/KeyedArchive.h"
#include "core/FileLayout.h"
#include "core/SecretBytes.h"

#include <QtGlobal>

#include <utility>

using Foundation::Array;
using Foundation::Dictionary;
using Foundation::Ref;
using Foundation::Value;

namespace
{

// The id for a record without a category is 0, which no category has.
qint64 idOfCategory(const Dictionary &record)
{
    const Value &category = record.value(RecordKey::categoryPtr);
    if (category.type() != Value::Type::Dictionary)
        return 0;
    return static_cast<const Dictionary *>(category.sharedObject())
        ->value(CategoryKey::cat_uniqueID)
        .longValue();
}

} // namespace

Ref<Array> SavePipeline::getCopyOfContentArrayForSaveOperation() const
{
    auto records = Array::create();
    records->values.reserve(m_state.myArray->values.size());
    for (const Value &entry : m_state.myArray->values) {
        const Ref<Dictionary> record = entry.dictionary();
        auto copy = record->copy();
        copy->setValue(RecordKey::cat_uniqueID, Value(idOfCategory(*record)));
        copy->setValue(RecordKey::categoryPtr, Value());
        records->values.emplace_back(copy);
    }
    return records;
}

Ref<Array> SavePipeline::getCopyOfCategoryArrayForSaveOperation() const
{
    auto categories = Array::create();
    for (const Value &entry : m_state.myCategoryArray->values) {
        auto copy = entry.dictionary()->copy();
        copy->setValue(CategoryKey::records, Value());
        categories->values.emplace_back(copy);
    }
    return categories;
}

QByteArray SavePipeline::archivedRecords(QByteArray memory) const
{
    Foundation::ArchivedRows rows{*m_state.myArray, RecordKey::categoryPtr, RecordKey::cat_uniqueID, {}};
    rows.replacements.reserve(m_state.myArray->values.size());
    for (const Value &record : m_state.myArray->values)
        rows.replacements.emplace_back(idOfCategory(*record.dictionary()));
    return Foundation::archivedData(rows, std::move(memory));
}

QByteArray SavePipeline::archivedCategories() const
{
    return Foundation::archivedData(
        {*m_state.myCategoryArray, CategoryKey::records, CategoryKey::cat_uniqueID, {}});
}

void SavePipeline::ensureEngine()
{
    auto &engine = m_state.myCommonCrypto;
    if (engine && engine->password() == m_state.plainPassword)
        return;
    // The password is new, or there is no engine yet: this is where a new password takes effect.
    engine = std::make_unique<VLCommonCrypto>(m_state.plainPassword);
    m_state.mySalt = engine->salt();
    m_state.myIV = engine->IV();
    makeCheckPair();
    m_state.buffersBelongToCheckPair = false;
}

void SavePipeline::makeCheckPair()
{
    const SecretBytes check(VLCommonCrypto::generateRandom256AsciiString().toUtf8());
    m_state.mySha1_RcData = VLCommonCrypto::dataSHA1(check.bytes()).value_or(QByteArray());
    qint32 status = 0;
    m_state.myRCDataEncrypted =
        m_state.myCommonCrypto->encrypt(check.bytes(), &status).value_or(QByteArray());
}

QByteArray SavePipeline::enciphered(QByteArray archive)
{
    // Content from another program may have grown beyond what the reader accepts. The file must not be
    // replaced by one that cannot be opened.
    m_state.refusesOwnContent |= !Foundation::canBeUnarchived(archive);
    // An empty buffer means failure, and canBeRead() checks that.
    if (m_state.refusesOwnContent || !m_state.myCommonCrypto->encryptInPlace(archive))
        wipe(archive);
    return archive;
}

void SavePipeline::encryptData()
{
    ensureEngine();
    m_state.refusesOwnContent = false;
    // The memory of the former cipher text has nearly the same size and costs less than fresh memory.
    QByteArray former = std::exchange(m_state.myEncryptedArrayData, {});
    m_state.myEncryptedArrayData = enciphered(archivedRecords(std::move(former)));
    m_state.myEncryptedCategoryArrayData = enciphered(archivedCategories());
    m_state.myEncriptedLabelDictionaryData = enciphered(Foundation::archivedData(m_state.myLabelDictionary));
    m_state.myEncryptedDocumentCreationDateData =
        enciphered(Foundation::archivedData(m_state.documentCreationDate));
    m_state.myOpeningDocumentVersion = CurrentFormatVersion;
    m_state.buffersBelongToCheckPair = true;
}

Ref<Dictionary> SavePipeline::platformDictionary(const WindowPlacement &window)
{
    auto dictionary = Dictionary::create();
    dictionary->setValue(PlatformKey::windowRecHeight, Value(window.frame.height));
    dictionary->setValue(PlatformKey::windowRecWidth, Value(window.frame.width));
    dictionary->setValue(PlatformKey::windowRecX, Value(window.frame.x));
    dictionary->setValue(PlatformKey::windowRecY, Value(window.frame.y));
    dictionary->setValue(PlatformKey::makeToolbarVisibleAtDecrypt, Value(window.isToolbarVisible));
    return dictionary;
}

std::optional<QByteArray> SavePipeline::dataOfType(const WindowPlacement &window)
{
    if (!m_state.YouCanSave) {
        qWarning("returned nil from dataOfType");
        return std::nullopt;
    }
    // After a change of the password, this makes an engine and a check pair. An open document renews both
    // below; a locked document does not, and must be consistent after this call.
    ensureEngine();
    if (!m_state.isEncrypted) {
        m_state.myCommonCrypto->recalcIV_Salt_AESKey();
        encryptData();
        m_state.mySalt = m_state.myCommonCrypto->salt();
        m_state.myIV = m_state.myCommonCrypto->IV();
        makeCheckPair();
        m_state.OSXPlatformDictionary = platformDictionary(window);
    }
    auto root = Dictionary::create();
    root->setValue(FileKey::appversion, Value(CurrentFormatVersion));
    root->setValue(FileKey::latestPlatform, QStringLiteral("OSX"));
    root->setValue(FileKey::dataArrayData, m_state.myEncryptedArrayData);
    root->setValue(FileKey::catArrayData, m_state.myEncryptedCategoryArrayData);
    root->setValue(FileKey::labelDict, m_state.myEncriptedLabelDictionaryData);
    root->setValue(FileKey::documentCreationDateData, m_state.myEncryptedDocumentCreationDateData);
    root->setValue(FileKey::salt, m_state.mySalt);
    root->setValue(FileKey::IV, m_state.myIV);
    root->setValue(FileKey::rc, m_state.myRCDataEncrypted);
    root->setValue(FileKey::sha1_rc, m_state.mySha1_RcData);
    root->setValue(FileKey::OSXPlatformDictionary, m_state.OSXPlatformDictionary);
    return Foundation::archivedData(root);
}

Foundation::Result<void, SavePipeline::UnreadableBecause> SavePipeline::canBeRead(const DocumentState &state)
{
    const bool isWhole =
        state.buffersBelongToCheckPair && !state.myEncryptedArrayData.isEmpty() &&
        !state.myEncryptedCategoryArrayData.isEmpty() && !state.myEncriptedLabelDictionaryData.isEmpty() &&
        !state.myEncryptedDocumentCreationDateData.isEmpty() && !state.mySalt.isEmpty() &&
        !state.myIV.isEmpty() && !state.myRCDataEncrypted.isEmpty() && !state.mySha1_RcData.isEmpty();
    if (isWhole)
        return {};
    return Foundation::Failure{state.refusesOwnContent ? UnreadableBecause::ContentRefused
                                                       : UnreadableBecause::NotEnciphered};
}
