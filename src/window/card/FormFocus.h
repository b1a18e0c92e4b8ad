#pragma once

#include "lifecycle/MyDocument.h"

#include <QTimer>

class QLineEdit;

// Where the keyboard goes between the list of contacts and their form. A field never keeps the focus when it
// comes to show other contacts than those that were typed into: after an undo, a deletion or a new filter the
// list has it. Takes part in the responder chain before the document.
class FormFocus : public QObject
{
    Q_OBJECT

public:
    struct Parts
    {
        QWidget *form;
        QLineEdit *firstName; // in the form
        QWidget *list;
    };

    // Nothing is owned. All must outlive this.
    FormFocus(MyDocument *document, Parts parts);

    // Edit mode, with the caret in the first name. Does nothing for a moment after unlocking: Return may have
    // been pressed twice behind the password.
    void beginEditing();
    // Edit mode, with the first name ready to be typed over.
    void beginNewContact();
    void focusList();
    // What `add` selects is a new contact, for which the focus may stay in the form.
    void stayDuring(const std::function<void()> &add);

    Q_INVOKABLE void switchViewEditMode(const Foundation::ActionSender &sender);

private:
    void followSelection();
    void followView();
    void settleAfterUnlocking();

    MyDocument *m_document;
    Parts m_parts;
    quint64 m_selectionStamp;
    bool m_isStaying = false;
    QTimer m_settling; // runs while Return is not taken for a wish
};
