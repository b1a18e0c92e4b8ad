#include "archive/PropertyList.h"
#include "archive/ReadBudget.h"
#include "archive/XmlMarkup.h"
#include "values/Array.h"
#include "values/Dictionary.h"

#include <QBuffer>
#include <QDateTime>
#include <QStringDecoder>
#include <QXmlStreamReader>

#include <algorithm>
#include <limits>
#include <vector>

namespace Foundation
{

namespace
{

constexpr std::size_t DeepestNesting = 512;
constexpr qint64 MillisecondsTo2001 = 978307200000;

std::optional<Value> integerIn(const QString &text)
{
    const QString trimmed = text.trimmed();
    const bool isHexadecimal = trimmed.startsWith(u"0x", Qt::CaseInsensitive);
    bool ok = false;
    const qint64 number = trimmed.toLongLong(&ok, isHexadecimal ? 16 : 10);
    if (ok)
        return Value(number);
    const quint64 large = trimmed.toULongLong(&ok, isHexadecimal ? 16 : 10);
    return ok ? std::optional(Value(large)) : std::nullopt;
}

std::optional<Value> realIn(const QString &text)
{
    const QString word = text.trimmed().toLower();
    if (word == u"nan")
        return Value(std::numeric_limits<double>::quiet_NaN());
    if (word == u"inf" || word == u"+inf" || word == u"infinity" || word == u"+infinity")
        return Value(std::numeric_limits<double>::infinity());
    if (word == u"-inf" || word == u"-infinity")
        return Value(-std::numeric_limits<double>::infinity());
    bool ok = false;
    const double number = word.toDouble(&ok);
    return ok ? std::optional(Value(number)) : std::nullopt;
}

std::optional<Value> dateIn(const QString &text)
{
    QDateTime date = QDateTime::fromString(text.trimmed(), Qt::ISODate);
    if (!date.isValid())
        return std::nullopt;
    // The XML form has whole seconds of UTC, independent of the local time zone.
    if (date.timeSpec() == Qt::LocalTime)
        date.setTimeSpec(Qt::UTC);
    const qint64 seconds = (date.toMSecsSinceEpoch() - MillisecondsTo2001) / 1000;
    return Value::date(double(seconds));
}

std::optional<Value> dataIn(const QString &text)
{
    QByteArray base64;
    base64.reserve(text.size());
    for (const QChar unit : text) {
        if (unit.unicode() >= 0x80)
            return std::nullopt;
        if (!unit.isSpace())
            base64.append(char(unit.unicode()));
    }
    const auto decoded =
        QByteArray::fromBase64Encoding(std::move(base64), QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded)
        return std::nullopt;
    return Value(decoded.decoded.isNull() ? QByteArray("") : decoded.decoded);
}

// The DTD is not loaded, so the parser would silently drop an undeclared entity.
class UndeclaredEntities : public QXmlStreamEntityResolver
{
public:
    QString resolveUndeclaredEntity(const QString &) override
    {
        wereMet = true;
        return {};
    }

    bool wereMet = false;
};

// Reads the elements one after the other. Open containers are on an explicit stack, so that nesting needs no
// recursion.
class XmlReader
{
public:
    // The bytes of the list, in an encoding that contains ASCII.
    explicit XmlReader(const QByteArray &bytes)
        : m_budget(quint64(bytes.size()))
    {
        // A device makes the parser decode the text in pieces.
        m_device.setData(bytes);
        m_device.open(QIODevice::ReadOnly);
        m_xml.setDevice(&m_device);
        m_xml.setEntityResolver(&m_undeclaredEntities);
    }
    explicit XmlReader(const QString &text)
        : m_budget(quint64(text.size()))
    {
        m_xml.addData(text);
        m_xml.setEntityResolver(&m_undeclaredEntities);
    }

