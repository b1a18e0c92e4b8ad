#include "helpers/VLStringUtils.h"

#include "helpers/RandomNumbers.h"
#include "platform/Services.h"

#include <QDateTime>
#include <QSet>
#include <QUuid>

#include <optional>

namespace
{

const QString Dots = QStringLiteral("..");

// The code point that begins at `index`; moves `index` to the next one. A lone surrogate is returned as it
// is.
char32_t takeCodePoint(const QString &text, qsizetype &index)
{
    const QChar first = text.at(index++);
    if (first.isHighSurrogate() && index < text.size() && text.at(index).isLowSurrogate())
        return QChar::surrogateToUcs4(first, text.at(index++));
    return first.unicode();
}

QString trimmedOf(const QString &text, QChar unwanted)
{
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && text.at(begin) == unwanted)
        ++begin;
    while (end > begin && text.at(end - 1) == unwanted)
        --end;
    return end - begin == text.size() ? text : text.sliced(begin, end - begin);
}

// The first `length` units of a text, followed by the dots.
class DottedBeginning
{
public:
    DottedBeginning(const QString &text, double limit, const Foundation::TextAttributes &attributes)
        : m_text(text)
        , m_limit(limit)
        , m_attributes(attributes)
    {
    }

    bool fits(qsizetype length) const { return widthOf(string(length)) <= m_limit; }
    bool wholeTextFits() const { return widthOf(m_text) <= m_limit; }
    QString string(qsizetype length) const { return m_text.first(length) + Dots; }

private:
    double widthOf(const QString &text) const
    {
        return Foundation::Services::shared().textMeasurer().widthOfText(text, m_attributes);
    }

    const QString &m_text;
    const double m_limit;
    const Foundation::TextAttributes &m_attributes;
};

} // namespace

QString VLStringUtils::createUUIDString()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
}

QString VLStringUtils::uniqueUUIDString()
{
    return createUUIDString();
}

QString VLStringUtils::trimString(const QString &text, const QString &acceptingOnlyChars)
{
    QSet<char32_t> accepted;
    for (qsizetype index = 0; index < acceptingOnlyChars.size();)
        accepted.insert(takeCodePoint(acceptingOnlyChars, index));
    return stringByRemovingCharacters(text,
                                      [&](char32_t character) { return !accepted.contains(character); });
}

QString VLStringUtils::stringByRemovingCharacters(const QString &text, const CharacterSet &inSet)
{
    if (text.isEmpty())
        return text;
    QString kept = QStringLiteral("");
    for (qsizetype index = 0; index < text.size();) {
        const qsizetype begin = index;
        if (!inSet(takeCodePoint(text, index)))
            kept.append(QStringView(text).sliced(begin, index - begin));
    }
    return kept;
}

QString VLStringUtils::trimStringToFit(const QString &text, qint32 pixelLenght,
                                       const Foundation::TextAttributes &withAttributes)
{
    const DottedBeginning beginning(text, pixelLenght, withAttributes);
    if (beginning.wholeTextFits())
        return text;

    // A binary search, because removing one unit after the other would take quadratic time for a long text.
    qsizetype fitting = 0;
    qsizetype tooLong = text.size() + 1;
    while (tooLong - fitting > 1) {
        const qsizetype middle = fitting + (tooLong - fitting) / 2;
        (beginning.fits(middle) ? fitting : tooLong) = middle;
    }
    // Kerning, or the box drawn for half a surrogate pair, can make a beginning wider than the next longer
    // one. So this starts a few units above and goes down to the longest beginning that fits.
    constexpr qsizetype Slack = 8;
    qsizetype length = std::min(text.size(), fitting + Slack);
    while (length > 1 && !beginning.fits(length))
        --length;
    return beginning.string(length);
}

QString VLStringUtils::uniqueTimeString()
{
    const QDateTime now = Foundation::Services::shared().clock().now();
    return QString::asprintf("%d%02d%02d%02d%02d%02d", now.date().year(), now.date().month(),
                             now.date().day(), now.time().hour(), now.time().minute(), now.time().second());
}

QString VLStringUtils::uniqueTimeRandString()
{
    constexpr qint64 HighestNumber = 32000000000000;
    const qint64 number = randomLongInRange(1, HighestNumber);
    return uniqueTimeString() + addLeading0(QString::number(number), 5);
}

QString VLStringUtils::getNewSerialForTimeString(const QString &timeString)
{
    static std::optional<QString> lastTimeString;
    static qint64 serial = 0;
    serial = lastTimeString == timeString ? serial + 1 : 0;
    lastTimeString = timeString;
    return QString::number(serial);
}

QString VLStringUtils::uniqueTimeSerialString()
{
    const QString timeString = uniqueTimeString();
    return timeString + getNewSerialForTimeString(timeString);
}

QString VLStringUtils::removeInitialSpaces(const QString &text)
{
    const auto isBlank = [](QChar unit) {
        return unit.category() == QChar::Separator_Space || unit == QChar::Tabulation;
    };
    const auto firstKept = std::find_if_not(text.cbegin(), text.cend(), isBlank);
    if (firstKept == text.cend())
        return QString();
    return text.sliced(firstKept - text.cbegin());
}

QString VLStringUtils::trimLateralSpace(const QString &text)
{
    return trimmedOf(text, QChar::Space);
}

QString VLStringUtils::removeLateralSpace(const QString &text)
{
    return trimLateralSpace(text);
}

bool VLStringUtils::spaceTrimmedNotEmpy(const QString &text)
{
    return !trimLateralSpace(text).isEmpty();
}

QString VLStringUtils::trimLateralQuote(const QString &text)
{
    return trimmedOf(text, u'"');
}

QString VLStringUtils::stripNewLines(const QString &text)
{
    QString stripped = text;
    return stripped.remove(QChar::LineFeed).remove(QChar::CarriageReturn);
}

QString VLStringUtils::addLeading0(const QString &text, qint64 totalLen)
{
    return text.isNull() ? text : text.rightJustified(totalLen, u'0');
}
