#include "archive/XmlMarkup.h"

#include <algorithm>

namespace Foundation
{

namespace
{

// The longest tag that property lists need is the document type, with about 100 bytes.
constexpr qsizetype LongestTag = 1024;

// The position after the tag or document type that begins at `at`, or -1.
qsizetype endOfTag(QByteArrayView xml, qsizetype at)
{
    char quote = '\0';
    const qsizetype limit = std::min(xml.size(), at + LongestTag);
    for (qsizetype i = at + 1; i < limit; ++i) {
        const char character = xml[i];
        if (quote != '\0')
            quote = character == quote ? '\0' : quote;
        else if (character == '"' || character == '\'')
            quote = character;
        else if (character == '>')
            return i + 1;
        else if (character == '[') // Declarations of a document type begin here.
            return -1;
    }
    return -1;
}

// The position after the markup that begins at `at`, or -1.
qsizetype endOfMarkup(QByteArrayView xml, qsizetype at)
{
    static constexpr struct
    {
        QByteArrayView begin;
        QByteArrayView end;
    } skipped[] = {{"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}};
    for (const auto &markup : skipped) {
        if (xml.sliced(at).startsWith(markup.begin)) {
            const qsizetype end = xml.indexOf(markup.end, at + markup.begin.size());
            return end < 0 ? -1 : end + markup.end.size();
        }
    }
    return endOfTag(xml, at);
}

} // namespace

bool isPlainXml(QByteArrayView xml)
{
    for (qsizetype at = xml.indexOf('<'); at >= 0; at = xml.indexOf('<', at)) {
        at = endOfMarkup(xml, at);
        if (at < 0)
            return false;
    }
    return true;
}

} // namespace Foundation
