#pragma once

#include "lifecycle/MyDocument.h"

class Announcer;
class FormFocus;
class QAbstractButton;

// A new contact that the filters in force hide. It stays hidden, and the form goes on to show another
// contact, so that the focus must not be there: it goes to the button that shows all, and a notice beside it
// says where the contact is. Until it is in sight, no further one is made. Takes part in the responder chain
// before the document.
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

    // Nothing is owned. All must outlive this.
    HiddenContact(MyDocument *document, FormFocus &focus, Parts parts);

    Q_INVOKABLE void addRow(const Foundation::ActionSender &sender);
    // Goes on to the contact that was hidden, to be typed.
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
