#include "window/desktop/DesktopColorPanel.h"

#include "platform/ColorPanel.h"
#include "window/desktop/DesktopText.h"

#include <QScreen>
#include <QSignalBlocker>

using Foundation::Color;
using Foundation::ColorPanel;

namespace
{

// A position beside the window, so that both are visible, or a corner of the screen if there is no space.
QPoint placeBeside(const QRect &window, const QSize &panel, const QRect &screen)
{
    constexpr int Gap = 8;
    constexpr int TitleBar = 32;
    const QPoint places[] = {{window.right() + Gap, window.top()},
                             {window.left() - Gap - panel.width(), window.top()},
                             {window.left(), window.bottom() + Gap},
                             {window.left(), window.top() - Gap - TitleBar - panel.height()}};
    for (const QPoint &place : places) {
        if (screen.contains(QRect(place, panel + QSize(0, TitleBar))))
            return place;
    }
    return screen.bottomRight() - QPoint(panel.width() + Gap, panel.height() + TitleBar + Gap);
}

} // namespace

DesktopColorPanel &DesktopColorPanel::shared()
{
    static DesktopColorPanel panel;
    return panel;
}

DesktopColorPanel::DesktopColorPanel()
{
    connect(&ColorPanel::shared(), &ColorPanel::closed, this, &DesktopColorPanel::close);
}

void DesktopColorPanel::give(Activation activation)
{
    if (m_activation)
        m_activation(false);
    m_activation = std::move(activation);
    if (m_activation)
        m_activation(true);
}

void DesktopColorPanel::open(const Color &color, const QString &title, QWidget *window, Activation activation)
{
    // While a sheet is open, only windows that belong to it can be used.
    if (m_dialog && m_dialog->parentWidget() != window)
        close();
    if (!m_dialog) {
        m_dialog = new QColorDialog(window);
        m_dialog->setAttribute(Qt::WA_DeleteOnClose);
        m_dialog->setModal(false);
        m_dialog->setOptions(QColorDialog::NoButtons | QColorDialog::DontUseNativeDialog |
                             QColorDialog::ShowAlphaChannel);
        connect(m_dialog, &QColorDialog::currentColorChanged, this, [this](const QColor &chosen) {
            m_isTelling = true;
            ColorPanel::shared().setColor(componentsOfColor(chosen));
            m_isTelling = false;
        });
        // A window that is destroyed also destroys the panel, which then does not send finished().
        connect(m_dialog, &QDialog::finished, this, &DesktopColorPanel::close);
        connect(m_dialog, &QObject::destroyed, this, [this] { give({}); });
    }
    m_dialog->setWindowTitle(title);
    give(std::move(activation));
    showColor(color);
    m_dialog->adjustSize();
    m_dialog->move(
        placeBeside(window->frameGeometry(), m_dialog->size(), window->screen()->availableGeometry()));
    m_dialog->show();
    m_dialog->raise();
    m_dialog->activateWindow();
}

void DesktopColorPanel::showColor(const Color &color)
{
    if (!m_dialog || m_isTelling)
        return;
    const QSignalBlocker quietly(m_dialog);
    m_dialog->setCurrentColor(colorOfComponents(color));
}

void DesktopColorPanel::close()
{
    give({});
    if (!m_dialog)
        return;
    // The dialog is deleted on a later turn, when the panel may belong to another control.
    QColorDialog *dialog = std::exchange(m_dialog, nullptr);
    dialog->disconnect(this);
    dialog->close();
}
