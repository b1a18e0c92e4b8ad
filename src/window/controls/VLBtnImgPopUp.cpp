#include "window/controls/VLBtnImgPopUp.h"

#include <QMouseEvent>

void VLBtnImgPopUp::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        click(); // And the event goes no further: the button is not held down.
}
