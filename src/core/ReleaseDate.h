#pragma once

#include <QString>

#include <optional>

// Reads the creation dates of documents of old releases, which are texts such as "2008-07-14 23:59:59 UTC".

// The format of the hour: "HH" or "hh" in the notation of Unicode date patterns. "hh" has no mark for the
// half of the day: 12 is the hour after midnight, and 13 and above are invalid.
enum class HourPattern { TwentyFour, Twelve };

// Converts a text "yyyy-MM-dd HH:mm:ss zzz" to seconds since 2001-01-01 00:00:00 UTC. Returns nothing if the
// text has another form or is no date of the calendar. The zone is a usual abbreviation (UTC, GMT, CET,
// PDT…), an offset from GMT (GMT+2, GMT+02:00, +0200) or a name of the zone database (Europe/Oslo). An
// ambiguous abbreviation has the meaning that the old releases gave it in English.
std::optional<double> secondsOfReleaseDate(const QString &text, HourPattern hours);
