#pragma once

#include "values/Color.h"

#include <QObject>

namespace Foundation
{

// The colour panel as the logic sees it; the application has a single one for all windows. The window layer
// shows it, calls setColor() while the user chooses, and hides it when closed() is sent.
class ColorPanel : public QObject
{
    Q_OBJECT

public:
    static ColorPanel &shared();

    const Color &color() const { return m_color; }
    // Always sends colorDidChange(), even if the colour is the same.
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
