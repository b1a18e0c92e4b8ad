#include "window/accessibility/DocumentAnnouncer.h"

using Foundation::Document;

DocumentAnnouncer::DocumentAnnouncer(MyDocument *document, Announcer *announcer)
    : QObject(announcer)
    , m_document(document)
    , m_announcer(announcer)
{
    connect(document->myArrayController(), &FilteringArrayController::usedFilterDisplayChanged, this,
            &DocumentAnnouncer::noteFilter);
    connect(document, &VLCryptoDoc::isEncryptedChanged, this, [this] {
        m_pause = nullptr;
        m_announcer->say(m_document->isEncrypted() ? tr("Document locked") : tr("Document unlocked"));
    });
    connect(document, &Document::saved, this, [this] { m_announcer->say(tr("Document saved")); });
}

void DocumentAnnouncer::noteFilter()
{
    constexpr int PauseInSeconds = 1;
    m_pause =
        Foundation::Services::shared().timers().schedule(PauseInSeconds, [this] { sayNumberOfContacts(); });
}

void DocumentAnnouncer::sayNumberOfContacts()
{
    const FilteringArrayController &records = *m_document->myArrayController();
    if (m_document->isEncrypted() || records.usedFilterDisplay() == m_filter)
        return;
    m_filter = records.usedFilterDisplay();
    const std::size_t count = records.arrangedObjects().size();
    if (!records.filterInAction())
        m_announcer->say(tr("All contacts: %1").arg(count));
    else if (count == 0)
        m_announcer->say(tr("No contact matches"));
    else
        m_announcer->say(count == 1 ? tr("1 contact found") : tr("%1 contacts found").arg(count));
}
