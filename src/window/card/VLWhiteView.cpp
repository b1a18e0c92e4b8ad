#include "window/card/VLWhiteView.h"

#include "window/card/PrintedLines.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QLayout>
#include <QPagedPaintDevice>
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
    const auto *area = qobject_cast<const QAbstractScrollArea *>(QApplication::focusWidget());
    if (!area || !area->viewport()->isAncestorOf(this))
        return;
    // So that the arrow keys can scroll the page.
    painter.setPen(QPen(QGuiApplication::palette().color(QPalette::Highlight), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

// Unlike QLayout::activate(), this also works in pages that are not shown.
static void layOut(const QWidget *widget)
{
    if (!widget->layout())
        return;
    widget->layout()->setGeometry(widget->contentsRect());
    for (const QWidget *child : widget->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
        layOut(child);
}

bool VLWhiteView::print(QPainter &painter, QPagedPaintDevice &device)
{
    const double width = device.width();
    const double height = device.height();
    resize(int(width), layout()->totalHeightForWidth(int(width)));
    layOut(this);
    const PrintedLines lines(this);
    const double end = lines.end();
    for (double top = 0; top < end;) {
        const double bottom = lines.endOfSheet(top, height);
        painter.save();
        painter.translate(0, -top);
        lines.paint(painter, top, bottom);
        painter.restore();
        painter.setPen(Qt::gray);
        painter.drawRect(QRectF(0, 0, width - 1, height - 1));
        top = bottom;
        if (top < end && !device.newPage())
            return false;
    }
    return true;
}
