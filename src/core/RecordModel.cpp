#include "core/RecordModel.h"

#include "core/ContactFields.h"

using Foundation::Array;
using Foundation::Dictionary;
using Foundation::Key;
using Foundation::Ref;
using Foundation::Value;

namespace
{

Ref<Dictionary> newColor(const Value &component)
{
    auto color = Dictionary::create();
    for (const char16_t *name : {u"r", u"g", u"b"})
        color->setValue(QStringView(name), component);
    // Required: full opacity is an integer in every file, whatever type the other components have.
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
    for (const ContactField *field : contactFieldsBy(&ContactField::exportPlace)) {
        const QString key = field->key.name();
        const bool isCategory = field->key == RecordKey::category;
        table->values.push_back(fieldEntry(field->exportTitle, isCategory ? categoryKey : QStringView(key)));
    }
    return table;
}

// The texts of a new record, made once for all records.
std::vector<Dictionary::Entry> newTexts()
{
    std::vector<Dictionary::Entry> texts;
    for (const ContactField &field : contactFields()) {
        if (field.textInNewRecord)
            texts.push_back({field.key, Value(QString::fromUtf16(field.textInNewRecord))});
    }
    return texts;
}

} // namespace

const std::vector<Key> &contactTextKeys()
{
    static const std::vector<Key> keys = [] {
        std::vector<Key> all;
        for (const Dictionary::Entry &text : newTexts())
            all.push_back(text.key);
        return all;
    }();
    return keys;
}

Ref<Dictionary> newContactRecord(const Ref<Dictionary> &category, double secondsSince2001)
{
    static const std::vector<Dictionary::Entry> texts = newTexts();
    auto record = Dictionary::create();
    record->reserve(texts.size() + 4);
    for (const Dictionary::Entry &text : texts)
        record->setValue(text.key, text.value);
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
    for (const ContactField &field : contactFields()) {
        if (field.caption)
            labels->setValue(field.key, QString::fromUtf16(field.caption));
    }
    resetOpenFlags(*labels);
    return labels;
}

void resetOpenFlags(Dictionary &labels)
{
    for (const ContactField *field : contactFieldsBy(&ContactField::tag)) {
        const QString name = QStringLiteral("open%1").arg(field->tag, 2, 10, QLatin1Char('0'));
        labels.setValue(name, Value(field->opensByDefault));
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
