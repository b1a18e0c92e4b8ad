#include "window/controls/WholeTextButton.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QLineEdit>
#include <QLocale>

WholeTextButton::WholeTextButton(QWidget *field)
    : QPushButton(field)
    , m_field(field)
{
    hide();
    setAutoDefault(false); // In a sheet, Return is for the default button of the sheet.
    setCursor(Qt::ArrowCursor);
    field->installEventFilter(this);
    if (auto *scrolling = qobject_cast<QAbstractScrollArea *>(field))
        scrolling->viewport()->installEventFilter(this);
    QWidget::setTabOrder(field, this);
}

void WholeTextButton::showFor(qsizetype textLength, qsizetype shownLength)
{
    const bool isShortened = shownLength < textLength;
    if (isShortened) {
        const bool isNarrow = qobject_cast<QLineEdit *>(m_field);
        const QString length = QLocale().toString(textLength);
        setText(isNarrow ? tr("Show All") : tr("Show All %1 Characters").arg(length));
        setToolTip(tr("%1 of %2 characters are not shown here")
                       .arg(QLocale().toString(textLength - shownLength), length));
        setAccessibleDescription(toolTip());
    }
    setVisible(isShortened);
    placeInField();
}

bool WholeTextButton::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::Resize && !isHidden())
        placeInField();
    return QPushButton::eventFilter(object, event);
}

void WholeTextButton::placeInField()
{
    ensurePolished(); // The size depends on the font of the desktop.
    auto *line = qobject_cast<QLineEdit *>(m_field);
    const QSize size(std::min(sizeHint().width(), m_field->width()),
                     line ? line->height() : std::min(sizeHint().height(), m_field->height()));
    const QRect area = m_field->rect();
    int right = area.right();
    if (const auto *scrolling = qobject_cast<QAbstractScrollArea *>(m_field))
        right = scrolling->viewport()->geometry().right(); // beside the scroll bar
    setGeometry(QRect(QPoint(right - size.width() + 1, area.bottom() - size.height() + 1), size));
    if (line)
        line->setTextMargins(0, 0, isHidden() ? 0 : size.width(), 0);
}
