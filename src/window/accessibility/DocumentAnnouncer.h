#pragma once

#include "lifecycle/MyDocument.h"
#include "window/accessibility/Announcer.h"

// Announces changes of a document: how many contacts a filter shows, after a pause in typing, and that the
// document was locked, unlocked or saved by command. Automatic saving is not announced.
class DocumentAnnouncer : public QObject
{
    Q_OBJECT

public:
    // The arguments are not owned. The document must outlive the parent of the announcer.
    DocumentAnnouncer(MyDocument *document, Announcer *announcer);

private:
    void noteFilter();
    void sayNumberOfContacts();

    MyDocument *m_document;
    Announcer *m_announcer;
    QString m_filter;
    Foundation::Timers::Timer m_pause;
};