    std::optional<Value> read()
    {
        bool seenList = false;
        while (!m_xml.atEnd()) {
            switch (m_xml.readNext()) {
            case QXmlStreamReader::StartDocument:
                if (m_xml.device() && !isKnownEncoding(m_xml.documentEncoding()))
                    return std::nullopt;
                break;
            case QXmlStreamReader::StartElement:
                if (!seenList && m_xml.name() == u"plist")
                    seenList = true;
                else if (!seenList || !readElement())
                    return std::nullopt;
                break;
            case QXmlStreamReader::EndElement:
                if (m_xml.name() != u"plist" && !closeContainer())
                    return std::nullopt;
                break;
            case QXmlStreamReader::Characters:
                if (!m_xml.isWhitespace())
                    return std::nullopt;
                break;
            default:
                break;
            }
        }
        const bool isWhole = !m_xml.hasError() && !m_undeclaredEntities.wereMet && m_stack.empty();
        return isWhole && !m_root.isNull() ? std::optional(m_root) : std::nullopt;
    }

private:
    // Whether isPlainXml() can judge a text in the encoding that the XML declaration names.
    static bool isKnownEncoding(QStringView name)
    {
        static constexpr QStringView known[] = {u"", u"UTF-8", u"US-ASCII", u"ISO-8859-1"};
        return std::any_of(std::begin(known), std::end(known),
                           [&](QStringView one) { return name.compare(one, Qt::CaseInsensitive) == 0; });
    }

    struct Container
    {
        Ref<Dictionary> dictionary; // null for an array
        Ref<Array> array;
        QString key; // a key without its value yet, or null
    };

    // The cost of one element, including its conversion into the binary form.
    static constexpr quint64 Element = 4 * ReadBudget::Reference;

    bool readElement()
    {
        const QString name = m_xml.name().toString();
        if (!m_budget.spend(Element))
            return false;
        if (name == u"dict" || name == u"array") {
            if (m_stack.size() >= DeepestNesting || !m_budget.spend(ReadBudget::Container))
                return false;
            Container container;
            if (name == u"dict")
                container.dictionary = Dictionary::create();
            else
                container.array = Array::create();
            m_stack.push_back(container);
            return true;
        }
        const QString text = m_xml.readElementText();
        if (m_xml.hasError())
            return false;
        if (name == u"key") {
            if (m_stack.empty() || !m_stack.back().dictionary || !m_stack.back().key.isNull())
                return false;
            m_stack.back().key = text.isNull() ? QStringLiteral("") : text;
            return true;
        }
        const auto value = scalar(name, text);
        return value && add(*value);
    }

    static std::optional<Value> scalar(const QString &name, const QString &text)
    {
        if (name == u"string")
            return Value(text.isNull() ? QStringLiteral("") : text);
        if (name == u"integer")
            return integerIn(text);
        if (name == u"real")
            return realIn(text);
        if (name == u"true" || name == u"false")
            return Value(name == u"true");
        if (name == u"date")
            return dateIn(text);
        if (name == u"data")
            return dataIn(text);
        return std::nullopt;
    }

    bool closeContainer()
    {
        if (m_stack.empty() || !m_stack.back().key.isNull())
            return false;
        const Container closed = m_stack.back();
        m_stack.pop_back();
        return add(closed.dictionary ? Value(closed.dictionary) : Value(closed.array));
    }

    bool add(const Value &value)
    {
        if (m_stack.empty()) {
            const bool isFirst = m_root.isNull();
            m_root = value;
            return isFirst;
        }
        Container &parent = m_stack.back();
        if (parent.array) {
            parent.array->values.push_back(value);
            return true;
        }
        if (parent.key.isNull())
            return false;
        const Key key(parent.key);
        parent.key = QString();
        if (key.isOnly() && !m_budget.spend(ReadBudget::KeyName + ReadBudget::IndexedEntry))
            return false;
        parent.dictionary->setValue(key, value);
        return true;
    }

    QBuffer m_device;
    UndeclaredEntities m_undeclaredEntities;
    QXmlStreamReader m_xml;
    ReadBudget m_budget;
    std::vector<Container> m_stack;
    Value m_root;
};

} // namespace

std::optional<Value> readXmlPropertyList(const QByteArray &bytes)
{
    const auto encoding = QStringConverter::encodingForData(bytes, u'<');
    if (!encoding || *encoding == QStringConverter::Utf8)
        return isPlainXml(bytes) ? XmlReader(bytes).read() : std::nullopt;
    QStringDecoder decoder(*encoding);
    const QString text = decoder(bytes);
    return !decoder.hasError() && isPlainXml(text.toUtf8()) ? XmlReader(text).read() : std::nullopt;
}

} // namespace Foundation
