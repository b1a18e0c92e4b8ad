#include "documents/Autosaver.h"

namespace Foundation
{

Autosaver::Autosaver(DocumentController &documents, QObject *parent)
    : QObject(parent)
    , m_documents(documents)
{
    connect(&documents, &DocumentController::documentAdded, this, &Autosaver::watch);
}

void Autosaver::watch(Document *document)
{
    connect(document, &Document::changed, this, [this, document] { noteChange(document); });
    connect(document, &Document::closed, this, [this, document] { m_states.remove(document); });
}

void Autosaver::noteChange(Document *document)
{
    State &state = m_states[document];
    const auto autosaveIt = [this, document] { autosave(document); };
    state.afterQuiet = Services::shared().timers().schedule(QuietSeconds, autosaveIt);
    if (!state.atTheLatest)
        state.atTheLatest = Services::shared().timers().schedule(LongestSeconds, autosaveIt);
}

void Autosaver::autosave(Document *document)
{
    if (!m_documents.documents().contains(document))
        return;
    State &state = m_states[document];
    state.afterQuiet = nullptr;
    state.atTheLatest = nullptr;
    const auto saved = document->autosave();
    if (!saved && !state.hasToldFailure && document->window())
        document->window()->beginAlert(
            {tr("The document “%1” could not be saved automatically.").arg(document->displayName()),
             saved.words() + u'\n' +
                 tr("Your changes are kept here, and saving is tried again after the next one."),
             {{tr("OK")}}},
            [](int) {});
    state.hasToldFailure = !saved;
}

void Autosaver::autosaveAll()
{
    for (Document *document : QList<Document *>(m_documents.documents()))
        autosave(document);
}

} // namespace Foundation
