#include "documents/DocumentController.h"

#include "platform/Services.h"

#include <QFileInfo>

namespace Foundation
{

DocumentController::DocumentController(DocumentMaker makeDocument, QObject *parent)
    : QObject(parent)
    , m_makeDocument(std::move(makeDocument))
{
}

DocumentController::~DocumentController()
{
    for (Document *document : m_documents)
        document->disconnect(this);
    qDeleteAll(m_documents);
}

Document *DocumentController::newDocument()
{
    auto document = m_makeDocument();
    document->setUntitledNumber(++m_lastUntitledNumber);
    Document *added = document.get();
    add(std::move(document));
    return added;
}

Document *DocumentController::openDocument(const QString &path)
{
    if (Document *open = documentOfFile(path)) {
        if (open->window())
            open->window()->makeKeyAndOrderFront();
        return open;
    }
    auto document = m_makeDocument();
    if (const auto read = document->readFromFile(path); !read) {
        if (!read.failedWith(DocumentError::NewerFormat))
            Services::shared().modalAlerts().runModal(
                {tr("The document “%1” could not be opened.").arg(QFileInfo(path).fileName()),
                 read.words(),
                 {{tr("OK")}}});
        return nullptr;
    }
    Document *added = document.get();
    add(std::move(document));
    return added;
}

int DocumentController::recoverDocuments(const RecoveryFolder &folder)
{
    int recovered = 0;
    for (auto &file : folder.takeAbandoned()) {
        auto document = m_makeDocument();
        const QString path = file->path();
        if (const auto read = document->recover(std::move(file)); !read) {
            if (!read.failedWith(DocumentError::NewerFormat))
                Services::shared().modalAlerts().runModal(
                    {tr("Changes that were kept for you could not be opened."),
                     read.words() + u'\n' + path,
                     {{tr("OK")}}});
            continue;
        }
        document->setUntitledNumber(++m_lastUntitledNumber);
        add(std::move(document));
        ++recovered;
    }
    return recovered;
}

Document *DocumentController::documentOfFile(const QString &path) const
{
    const auto identity = identityOfFile(path);
    for (Document *document : m_documents) {
        if (document->fileURL().isNull() || !identity)
            continue;
        const auto other = identityOfFile(document->fileURL());
        if (other && other->device == identity->device && other->inode == identity->inode)
            return document;
    }
    return nullptr;
}

void DocumentController::add(std::unique_ptr<Document> document)
{
    Document *added = document.release();
    m_documents.append(added);
    connect(added, &Document::closed, this, [this, added] {
        m_documents.removeOne(added);
        Q_EMIT documentClosed();
    });
    Q_EMIT documentAdded(added);
}

void DocumentController::closeAllDocuments(const Document::Completion &done)
{
    if (m_documents.isEmpty()) {
        done(true);
        return;
    }
    // A document may close immediately without calling the completion, so the signal of closing is used.
    Document *last = m_documents.last();
    const auto goOn = connect(last, &Document::closed, this, [this, done] { closeAllDocuments(done); });
    last->canCloseDocument([last, done, goOn](bool shouldClose) {
        if (shouldClose) {
            last->close();
            return;
        }
        disconnect(goOn);
        done(false);
    });
}

} // namespace Foundation
