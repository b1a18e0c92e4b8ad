#include "window/VLWhiteView.h"

#include <QPainter>

VLWhiteView::VLWhiteView(QWidget *parent)
    : QWidget(parent)
{
    QPalette page = palette();
    const QColor ink(0x1d, 0x20, 0x26);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        page.setColor(role, ink);
    for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Base})
        page.setColor(role, Qt::white);
    page.setColor(QPalette::Disabled, QPalette::Text, QColor(0x6b, 0x70, 0x7a));
    setPalette(page);
}

void VLWhiteView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.setPen(Qt::gray);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}
