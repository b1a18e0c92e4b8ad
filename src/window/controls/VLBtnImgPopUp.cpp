#include "window/controls/VLBtnImgPopUp.h"

#include <QMouseEvent>

void VLBtnImgPopUp::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        click(); // The base class does not get the event, so that the button is not held down.
}
