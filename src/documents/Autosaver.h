#pragma once

#include "documents/DocumentController.h"
#include "platform/Services.h"

#include <QHash>

namespace Foundation
{

// Saves the documents of a controller without being asked: some seconds after the last change, at the latest
// half a minute after the first, and at once when the application is left. What can go wrong is told once
// until it goes right again.
class Autosaver : public QObject
{
    Q_OBJECT

public:
    static constexpr int QuietSeconds = 5;
    static constexpr int LongestSeconds = 30;

    // Not owned; outlives this.
    explicit Autosaver(DocumentController &documents, QObject *parent = nullptr);

    void autosaveAll();

private:
    struct State
    {
        Timers::Timer afterQuiet;
        Timers::Timer atTheLatest;
        bool hasToldFailure = false;
    };

    void watch(Document *document);
    void noteChange(Document *document);
    void autosave(Document *document);

    DocumentController &m_documents;
    QHash<Document *, State> m_states;
};

} // namespace Foundation
