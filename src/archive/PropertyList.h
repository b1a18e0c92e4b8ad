#pragma once

#include "values/Value.h"

#include <QByteArray>

#include <optional>

namespace Foundation
{

// Property lists as values: dictionaries, arrays, texts, data, dates, numbers and booleans. A UID, which only
// keyed archives have, stands as the dictionary with the one integer entry "CF$UID", as in the XML form.
//
// Reading gives nothing for bytes that are no property list, damaged, nested deeper than 512, or (binary)
// objects that contain themselves or expand beyond use. Time and memory are bounded by the size of `bytes`
// (see ReadBudget).

// Binary ("bplist00") or XML, by the first bytes.
std::optional<Value> readPropertyList(const QByteArray &bytes);

// XML 1.0 with the public property list DTD, in UTF-8, UTF-16, UTF-32 or Latin-1. Declarations of the
// document's own and tags of more than 1024 bytes are refused, entities are never expanded.
std::optional<Value> readXmlPropertyList(const QByteArray &bytes);

// An archived null and a Null inside an array become texts "$null": the format has no such value.
QByteArray writeBinaryPropertyList(const Value &root);

} // namespace Foundation
