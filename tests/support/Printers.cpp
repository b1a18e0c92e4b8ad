#include "support/Printers.h"

QT_BEGIN_NAMESPACE

void PrintTo(const QString &text, std::ostream *out)
{
    if (text.isNull()) {
        *out << "(null text)";
        return;
    }
    *out << '"';
    for (const QChar unit : text) {
        if (unit.unicode() >= 0x20 && unit.unicode() < 0x7F)
            *out << char(unit.unicode());
        else
            *out << "\\u" << QByteArray::number(unit.unicode(), 16).rightJustified(4, '0').constData();
    }
    *out << '"';
}

void PrintTo(const QByteArray &bytes, std::ostream *out)
{
    if (bytes.isNull())
        *out << "(no bytes)";
    else
        *out << bytes.size() << " bytes: " << bytes.left(64).toHex(' ').constData();
}

QT_END_NAMESPACE
