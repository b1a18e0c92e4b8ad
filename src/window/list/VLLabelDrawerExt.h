#pragma once

#include "platform/TextAttributes.h"

class QPainter;
class QRectF;

// Draws labels of categories for tables: the name on a rounded rectangle, or on a shape that points to one
// side. The origin of the painter is the upper left corner. A name that is too long ends in two dots. A null
// name counts as empty.
class VLLabelDrawerExt
{
public:
    VLLabelDrawerExt() = delete;

    // The colour of the text is that of the attributes; `foreColor` is unused. The two arrow shapes are
    // prescribed and have no caller yet.
    static void drawString(QPainter &painter, const QString &string,
                           const Foundation::TextAttributes &attrDictionary, qint32 width, qint32 height,
                           const Foundation::Color &backColor, const Foundation::Color &foreColor);
    static void drawLeftArrowString(QPainter &painter, const QString &string,
                                    const Foundation::TextAttributes &attrDictionary, qint32 width,
                                    qint32 height, const Foundation::Color &backColor,
                                    const Foundation::Color &foreColor);
    static void drawRightArrowString(QPainter &painter, const QString &string,
                                     const Foundation::TextAttributes &attrDictionary, qint32 width,
                                     qint32 height, const Foundation::Color &backColor,
                                     const Foundation::Color &foreColor);

    // Shared by all labels: the area for the text in a label with round ends, and the drawing of a text that
    // is shortened to an area, left-aligned and vertically centred.
    static QRectF textRoom(qint32 width, qint32 height);
    static void drawFittedText(QPainter &painter, const QString &string, const QRectF &room,
                               const Foundation::TextAttributes &attrDictionary);
};
