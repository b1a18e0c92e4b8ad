#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <ostream>
#include <string>

// The text in quotes. Characters that are not printable ASCII are written as \uXXXX.
std::string quoted(const QString &text);

// Printers for failures. GoogleTest finds them through the namespaces of the types.
QT_BEGIN_NAMESPACE
void PrintTo(const QString &text, std::ostream *out);
void PrintTo(const QByteArray &bytes, std::ostream *out);
QT_END_NAMESPACE
