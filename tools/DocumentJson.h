#pragma once

#include "core/DocumentState.h"

#include <QByteArray>

// The content of an open document as JSON (RFC 8259), for programs and tests that compare it with what
// another program reads. The text is one line of ASCII: other characters, including lone surrogates, are
// written as \u escapes of their UTF-16 units. Entries keep their order, so that equal texts mean exactly
// equal content.
//
// Texts, booleans, arrays and the null object have the usual JSON form. Any other value is an object with one
// entry, whose key is its type:
// clang-format off
//   {"$int":"5"}       whole number of any width, in decimal digits
//   {"$real":0.5}      64-bit real, in the fewest digits that read back as the same number; always with a
//                      point or an exponent. JSON has no NaN, Infinity and -Infinity; they are written
//                      without quotes, as by Python
//   {"$real32":0.5}    32-bit real, the same after widening
//   {"$date":0.0}      seconds since 2001-01-01 00:00:00 UTC
//   {"$data":"AAH/"}   bytes in Base64
//   {"$dict":{}}       dictionary
// clang-format on
//
// The functions recurse to the depth of the values, which is at most 512 for values from archives. Values
// must not contain themselves.

QByteArray jsonOfValue(const Foundation::Value &value);
// The entries of a dictionary, without "$dict".
QByteArray jsonOfEntries(const Foundation::Dictionary &dictionary);
// {"records":[…],"categories":[…],"labels":{…},"creationDate":…}. Each record is
// {"category":INDEX,"fields":{…}}: the fields without `categoryPtr`, and the index of the record's category
// in the array of categories, or null if it is not there.
QByteArray jsonOfDocument(const DocumentState &document);
