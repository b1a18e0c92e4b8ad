#include "window/CategoryPill.h"

#include "core/RecordModel.h"
#include "foundation/UserDefaults.h"
#include "helpers/VLColorUtilOSX.h"
#include "window/VLLabelDrawerExt.h"

#include <QPainter>

using Foundation::Dictionary;
using Foundation::TextAttributes;
using Foundation::UserDefaults;

CategoryPill CategoryPill::ofCategory(const Dictionary &category)
{
    const auto color = [&category](const Foundation::Key &key) {
        return VLColorUtilOSX::NSColorFromDict(category.value(key).dictionary());
    };
    return {category.value(CategoryKey::cat_category).stringValue(), color(CategoryKey::cat_backColor),
            color(CategoryKey::cat_textColor)};
}

std::optional<CategoryPill> CategoryPill::ofRecord(const Dictionary &record)
{
    const auto category = record.value(RecordKey::categoryPtr).dictionary();
    return category ? std::optional(ofCategory(*category)) : std::nullopt;
}

TextAttributes CategoryPill::tableAttributes()
{
    const UserDefaults &defaults = UserDefaults::standardUserDefaults();
    TextAttributes attributes;
    attributes.fontFamily = defaults.value(QStringLiteral("tableFontFamily")).toString();
    attributes.fontSize = defaults.value(QStringLiteral("tableFontSize")).toDouble();
    return attributes;
}

void CategoryPill::paintIntoCell(QPainter &painter, const QRectF &cell) const
{
    const qint32 width = qint32(cell.width()) - 2;
    const qint32 height = qint32(cell.height()) - 2;
    if (width <= 0 || height <= 0)
        return;
    TextAttributes attributes = tableAttributes();
    attributes.foreground = text;
    painter.save();
    painter.translate(cell.topLeft() + QPointF(1, 1));
    painter.setClipRect(0, 0, width, height, Qt::IntersectClip);
    VLLabelDrawerExt::drawString(painter, name, attributes, width, height, back, text);
    painter.restore();
}
