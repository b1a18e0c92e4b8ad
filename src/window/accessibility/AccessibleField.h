#pragma once

#include <QAccessibleWidget>

class QLineEdit;

// The accessible class of a line of text. It replaces the class of the toolkit, which does not check
// positions: "insert at 2,147,483,647" fills the field with blanks until the memory is used up. This class
// limits each position to the text. If the field hides its text, only the length can be read.
class AccessibleField : public QAccessibleWidget,
                        public QAccessibleTextInterface,
                        public QAccessibleEditableTextInterface
{
public:
    // `widget` must be a line edit, or contain one.
    explicit AccessibleField(QWidget *widget, QAccessible::Role role = QAccessible::EditableText);

    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text kind, const QString &text) override;
    QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    void selection(int index, int *start, int *end) const override;
    int selectionCount() const override;
    void addSelection(int start, int end) override;
    void removeSelection(int index) override;
    void setSelection(int index, int start, int end) override;
    int cursorPosition() const override;
    void setCursorPosition(int position) override;
    QString text(int start, int end) const override;
    // Units follow each other without gaps. The implementations of the toolkit never return for a word at the
    // end of the text.
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int *start,
                             int *end) const override;
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType type, int *start,
                            int *end) const override;
    QString textAtOffset(int offset, QAccessible::TextBoundaryType type, int *start, int *end) const override;
    int characterCount() const override;
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint &point) const override;
    void scrollToSubstring(int start, int end) override;
    QString attributes(int offset, int *start, int *end) const override;

    void deleteText(int start, int end) override;
    void insertText(int offset, const QString &text) override;
    void replaceText(int start, int end, const QString &text) override;

private:
    // Null while the field is being destroyed.
    QLineEdit *field() const;
    // The text as the field shows it, masked in a password field.
    QString shownText() const;
};
