#pragma once

#include "values/Color.h"

#include <QObject>

namespace Foundation
{

// The colour panel of the application, of which there is one for all windows, as the logic sees it. A window
// layer shows it, sets the colour while the user chooses, and takes it from the screen when it is to close.
class ColorPanel : public QObject
{
    Q_OBJECT

public:
    static ColorPanel &shared();

    const Color &color() const { return m_color; }
    // Tells everybody, also if the colour is the same.
    void setColor(const Color &color);
    void close();

Q_SIGNALS:
    void colorDidChange();
    void closed();

private:
    ColorPanel() = default;

    Color m_color;
};

} // namespace Foundation
