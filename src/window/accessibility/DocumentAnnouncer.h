#pragma once

#include "lifecycle/MyDocument.h"
#include "window/accessibility/Announcer.h"

// Says for a document what its user cannot see: how many contacts a filter has found, once nothing more is
// typed for a moment, and that the document was locked, unlocked or saved. A save without being asked is not
// worth a word.
class DocumentAnnouncer : public QObject
{
    Q_OBJECT

public:
    // Neither is owned; the document must outlive the parent of the announcer.
    DocumentAnnouncer(MyDocument *document, Announcer *announcer);

private:
    void noteFilter();
    void sayNumberOfContacts();

    MyDocument *m_document;
    Announcer *m_announcer;
    QString m_filter;
    Foundation::Timers::Timer m_pause;
};
