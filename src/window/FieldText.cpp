#include "window/FieldText.h"

#include <QFocusEvent>
#include <QTextOption>

#include <cmath>

namespace
{
constexpr int UsualWidth = 260;
constexpr int NarrowestText = 60;
} // namespace

FieldText::FieldText(QWidget *parent)
    : QTextEdit(parent)
{
    setReadOnly(true);
    setAcceptRichText(false);
    setUndoRedoEnabled(false);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::ClickFocus);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    document()->setDocumentMargin(0);
    viewport()->setAutoFillBackground(false);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    connect(this, &QTextEdit::textChanged, this, &QWidget::updateGeometry);
}

int FieldText::heightForWidth(int width) const
{
    QTextDocument *text = document();
    const qreal present = text->textWidth();
    text->setTextWidth(width);
    const int height = int(std::ceil(text->size().height()));
    text->setTextWidth(present);
    return height;
}

QSize FieldText::sizeHint() const
{
    return {UsualWidth, heightForWidth(UsualWidth)};
}

QSize FieldText::minimumSizeHint() const
{
    return {NarrowestText, fontMetrics().height()};
}

void FieldText::changeEvent(QEvent *event)
{
    QTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        updateGeometry();
}

void FieldText::focusOutEvent(QFocusEvent *event)
{
    QTextEdit::focusOutEvent(event);
    // A selection left behind in one of many texts would look like the one that Copy takes. The context menu
    // keeps it, since Copy stands there.
    if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::MenuBarFocusReason)
        return;
    QTextCursor cursor = textCursor();
    cursor.clearSelection();
    setTextCursor(cursor);
}
