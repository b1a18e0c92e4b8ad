#include "window/list/CategoryPill.h"

#include "core/RecordModel.h"
#include "helpers/VLColorUtilOSX.h"
#include "platform/UserDefaults.h"
#include "values/DisplayText.h"
#include "window/controls/ShownPart.h"
#include "window/desktop/DesktopText.h"
#include "window/list/VLLabelDrawerExt.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

using Foundation::Dictionary;
using Foundation::TextAttributes;
using Foundation::UserDefaults;

namespace
{

// Relative luminance and contrast as defined in WCAG 2.
double luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(double(color.redF())) + 0.7152 * linear(double(color.greenF())) +
           0.0722 * linear(double(color.blueF()));
}

double contrast(const QColor &a, const QColor &b)
{
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace

CategoryPill CategoryPill::ofCategory(const Dictionary &category)
{
    const auto color = [&category](const Foundation::Key &key) {
        return VLColorUtilOSX::NSColorFromDict(category.value(key).dictionary());
    };
    return {shownLine(Foundation::displayText(category.value(CategoryKey::cat_category))),
            color(CategoryKey::cat_backColor), color(CategoryKey::cat_textColor)};
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

void CategoryPill::paintIntoCell(QPainter &painter, const QRectF &cell, const QColor &background) const
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
    constexpr double LeastContrast = 1.3;
    if (contrast(colorOfComponents(back), background) < LeastContrast) {
        QColor edge = colorOfComponents(text);
        edge.setAlphaF(0.6F);
        painter.setPen(edge);
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(1.5, 0.5, width - 4, height - 1), height / 2.0, height / 2.0);
    }
    painter.restore();
}
