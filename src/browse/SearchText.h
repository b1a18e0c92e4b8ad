#pragma once

#include "values/Value.h"

#include <QString>

#include <string>
#include <vector>

// The rules by which the search of the record list compares texts.
//
// Text and needle are converted to lower case by the full Unicode mapping (including SpecialCasing: final
// sigma, dotted capital I), independent of the user's language. Accents are significant. The needle is then
// searched by canonical equivalence (UAX #15) on whole composed characters: a base character with its marks,
// or a Hangul syllable, matches only as a whole, in composed or decomposed form. Only the first occurrence in
// a text counts: the text matches if that occurrence has the length of the needle, in UTF-16 units of the
// lower-case form.
//
// The implementation compares search forms: lower case, in normalization form C (UAX #15), encoded as UTF-8,
// with lone surrogates encoded like other characters (as in WTF-8). A needle occurs in a text where its
// search form occurs in the form of the text and begins and ends at a boundary of composed characters. A
// search form never contains the byte 0xFF.
namespace SearchText
{

QString lowerCase(const QString &text);

enum class Shape : quint8 {
    Plain,  // every character is a composed character, so every occurrence counts
    Marked, // has marks, so an occurrence must begin and end at a boundary
};

// A composed character whose length in UTF-16 units differs between the search form and the lower-case text,
// or whose beginning cannot be recognised in the form.
struct LengthChange
{
    quint32 offset; // of its first byte in the forms; 32 bits suffice for all texts of a document
    qint32 units;   // by how many UTF-16 units it is shorter in the form; negative if it is longer
};

// Appends the search form of a stored text to `forms` and its length changes to `changes`.
Shape appendSearchForm(const Foundation::TextView &text, std::string &forms,
                       std::vector<LengthChange> &changes);

struct Needle
{
    // `text` must not be empty.
    explicit Needle(const QString &text);
    std::string searchForm;
    // By how many UTF-16 units the form is shorter than the lower-case text. An occurrence has the length of
    // the needle if it lost the same number.
    qsizetype lostUnits = 0;
};

// Whether a composed character begins at `at`, as far as this can be recognised in the form. The form may
// consist of several texts that are separated by the byte 0xFF.
bool isBoundary(const char *formBegin, const char *formEnd, const char *at);

} // namespace SearchText
