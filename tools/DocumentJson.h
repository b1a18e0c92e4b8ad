#pragma once

#include "core/DocumentState.h"

#include <QByteArray>

// The content of an open document as JSON text (RFC 8259), for programs and tests that compare documents with
// what another program reads in them. One line of ASCII: other characters, lone surrogates among them, are
// written as \u escapes of their UTF-16 units, and entries keep their order, so that equal texts mean equal
// content to the last bit.
//
// Texts, booleans, arrays and the null object stand as what JSON has for them. The rest is an object of one
// entry that tells the kind:
//   {"$int":"5"}       whole number of any width, in decimal digits
//   {"$real":0.5}      64-bit real, in the fewest digits that read back as the same number; never without a
//                      point or an exponent. JSON has no word for NaN, Infinity and -Infinity: they stand
//                      bare, as in the writer of Python
//   {"$real32":0.5}    32-bit real, the same after widening
//   {"$date":0.0}      seconds since 2001-01-01 00:00:00 UTC
//   {"$data":"AAH/"}   bytes in Base64
//   {"$dict":{}}       dictionary
//
// Recursion is as deep as the values are nested; archives nest at most 512 deep. Values must not contain
// themselves.

QByteArray jsonOfValue(const Foundation::Value &value);
// The entries alone, without "$dict".
QByteArray jsonOfEntries(const Foundation::Dictionary &dictionary);
// {"records":…,"categories":…,"labels":…,"creationDate":…}. Each record is {"category":INDEX,"fields":{…}},
// its fields without `categoryPtr` and INDEX the place of that category in the category array, or null if it
// isn't there.
QByteArray jsonOfDocument(const DocumentState &document);
