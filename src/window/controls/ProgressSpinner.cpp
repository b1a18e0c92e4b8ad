#include "window/controls/ProgressSpinner.h"

#include <QPainter>

ProgressSpinner::ProgressSpinner(QWidget *parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void ProgressSpinner::setRunning(bool running)
{
    m_isRunning = running;
    repaint();
}

void ProgressSpinner::paintEvent(QPaintEvent *)
{
    if (!m_isRunning)
        return;
    constexpr qreal Thickness = 2;
    constexpr int SixteenthsOfDegree = 16;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF ring = QRectF(rect()).adjusted(Thickness, Thickness, -Thickness, -Thickness);
    QColor faint = palette().color(QPalette::WindowText);
    faint.setAlphaF(0.2F);
    painter.setPen(QPen(faint, Thickness));
    painter.drawEllipse(ring);
    painter.setPen(QPen(palette().color(QPalette::Highlight), Thickness, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(ring, 90 * SixteenthsOfDegree, -100 * SixteenthsOfDegree);
}
