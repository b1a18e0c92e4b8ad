#pragma once

#include "documents/Document.h"
#include "documents/RecoveryFolder.h"

#include <QList>

#include <functional>
#include <memory>

namespace Foundation
{

// The open documents of the application, and the ways to open another. Main thread only.
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
    // Opens a file, or raises its window if it is open already. Null if it cannot be opened: the user has
    // then been told why.
    Document *openDocument(const QString &path);

    // Opens what was never saved and outlived the process that had it, each as a document without a name.
    // The user is told of one that cannot be read; it stays where it is. Returns the number of those opened.
    [[nodiscard]] int recoverDocuments(const RecoveryFolder &folder);

    // Asks about the changes of each document in turn and closes it, and calls `done` with true when all are
    // closed. Nothing more is asked once the user has kept a document, and `done` is called with false.
    void closeAllDocuments(const Document::Completion &done);

Q_SIGNALS:
    // The receiver makes the document's window and calls windowControllerDidLoadNib.
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
