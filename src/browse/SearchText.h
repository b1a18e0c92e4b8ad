#pragma once

#include "values/Value.h"

#include <QString>

#include <string>
#include <vector>

// How the search of the record list compares texts.
//
// Both sides are taken in lower case, by the full mapping of Unicode (SpecialCasing included: final sigma,
// dotted capital I) and independent of the user's language. Accents count. The needle is then looked for by
// canonical equivalence (UAX #15) on whole composed characters: a base with the marks behind it, or a Hangul
// syllable, matches only as a whole, but in whatever way it is composed. The first occurrence in a text
// decides: the text matches if that is as long as the needle, in UTF-16 units of the lower-case form.
//
// All that is worked out on search forms: lower case, in normalization form C (UAX #15), encoded as UTF-8,
// where lone surrogates are encoded like other characters (as WTF-8 does). A needle occurs in a text where
// its search form lies in that of the text between two composed characters. No search form holds the byte
// 0xFF.
namespace SearchText
{

QString lowerCase(const QString &text);

enum class Shape : quint8 {
    Plain,  // every character is a composed character: any occurrence is one
    Marked, // has marks: an occurrence must begin and end between composed characters
};

// A composed character that is shorter in the search form than in the lower-case text, or where the form does
// not tell that one begins.
struct LengthChange
{
    quint32 offset; // of its first byte in the forms; a document cannot hold texts that reach beyond 32 bits
    qint32 units;   // what it lost, in UTF-16 units; negative where it gained
};

// Appends the search form of a stored text to `forms`, and its length changes to `changes`.
Shape appendSearchForm(const Foundation::TextView &text, std::string &forms,
                       std::vector<LengthChange> &changes);

struct Needle
{
    // Not empty.
    explicit Needle(const QString &text);
    std::string searchForm;
    // How many UTF-16 units it is shorter there than in lower case: an occurrence must have lost as many.
    qsizetype lostUnits = 0;
};

// Whether a composed character begins at this place of a search form, as far as the form tells. It is one or
// more texts, each between bytes 0xFF or at an end.
bool isBoundary(const char *formBegin, const char *formEnd, const char *at);

} // namespace SearchText
