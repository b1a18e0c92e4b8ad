#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace Foundation
{

// The encoding "macintosh" (IANA; Unicode's mapping table APPLE/ROMAN.TXT): one byte for each character,
// ASCII below 128. Passwords and texts of documents up to release 30000 use it.

// Encodes a text. Returns nothing if a character cannot be encoded, and an empty array for an empty or null
// text.
[[nodiscard]] std::optional<QByteArray> macRomanBytes(const QString &text);

// Decodes a text. Every byte is valid.
QString textFromMacRoman(const QByteArray &bytes);

} // namespace Foundation
