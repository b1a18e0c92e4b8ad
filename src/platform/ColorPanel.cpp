#include "platform/ColorPanel.h"

namespace Foundation
{

ColorPanel &ColorPanel::shared()
{
    static ColorPanel panel;
    return panel;
}

void ColorPanel::setColor(const Color &color)
{
    m_color = color;
    Q_EMIT colorDidChange();
}

void ColorPanel::close()
{
    Q_EMIT closed();
}

} // namespace Foundation
