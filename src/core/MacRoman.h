#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace Foundation
{

// The encoding "macintosh" (IANA; Unicode's mapping table APPLE/ROMAN.TXT): one byte a character, ASCII below
// 128. Passwords and texts of documents up to release 30000 stand in it.

// Nothing if a character has no byte; an empty array for an empty or null text.
[[nodiscard]] std::optional<QByteArray> macRomanBytes(const QString &text);

// Every byte is a character.
QString textFromMacRoman(const QByteArray &bytes);

} // namespace Foundation
