#include "core/ReleaseMigration.h"

#include "archive/KeyedArchive.h"
#include "core/ContactFields.h"
#include "core/DecryptPipeline.h"
#include "core/ReleaseDate.h"
#include "helpers/VLColorUtilOSX.h"
#include "values/OpaqueObject.h"

using Foundation::Array;
using Foundation::Color;
using Foundation::ColorObject;
using Foundation::Dictionary;
using Foundation::Key;
using Foundation::Ref;
using Foundation::Value;

namespace
{

const Key cat_mark{u"cat_mark"};

// What old releases drew before categories had colours.
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

// The order decides whose failure comes first, and in which order a migrated record is saved.
const std::vector<const ContactField *> &recordFields()
{
    static const auto fields = contactFieldsBy(&ContactField::oldReleasePlace);
    return fields;
}

bool isShared(const Value &value)
{
    return value.sharedObject() && value.sharedObject()->hasSeveralOwners();
}

// How many bytes there are in those fields of all entries that stand for one field only.
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

qint32 ReleaseMigration::read(DecryptPath path)
{
    if (!m_state.myCryptoEngine.hasKey() || !m_state.myEncryptedArray || !m_state.myEncryptedCategoryArray)
        return DecryptUnreadableField;
    if (const qint32 code = readCreationDate(path))
        return code;
    if (path != DecryptPath::Release1000) {
        if (const qint32 code = readLabels())
            return code;
    }
    if (const qint32 code = readRecords(path))
        return code;
    if (const qint32 code = readCategories(path))
        return code;
    adjustCategoriesFromOldRelease(*m_categories);
    adjustRecordsFromOldRelease(*m_records);
    return DecryptSuccess;
}

qint32 ReleaseMigration::readCreationDate(DecryptPath path)
{
    if (path == DecryptPath::Release1000) {
        m_state.documentCreationDate = Value::date(m_clock.secondsSince2001());
        return DecryptSuccess;
    }
    quint32 code = 0;
    const auto text =
        m_state.myCryptoEngine.decryptToString(m_state.myEncryptedDocumentCreationDateData, &code);
    if (!text)
        return qint32(code);
    const HourPattern hours =
        path == DecryptPath::Release1100 ? HourPattern::TwentyFour : HourPattern::Twelve;
    const auto seconds = secondsOfReleaseDate(*text, hours);
    m_state.documentCreationDate = seconds ? Value::date(*seconds) : Value();
    return DecryptSuccess;
}

qint32 ReleaseMigration::readLabels()
{
    if (const Ref<Dictionary> stored = m_state.myEncriptedLabelDictionary) {
        const auto labels = Dictionary::create();
        for (const ContactField &field : contactFields()) {
            if (!field.caption || field.oldReleasePlace == 0)
                continue;
            Value caption;
            if (const qint32 code = readField(*stored, field.key, TextField, &caption))
                return code;
            labels->setValue(field.key, caption);
        }
        m_state.myLabelDictionary = labels;
    }
    // These releases had no flags.
    resetOpenFlags(*m_state.myLabelDictionary);
    m_hasReplacedLabels = true;
    return DecryptSuccess;
}

qint32 ReleaseMigration::readRecords(DecryptPath path)
{
    m_records = Array::create();
    m_records->values.reserve(m_state.myEncryptedArray->values.size());
    for (const Value &entry : m_state.myEncryptedArray->values) {
        const Ref<Dictionary> stored = takeEntry(entry);
        if (!stored)
            return DecryptUnreadableField;
        const auto record = Dictionary::create();
        record->reserve(recordFields().size() + 1); // and the category it will point at
        if (const qint32 code = readRecord(*stored, path, *record))
            return code;
        m_records->values.emplace_back(record);
    }
    return DecryptSuccess;
}

qint32 ReleaseMigration::readRecord(const Dictionary &stored, DecryptPath path, Dictionary &record)
{
    for (const ContactField *field : recordFields()) {
        const Key &key = field->key;
        const bool isNumber = key == RecordKey::cat_uniqueID;
        Value content(qint64(0));
        if (!isNumber || path == DecryptPath::PerField) {
            const FieldKind kind = isNumber ? NumberField : TextField;
            if (const qint32 code = readField(stored, key, kind, &content))
                return code;
        }
        record.setValue(key, key == RecordKey::isCompany ? Value(content.intValue()) : content);
    }
    return DecryptSuccess;
}

qint32 ReleaseMigration::readCategories(DecryptPath path)
{
    m_categories = Array::create();
    for (const Value &entry : m_state.myEncryptedCategoryArray->values) {
        const Ref<Dictionary> stored = takeEntry(entry);
        if (!stored)
            return DecryptUnreadableField;
        const auto category = Dictionary::create();
        if (const qint32 code = readCategory(*stored, path, m_categories->count() + 1, *category))
            return code;
        m_categories->values.emplace_back(category);
    }
    return DecryptSuccess;
}

qint32 ReleaseMigration::readCategory(const Dictionary &stored, DecryptPath path, qint64 number,
                                      Dictionary &category)
{
    Value content;
    for (const Key &key : {CategoryKey::cat_category, cat_mark}) {
        if (const qint32 code = readField(stored, key, TextField, &content))
            return code;
        category.setValue(key, content);
    }
    category.setValue(CategoryKey::cat_howManyUsingThis, Value(qint64(0)));
    const bool isInFile = path == DecryptPath::PerField;
    for (const Key &key : {CategoryKey::cat_backColor, CategoryKey::cat_textColor}) {
        content = Value();
        const qint32 code = isInFile ? readField(stored, key, ColorField, &content) : DecryptSuccess;
        if (code)
            return code;
        // A colour that cannot be read is no reason to withhold an address book.
        category.setValue(key, content.isNull() ? colorValue(inventedColor(key)) : content);
    }
    content = Value(number);
    const qint32 code = isInFile ? readField(stored, CategoryKey::cat_uniqueID, NumberField, &content) : 0;
    category.setValue(CategoryKey::cat_uniqueID, content);
    return code;
}

Ref<Dictionary> ReleaseMigration::takeEntry(const Value &entry)
{
    using Foundation::ReadBudget;
    // One without content costs some fifty times what it takes in a file.
    static const quint64 cost = ReadBudget::Container + ReadBudget::DictionaryEntry * recordFields().size();
    if (!m_entryBudget.spend(cost))
        return nullptr;
    if (isShared(entry) && !m_sharedEntries.insert(entry.sharedObject()).second)
        return nullptr;
    return entry.dictionary();
}

qint32 ReleaseMigration::readField(const Dictionary &stored, const Key &key, FieldKind kind, Value *content)
{
    const Value &cipherText = stored.value(key);
    if (!cipherText.isNull() && cipherText.type() != Value::Type::Data)
        return DecryptUnreadableField;
    std::optional<Value> *const known =
        isShared(cipherText) ? &m_memos[kind][cipherText.sharedObject()] : nullptr;
    if (known && known->has_value()) {
        *content = **known;
        return DecryptSuccess;
    }
    quint32 code = 0;
    *content = deciphered(cipherText.dataValue(), kind, &code);
    if (known && code == LegacySuccess)
        *known = *content;
    return qint32(code);
}

Value ReleaseMigration::deciphered(const QByteArray &bytes, FieldKind kind, quint32 *code)
{
    const VLCrypto &engine = m_state.myCryptoEngine;
    switch (kind) {
    case TextField:
        return Value(engine.decryptToString(bytes, code).value_or(QString()));
    case NumberField:
        return Value(engine.decryptToLong(bytes, code));
    case ColorField: {
        const auto archive = engine.decryptToData(bytes, code);
        const auto color = archive ? Foundation::unarchivedRoot(*archive, m_colorBudget) : std::nullopt;
        return color && color->color() ? *color : Value();
    }
    case FieldKinds:
        break;
    }
    return {};
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
