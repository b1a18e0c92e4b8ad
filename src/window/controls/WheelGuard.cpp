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
    event->ignore(); // An event that is not accepted goes to the parent.
    return true;
}
