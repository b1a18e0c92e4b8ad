#include "window/controls/RuledSplitView.h"

#include <QResizeEvent>

using Foundation::Rect;

RuledSplitView::RuledSplitView(QWidget *parent)
    : QSplitter(Qt::Horizontal, parent)
{
    m_delegate.awakeFromNib();
}

void RuledSplitView::followRules()
{
    widget(0)->setMinimumWidth(m_delegate.minHSizeLeft());
    widget(0)->setMaximumWidth(m_delegate.maxHSizeLeft());
    widget(1)->setMinimumWidth(m_delegate.minHSizeRight());
    widget(1)->setMaximumWidth(m_delegate.maxHSizeRight());
    for (int i = 0; i < 2; ++i)
        setCollapsible(i, m_delegate.canCollapseSubview(i));
}

Rect RuledSplitView::frame() const
{
    return {double(x()), double(y()), double(width()), double(height())};
}

Rect RuledSplitView::frameOfSubview(int index) const
{
    // Not if the user has moved the divider since then.
    const bool isAsSet = qRound(m_exactWidths[0]) == sizes().at(0);
    const double size = isAsSet ? m_exactWidths[std::size_t(index)] : sizes().at(index);
    const QWidget *pane = widget(index);
    return {double(pane->x()), double(pane->y()), size, double(pane->height())};
}

void RuledSplitView::setFrameOfSubview(int index, const Rect &frame)
{
    // adjustSubviews() applies both sizes together.
    m_exactWidths[std::size_t(index)] = frame.width;
}

bool RuledSplitView::isSubviewCollapsed(int index) const
{
    return sizes().at(index) == 0;
}

void RuledSplitView::setPositionOfDivider(double position, int dividerIndex)
{
    moveSplitter(qRound(position), dividerIndex + 1);
}

void RuledSplitView::adjustSubviews()
{
    const int left = qRound(m_exactWidths[0]);
    setSizes({left, width() - handleWidth() - left});
}

void RuledSplitView::setLeftWidth(int width)
{
    if (isVisible())
        setSizes({width, this->width() - handleWidth() - width});
    else
        m_leftWidth = width;
}

void RuledSplitView::showEvent(QShowEvent *event)
{
    followRules();
    QSplitter::showEvent(event);
    if (const int left = std::exchange(m_leftWidth, 0))
        setLeftWidth(left);
}

void RuledSplitView::resizeEvent(QResizeEvent *event)
{
    const QSize former = event->oldSize();
    // The first size comes from the proportions in the interface file.
    if (!former.isValid() || count() < 2 || sizes().at(0) + sizes().at(1) == 0) {
        QSplitter::resizeEvent(event);
        return;
    }
    followRules();
    m_delegate.resizeSubviewsWithOldSize(*this, {double(former.width()), double(former.height())});
}
