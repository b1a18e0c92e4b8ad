#pragma once

#include "archive/ReadBudget.h"
#include "values/Array.h"
#include "values/Key.h"

#include <QByteArray>

#include <optional>

namespace Foundation
{

// The platform's public keyed archive format (archiver name "NSKeyedArchiver", version 100000): a property
// list whose objects refer to each other by UID. The container of document files and of everything enciphered
// in them.
//
// Reading takes binary and XML lists; classes NSDictionary, NSArray, NSString, NSData (each also mutable),
// NSDate, NSNull, NSColor and their subclasses, and numbers, booleans, texts and data that stand bare.
// Writing gives a binary list with the mutable dictionary and array classes, as a document's content is
// mutable.
//
// Every value comes back with its type, every real with its width (integers as 64-bit ones, since the format
// tells no other apart), every text with its UTF-16 units. Objects that are shared stay shared and are
// written once. Only object 0 is the null object: a text "$null" is a text.

// The root object; Null if the archive's root is the null object. Nothing if the bytes are no archive, are
// damaged or cut off, hold an object of another class, an object that contains itself, nesting deeper than
// 512, or containers whose sharing expands beyond use (see ObjectMemo). Time and memory are bounded by the
// size of `bytes`, whatever they hold (see ReadBudget).
std::optional<Value> unarchivedRoot(const QByteArray &bytes);
// For many small archives of one origin: they share a budget, where each would have one that is ample for its
// size. Nothing also once that is spent.
std::optional<Value> unarchivedRoot(const QByteArray &bytes, ReadBudget &budget);

// Whether a file of that size may be an archive, by its first and its last bytes: what is left of a file that
// is none need not be read. `tail` has 32 bytes or more.
bool mayBeArchive(QByteArrayView head, QByteArrayView tail, qint64 size);

// Whether unarchivedRoot would read a binary archive, by the same rules and within the same budget, in a
// fraction of the time and memory, since nothing is made of it.
bool canBeUnarchived(const QByteArray &binaryArchive);

// `root` may be Null. The graph below it must not contain itself.
QByteArray archivedData(const Value &root);

// An array of dictionaries as it is to be archived: of each a copy that lacks an entry and has a value of its
// own in another. The copies are never made.
struct ArchivedRows
{
    const Array &rows; // of dictionaries only
    Key omitted;
    // Which entry has the values below, in its place or at the end; not looked at if there are none.
    Key replaced;
    std::vector<Value> replacements; // one for each row
};
// `memory`: bytes that are no longer needed and not shared, in whose place the archive may come.
QByteArray archivedData(const ArchivedRows &rows, QByteArray memory = {});

} // namespace Foundation
