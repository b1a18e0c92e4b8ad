#include "DocumentJson.h"

#include <charconv>
#include <cmath>
#include <unordered_map>

using Foundation::Array;
using Foundation::Dictionary;
using Foundation::Key;
using Foundation::Ref;
using Foundation::Value;

namespace
{

// Builds one text. Each append function writes a complete JSON value.
class JsonWriter
{
public:
    QByteArray take() { return std::move(m_json); }

    void appendValue(const Value &value);
    void appendEntries(const Dictionary &dictionary, const Key *left = nullptr);
    void appendDocument(const DocumentState &document);

private:
    void appendText(QStringView text);
    void appendReal(double number);
    void appendArray(const Array &array);
    void appendRecords(const Array &records, const Array &categories);
    void appendCategories(const Array &categories);

    // {"kind": what `append` writes}
    template <class Append>
    void appendKind(const char *kind, Append append)
    {
        m_json += "{\"";
        m_json += kind;
        m_json += "\":";
        append();
        m_json += '}';
    }
    // Writes a text without characters that need an escape.
    void appendPlain(const QByteArray &text)
    {
        m_json += '"';
        m_json += text;
        m_json += '"';
    }
    void separate(bool &first)
    {
        if (!first)
            m_json += ',';
        first = false;
    }

    QByteArray m_json;
};

const char *shortEscape(char16_t unit)
{
    switch (unit) {
    case u'"':
        return "\\\"";
    case u'\\':
        return "\\\\";
    case u'\b':
        return "\\b";
    case u'\f':
        return "\\f";
    case u'\n':
        return "\\n";
    case u'\r':
        return "\\r";
    case u'\t':
        return "\\t";
    default:
        return nullptr;
    }
}

void JsonWriter::appendText(QStringView text)
{
    m_json += '"';
    for (const QChar character : text) {
        const char16_t unit = character.unicode();
        if (const char *escape = shortEscape(unit))
            m_json += escape;
        else if (unit >= 0x20 && unit < 0x7F)
            m_json += char(unit);
        else
            m_json += "\\u" + QByteArray::number(unit, 16).rightJustified(4, '0');
    }
    m_json += '"';
}

void JsonWriter::appendReal(double number)
{
    if (std::isnan(number)) {
        m_json += "NaN";
        return;
    }
    if (std::isinf(number)) {
        m_json += number < 0 ? "-Infinity" : "Infinity";
        return;
    }
    // Up to sixteen digits before the point and three zeros after it are written without an exponent.
    const double size = std::fabs(number);
    const bool isPlain = number == 0 || (size >= 1e-4 && size < 1e16);
    char digits[32];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), number,
                                   isPlain ? std::chars_format::fixed : std::chars_format::scientific)
                         .ptr;
    const QByteArrayView text(digits, end - digits);
    m_json += text;
    if (isPlain && !text.contains('.'))
        m_json += ".0";
}

void JsonWriter::appendArray(const Array &array)
{
    m_json += '[';
    bool first = true;
    for (const Value &value : array.values) {
        separate(first);
        appendValue(value);
    }
    m_json += ']';
}

void JsonWriter::appendValue(const Value &value)
{
    switch (value.type()) {
    case Value::Type::Null:
    case Value::Type::ArchivedNull:
    case Value::Type::Opaque:
        m_json += "null";
        return;
    case Value::Type::Bool:
        m_json += value.boolValue() ? "true" : "false";
        return;
    case Value::Type::Int32:
    case Value::Type::Int64:
        return appendKind("$int", [&] { appendPlain(QByteArray::number(value.longValue())); });
    case Value::Type::UInt64:
        return appendKind("$int", [&] { appendPlain(QByteArray::number(value.unsignedLongValue())); });
    case Value::Type::Real32:
        return appendKind("$real32", [&] { appendReal(value.doubleValue()); });
    case Value::Type::Real64:
        return appendKind("$real", [&] { appendReal(value.doubleValue()); });
    case Value::Type::Date:
        return appendKind("$date", [&] { appendReal(value.dateValue()); });
    case Value::Type::String:
        return appendText(value.stringValue());
    case Value::Type::Data:
        return appendKind("$data", [&] { appendPlain(value.dataValue().toBase64()); });
    case Value::Type::Array:
        return appendArray(*value.array());
    case Value::Type::Dictionary:
        return appendKind("$dict", [&] { appendEntries(*value.dictionary()); });
    }
}

void JsonWriter::appendEntries(const Dictionary &dictionary, const Key *left)
{
    m_json += '{';
    bool first = true;
    for (const Dictionary::Entry &entry : dictionary.entries()) {
        if (left && entry.key == *left)
            continue;
        separate(first);
        appendText(entry.key.name());
        m_json += ':';
        appendValue(entry.value);
    }
    m_json += '}';
}

void JsonWriter::appendRecords(const Array &records, const Array &categories)
{
    std::unordered_map<const Dictionary *, qsizetype> places;
    for (qsizetype i = 0; i < categories.count(); ++i)
        places.emplace(categories.at(i).dictionary().get(), i);
    m_json += '[';
    bool first = true;
    for (const Value &entry : records.values) {
        const Ref<Dictionary> record = entry.dictionary();
        const auto place = places.find(record->value(RecordKey::categoryPtr).dictionary().get());
        separate(first);
        m_json += "{\"category\":";
        m_json += place == places.end() ? QByteArray("null") : QByteArray::number(place->second);
        m_json += ",\"fields\":";
        appendEntries(*record, &RecordKey::categoryPtr);
        m_json += '}';
    }
    m_json += ']';
}

void JsonWriter::appendCategories(const Array &categories)
{
    m_json += '[';
    bool first = true;
    for (const Value &entry : categories.values) {
        separate(first);
        appendEntries(*entry.dictionary());
    }
    m_json += ']';
}

void JsonWriter::appendDocument(const DocumentState &document)
{
    m_json += "{\"records\":";
    appendRecords(*document.myArray, *document.myCategoryArray);
    m_json += ",\"categories\":";
    appendCategories(*document.myCategoryArray);
    m_json += ",\"labels\":";
    appendEntries(*document.myLabelDictionary);
    m_json += ",\"creationDate\":";
    appendValue(document.documentCreationDate);
    m_json += '}';
}

} // namespace

QByteArray jsonOfValue(const Value &value)
{
    JsonWriter writer;
    writer.appendValue(value);
    return writer.take();
}

QByteArray jsonOfEntries(const Dictionary &dictionary)
{
    JsonWriter writer;
    writer.appendEntries(dictionary);
    return writer.take();
}

QByteArray jsonOfDocument(const DocumentState &document)
{
    JsonWriter writer;
    writer.appendDocument(document);
    return writer.take();
}
