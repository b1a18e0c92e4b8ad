#include "window/binding/FieldText.h"

#include "window/controls/ShownPart.h"
#include "window/controls/TextLabel.h"
#include "window/controls/WholeTextButton.h"

#include <QAbstractTextDocumentLayout>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QLocale>
#include <QPainter>
#include <QStyleHints>
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

void FieldText::showText(const QString &text)
{
    const QString part = shownPart(text);
    m_textLength = text.size();
    if (part.size() < text.size() && !m_button) {
        m_button = new WholeTextButton(this);
        connect(m_button, &QPushButton::clicked, this, &FieldText::wholeTextWanted);
    }
    if (m_button) {
        m_button->showFor(text.size(), part.size());
        setViewportMargins(0, 0, 0, roomForButton());
    }
    if (toPlainText() != part)
        setPlainText(part);
}

QString FieldText::shorteningNote() const
{
    if (roomForButton() == 0)
        return {};
    const qsizetype shown = document()->characterCount() - 1;
    return tr("Only the beginning is printed: %1 of %2 characters")
        .arg(QLocale().toString(shown), QLocale().toString(m_textLength));
}

int FieldText::roomForButton() const
{
    return m_button && !m_button->isHidden() ? m_button->sizeHint().height() : 0;
}

void FieldText::setLink(bool isLink)
{
    if (m_isLink == isLink)
        return;
    m_isLink = isLink;
    setFocusPolicy(isLink ? Qt::StrongFocus : Qt::ClickFocus);
    viewport()->setCursor(isLink ? Qt::PointingHandCursor : Qt::IBeamCursor);
    showColor();
}

void FieldText::showColor()
{
    QPalette colors = palette();
    colors.setColor(QPalette::Active, QPalette::Text, shownColor());
    colors.setColor(QPalette::Inactive, QPalette::Text, shownColor());
    setPalette(colors);
}

QColor FieldText::shownColor() const
{
    const QWidget *page = parentWidget() ? parentWidget() : this;
    return m_isLink && isEnabled() ? linkColor(page->palette()) : page->palette().color(QPalette::Text);
}

void FieldText::keyPressEvent(QKeyEvent *event)
{
    const bool isOpening =
        event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    if (m_isLink && isOpening)
        Q_EMIT opened();
    else
        QTextEdit::keyPressEvent(event);
}

void FieldText::mousePressEvent(QMouseEvent *event)
{
    m_pressedAt = event->position().toPoint();
    QTextEdit::mousePressEvent(event);
}

void FieldText::mouseReleaseEvent(QMouseEvent *event)
{
    QTextEdit::mouseReleaseEvent(event);
    // A click beside the text, or one that ends a selection, does not open the link.
    const QPoint place = event->position().toPoint();
    const bool isClick =
        event->button() == Qt::LeftButton && !textCursor().hasSelection() &&
        (place - m_pressedAt).manhattanLength() < QGuiApplication::styleHints()->startDragDistance();
    if (m_isLink && isClick && document()->documentLayout()->hitTest(place, Qt::ExactHit) >= 0)
        Q_EMIT opened();
}

void FieldText::paintEvent(QPaintEvent *event)
{
    QTextEdit::paintEvent(event);
    if (!m_isLink || !hasFocus())
        return;
    QPainter painter(viewport());
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(viewport()->rect().adjusted(1, 1, -1, -1));
}

int FieldText::heightForWidth(int width) const
{
    QTextDocument *text = document();
    const qreal present = text->textWidth();
    text->setTextWidth(width);
    const int height = int(std::ceil(text->size().height()));
    text->setTextWidth(present);
    return height + roomForButton();
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
    // A selection in a text without the focus would look like the one that Copy uses. The context menu keeps
    // it, because it contains Copy.
    if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::MenuBarFocusReason)
        return;
    QTextCursor cursor = textCursor();
    cursor.clearSelection();
    setTextCursor(cursor);
}
