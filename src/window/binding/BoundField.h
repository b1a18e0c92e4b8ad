#pragma once

#include "values/DisplayText.h"
#include "window/binding/Binding.h"
#include "window/binding/ControlAccess.h"
#include "window/controls/ShownPart.h"
#include "window/controls/WholeTextButton.h"

#include <QCoreApplication>

// A text field and the objects whose text it shows. When it begins to show other objects, its undo steps,
// selection and cursor are reset, even if the text is equal, because they belong to the former objects. While
// it shows several objects, it has no undo steps: an undo to the empty text that represents different texts
// would clear all of them.
//
// If the text is too long to be laid out, the field shows its beginning, is read-only and has a button that
// opens the whole text. The shown part is then never treated as input.
template <class Field>
class BoundField
{
    Q_DECLARE_TR_FUNCTIONS(BoundField)
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
        m_field->setPlaceholderText(bound.isMixed ? tr("Multiple Values") : m_placeholder);
        enableBySelection(m_field, bound);
    }

    // Whether the field contains input for the objects that it shows, which must still be written.
    bool hasInput(const BindingExpression &expression)
    {
        // An input method may commit its text when the field loses the focus because other objects were
        // selected.
        if (!m_isWhole || expression.keyPath().subject() != m_subject)
            return false;
        const BoundValue bound = expression.value();
        // An absent value is shown like an empty text, and showing it must not write an empty text.
        const bool isNew = bound.isMixed || textOfField(m_field) != Foundation::displayText(bound.value);
        if (isNew)
            keepUndoStepsOfField(m_field, !showsSeveral(expression));
        return isNew;
    }

    WholeTextButton *wholeTextButton() const { return m_button; }

private:
    // A text that becomes too long while it is typed in this field stays whole and editable, so that typing
    // is not interrupted. A text of twice the limit or more is shortened anyway.
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
