#include "core/ReleaseMigration.h"

#include "core/DecryptPipeline.h"
#include "core/ReleaseDate.h"
#include "foundation/KeyedArchive.h"
#include "foundation/OpaqueObject.h"
#include "foundation/Services.h"
#include "helpers/VLColorUtilOSX.h"

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

// The fields of a record in the order in which they are read, which decides whose failure comes first.
const Key recordFields[] = {
    RecordKey::addressPersonal, RecordKey::addressWork,   RecordKey::category,    RecordKey::cat_uniqueID,
    RecordKey::company,         RecordKey::emailPersonal, RecordKey::emailWork,   RecordKey::faxPersonal,
    RecordKey::faxWork,         RecordKey::firstName,     RecordKey::isCompany,   RecordKey::lastName,
    RecordKey::mobile,          RecordKey::note,          RecordKey::pager,       RecordKey::phonePersonal,
    RecordKey::phoneWork,       RecordKey::resultingName, RecordKey::webPersonal, RecordKey::webWork};

const Key captionFields[] = {RecordKey::category,        RecordKey::firstName,     RecordKey::lastName,
                             RecordKey::company,         RecordKey::phoneWork,     RecordKey::faxWork,
                             RecordKey::emailWork,       RecordKey::addressWork,   RecordKey::webWork,
                             RecordKey::phonePersonal,   RecordKey::faxPersonal,   RecordKey::mobile,
                             RecordKey::pager,           RecordKey::emailPersonal, RecordKey::webPersonal,
                             RecordKey::addressPersonal, RecordKey::note};

// The enciphered bytes under a key. Nothing for a value of another kind, which no release wrote.
std::optional<QByteArray> cipherText(const Dictionary &stored, const Key &key)
{
    const Value value = stored.value(key);
    if (value.isNull())
        return QByteArray();
    return value.type() == Value::Type::Data ? std::optional(value.dataValue()) : std::nullopt;
}

} // namespace

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
        m_state.documentCreationDate = Value::date(Foundation::Services::shared().clock().secondsSince2001());
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
        for (const Key &key : captionFields) {
            QString caption;
            if (const qint32 code = readText(*stored, key, &caption))
                return code;
            labels->setValue(key, caption);
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
        const Ref<Dictionary> stored = entry.dictionary();
        if (!stored)
            return DecryptUnreadableField;
        const auto record = Dictionary::create();
        record->reserve(std::size(recordFields) + 1); // and the category it will point at
        if (const qint32 code = readRecord(*stored, path, *record))
            return code;
        m_records->values.emplace_back(record);
    }
    return DecryptSuccess;
}

qint32 ReleaseMigration::readRecord(const Dictionary &stored, DecryptPath path, Dictionary &record)
{
    for (const Key &key : recordFields) {
        if (key == RecordKey::cat_uniqueID) {
            qint64 id = 0;
            const qint32 code = path == DecryptPath::PerField ? readNumber(stored, key, &id) : 0;
            if (code)
                return code;
            record.setValue(key, Value(id));
            continue;
        }
        QString text;
        if (const qint32 code = readText(stored, key, &text))
            return code;
        if (key == RecordKey::isCompany)
            record.setValue(key, Value(Value(text).intValue()));
        else
            record.setValue(key, text);
    }
    return DecryptSuccess;
}

qint32 ReleaseMigration::readCategories(DecryptPath path)
{
    m_categories = Array::create();
    for (const Value &entry : m_state.myEncryptedCategoryArray->values) {
        const Ref<Dictionary> stored = entry.dictionary();
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
    for (const Key &key : {CategoryKey::cat_category, cat_mark}) {
        QString text;
        if (const qint32 code = readText(stored, key, &text))
            return code;
        category.setValue(key, text);
    }
    category.setValue(CategoryKey::cat_howManyUsingThis, Value(qint64(0)));
    const bool isInFile = path == DecryptPath::PerField;
    for (const Key &key : {CategoryKey::cat_backColor, CategoryKey::cat_textColor}) {
        if (!isInFile)
            category.setValue(key, colorValue(inventedColor(key)));
        else if (const qint32 code = readColor(stored, key, category))
            return code;
    }
    if (isInFile) {
        if (const qint32 code = readNumber(stored, CategoryKey::cat_uniqueID, &number))
            return code;
    }
    category.setValue(CategoryKey::cat_uniqueID, Value(number));
    return DecryptSuccess;
}

qint32 ReleaseMigration::readColor(const Dictionary &stored, const Key &key, Dictionary &category)
{
    const auto bytes = cipherText(stored, key);
    if (!bytes)
        return DecryptUnreadableField;
    quint32 code = 0;
    const auto archive = m_state.myCryptoEngine.decryptToData(*bytes, &code);
    if (!archive)
        return qint32(code);
    // A colour that cannot be read is no reason to withhold an address book.
    const auto color = Foundation::unarchivedRoot(*archive);
    category.setValue(key, color && color->color() ? *color : colorValue(inventedColor(key)));
    return DecryptSuccess;
}

qint32 ReleaseMigration::readText(const Dictionary &stored, const Key &key, QString *text)
{
    const auto bytes = cipherText(stored, key);
    if (!bytes)
        return DecryptUnreadableField;
    quint32 code = 0;
    *text = m_state.myCryptoEngine.decryptToString(*bytes, &code).value_or(QString());
    return qint32(code);
}

qint32 ReleaseMigration::readNumber(const Dictionary &stored, const Key &key, qint64 *number)
{
    const auto bytes = cipherText(stored, key);
    if (!bytes)
        return DecryptUnreadableField;
    quint32 code = 0;
    *number = m_state.myCryptoEngine.decryptToLong(*bytes, &code);
    return qint32(code);
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
