#pragma once

#include "platform/TextAttributes.h"
#include "values/Dictionary.h"

#include <QtGlobal>

#include <optional>

class QColor;
class QPainter;
class QRectF;

// The label of a category: its name on a rounded rectangle in its two colours.
struct CategoryPill
{
    QString name;
    Foundation::Color back;
    Foundation::Color text;

    static CategoryPill ofCategory(const Foundation::Dictionary &category);
    // The label of the record's category. Nothing for a record without a category.
    static std::optional<CategoryPill> ofRecord(const Foundation::Dictionary &record);

    // Font family and size of labels in tables, from the current settings of the user.
    static Foundation::TextAttributes tableAttributes();

    // Paints the label into a cell of a table with a margin of 1 point, in the font of the settings. Paints
    // nothing if the cell is too small. If the background has nearly the same colour (for example that of a
    // selected row), the label gets a line around it.
    void paintIntoCell(QPainter &painter, const QRectF &cell, const QColor &background) const;
};
