#pragma once

#include "browse/BrowseHost.h"
#include "platform/Actions.h"

#include <QObject>

// The sheet that edits the captions of a document. Its fields are bound to the captions directly, so that
// there is nothing to confirm or cancel. A responder of the document.
class LabelCommands : public QObject
{
    Q_OBJECT

public:
    static const QString LabelSheet;

    // `host` is not owned and must outlive this object.
    explicit LabelCommands(BrowseHost &host, QObject *parent = nullptr)
        : QObject(parent)
        , m_host(host)
    {
    }

    Q_INVOKABLE void editLabelSheet(const Foundation::ActionSender &sender);
    // Marks the document as edited, even if no caption was changed.
    Q_INVOKABLE void closeLabelSheet(const Foundation::ActionSender &sender);
    // A field or switch of the sheet was changed. Marks the document as edited immediately, because a lock
    // may end the sheet without closeLabelSheet().
    void captionDidChange() { m_host.updateChangeCount(0); }

private:
    BrowseHost &m_host;
};
