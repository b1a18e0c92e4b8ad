#pragma once

#include "values/Color.h"

#include <QColorDialog>
#include <QPointer>

#include <functional>

// The colour panel on the screen: a window that blocks no other window. It passes every colour that the user
// chooses to Foundation::ColorPanel. The panel belongs to one control at a time.
class DesktopColorPanel : public QObject
{
    Q_OBJECT

public:
    using Activation = std::function<void(bool isActive)>;

    static DesktopColorPanel &shared();

    // Opens the panel over `window` for a control. `activation` is called with true now, and with false when
    // the panel is closed or belongs to another control. The panel is destroyed with the window. The initial
    // colour `color` is not passed on.
    void open(const Foundation::Color &color, const QString &title, QWidget *window, Activation activation);
    // Shows another colour without passing it on.
    void showColor(const Foundation::Color &color);
    // Null while the panel is not open.
    QColorDialog *dialog() const { return m_dialog; }

private:
    DesktopColorPanel();
    void close();
    void give(Activation activation);

    QPointer<QColorDialog> m_dialog;
    Activation m_activation;
    bool m_isTelling = false;
};
