#pragma once

#include "foundation/Value.h"

#include <QByteArray>
#include <QString>

#include <string>

// How the search of the record list compares texts.
//
// Both sides are taken in lower case, by the full mapping of Unicode (SpecialCasing included: final sigma,
// dotted capital I) and independent of the user's language. Accents count. The needle is then looked for by
// canonical equivalence (UAX #15) on whole composed characters: a base with the marks behind it, or a Hangul
// syllable, matches only as a whole, but in whatever way it is composed.
namespace SearchText
{

QString lowerCase(const QString &text);

struct Range
{
    qsizetype location = -1; // -1 if there is none
    qsizetype length = 0;    // in UTF-16 units
};

// The first occurrence of a needle that is not empty. Its length may differ from the needle's: equivalent
// texts need not be of one length. Slow; most texts are spared it by their search form.
Range rangeOfString(const QString &text, const QString &needle);

// The list's rule: a record's text matches if the first occurrence is as long as the needle. Both in lower
// case.
inline bool matches(const QString &text, const QString &needle)
{
    return rangeOfString(text, needle).length == needle.size();
}

// What must be known of a text to find needles in its search form.
enum class Shape : quint8 {
    Plain,    // every character is a composed character: any occurrence is one
    Marked,   // has marks: an occurrence must begin and end between composed characters
    Unstable, // its search form is of another length: an occurrence only says that the text needs a look
};

// The search form of a text: lower case, in normalization form C (UAX #15), encoded as UTF-8, where lone
// surrogates are encoded like other characters (as WTF-8 does). If a needle matches a text, then the search
// form of the one lies in that of the other. No search form holds the byte 0xFF.

// Appends that of a stored text.
Shape appendSearchForm(const Foundation::TextView &text, std::string &bytes);

struct Needle
{
    explicit Needle(const QString &text);
    QString lowerCase;
    std::string searchForm;
    // The search form is as long as the needle, in UTF-16 units: otherwise it can match only unstable texts.
    bool keepsLength;
};

// Whether an occurrence in a search form begins and ends between composed characters. The form is one or more
// texts, each between bytes 0xFF or at an end.
bool isWholeInForm(const char *formBegin, const char *formEnd, const char *occurrence, std::size_t length);

} // namespace SearchText
