#pragma once

#include "platform/TextAttributes.h"
#include "values/Dictionary.h"

#include <QtGlobal>

#include <optional>

class QColor;
class QPainter;
class QRectF;

// What a category looks like: its name on a rounded label in its own two colours.
struct CategoryPill
{
    QString name;
    Foundation::Color back;
    Foundation::Color text;

    static CategoryPill ofCategory(const Foundation::Dictionary &category);
    // Of the record's category; nothing for a record without one.
    static std::optional<CategoryPill> ofRecord(const Foundation::Dictionary &record);

    // Family and size of the tables' labels, as the user has set them at this moment.
    static Foundation::TextAttributes tableAttributes();

    // Paints the label into a cell of a table, a point inside it on all sides, in the font of the settings.
    // Nothing is drawn in a cell without room. A line around it sets it off from a background of about its
    // own colour, as that of a selected row may be.
    void paintIntoCell(QPainter &painter, const QRectF &cell, const QColor &background) const;
};
