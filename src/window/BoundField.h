#pragma once

#include "foundation/DisplayText.h"
#include "window/Binding.h"
#include "window/ControlAccess.h"

#include <QCoreApplication>

// A text field and the objects whose text it shows. When it comes to show others, its undo steps, its
// selection and its caret go, even if the text is equal: they belong to what was typed for the former ones.
// While it shows several objects it has no undo steps of its own: undoing to the empty field that stands for
// different texts would empty all of them.
template <class Field>
class BoundField
{
public:
    explicit BoundField(Field *field)
        : m_field(field)
        , m_placeholder(field->placeholderText())
    {
        liftLengthLimit(field);
    }

    void show(const BindingExpression &expression)
    {
        const BoundValue bound = expression.value();
        const QString text = Foundation::displayText(bound.value);
        KeyPath::Subject subject = expression.keyPath().subject();
        if (subject == m_subject)
            setTextOfField(m_field, text);
        else
            startFieldWithText(m_field, text);
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
        if (expression.keyPath().subject() != m_subject)
            return false;
        const BoundValue bound = expression.value();
        // An absent value shows like an empty one, and looking at it must not change it.
        const bool isNew = bound.isMixed || textOfField(m_field) != Foundation::displayText(bound.value);
        if (isNew)
            keepUndoStepsOfField(m_field, !showsSeveral(expression));
        return isNew;
    }

private:
    static bool showsSeveral(const BindingExpression &expression)
    {
        const KeyPath &path = expression.keyPath();
        return path.isOfSelection() && path.controller()->selectionIndexes().size() > 1;
    }

    Field *m_field;
    QString m_placeholder;
    KeyPath::Subject m_subject;
};
