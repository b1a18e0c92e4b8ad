#pragma once

#include "platform/TextAttributes.h"

#include <QString>

#include <functional>

// Cleaning of texts, shortening of labels, and identifiers made from the clock. Many operations are
// prescribed and have no caller yet.
//
// Lengths are in UTF-16 code units. A null text stays null unless the operation says otherwise. Main thread
// only, since serials and random numbers are shared in the process.
class VLStringUtils
{
public:
    // Whether a Unicode code point is a member of the set.
    using CharacterSet = std::function<bool(char32_t)>;

    VLStringUtils() = delete;

    // A random UUID (RFC 4122, version 4) of 36 characters, in capitals and without braces. Both operations
    // are equal.
    static QString createUUIDString();
    static QString uniqueUUIDString();

    // The first keeps only the characters of a set, the second removes those of a set. Both work on code
    // points, so a surrogate pair is kept or removed as a whole.
    static QString trimString(const QString &text, const QString &acceptingOnlyChars);
    static QString stringByRemovingCharacters(const QString &text, const CharacterSet &inSet);

    // Returns `text` if its width is at most `pixelLenght` points, otherwise its longest beginning that fits
    // together with a following "..". At least one unit is kept, so the result can be too wide. Cuts between
    // UTF-16 units, so half of a surrogate pair may remain before the dots. Measures some dozens of
    // candidates, however long the text is. Assumes that the width grows with the text, except for kerning
    // and ligatures.
    static QString trimStringToFit(const QString &text, qint32 pixelLenght,
                                   const Foundation::TextAttributes &withAttributes);

    // The local date and time, such as "20240229235959". All calls within one second return the same text.
    static QString uniqueTimeString();
    // The time string, followed by a random number of at least five digits.
    static QString uniqueTimeRandString();
    // The number of consecutive preceding calls with the same text, "0" for the first.
    static QString getNewSerialForTimeString(const QString &timeString);
    // The time string, followed by its serial. Unique within the process.
    static QString uniqueTimeSerialString();

    // Removes leading blanks of any kind and tabs, but no line ends. Returns null, never an empty text, if
    // nothing remains.
    static QString removeInitialSpaces(const QString &text);
    // Remove the character " " at both ends, and no other whitespace. Both operations are equal.
    static QString trimLateralSpace(const QString &text);
    static QString removeLateralSpace(const QString &text);
    // Whether anything remains after trimLateralSpace(). False for a null text.
    static bool spaceTrimmedNotEmpy(const QString &text);
    // Removes all double quotes at both ends.
    static QString trimLateralQuote(const QString &text);
    // Removes all line feeds and carriage returns.
    static QString stripNewLines(const QString &text);
    // Adds "0" at the beginning until the text has `totalLen` units. Longer texts are not changed.
    static QString addLeading0(const QString &text, qint64 totalLen);
};
