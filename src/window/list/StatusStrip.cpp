#include "window/list/StatusStrip.h"

#include <QPainter>

void StatusStrip::paintEvent(QPaintEvent *)
{
    constexpr float Tint = 0.14F;
    QPainter painter(this);
    QColor tint = palette().color(QPalette::Highlight);
    tint.setAlphaF(Tint);
    painter.fillRect(rect(), tint);
    painter.fillRect(QRect(0, height() - 1, width(), 1), palette().color(QPalette::Mid));
}
