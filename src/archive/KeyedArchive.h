#pragma once

#include "archive/ReadBudget.h"
#include "values/Array.h"
#include "values/Key.h"

#include <QByteArray>

#include <optional>

namespace Foundation
{

// The public keyed archive format (archiver name "NSKeyedArchiver", version 100000): a property list whose
// objects refer to each other by UID. Document files and the enciphered parts in them are such archives.
//
// Reading accepts binary and XML property lists with the classes NSDictionary, NSArray, NSString, NSData
// (each also mutable), NSDate, NSNull, NSColor and their subclasses, and numbers, booleans, texts and data
// without a class. Writing makes a binary property list with the mutable dictionary and array classes,
// because the content of a document is mutable.
//
// A value that is written and read keeps its type, a real its width and a text its UTF-16 units; all integers
// are read as 64-bit integers, since the format does not distinguish others. Shared objects are written once
// and stay shared. Only object 0 is the null object: a text "$null" is a text.

// Returns the root object, or Null if the root is the null object. Returns nothing if the bytes are no
// archive or are damaged or cut off, or if they contain an object of another class, an object that contains
// itself, nesting deeper than 512, or shared containers that expand too much (see ObjectMemo). Time and
// memory are bounded by the size of `bytes` (see ReadBudget).
[[nodiscard]] std::optional<Value> unarchivedRoot(const QByteArray &bytes);
// Charges a given budget. For many small archives of one file, since a budget of its own would allow each of
// them much more than its size. Returns nothing also when the budget is spent.
[[nodiscard]] std::optional<Value> unarchivedRoot(const QByteArray &bytes, ReadBudget &budget);

// Whether a file of that size can be an archive, judged by its first and last bytes, so that the rest of a
// file that is none need not be read. `tail` must have at least 32 bytes.
bool mayBeArchive(QByteArrayView head, QByteArrayView tail, qint64 size);

// Whether unarchivedRoot() would read this binary archive, by the same rules and with the same budget. Makes
// no values, and so takes a fraction of the time and memory.
bool canBeUnarchived(const QByteArray &binaryArchive);

// `root` may be Null. No object may contain itself.
QByteArray archivedData(const Value &root);

// An array of dictionaries that is archived with changes: each dictionary is archived as a copy without the
// entry `omitted` and with another value in the entry `replaced`. The copies are never made.
struct ArchivedRows
{
    const Array &rows; // must contain dictionaries only
    Key omitted;
    // The entry that gets the replacement; it keeps its position, or is added at the end. Unused if there are
    // no replacements.
    Key replaced;
    std::vector<Value> replacements; // one for each row, or empty
};
// `memory` is an unshared array whose content is no longer needed; its memory may be reused for the archive.
QByteArray archivedData(const ArchivedRows &rows, QByteArray memory = {});

} // namespace Foundation
