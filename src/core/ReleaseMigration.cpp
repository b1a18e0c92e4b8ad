#include "core/ReleaseMigration.h"

#include "archive/KeyedArchive.h"
#include "core/ContactFields.h"
#include "core/ReleaseDate.h"
#include "helpers/VLColorUtilOSX.h"
#include "values/OpaqueObject.h"

using Foundation::Array;
using Foundation::Color;
using Foundation::ColorObject;
using Foundation::Dictionary;
using Foundation::Failure;
using Foundation::Key;
using Foundation::Ref;
using Foundation::Value;

namespace
{

const Key cat_mark{u"cat_mark"};

// The colours of releases whose categories had none.
constexpr Color InventedBackColor{0.75, 0.75, 0.75, 1};
constexpr Color InventedTextColor{1, 1, 1, 1};

Value colorValue(const Color &color)
{
    return Value(Ref<Foundation::OpaqueObject>(new ColorObject(color)));
}

const Color &inventedColor(const Key &key)
{
    return key == CategoryKey::cat_backColor ? InventedBackColor : InventedTextColor;
}

// The order determines which failure is returned, and the order of the keys in a migrated record.
const std::vector<const ContactField *> &recordFields()
{
    static const auto fields = contactFieldsBy(&ContactField::oldReleasePlace);
    return fields;
}

bool isShared(const Value &value)
{
    return value.sharedObject() && value.sharedObject()->hasSeveralOwners();
}

// The number of bytes in the fields of all entries, where a shared buffer counts once.
quint64 ownBytesOf(const Ref<Array> &entries)
{
    quint64 bytes = 0;
    if (!entries)
        return bytes;
    for (const Value &entry : entries->values) {
        if (const auto stored = entry.dictionary()) {
            for (const auto &field : stored->entries())
                bytes += isShared(field.value) ? 0 : quint64(field.value.contentBytes());
        }
    }
    return bytes;
}

} // namespace

ReleaseMigration::ReleaseMigration(DocumentState &state, const Foundation::Clock &clock)
    : m_state(state)
    , m_clock(clock)
    , m_entryBudget(ownBytesOf(state.myEncryptedArray) + ownBytesOf(state.myEncryptedCategoryArray))
    , m_colorBudget(ownBytesOf(state.myEncryptedCategoryArray))
{
}

DecryptResult<> ReleaseMigration::read(DecryptPath path)
{
    if (!m_state.myCryptoEngine.hasKey())
        return decryptFailure(LegacyFinalFailed);
    if (!m_state.myEncryptedArray || !m_state.myEncryptedCategoryArray)
        return Failure{DecryptUnreadableField};
    if (auto date = readCreationDate(path); !date)
        return date;
    if (path != DecryptPath::Release1000) {
        if (auto labels = readLabels(); !labels)
            return labels;
    }
    if (auto records = readRecords(path); !records)
        return records;
    if (auto categories = readCategories(path); !categories)
        return categories;
    adjustCategoriesFromOldRelease(*m_categories);
    adjustRecordsFromOldRelease(*m_records);
    return {};
}

DecryptResult<> ReleaseMigration::readCreationDate(DecryptPath path)
{
    if (path == DecryptPath::Release1000) {
        m_state.documentCreationDate = Value::date(m_clock.secondsSince2001());
        return {};
    }
    quint32 code = 0;
    const auto text =
        m_state.myCryptoEngine.decryptToString(m_state.myEncryptedDocumentCreationDateData, &code);
    if (!text)
        return decryptFailure(qint32(code));
    const HourPattern hours =
        path == DecryptPath::Release1100 ? HourPattern::TwentyFour : HourPattern::Twelve;
    const auto seconds = secondsOfReleaseDate(*text, hours);
    m_state.documentCreationDate = seconds ? Value::date(*seconds) : Value();
    return {};
}

DecryptResult<> ReleaseMigration::readLabels()
{
    if (const Ref<Dictionary> stored = m_state.myEncriptedLabelDictionary) {
        const auto labels = Dictionary::create();
        for (const ContactField &field : contactFields()) {
            if (!field.caption || field.oldReleasePlace == 0)
                continue;
            const auto caption = readField(*stored, field.key, TextField);
            if (!caption)
                return caption.failure();
            labels->setValue(field.key, *caption);
        }
        m_state.myLabelDictionary = labels;
    }
    // These releases had no such flags.
    resetOpenFlags(*m_state.myLabelDictionary);
    m_hasReplacedLabels = true;
    return {};
}

DecryptResult<> ReleaseMigration::readRecords(DecryptPath path)
{
    m_records = Array::create();
    m_records->values.reserve(m_state.myEncryptedArray->values.size());
    for (const Value &entry : m_state.myEncryptedArray->values) {
        const Ref<Dictionary> stored = takeEntry(entry);
        if (!stored)
            return Failure{DecryptUnreadableField};
        const auto record = Dictionary::create();
        record->reserve(recordFields().size() + 1); // and the reference to the category
        if (auto read = readRecord(*stored, path, *record); !read)
            return read;
        m_records->values.emplace_back(record);
    }
    return {};
}

DecryptResult<> ReleaseMigration::readRecord(const Dictionary &stored, DecryptPath path, Dictionary &record)
{
    for (const ContactField *field : recordFields()) {
        const Key &key = field->key;
        const bool isNumber = key == RecordKey::cat_uniqueID;
        const bool isInFile = !isNumber || path == DecryptPath::PerField;
        const FieldKind kind = isNumber ? NumberField : TextField;
        const auto content = isInFile ? readField(stored, key, kind) : Value(qint64(0));
        if (!content)
            return content.failure();
        record.setValue(key, key == RecordKey::isCompany ? Value(content->intValue()) : *content);
    }
    return {};
}

