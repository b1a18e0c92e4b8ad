#pragma once

#include "platform/TextAttributes.h"

class QPainter;

// Draws the label of a category for the detail views: the name on a bar with round ends. The origin of the
// painter is the upper left corner. The label has a margin of 1 point at its left and 2 points at its right.
// A name that is too long ends in two dots.
class VLLabelDrawer
{
public:
    VLLabelDrawer() = delete;

    // The colour of the text is that of the attributes; `foreColor` is unused.
    static void drawString(QPainter &painter, const QString &string,
                           const Foundation::TextAttributes &attrDictionary, qint32 width, qint32 height,
                           const Foundation::Color &backColor, const Foundation::Color &foreColor);
    // The smallest width for which the whole text is visible.
    static qint32 widthForString(const QString &string, const Foundation::TextAttributes &attrDictionary,
                                 qint32 height);
};
