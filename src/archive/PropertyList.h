#pragma once

#include "values/Value.h"

#include <QByteArray>

#include <optional>

namespace Foundation
{

// Reads and writes property lists: dictionaries, arrays, texts, data, dates, numbers and booleans. A UID,
// which only keyed archives contain, becomes a dictionary with the single integer entry "CF$UID", as in the
// XML form.
//
// Reading returns nothing for bytes that are no property list, are damaged or nest deeper than 512, and for
// binary lists with objects that contain themselves or expand too much (see ObjectMemo). Time and memory are
// bounded by the size of `bytes` (see ReadBudget).

// Reads a binary ("bplist00") or XML property list; the first bytes decide which.
[[nodiscard]] std::optional<Value> readPropertyList(const QByteArray &bytes);

// Reads XML 1.0 with the public property list DTD, in UTF-8, UTF-16, UTF-32 or Latin-1. Refuses declarations
// in the document type and tags of more than 1024 bytes, and never expands entities.
[[nodiscard]] std::optional<Value> readXmlPropertyList(const QByteArray &bytes);

// An archived null, and Null inside an array, become the text "$null", because the format has no such value.
QByteArray writeBinaryPropertyList(const Value &root);

} // namespace Foundation
