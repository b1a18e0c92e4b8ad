#pragma once

#include "documents/DocumentController.h"
#include "platform/Services.h"

#include <QHash>

namespace Foundation
{

// Saves the documents of a controller automatically: some seconds after the last change, but at most half a
// minute after the first, and when autosaveAll() is called. A failure is reported to the user once, and again
// only after a success.
class Autosaver : public QObject
{
    Q_OBJECT

public:
    static constexpr int QuietSeconds = 5;
    static constexpr int LongestSeconds = 30;

    // `documents` is not owned and must outlive this object.
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
