#include "core/RecordModel.h"

using Foundation::Array;
using Foundation::Dictionary;
using Foundation::Key;
using Foundation::Ref;
using Foundation::Value;

namespace
{

constexpr int OpenFlagCount = 15;

struct Caption
{
    const char16_t *key;
    const char16_t *caption;
};

// The two captions without a colon have always been so.
constexpr Caption captions[] = {
    {u"category", u"Category:"},
    {u"firstName", u"First name:"},
    {u"lastName", u"Last name:"},
    {u"company", u"Company:"},
    {u"phoneWork", u"Phone work:"},
    {u"faxWork", u"Fax work:"},
    {u"emailWork", u"Email work:"},
    {u"addressWork", u"Address work:"},
    {u"webWork", u"Web work:"},
    {u"phonePersonal", u"Phone personal:"},
    {u"faxPersonal", u"Fax personal:"},
    {u"mobile", u"Mobile personal:"},
    {u"pager", u"Mobile work"},
    {u"emailPersonal", u"Email personal:"},
    {u"webPersonal", u"Web personal:"},
    {u"addressPersonal", u"Address personal:"},
    {u"note", u"Note"},
};

struct FieldTitle
{
    const char16_t *title;
    const char16_t *key;
};

// The category, whose key differs between export and import, comes before these.
constexpr FieldTitle fieldTitles[] = {
    {u"First name", u"firstName"},
    {u"Last name", u"lastName"},
    {u"Company", u"company"},
    {u"Phone work", u"phoneWork"},
    {u"Fax work", u"faxWork"},
    {u"Address work", u"addressWork"},
    {u"Email work", u"emailWork"},
    {u"Web work", u"webWork"},
    {u"Phone personal", u"phonePersonal"},
    {u"Fax personal", u"faxPersonal"},
    {u"Mobile personal", u"mobile"},
    {u"Mobile work", u"pager"},
    {u"Email personal", u"emailPersonal"},
    {u"Web personal", u"webPersonal"},
    {u"Address personal", u"addressPersonal"},
    {u"Note", u"note"},
};

// The fields that can be opened by a click in a new document: the mail and web addresses.
bool isOpenByDefault(int flag)
{
    return flag == 7 || flag == 8 || flag == 13 || flag == 14;
}

Ref<Dictionary> newColor(const Value &component)
{
    auto color = Dictionary::create();
    for (const char16_t *name : {u"r", u"g", u"b"})
        color->setValue(QStringView(name), component);
    // Opaque is the whole number in every file, whatever kind the other components have.
    color->setValue(QStringView(u"a"), Value(qint32(1)));
    return color;
}

Value fieldEntry(QStringView title, QStringView innerKey)
{
    auto entry = Dictionary::create();
    entry->setValue(QStringView(u"publicKey"), title.toString());
    entry->setValue(QStringView(u"innerKey"), innerKey.toString());
    return entry;
}

Ref<Array> newFieldTable(QStringView categoryKey)
{
    auto table = Array::create();
    table->values.push_back(fieldEntry(u"Category", categoryKey));
    for (const FieldTitle &field : fieldTitles)
        table->values.push_back(fieldEntry(QStringView(field.title), QStringView(field.key)));
    return table;
}

} // namespace

const std::array<Key, ContactTextCount> &contactTextKeys()
{
    using namespace RecordKey;
    static const std::array<Key, ContactTextCount> keys = {
        firstName,     lastName,    company, phoneWork, faxWork,       emailWork,   addressWork,     webWork,
        phonePersonal, faxPersonal, mobile,  pager,     emailPersonal, webPersonal, addressPersonal, note};
    return keys;
}

Ref<Dictionary> newContactRecord(const Ref<Dictionary> &category, double secondsSince2001)
{
    const Value empty(QStringLiteral(""));
    auto record = Dictionary::create();
    record->reserve(ContactTextCount + 4);
    for (const Key &key : contactTextKeys())
        record->setValue(key, empty);
    record->setValue(RecordKey::firstName, QStringLiteral("First Name"));
    record->setValue(RecordKey::lastName, QStringLiteral("Last Name"));
    record->setValue(RecordKey::creationDate, Value::date(secondsSince2001));
    record->setValue(RecordKey::usageCount, Value(qint64(0)));
    record->setValue(RecordKey::categoryPtr, category);
    return record;
}

Ref<Dictionary> newCategoryRecord(const QString &name, qint64 uniqueID)
{
    auto category = Dictionary::create();
    category->setValue(CategoryKey::cat_category, name);
    category->setValue(CategoryKey::cat_backColor, newColor(Value(0.75)));
    category->setValue(CategoryKey::cat_textColor, newColor(Value(qint32(1))));
    category->setValue(CategoryKey::cat_howManyUsingThis, Value(qint32(0)));
    category->setValue(CategoryKey::cat_uniqueID, Value(uniqueID));
    category->setValue(CategoryKey::records, Array::create());
    return category;
}

Ref<Dictionary> defaultLabelDictionary()
{
    auto labels = Dictionary::create();
    for (const Caption &caption : captions)
        labels->setValue(QStringView(caption.key), QString::fromUtf16(caption.caption));
    resetOpenFlags(*labels);
    return labels;
}

void resetOpenFlags(Dictionary &labels)
{
    for (int flag = 1; flag <= OpenFlagCount; ++flag) {
        const QString name = QStringLiteral("open%1").arg(flag, 2, 10, QLatin1Char('0'));
        labels.setValue(name, Value(isOpenByDefault(flag)));
    }
}

Ref<Array> newArrayForExport()
{
    return newFieldTable(u"categoryPtr.cat_category");
}

Ref<Array> newArrayForImport()
{
    return newFieldTable(u"categoryNAME");
}
