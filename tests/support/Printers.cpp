#include "support/Printers.h"

std::string quoted(const QString &text)
{
    std::string result = "\"";
    for (const QChar unit : text) {
        if (unit.unicode() >= 0x20 && unit.unicode() < 0x7F)
            result += char(unit.unicode());
        else
            result += "\\u" + QByteArray::number(unit.unicode(), 16).rightJustified(4, '0').toStdString();
    }
    return result + '"';
}

QT_BEGIN_NAMESPACE

void PrintTo(const QString &text, std::ostream *out)
{
    *out << (text.isNull() ? "(null text)" : quoted(text));
}

void PrintTo(const QByteArray &bytes, std::ostream *out)
{
    if (bytes.isNull())
        *out << "(no bytes)";
    else
        *out << bytes.size() << " bytes: " << bytes.left(64).toHex(' ').constData();
}

QT_END_NAMESPACE
