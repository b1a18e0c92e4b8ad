#pragma once

#include <QString>

#include <optional>

// The creation dates of documents of old releases, which stand there as text: "2008-07-14 23:59:59 UTC".

// How the hour is written; in the notation of the Unicode date patterns "HH" and "hh". The second kind has no
// mark for the half of the day: 12 is the hour after midnight, and 13 and above do not exist.
enum class HourPattern { TwentyFour, Twelve };

// Seconds since 2001-01-01 00:00:00 UTC of a text "yyyy-MM-dd HH:mm:ss zzz". Nothing if the text is anything
// else, or no date of the calendar. The zone is one of the usual abbreviations (UTC, GMT, CET, PDT…), an
// offset from GMT (GMT+2, GMT+02:00, +0200), or a name of the zone database (Europe/Oslo). An abbreviation of
// several zones means the one that the platform understood in English.
std::optional<double> secondsOfReleaseDate(const QString &text, HourPattern hours);
