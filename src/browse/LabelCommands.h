#pragma once

#include "browse/BrowseHost.h"
#include "platform/Actions.h"

#include <QObject>

// The sheet in which the captions of a document's fields are edited. Its fields are bound to the captions
// themselves, so that there is nothing to take over and nothing to cancel. Takes part in the responder chain
// of its document.
class LabelCommands : public QObject
{
    Q_OBJECT

public:
    static const QString LabelSheet;

    // Not owned; outlives the commands.
    explicit LabelCommands(BrowseHost &host, QObject *parent = nullptr)
        : QObject(parent)
        , m_host(host)
    {
    }

    Q_INVOKABLE void editLabelSheet(const Foundation::ActionSender &sender);
    // Marks the document as edited, whether a caption was touched or not.
    Q_INVOKABLE void closeLabelSheet(const Foundation::ActionSender &sender);
    // A field or switch of the sheet was changed, which marks the document as edited at once: the sheet may
    // end without being closed.
    void captionDidChange() { m_host.updateChangeCount(0); }

private:
    BrowseHost &m_host;
};
