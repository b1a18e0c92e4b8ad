#include "window/application/DocumentMainWindow.h"

#include <QCloseEvent>
#include <QDialog>
#include <QWindow>

bool DocumentMainWindow::event(QEvent *event)
{
    const bool handled = QMainWindow::event(event);
    if (event->type() == QEvent::WindowActivate)
        Q_EMIT becameKey();
    // Some window managers give the keyboard to a clicked window although a sheet blocks it. The toolkit asks
    // them to activate the sheet too early, and drops the keys of a blocked window. The event that ends the
    // block comes while the sheet is still on the screen, so the keyboard then returns to this window.
    if (windowHandle() &&
        (event->type() == QEvent::WindowBlocked || event->type() == QEvent::WindowUnblocked))
        windowHandle()->setFlag(Qt::WindowDoesNotAcceptFocus, event->type() == QEvent::WindowBlocked);
    return handled;
}

void DocumentMainWindow::takeKeyboard()
{
    for (auto *sheet : findChildren<QDialog *>(QString(), Qt::FindDirectChildrenOnly)) {
        if (sheet->isModal() && sheet->isVisible()) {
            sheet->activateWindow();
            return;
        }
    }
    // A panel of the application is in front of all its windows and keeps the keyboard.
    if (!windowHandle() || !windowHandle()->flags().testFlag(Qt::WindowDoesNotAcceptFocus))
        activateWindow();
}

void DocumentMainWindow::closeEvent(QCloseEvent *event)
{
    // Closing may need questions, whose answers come later.
    event->ignore();
    Q_EMIT closeRequested();
}
