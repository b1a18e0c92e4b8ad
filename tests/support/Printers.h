#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <ostream>
#include <string>

// In quotes; whatever is not printable ASCII stands as \uXXXX.
std::string quoted(const QString &text);

// How failures show the types of the system. Found by the test library through the namespaces of the types.
QT_BEGIN_NAMESPACE
void PrintTo(const QString &text, std::ostream *out);
void PrintTo(const QByteArray &bytes, std::ostream *out);
QT_END_NAMESPACE
