#include "window/controls/ColorWell.h"

#include "platform/ColorPanel.h"
#include "window/desktop/DesktopColorPanel.h"
#include "window/desktop/DesktopText.h"

#include <QPainter>
#include <QStyleOptionButton>
#include <QStylePainter>

using Foundation::Color;
using Foundation::ColorPanel;

ColorWell::ColorWell(QWidget *parent)
    : QAbstractButton(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QAbstractButton::clicked, this, &ColorWell::activate);
    connect(&ColorPanel::shared(), &ColorPanel::colorDidChange, this, &ColorWell::takeColor);
}

void ColorWell::setColor(const Color &color)
{
    if (m_color == color)
        return;
    showColor(color);
    // Another category was selected: the panel must show its colour, so that the former colour is not written
    // into it.
    if (m_isActive)
        DesktopColorPanel::shared().showColor(color);
}

void ColorWell::showColor(const Color &color)
{
    m_color = color;
    setAccessibleDescription(colorOfComponents(color).name());
    setToolTip(accessibleDescription());
    update();
}

void ColorWell::activate()
{
    DesktopColorPanel::shared().open(m_color, accessibleName(), window(),
                                     [well = QPointer(this)](bool isActive) {
                                         if (!well)
                                             return;
                                         well->m_isActive = isActive;
                                         well->update();
                                     });
}

void ColorWell::takeColor()
{
    if (!m_isActive || !isEnabled() || ColorPanel::shared().color() == m_color)
        return;
    showColor(ColorPanel::shared().color());
    Q_EMIT colorChosen();
}

QSize ColorWell::sizeHint() const
{
    return {56, qMax(26, fontMetrics().height() + 10)};
}

void ColorWell::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    option.initFrom(this);
    option.state |= isDown() || m_isActive ? QStyle::State_Sunken : QStyle::State_Raised;
    painter.drawControl(QStyle::CE_PushButtonBevel, option);
    const QRect swatch = rect().adjusted(6, 6, -6, -6);
    // A translucent colour is painted half on white and half on black.
    painter.fillRect(swatch, Qt::white);
    painter.fillRect(swatch.adjusted(swatch.width() / 2, 0, 0, 0), Qt::black);
    painter.setOpacity(isEnabled() ? 1.0 : 0.4);
    painter.fillRect(swatch, colorOfComponents(m_color));
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(swatch.adjusted(0, 0, -1, -1));
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = rect().adjusted(3, 3, -3, -3);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}
