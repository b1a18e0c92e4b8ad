#pragma once

#include "lifecycle/MyDocument.h"

#include <QTimer>

class QLineEdit;

// Moves the keyboard focus between the list of contacts and the form. A field of the form must not keep the
// focus when the form shows other contacts: after an undo, a deletion or a new filter, the list gets the
// focus. Otherwise the user would type into another contact. A responder before the document.
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

    // The arguments are not owned and must outlive this object.
    FormFocus(MyDocument *document, Parts parts);

    // Switches to edit mode with the cursor in the first name. Does nothing for a moment after unlocking,
    // because Return may have been pressed twice after the password.
    void beginEditing();
    // Switches to edit mode with the first name selected.
    void beginNewContact();
    void focusList();
    // Calls `add`, which selects a new contact. The focus may stay in the form for this contact.
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
    QTimer m_settling; // runs while beginEditing() does nothing
};
