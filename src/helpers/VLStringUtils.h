#pragma once

#include "platform/TextAttributes.h"

#include <QString>

#include <functional>

// Cleaning of strings, fitting of labels, and identifiers made from the clock.
//
// Lengths are in UTF-16 code units. A null string stays null unless an operation says otherwise. Main thread
// only: serials and random numbers are process-wide and have no lock.
class VLStringUtils
{
public:
    // Answers whether a Unicode code point is a member.
    using CharacterSet = std::function<bool(char32_t)>;

    VLStringUtils() = delete;

    // A random UUID (RFC 4122, version 4), 36 characters in capitals, without braces. Both names do the same.
    static QString createUUIDString();
    static QString uniqueUUIDString();

    // Both work by code points, so that a surrogate pair stays or goes as a whole.
    static QString trimString(const QString &text, const QString &acceptingOnlyChars);
    static QString stringByRemovingCharacters(const QString &text, const CharacterSet &inSet);

    // `text` if it is not wider than `pixelLenght` points, otherwise its longest beginning that fits with
    // ".." behind it. Never cuts below one unit, so that the result can be too wide. Cuts unit by unit: half
    // of a surrogate pair may stand before the dots. Measures some dozens of candidates however long the text
    // is, and counts on widths that grow with the text but for kerning and ligatures.
    static QString trimStringToFit(const QString &text, qint32 pixelLenght,
                                   const Foundation::TextAttributes &withAttributes);

    // The local date and time, as in "20240229235959": equal for all calls within one second.
    static QString uniqueTimeString();
    // The time string and a random number of at least five digits.
    static QString uniqueTimeRandString();
    // How many calls in a row before this one came with the same string, "0" for the first.
    static QString getNewSerialForTimeString(const QString &timeString);
    // The time string and its serial: unique within the process.
    static QString uniqueTimeSerialString();

    // Drops leading blanks of any kind, and tabs, but no line ends. Null, never empty, when nothing remains.
    static QString removeInitialSpaces(const QString &text);
    // Trim the character " " at both ends and no other whitespace. Both names do the same.
    static QString trimLateralSpace(const QString &text);
    static QString removeLateralSpace(const QString &text);
    // Whether anything remains after trimLateralSpace; false for null.
    static bool spaceTrimmedNotEmpy(const QString &text);
    // Trims double quotes at both ends, however many.
    static QString trimLateralQuote(const QString &text);
    // Removes all line feeds and carriage returns.
    static QString stripNewLines(const QString &text);
    // Prefixes "0" up to `totalLen` units. Longer strings stay as they are.
    static QString addLeading0(const QString &text, qint64 totalLen);
};
