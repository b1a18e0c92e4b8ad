#include "window/controls/WheelGuard.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QWheelEvent>

bool WheelGuard::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Wheel)
        return false;
    if (!qobject_cast<QComboBox *>(watched) && !qobject_cast<QAbstractSpinBox *>(watched))
        return false;
    event->ignore(); // What is not accepted goes on to the parent.
    return true;
}
