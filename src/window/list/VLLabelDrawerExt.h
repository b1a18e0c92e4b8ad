#pragma once

#include "platform/TextAttributes.h"

class QPainter;
class QRectF;

// Draws labels as the tables show them: the name on a rounded rectangle, or on a shape that points to one
// side. The upper left corner is the painter's origin. A name too long for its label ends in two dots; a null
// one is like an empty one.
class VLLabelDrawerExt
{
public:
    VLLabelDrawerExt() = delete;

    // The text takes its colour from the attributes; no label uses `foreColor`.
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

    // What all labels share: the room of the text in one with round ends, and the text fitted into a room, at
    // its left and halfway up.
    static QRectF textRoom(qint32 width, qint32 height);
    static void drawFittedText(QPainter &painter, const QString &string, const QRectF &room,
                               const Foundation::TextAttributes &attrDictionary);
};
