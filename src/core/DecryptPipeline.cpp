#include "core/DecryptPipeline.h"

#include "archive/KeyedArchive.h"
#include "core/ReleaseMigration.h"
#include "core/SecretBytes.h"

#include <algorithm>
#include <unordered_map>

using Foundation::Array;
using Foundation::Dictionary;
using Foundation::Failure;
using Foundation::Ref;
using Foundation::Value;

namespace
{

// The array, or null if the value is no array of dictionaries.
Ref<Array> dictionariesIn(const Value &value)
{
    const Ref<Array> array = value.array();
    const auto isDictionary = [](const Value &entry) { return entry.type() == Value::Type::Dictionary; };
    return array && std::all_of(array->values.begin(), array->values.end(), isDictionary) ? array : nullptr;
}

} // namespace

DecryptResult<> DecryptPipeline::decript()
{
    m_hasReplacedLabels = false;
    m_state.myCryptoEngine.setPassword(m_state.plainPassword);
    if (m_state.myOpeningDocumentVersion >= FirstEngineVersion) {
        m_state.myCommonCrypto = std::make_unique<VLCommonCrypto>(m_state.plainPassword);
        m_state.myCommonCrypto->setPasswordToDecrypt(m_state.plainPassword, m_state.myIV, m_state.mySalt);
    }
    const DecryptPath path = decryptPathOfVersion(m_state.myOpeningDocumentVersion);
    switch (path) {
    case DecryptPath::Current:
        return readWithEngine(false);
    case DecryptPath::FlagResetting:
        return readWithEngine(true);
    case DecryptPath::Release1000:
    case DecryptPath::Release1100:
    case DecryptPath::PerField:
        return readOldRelease(path);
    case DecryptPath::NoEngine:
        break;
    }
    return Failure{DecryptWrongPassword};
}

DecryptResult<> DecryptPipeline::provePassword() const
{
    qint32 status = 0;
    auto check = m_state.myCommonCrypto->decrypt(m_state.myRCDataEncrypted, &status);
    if (!check)
        return decryptFailure(status);
    const SecretBytes plain(std::move(*check));
    if (VLCommonCrypto::dataSHA1(plain.bytes()) != m_state.mySha1_RcData)
        return Failure{DecryptWrongPassword};
    return {};
}

DecryptResult<Value> DecryptPipeline::openBuffer(const QByteArray &buffer) const
{
    qint32 status = 0;
    auto plain = m_state.myCommonCrypto->decrypt(buffer, &status);
    if (!plain)
        return decryptFailure(status);
    const SecretBytes archive(std::move(*plain));
    const auto content = Foundation::unarchivedRoot(archive.bytes());
    if (!content)
        return Failure{DecryptDamagedContent};
    return *content;
}

DecryptResult<Ref<Array>> DecryptPipeline::takeDictionaries(QByteArray &buffer)
{
    const auto root = openBuffer(buffer);
    if (!root)
        return root.failure();
    const Ref<Array> dictionaries = dictionariesIn(*root);
    if (!dictionaries)
        return Failure{DecryptDamagedContent};
    buffer = QByteArray();
    return dictionaries;
}

DecryptResult<> DecryptPipeline::readLabels(bool resetsFlags)
{
    const auto root = openBuffer(m_state.myEncriptedLabelDictionaryData);
    if (!root)
        return root.failure();
    // Null means that there are no captions, and then there are no flags to reset.
    const Ref<Dictionary> labels = root->isNull() ? Dictionary::create() : root->dictionary();
    if (!labels)
        return Failure{DecryptDamagedContent};
    if (resetsFlags && !root->isNull())
        resetOpenFlags(*labels);
    m_state.myLabelDictionary = labels; // Unlike the others, its buffer is kept.
    m_hasReplacedLabels = true;
    return {};
}

DecryptResult<> DecryptPipeline::takeCreationDate()
{
    const auto root = openBuffer(m_state.myEncryptedDocumentCreationDateData);
    if (!root)
        return root.failure();
    if (!root->isDate() && !root->isNull())
        return Failure{DecryptDamagedContent};
    m_state.documentCreationDate = *root;
    m_state.myEncryptedDocumentCreationDateData = QByteArray();
    return {};
}

DecryptResult<> DecryptPipeline::readWithEngine(bool resetsOpenFlags)
{
    if (auto proved = provePassword(); !proved)
        return proved;
    const auto records = takeDictionaries(m_state.myEncryptedArrayData);
    if (!records)
        return records.failure();
    const auto categories = takeDictionaries(m_state.myEncryptedCategoryArrayData);
    if (!categories)
        return categories.failure();
    if (auto labels = readLabels(resetsOpenFlags); !labels)
        return labels;
    if (auto date = takeCreationDate(); !date)
        return date;
    finish(*records, *categories);
    return {};
}

DecryptResult<> DecryptPipeline::readOldRelease(DecryptPath path)
{
    ReleaseMigration migration(m_state, m_clock);
    auto read = migration.read(path);
    m_hasReplacedLabels = migration.hasReplacedLabels();
    if (read)
        finish(migration.records(), migration.categories());
    return read;
}

void DecryptPipeline::finish(const Ref<Array> &records, const Ref<Array> &categories)
{
    restoreFromSaveOperationContent(*records, *categories);
    m_state.myArray = records;
    m_state.myCategoryArray = categories;
}

Ref<Dictionary> DecryptPipeline::catInArray(const Array &categories, qint64 withUniqueID)
{
    for (const Value &entry : categories.values) {
        Ref<Dictionary> category = entry.dictionary();
        if (category->value(CategoryKey::cat_uniqueID).longValue() == withUniqueID)
            return category;
    }
    return nullptr;
}

void DecryptPipeline::restoreFromSaveOperationContent(const Array &records, Array &categoryArray)
{
    if (categoryArray.values.empty())
        categoryArray.values.emplace_back(m_makeDefaultCategory());
    // A hash table instead of catInArray(), with the same results, so that many categories take no longer.
    std::unordered_map<qint64, Dictionary *> byID;
    std::unordered_map<Dictionary *, qint32> uses;
    for (const Value &entry : categoryArray.values) {
        const Ref<Dictionary> category = entry.dictionary();
        byID.emplace(category->value(CategoryKey::cat_uniqueID).longValue(), category.get());
    }
    Dictionary *first = categoryArray.values.front().dictionary().get();
    for (const Value &entry : records.values) {
        const Ref<Dictionary> record = entry.dictionary();
        const auto found = byID.find(record->value(RecordKey::cat_uniqueID).longValue());
        Dictionary *category = found == byID.end() ? first : found->second;
        record->setValue(RecordKey::categoryPtr, Ref<Dictionary>(category));
        ++uses[category];
    }
    for (const Value &entry : categoryArray.values) {
        const Ref<Dictionary> category = entry.dictionary();
        category->setValue(CategoryKey::cat_howManyUsingThis, Value(uses[category.get()]));
    }
}
