#pragma once

#include "platform/TextAttributes.h"

class QPainter;

// Draws the label of a category as the detail views show it: a bar between two discs, with the name on it.
// The upper left corner is the painter's origin, and the label has a point of room at its left and two at its
// right. A name too long for it ends in two dots.
class VLLabelDrawer
{
public:
    VLLabelDrawer() = delete;

    // The text takes its colour from the attributes; `foreColor` is not used.
    static void drawString(QPainter &painter, const QString &string,
                           const Foundation::TextAttributes &attrDictionary, qint32 width, qint32 height,
                           const Foundation::Color &backColor, const Foundation::Color &foreColor);
    // The least width in which the whole of a text is seen.
    static qint32 widthForString(const QString &string, const Foundation::TextAttributes &attrDictionary,
                                 qint32 height);
};
