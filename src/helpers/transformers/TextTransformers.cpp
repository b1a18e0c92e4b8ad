#include "helpers/transformers/TextTransformers.h"

#include "archive/KeyedArchive.h"

#include <QByteArrayView>

#include <algorithm>

using Foundation::Value;

namespace
{

bool isBlank(const Value &value)
{
    const QString text = value.stringValue();
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c == u' '; });
}

// A number of a stream has one byte, or a mark and two or four bytes in the byte order of the machine that
// wrote it. The signature "streamtyped" means little-endian.
constexpr char TwoBytesFollow = char(0x81);
constexpr char FourBytesFollow = char(0x82);

// The text after the type mark of a string object. Nothing if the data does not contain all of it.
Value countedText(QByteArrayView data)
{
    if (data.isEmpty())
        return {};
    const qsizetype width = data[0] == TwoBytesFollow ? 2 : data[0] == FourBytesFollow ? 4 : 0;
    if (data.size() < 1 + width)
        return {};
    quint32 size = width == 0 ? quint8(data[0]) : 0;
    for (qsizetype i = width; i > 0; --i)
        size = (size << 8) | quint8(data[i]);
    const QByteArrayView text = data.sliced(1 + width);
    return qsizetype(size) <= text.size() ? Value(QString::fromUtf8(text.first(qsizetype(size)))) : Value();
}

Value textOfStream(QByteArrayView data)
{
    constexpr QByteArrayView Signature("\x04\x0bstreamtyped");
    // The mark before the content of a string: the type "+", which is a counted sequence of bytes.
    constexpr QByteArrayView ContentType("\x84\x01+");
    if (!data.startsWith(Signature))
        return {};
    const qsizetype stringClass = std::max(data.indexOf("NSString"), data.indexOf("NSMutableString"));
    const qsizetype content = stringClass < 0 ? -1 : data.indexOf(ContentType, stringClass);
    return content < 0 ? Value() : countedText(data.sliced(content + ContentType.size()));
}

} // namespace

Value VLEmptyTrimmedString::transformedValue(const Value &value) const
{
    return isBlank(value);
}

Value VLFilledTrimmedString::transformedValue(const Value &value) const
{
    return !isBlank(value);
}

Value VLUnarchivieFromDataToText::transformedValue(const Value &value) const
{
    const QByteArray data = value.dataValue();
    const auto root = Foundation::unarchivedRoot(data);
    if (root && root->isString())
        return *root;
    return textOfStream(data);
}
