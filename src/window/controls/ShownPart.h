#pragma once

#include <QString>

// A document may hold texts of any length, and laying out one of many megabytes keeps a window busy for
// minutes. What is shown is therefore no longer than what is laid out in a few hundredths of a second.

// The beginning of a text, all of it up to some thousand characters, cut between two characters as a reader
// counts them. Where it is cut the control must say so, and must never write it back.
QString shownPart(const QString &text);

// The same for what stands in one line, which no screen has the width for: names in lists, menus, labels and
// for assistive technology. Ends in an ellipsis where it is cut.
QString shownLine(const QString &text);
