#pragma once

#include "values/Color.h"

#include <QColorDialog>
#include <QPointer>

#include <functional>

// The colour panel of the application on the screen: a window that stands beside the others, blocks none of
// them, and tells Foundation::ColorPanel of every colour the user touches. Belongs to one control at a time.
class DesktopColorPanel : public QObject
{
    Q_OBJECT

public:
    using Activation = std::function<void(bool isActive)>;

    static DesktopColorPanel &shared();

    // Brings the panel up on a window for a control, which is told that it has the panel, and later that it
    // has lost it. The panel goes with the window. The colour that it begins with is told to nobody.
    void open(const Foundation::Color &color, const QString &title, QWidget *window, Activation activation);
    // Shows another colour, as if the panel had just been opened.
    void showColor(const Foundation::Color &color);
    // Null while no panel is on the screen.
    QColorDialog *dialog() const { return m_dialog; }

private:
    DesktopColorPanel();
    void close();
    void give(Activation activation);

    QPointer<QColorDialog> m_dialog;
    Activation m_activation;
    bool m_isTelling = false;
};
