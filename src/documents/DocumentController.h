#pragma once

#include "documents/Document.h"
#include "documents/RecoveryFolder.h"

#include <QList>

#include <functional>
#include <memory>

namespace Foundation
{

// The open documents of the application. Creates, opens and closes documents. Main thread only.
class DocumentController : public QObject
{
    Q_OBJECT

public:
    using DocumentMaker = std::function<std::unique_ptr<Document>()>;

    explicit DocumentController(DocumentMaker makeDocument, QObject *parent = nullptr);
    ~DocumentController() override;

    // In the order in which they were opened.
    const QList<Document *> &documents() const { return m_documents; }

    // Makes a document that has no file.
    Document *newDocument();
    // Opens a file, or raises its window if it is open already. Returns null if it cannot be opened; the user
    // was told why.
    Document *openDocument(const QString &path);

    // Opens the recovery files of dead processes, each as a document without a file, and returns the number
    // of opened documents. If a file cannot be read, an alert
    // says so, and the file is kept.
    [[nodiscard]] int recoverDocuments(const RecoveryFolder &folder);

    // Asks about the changes of each document and closes it, one after the other. Calls `done` with true when
    // all are closed, or with false as soon as the user keeps a document.
    void closeAllDocuments(const Document::Completion &done);

Q_SIGNALS:
    // The receiver must make the window of the document and call windowControllerDidLoadNib().
    void documentAdded(Foundation::Document *document);
    void documentClosed();

private:
    Document *documentOfFile(const QString &path) const;
    void add(std::unique_ptr<Document> document);

    DocumentMaker m_makeDocument;
    QList<Document *> m_documents;
    int m_lastUntitledNumber = 0;
};

} // namespace Foundation
