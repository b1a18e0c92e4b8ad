#include "helpers/VLDateTagElaborated.h"

#include "platform/Services.h"

#include <QDateTime>

Foundation::Value VLDateTagElaborated::transformedValue(const Foundation::Value &value) const
{
    QString text = value.stringValue();
    if (text.isNull())
        return QStringLiteral("");
    const QDateTime now = Foundation::Services::shared().clock().now();
    const QDate date = now.date();
    const QTime time = now.time();
    const struct
    {
        QLatin1String tag;
        const char *format;
        int number;
    } tags[] = {
        {QLatin1String("<yy>"), "%02d", date.year() % 100}, {QLatin1String("<YY>"), "%d", date.year()},
        {QLatin1String("<mm>"), "%02d", date.month()},      {QLatin1String("<dd>"), "%02d", date.day()},
        {QLatin1String("<hh>"), "%02d", time.hour()},       {QLatin1String("<ii>"), "%02d", time.minute()},
        {QLatin1String("<ss>"), "%02d", time.second()},
    };
    for (const auto &[tag, format, number] : tags)
        text.replace(tag, QString::asprintf(format, number));
    return text;
}
