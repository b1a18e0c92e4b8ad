#include "values/DisplayText.h"

#include "values/Array.h"

#include <QDateTime>
#include <QLocale>

#include <cmath>

namespace Foundation
{

namespace
{

QString textOfDate(double secondsSince2001)
{
    constexpr double ReferenceInUnixTime = 978307200;
    constexpr double MostSeconds = 1e11; // about three thousand years, which every calendar supports
    if (!(std::abs(secondsSince2001) < MostSeconds))
        return QString::number(secondsSince2001);
    const auto seconds = qint64(std::floor(secondsSince2001 + ReferenceInUnixTime));
    return QLocale().toString(QDateTime::fromSecsSinceEpoch(seconds), QLocale::ShortFormat);
}

// The length is limited too, because a few entries may share a very long text.
QString textOfArray(const Array &array)
{
    constexpr int MostEntries = 100;
    constexpr qsizetype MostUnits = 4096;
    QString text;
    int shown = 0;
    for (const Value &entry : array.values) {
        if (shown++ > 0)
            text += QStringLiteral(", ");
        if (shown > MostEntries || text.size() > MostUnits)
            return text + u'…';
        // Inner arrays are not expanded, because they may be nested to any depth.
        text += entry.array() ? QStringLiteral("…") : displayText(entry).left(MostUnits);
    }
    return text;
}

} // namespace

QString displayText(const Value &value)
{
    switch (value.type()) {
    case Value::Type::String:
        return value.stringValue();
    case Value::Type::Bool:
    case Value::Type::Int32:
    case Value::Type::Int64:
        return QString::number(value.longValue());
    case Value::Type::UInt64:
        return QString::number(value.unsignedLongValue());
    case Value::Type::Real32:
        return QString::number(value.floatValue());
    case Value::Type::Real64:
        return QString::number(value.doubleValue(), 'g', QLocale::FloatingPointShortest);
    case Value::Type::Date:
        return textOfDate(value.dateValue());
    case Value::Type::Array:
        return textOfArray(*value.array());
    case Value::Type::Null:
    case Value::Type::ArchivedNull:
    case Value::Type::Data:
    case Value::Type::Dictionary:
    case Value::Type::Opaque:
        break;
    }
    return {};
}

bool isShownAlike(const Value &a, const Value &b)
{
    const auto isText = [](const Value &value) { return value.isString() || value.isNull(); };
    if (isText(a) && isText(b))
        return a == b || (a.text().size == 0 && b.text().size == 0);
    return a == b || displayText(a) == displayText(b);
}

} // namespace Foundation
