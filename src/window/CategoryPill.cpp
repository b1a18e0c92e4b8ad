#include "window/CategoryPill.h"

#include "core/RecordModel.h"
#include "helpers/VLColorUtilOSX.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

using Foundation::Dictionary;

namespace
{

constexpr int RoomAtEnds = 10;
constexpr int RoomAboveAndBelow = 2;
// Text comes out up to a point wider than the sum of its rounded advances.
constexpr int RoomForRounding = 2;

QColor colorUnder(const Dictionary &category, const Foundation::Key &key)
{
    const Foundation::Color color = VLColorUtilOSX::NSColorFromDict(category.value(key).dictionary());
    return QColor::fromRgbF(float(color.red), float(color.green), float(color.blue), float(color.alpha));
}

// Relative luminance and contrast as in WCAG 2.
double luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor &a, const QColor &b)
{
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace

std::optional<CategoryPill> CategoryPill::ofRecord(const Dictionary &record)
{
    const auto category = record.value(RecordKey::categoryPtr).dictionary();
    if (!category)
        return std::nullopt;
    return CategoryPill{category->value(CategoryKey::cat_category).stringValue(),
                        colorUnder(*category, CategoryKey::cat_backColor),
                        colorUnder(*category, CategoryKey::cat_textColor)};
}

QSize CategoryPill::size(const QFontMetrics &metrics) const
{
    return {metrics.horizontalAdvance(name) + 2 * RoomAtEnds + RoomForRounding,
            metrics.height() + 2 * RoomAboveAndBelow};
}

void CategoryPill::paint(QPainter &painter, const QRect &room, const QColor &background) const
{
    constexpr double LeastContrast = 1.3;
    const QSize wanted = size(painter.fontMetrics());
    QRect label(room.topLeft(), wanted.boundedTo(room.size()));
    if (label.width() <= label.height() / 2)
        return;
    label.moveTop(room.top() + (room.height() - label.height()) / 2);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(back);
    QColor edge = text;
    edge.setAlphaF(0.6F);
    painter.setPen(contrast(back, background) < LeastContrast ? QPen(edge) : QPen(Qt::NoPen));
    const QRectF outline = QRectF(label).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.drawRoundedRect(outline, outline.height() / 2, outline.height() / 2);
    painter.setPen(text);
    const QRect line = label.adjusted(RoomAtEnds, 0, -RoomAtEnds, 0);
    painter.drawText(line, int(Qt::AlignCenter) | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(name, Qt::ElideRight, line.width()));
}

CategoryPillView::CategoryPillView(QWidget *parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void CategoryPillView::setPill(const std::optional<CategoryPill> &pill)
{
    m_pill = pill;
    setVisible(pill.has_value());
    setAccessibleName(pill ? pill->name : QString());
    updateGeometry();
    update();
}

QSize CategoryPillView::sizeHint() const
{
    return m_pill ? m_pill->size(fontMetrics()) : QSize(0, fontMetrics().height());
}

void CategoryPillView::paintEvent(QPaintEvent *)
{
    if (!m_pill)
        return;
    QPainter painter(this);
    m_pill->paint(painter, rect(), palette().color(QPalette::Window));
}