DecryptResult<> ReleaseMigration::readCategories(DecryptPath path)
{
    m_categories = Array::create();
    for (const Value &entry : m_state.myEncryptedCategoryArray->values) {
        const Ref<Dictionary> stored = takeEntry(entry);
        if (!stored)
            return Failure{DecryptUnreadableField};
        const auto category = Dictionary::create();
        if (auto read = readCategory(*stored, path, m_categories->count() + 1, *category); !read)
            return read;
        m_categories->values.emplace_back(category);
    }
    return {};
}

DecryptResult<> ReleaseMigration::readCategory(const Dictionary &stored, DecryptPath path, qint64 number,
                                               Dictionary &category)
{
    for (const Key &key : {CategoryKey::cat_category, cat_mark}) {
        const auto content = readField(stored, key, TextField);
        if (!content)
            return content.failure();
        category.setValue(key, *content);
    }
    category.setValue(CategoryKey::cat_howManyUsingThis, Value(qint64(0)));
    const bool isInFile = path == DecryptPath::PerField;
    for (const Key &key : {CategoryKey::cat_backColor, CategoryKey::cat_textColor}) {
        const auto content = isInFile ? readField(stored, key, ColorField) : Value();
        if (!content)
            return content.failure();
        // A colour that cannot be read is no reason to refuse an address book.
        category.setValue(key, content->isNull() ? colorValue(inventedColor(key)) : *content);
    }
    const auto id = isInFile ? readField(stored, CategoryKey::cat_uniqueID, NumberField) : Value(number);
    if (!id)
        return id.failure();
    category.setValue(CategoryKey::cat_uniqueID, *id);
    return {};
}

Ref<Dictionary> ReleaseMigration::takeEntry(const Value &entry)
{
    using Foundation::ReadBudget;
    // An empty entry takes about fifty times the memory that it takes in the file.
    static const quint64 cost = ReadBudget::Container + ReadBudget::DictionaryEntry * recordFields().size();
    if (!m_entryBudget.spend(cost))
        return nullptr;
    if (isShared(entry) && !m_sharedEntries.insert(entry.sharedObject()).second)
        return nullptr;
    return entry.dictionary();
}

DecryptResult<Value> ReleaseMigration::readField(const Dictionary &stored, const Key &key, FieldKind kind)
{
    const Value &cipherText = stored.value(key);
    if (!cipherText.isNull() && cipherText.type() != Value::Type::Data)
        return Failure{DecryptUnreadableField};
    std::optional<Value> *const known =
        isShared(cipherText) ? &m_memos[kind][cipherText.sharedObject()] : nullptr;
    if (known && known->has_value())
        return **known;
    auto content = deciphered(cipherText.dataValue(), kind);
    if (known && content)
        *known = *content;
    return content;
}

DecryptResult<Value> ReleaseMigration::deciphered(const QByteArray &bytes, FieldKind kind)
{
    const VLCrypto &engine = m_state.myCryptoEngine;
    quint32 code = 0;
    Value content;
    switch (kind) {
    case TextField:
        content = engine.decryptToString(bytes, &code).value_or(QString());
        break;
    case NumberField:
        content = Value(engine.decryptToLong(bytes, &code));
        break;
    case ColorField: {
        const auto archive = engine.decryptToData(bytes, &code);
        const auto color = archive ? Foundation::unarchivedRoot(*archive, m_colorBudget) : std::nullopt;
        if (color && color->color())
            content = *color;
        break;
    }
    case FieldKinds:
        break;
    }
    if (code != LegacySuccess)
        return decryptFailure(qint32(code));
    return content;
}

void adjustCategoriesFromOldRelease(Array &categories)
{
    for (const Value &entry : categories.values) {
        const Ref<Dictionary> category = entry.dictionary();
        for (const Key &key : {CategoryKey::cat_backColor, CategoryKey::cat_textColor}) {
            if (const auto color = category->value(key).color())
                category->setValue(key, VLColorUtilOSX::dictFromNSColor(color->color));
        }
    }
}

void adjustRecordsFromOldRelease(Array &records)
{
    for (const Value &entry : records.values) {
        const Ref<Dictionary> record = entry.dictionary();
        record->setValue(CategoryKey::cat_backColor, Value());
        record->setValue(CategoryKey::cat_textColor, Value());
        if (!record->contains(RecordKey::cat_uniqueID))
            record->setValue(RecordKey::cat_uniqueID, Value(qint32(0)));
    }
}

void adjustCategoriesFromAncientRelease(Array &categories)
{
    qint64 id = 0;
    for (const Value &entry : categories.values) {
        const Ref<Dictionary> category = entry.dictionary();
        for (const Key &key : {CategoryKey::cat_backColor, CategoryKey::cat_textColor}) {
            if (!category->contains(key))
                category->setValue(key, VLColorUtilOSX::dictFromNSColor(inventedColor(key)));
        }
        category->setValue(CategoryKey::cat_uniqueID, Value(++id));
        if (!category->contains(CategoryKey::cat_howManyUsingThis))
            category->setValue(CategoryKey::cat_howManyUsingThis, Value(qint64(0)));
    }
}
