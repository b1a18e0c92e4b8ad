#pragma once

#include <QString>

// A document may contain texts of any length, and laying out a text of many megabytes blocks a window for
// minutes. Therefore only a part that is laid out in some hundredths of a second is shown.

// The beginning of a text, or all of a text up to some thousand characters. It is cut between two
// user-perceived characters. A control that shows a cut text must say so, and must never write it back.
QString shownPart(const QString &text);

// The same for texts in one line: names in lists, menus and labels, and for assistive technology. A cut text
// ends in an ellipsis.
QString shownLine(const QString &text);
