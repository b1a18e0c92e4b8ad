#pragma once

#include "lifecycle/MyDocument.h"

class Announcer;
class FormFocus;
class QAbstractButton;

// Handles a new contact that the active filters hide. The form then shows another contact, so the focus must
// not be in the form: it goes to the button that shows all contacts, and a notice beside the button explains
// it. Until the new contact is visible, no other one is made. A responder before the document.
class HiddenContact : public QObject
{
    Q_OBJECT

public:
    struct Parts
    {
        QWidget *notice;
        QAbstractButton *showAllButton;
        Announcer *announcer;
    };

    // The arguments are not owned and must outlive this object.
    HiddenContact(MyDocument *document, FormFocus &focus, Parts parts);

    Q_INVOKABLE void addRow(const Foundation::ActionSender &sender);
    // Shows all contacts and begins to edit the one that was hidden.
    Q_INVOKABLE void showAllAndResetFilter(const Foundation::ActionSender &sender);

private:
    using Record = Foundation::ArrayController::Object;

    static QString sentence();
    void follow(const Record &added);
    void refresh();
    void tell();

    MyDocument *m_document;
    FormFocus &m_focus;
    Parts m_parts;
    Record m_record; // null if none is hidden
};
