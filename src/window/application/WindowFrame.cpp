#include "window/application/WindowFrame.h"

#include "window/application/DocumentMainWindow.h"
#include "window/application/WindowPlacement.h"

#include <QApplication>
#include <QScreen>
#include <QStyle>

using Foundation::Rect;

namespace
{

// Under Wayland, a window neither knows nor chooses its position, and stays on its screen.
bool canPlaceWindows()
{
    return !QGuiApplication::platformName().startsWith(u"wayland");
}

// The areas of the screens on which a window can be placed.
QList<QRect> availableScreens(const QWidget &window)
{
    if (!canPlaceWindows())
        return {window.screen()->availableGeometry()};
    QList<QRect> screens = {QGuiApplication::primaryScreen()->availableGeometry()};
    for (const QScreen *screen : QGuiApplication::screens())
        screens.append(screen->availableGeometry());
    return screens;
}

QRect primaryScreen()
{
    return QGuiApplication::primaryScreen()->geometry();
}

} // namespace

WindowFrame::WindowFrame(DocumentMainWindow *window, const QSize &usualSize)
    : m_window(window)
    , m_usualSize(usualSize)
{
}

Rect WindowFrame::frame() const
{
    return frameOfScreenRect({m_window->pos(), m_window->size()}, primaryScreen());
}

void WindowFrame::setFrame(const Rect &frame)
{
    if (m_window->isMaximized() || m_window->isFullScreen())
        m_window->showNormal();
    const QRect rect = reachableRect(screenRectOfFrame(frame, primaryScreen()), m_window->minimumSize(),
                                     m_usualSize, titleBarHeight(), availableScreens(*m_window));
    m_window->move(rect.topLeft());
    m_window->resize(rect.size());
}

int WindowFrame::titleBarHeight() const
{
    // The size of the decoration is unknown before the window was shown.
    const int decoration = m_window->geometry().top() - m_window->pos().y();
    return decoration > 0 ? decoration : m_window->style()->pixelMetric(QStyle::PM_TitleBarHeight);
}

void WindowFrame::center()
{
    const QRect screen = availableScreens(*m_window).first();
    m_window->resize(m_window->size().boundedTo(screen.size() - QSize(0, titleBarHeight())));
    QRect rect(QPoint(), m_window->size());
    rect.moveCenter(screen.center());
    // Windows at the same position would hide each other.
    constexpr QPoint Cascade(28, 28);
    const auto isTaken = [this](const QPoint &place) {
        for (const QWidget *other : QApplication::topLevelWidgets()) {
            const bool isDocument = qobject_cast<const DocumentMainWindow *>(other) != nullptr;
            if (isDocument && other != m_window && other->isVisible() && other->pos() == place)
                return true;
        }
        return false;
    };
    while (isTaken(rect.topLeft()) && screen.contains(rect.translated(Cascade)))
        rect.translate(Cascade);
    m_window->move(rect.topLeft());
}
