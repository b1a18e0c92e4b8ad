#pragma once

#include "values/DisplayText.h"
#include "window/binding/Binding.h"
#include "window/binding/ControlAccess.h"
#include "window/controls/ShownPart.h"
#include "window/controls/WholeTextButton.h"

#include <QCoreApplication>

// A text field and the objects whose text it shows. When it comes to show others, its undo steps, its
// selection and its caret go, even if the text is equal: they belong to what was typed for the former ones.
// While it shows several objects it has no undo steps of its own: undoing to the empty field that stands for
// different texts would empty all of them.
//
// Of a text that is too long to be laid out it shows the beginning, is read-only, and has a button for all of
// it. What it shows then is never taken for input.
template <class Field>
class BoundField
{
public:
    explicit BoundField(Field *field)
        : m_field(field)
        , m_placeholder(field->placeholderText())
        , m_button(new WholeTextButton(field))
    {
        liftLengthLimit(field);
    }

    void show(const BindingExpression &expression)
    {
        const BoundValue bound = expression.value();
        const QString text = Foundation::displayText(bound.value);
        KeyPath::Subject subject = expression.keyPath().subject();
        const bool isSameSubject = subject == m_subject;
        const QString part = isSameSubject && isBeingTyped(text) ? text : shownPart(text);
        m_isWhole = part.size() == text.size();
        m_field->setReadOnly(!m_isWhole);
        if (isSameSubject)
            setTextOfField(m_field, part);
        else
            startFieldWithText(m_field, part);
        m_button->showFor(text.size(), part.size());
        m_subject = std::move(subject);
        keepUndoStepsOfField(m_field, !showsSeveral(expression));
        m_field->setPlaceholderText(bound.isMixed ? QCoreApplication::translate("Binder", "Multiple Values")
                                                  : m_placeholder);
        enableBySelection(m_field, bound);
    }

    // Whether the field's text is one that was put in for the objects that it shows, and not yet theirs.
    bool hasInput(const BindingExpression &expression)
    {
        // An input method may put in its text when the field loses the focus because others were selected.
        if (!m_isWhole || expression.keyPath().subject() != m_subject)
            return false;
        const BoundValue bound = expression.value();
        // An absent value shows like an empty one, and looking at it must not change it.
        const bool isNew = bound.isMixed || textOfField(m_field) != Foundation::displayText(bound.value);
        if (isNew)
            keepUndoStepsOfField(m_field, !showsSeveral(expression));
        return isNew;
    }

    WholeTextButton *wholeTextButton() const { return m_button; }

private:
    // A text that has just grown too long in this field stays whole and editable, so that typing is not
    // interrupted in the middle of a word. A text of twice the limit or more is shortened all the same.
    bool isBeingTyped(const QString &text) const
    {
        return m_isWhole && text.size() < 2 * shownPart(text).size() && textOfField(m_field) == text;
    }
    static bool showsSeveral(const BindingExpression &expression)
    {
        const KeyPath &path = expression.keyPath();
        return path.isOfSelection() && path.controller()->selectionIndexes().size() > 1;
    }

    Field *m_field;
    QString m_placeholder;
    WholeTextButton *m_button; // of the field
    bool m_isWhole = true;
    KeyPath::Subject m_subject;
};
