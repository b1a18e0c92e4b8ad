#include "window/accessibility/AccessibleField.h"

#include <QLineEdit>
#include <QTextBoundaryFinder>

namespace
{

// A part of a text, from `start` up to but not including `end`; -1 for none.
struct Span
{
    int start = -1;
    int end = -1;
};

// The character, word or sentence at a position, or the whole text for lines and paragraphs. At the end of
// the text, this is the last word or sentence, but no character. None beyond the text.
Span spanAt(const QString &text, int offset, QAccessible::TextBoundaryType type)
{
    const int length = int(text.size());
    const bool isCharacter = type == QAccessible::CharBoundary;
    if (text.isEmpty() || offset < 0 || offset > length || (isCharacter && offset == length))
        return {};
    if (!isCharacter && type != QAccessible::WordBoundary && type != QAccessible::SentenceBoundary)
        return {0, length};
    QTextBoundaryFinder finder(isCharacter                         ? QTextBoundaryFinder::Grapheme
                               : type == QAccessible::WordBoundary ? QTextBoundaryFinder::Word
                                                                   : QTextBoundaryFinder::Sentence,
                               text);
    finder.setPosition(offset);
    if (offset == length || !finder.isAtBoundary())
        finder.toPreviousBoundary();
    const int start = int(std::max<qsizetype>(finder.position(), 0));
    const qsizetype end = finder.toNextBoundary();
    return {start, end < 0 ? length : int(end)};
}

} // namespace

AccessibleField::AccessibleField(QWidget *widget, QAccessible::Role role)
    : QAccessibleWidget(widget, role)
{
}

QLineEdit *AccessibleField::field() const
{
    auto *field = qobject_cast<QLineEdit *>(object());
    return field || !object() ? field : object()->findChild<QLineEdit *>();
}

QString AccessibleField::shownText() const
{
    return field() && field()->echoMode() == QLineEdit::Normal ? field()->text() : QString();
}

QString AccessibleField::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Value)
        return shownText();
    const QString own = QAccessibleWidget::text(kind);
    const bool isPlaceholder = kind == QAccessible::Description && own.isEmpty() && field();
    return isPlaceholder ? field()->placeholderText() : own;
}

void AccessibleField::setText(QAccessible::Text kind, const QString &text)
{
    if (kind != QAccessible::Value)
        QAccessibleWidget::setText(kind, text);
    else
        replaceText(0, characterCount(), text);
}

QAccessible::State AccessibleField::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    if (!field())
        return state;
    state.editable = true;
    state.readOnly = field()->isReadOnly();
    state.passwordEdit = field()->echoMode() != QLineEdit::Normal;
    state.selectableText = !state.passwordEdit;
    return state;
}

void *AccessibleField::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TextInterface)
        return static_cast<QAccessibleTextInterface *>(this);
    if (type == QAccessible::EditableTextInterface)
        return static_cast<QAccessibleEditableTextInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

int AccessibleField::characterCount() const
{
    return field() ? int(field()->text().size()) : 0;
}

QString AccessibleField::text(int start, int end) const
{
    const QString shown = shownText();
    const qsizetype from = std::clamp<qsizetype>(start, 0, shown.size());
    const qsizetype to = end < 0 ? shown.size() : std::clamp<qsizetype>(end, from, shown.size());
    return shown.sliced(from, to - from);
}

QString AccessibleField::textAtOffset(int offset, QAccessible::TextBoundaryType type, int *start,
                                      int *end) const
{
    const QString shown = shownText();
    const Span span = spanAt(shown, offset == -1 ? int(shown.size()) : offset, type);
    *start = span.start;
    *end = span.end;
    return span.start < 0 ? QString() : shown.sliced(span.start, span.end - span.start);
}

QString AccessibleField::textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int *start,
                                          int *end) const
{
    (void)textAtOffset(offset, type, start, end);
    const bool isAfterLastCharacter = *start < 0 && offset == characterCount();
    const int before = isAfterLastCharacter ? offset - 1 : *start - 1;
    return textAtOffset(before < 0 ? -2 : before, type, start, end); // -1 would mean the end of the text
}

QString AccessibleField::textAfterOffset(int offset, QAccessible::TextBoundaryType type, int *start,
                                         int *end) const
{
    (void)textAtOffset(offset, type, start, end);
    return textAtOffset(*end < 0 || *end == characterCount() ? -2 : *end, type, start, end);
}

void AccessibleField::selection(int index, int *start, int *end) const
{
    const bool isThere = index == 0 && selectionCount() > 0;
    *start = isThere ? field()->selectionStart() : 0;
    *end = isThere ? field()->selectionEnd() : 0;
}

int AccessibleField::selectionCount() const
{
    return field() && field()->hasSelectedText() ? 1 : 0;
}

void AccessibleField::addSelection(int start, int end)
{
    setSelection(0, start, end);
}

void AccessibleField::removeSelection(int index)
{
    if (index == 0 && field())
        field()->deselect();
}

void AccessibleField::setSelection(int index, int start, int end)
{
    const int from = std::clamp(start, 0, characterCount());
    if (index == 0 && field())
        field()->setSelection(from, std::clamp(end, from, characterCount()) - from);
}

int AccessibleField::cursorPosition() const
{
    return field() ? field()->cursorPosition() : 0;
}

void AccessibleField::setCursorPosition(int position)
{
    if (field())
        field()->setCursorPosition(std::clamp(position, 0, characterCount()));
}

QRect AccessibleField::characterRect(int offset) const
{
    if (offset < 0 || offset >= characterCount())
        return {};
    const QString shown = field()->displayText(); // has the length of the text, even if it is masked
    // The field only provides the rectangle of its cursor, so the width of the text between is added.
    const QRect cursor = field()->inputMethodQuery(Qt::ImCursorRectangle).toRect();
    const int at = field()->cursorPosition();
    const QFontMetrics metrics = field()->fontMetrics();
    const QString between = shown.sliced(std::min(at, offset), std::abs(at - offset));
    const int distance = metrics.horizontalAdvance(between);
    const QRect inField(cursor.center().x() + (offset < at ? -distance : distance), cursor.y(),
                        metrics.horizontalAdvance(shown.at(offset)), cursor.height());
    return inField.translated(field()->mapToGlobal(QPoint()));
}

int AccessibleField::offsetAtPoint(const QPoint &point) const
{
    const QPoint inField = field() ? field()->mapFromGlobal(point) : QPoint(-1, -1);
    return field() && field()->rect().contains(inField) ? field()->cursorPositionAt(inField) : -1;
}

void AccessibleField::scrollToSubstring(int start, int end)
{
    setCursorPosition(end);
    setCursorPosition(start);
}

QString AccessibleField::attributes(int, int *start, int *end) const
{
    *start = 0;
    *end = characterCount();
    return {};
}

void AccessibleField::deleteText(int start, int end)
{
    replaceText(start, end, {});
}

void AccessibleField::insertText(int offset, const QString &text)
{
    replaceText(offset, offset, text);
}

void AccessibleField::replaceText(int start, int end, const QString &text)
{
    if (!field() || !field()->isEnabled() || field()->isReadOnly())
        return;
    setSelection(0, start, end);
    field()->insert(text); // Like typing: it can be undone, and a validator may refuse it.
}
