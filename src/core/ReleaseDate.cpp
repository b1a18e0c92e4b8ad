#include "core/ReleaseDate.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QTimeZone>

namespace
{

struct Zone
{
    QLatin1String name;
    int minutesEastOfGreenwich;
};

const Zone zones[] = {
    {QLatin1String("UTC"), 0},     {QLatin1String("GMT"), 0},    {QLatin1String("UT"), 0},
    {QLatin1String("Z"), 0},       {QLatin1String("WET"), 0},    {QLatin1String("WEST"), 60},
    {QLatin1String("BST"), 60},    {QLatin1String("CET"), 60},   {QLatin1String("MET"), 60},
    {QLatin1String("MEZ"), 60},    {QLatin1String("CEST"), 120}, {QLatin1String("MEST"), 120},
    {QLatin1String("MESZ"), 120},  {QLatin1String("EET"), 120},  {QLatin1String("SAST"), 120},
    {QLatin1String("EEST"), 180},  {QLatin1String("MSK"), 180},  {QLatin1String("MSD"), 240},
    {QLatin1String("GST"), 240},   {QLatin1String("PKT"), 300},  {QLatin1String("IST"), 330},
    {QLatin1String("ICT"), 420},   {QLatin1String("SGT"), 480},  {QLatin1String("HKT"), 480},
    {QLatin1String("AWST"), 480},  {QLatin1String("JST"), 540},  {QLatin1String("KST"), 540},
    {QLatin1String("ACST"), 570},  {QLatin1String("AEST"), 600}, {QLatin1String("ACDT"), 630},
    {QLatin1String("AEDT"), 660},  {QLatin1String("NZST"), 720}, {QLatin1String("NZDT"), 780},
    {QLatin1String("NDT"), -150},  {QLatin1String("BRT"), -180}, {QLatin1String("ART"), -180},
    {QLatin1String("ADT"), -180},  {QLatin1String("NST"), -210}, {QLatin1String("AST"), -240},
    {QLatin1String("CLT"), -240},  {QLatin1String("EDT"), -240}, {QLatin1String("EST"), -300},
    {QLatin1String("CDT"), -300},  {QLatin1String("COT"), -300}, {QLatin1String("PET"), -300},
    {QLatin1String("CST"), -360},  {QLatin1String("MDT"), -360}, {QLatin1String("MST"), -420},
    {QLatin1String("PDT"), -420},  {QLatin1String("PST"), -480}, {QLatin1String("AKDT"), -480},
    {QLatin1String("AKST"), -540}, {QLatin1String("HST"), -600},
};

// The offset of the zone from UTC at that local time, in seconds.
std::optional<int> offsetOfZone(const QString &name, const QDateTime &local)
{
    for (const Zone &zone : zones) {
        if (name.compare(zone.name, Qt::CaseInsensitive) == 0)
            return zone.minutesEastOfGreenwich * 60;
    }
    static const QRegularExpression offset(
        QStringLiteral("^(?:GMT|UTC)?([+-])([0-9]{1,2})(?::?([0-5][0-9]))?$"),
        QRegularExpression::CaseInsensitiveOption);
    if (const auto match = offset.match(name); match.hasMatch()) {
        const int hours = match.captured(2).toInt();
        const int seconds = hours * 3600 + match.captured(3).toInt() * 60;
        if (hours > 14)
            return std::nullopt;
        return match.captured(1) == u"-" ? -seconds : seconds;
    }
    const QTimeZone zone(name.toLatin1());
    if (!name.contains(u'/') || !zone.isValid())
        return std::nullopt;
    return QDateTime(local.date(), local.time(), zone).offsetFromUtc();
}

} // namespace

std::optional<double> secondsOfReleaseDate(const QString &text, HourPattern hours)
{
    static const QRegularExpression pattern(
        QStringLiteral("^([0-9]{1,4})-([0-9]{1,2})-([0-9]{1,2}) ([0-9]{1,2}):([0-9]{1,2}):([0-9]{1,2}) "
                       "([A-Za-z0-9_/+:-]{1,64})\\z"));
    const auto match = pattern.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const auto number = [&match](int index) { return match.captured(index).toInt(); };
    int hour = number(4);
    if (hours == HourPattern::Twelve) {
        if (hour > 12)
            return std::nullopt;
        hour %= 12;
    }
    const QDate date(number(1), number(2), number(3));
    const QTime time(hour, number(5), number(6));
    if (!date.isValid() || !time.isValid())
        return std::nullopt;
    const QDateTime local(date, time, Qt::UTC);
    const auto offset = offsetOfZone(match.captured(7), local);
    if (!offset)
        return std::nullopt;
    static const QDateTime reference(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC);
    return double(reference.secsTo(local) - *offset);
}
