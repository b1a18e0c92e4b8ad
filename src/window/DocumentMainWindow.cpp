#include "window/DocumentMainWindow.h"

#include <QCloseEvent>

bool DocumentMainWindow::event(QEvent *event)
{
    const bool handled = QMainWindow::event(event);
    if (event->type() == QEvent::WindowActivate)
        Q_EMIT becameKey();
    return handled;
}

void DocumentMainWindow::closeEvent(QCloseEvent *event)
{
    // Whether it may be closed is found out by questions, whose answers come later.
    event->ignore();
    Q_EMIT closeRequested();
}
