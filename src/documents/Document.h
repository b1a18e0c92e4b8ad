#pragma once

#include "documents/DocumentError.h"
#include "documents/DocumentType.h"
#include "documents/DocumentWindow.h"
#include "documents/RecoveryFile.h"
#include "documents/UndoManager.h"
#include "files/DurableFile.h"
#include "files/FileIdentity.h"
#include "platform/Actions.h"

#include <QByteArray>
#include <QObject>

#include <optional>

namespace Foundation
{

// A document of the user: its file, its changes, its undo stack, and the questions before work is lost.
// Subclasses turn bytes into content and back.
//
// Saving is atomic and durable (see writeFileDurably): on any failure the old file is whole, the document
// stays edited, and the user is told why in plain words. A file that another program replaced or changed
// since it was read is never overwritten without a question. Main thread only.
class Document : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString displayName READ displayName NOTIFY fileURLChanged)
    Q_PROPERTY(bool documentEdited READ isDocumentEdited NOTIFY documentEditedChanged)

public:
    enum ChangeType { ChangeDone = 0, ChangeUndone = 1, ChangeCleared = 2 };
    // Answers a question with yes or no.
    using Completion = std::function<void(bool)>;
    using SaveCompletion = std::function<void(const DocumentResult<> &result)>;

    // Beyond this a file cannot be opened.
    static constexpr qint64 LargestFile = qint64(2) << 30;

    explicit Document(QObject *parent = nullptr);

    // The path of the document's file; null for one that was never saved.
    QString fileURL() const { return m_fileURL; }
    // The file's name, or "Untitled" with a number for one that was never saved.
    QString displayName() const;
    void setUntitledNumber(int number);

    bool isDocumentEdited() const { return m_changeCount != 0; }
    // Whether the document's file lacks something of the content, told by the content itself: a document may
    // be marked as edited without a change and unmarked with one. True without a file.
    bool hasUnsavedContent() const { return m_savedContent != contentStamp(); }
    // One of ChangeType, as a number that stands in the calls of the whole system.
    void updateChangeCount(int change);
    UndoManager &undoManager() { return m_undoManager; }

    // Null before the window is made and after it has gone. Not owned.
    DocumentWindow *window() const { return m_window; }
    DocumentWindow *windowForSheet() const { return m_window; }
    // Called once the window is made and knows the document.
    virtual void windowControllerDidLoadNib();

    // The names of its files and of the folders that belong to it.
    virtual DocumentType documentType() const = 0;
    // The bytes of the document's file, or nothing if it cannot be saved now.
    [[nodiscard]] virtual std::optional<QByteArray> dataOfType(const QString &type) = 0;
    // Takes the content of a file. False, with *error, if the document must not be opened.
    [[nodiscard]] virtual bool readFromData(const QByteArray &bytes, const QString &type,
                                            Failure<DocumentError> *error) = 0;
    // Fails if nothing may be written now although dataOfType() would give bytes.
    virtual DocumentResult<> checkMayBeWritten() const { return {}; }
    // Called after dataOfType(): fails if its bytes could not be opened again.
    virtual DocumentResult<> checkCanBeRead() const { return {}; }
    // Whether a large file of that size can hold a document, by its first and last bytes.
    virtual bool canBeItsFile(QByteArrayView head, QByteArrayView tail, qint64 size) const;
    // The type under which changes may be saved without being asked for; null: not now.
    virtual QString autosavingFileType() const;
    static bool autosavesInPlace() { return true; }

    DocumentResult<> readFromFile(const QString &path);
    // Saves to `path`, which becomes the document's file. A file there that is not the expected one, if one
    // is given, stays.
    DocumentResult<> writeToFile(const QString &path,
                                 const std::optional<FileIdentity> &expected = std::nullopt);

    // Saves changes without being asked, where autosavingFileType() permits it: to the document's own file,
    // which counts as saved; or, if it has none, or somebody else touched that, or it cannot be written, or
    // the user is being asked about the changes, to a recovery file, which does not count. Succeeds if
    // there is nothing to do: also for a document that is marked as edited while its file has all of it.
    DocumentResult<> autosave();
    // Puts unsaved content into a recovery file, before it can no longer be written. Says nothing of a
    // failure.
    void keepUnsavedContent();
    // Takes the content of a recovery file: a document without a name that keeps the file until it gets one
    // or is closed.
    DocumentResult<> recover(std::unique_ptr<RecoveryFile> file);
    // Whether the recovery file outlives a close, to be offered again: nobody has decided about it.
    virtual bool keepsRecoveryFile() const { return false; }
    // There is something that only the recovery file has.
    bool isRecoverable() const { return m_recoveryFile != nullptr; }

    // The objects that take part in the responder chain for this document, in order.
    virtual QList<QObject *> responders() { return {this}; }
    // Whether a command is enabled.
    virtual bool validateMenuItem(MenuItem &item);
    virtual bool validateUserInterfaceItem(const QString &action) const;

    Q_INVOKABLE void saveDocument(const Foundation::ActionSender &sender);
    Q_INVOKABLE void saveDocumentAs(const Foundation::ActionSender &sender);
    // Asks, and then takes the content of the file anew; what was done since is gone, and undo with it.
    Q_INVOKABLE void revertDocumentToSaved(const Foundation::ActionSender &sender);
    Q_INVOKABLE void performClose(const Foundation::ActionSender &sender);
    Q_INVOKABLE void undo(const Foundation::ActionSender &sender);
    Q_INVOKABLE void redo(const Foundation::ActionSender &sender);

    // Asks about unsaved changes and answers whether the document may be closed. Some documents close at once
    // and never answer, so nobody may wait for it.
    virtual void canCloseDocument(Completion shouldClose);
    // Saves under the present name, or asks for one; answers once it is done, or given up, or the
    // user has been told why it failed.
    void saveWithCompletion(SaveCompletion completion);
    // Closes without a question. The document is deleted on a later turn of the event loop.
    void close();
    bool isClosed() const { return m_isClosed; }

Q_SIGNALS:
    void fileURLChanged();
    void documentEditedChanged();
    // At every change, also of an edited document.
    void changed();
    // A command to save has written the file; what is saved without being asked does not count.
    void saved();
    void closed();

protected:
    // A subclass takes only a window that can do what it asks of one.
    void setWindow(DocumentWindow *window) { m_window = window; }
    // Differs from what it was if the content has changed. Here, every mark counts as a change.
    virtual quint64 contentStamp() const { return m_markCount; }
    // The content is that of the document's file, or may differ from it in what a stamp does not tell.
    void noteSavedContent() { m_savedContent = contentStamp(); }
    void forgetSavedContent();

private:
    void revert();
    // Fails if it cannot be written now or never be opened again.
    DocumentResult<QByteArray> bytesToWrite();
    // The file, which is read into the document.
    DocumentResult<FileIdentity> takeContentOfFile(const QString &path);
    // Whether it has the content that this document read or wrote last.
    bool isOurs(const std::optional<FileIdentity> &file) const;
    DocumentResult<> writeRecoveryFile();
    // To the one that there is, or to a new one if that cannot be written.
    FileResult<> writeRecoveryFile(const QByteArray &bytes);
    void dropRecoveryFile();
    // Shows a question about the document's changes, during which its file stays as it is.
    void ask(const Alert &alert, AlertAnswer answered);
    void saveAsWithCompletion(const SaveCompletion &completion);
    void saveToPath(const QString &path, const SaveCompletion &completion,
                    const std::optional<FileIdentity> &expected = std::nullopt);
    void sayNotSaved(const Failure<DocumentError> &failure, const SaveCompletion &completion);
    // Asks if what is in the file's place now is no longer what was read.
    void confirmOverwriting(const std::optional<FileIdentity> &present, SaveCompletion answered);

    QString m_fileURL;
    std::optional<FileIdentity> m_fileIdentity;
    int m_untitledNumber = 1;
    int m_changeCount = 0;
    quint64 m_markCount = 0;
    // Stamps of the content that the document's file and the recovery file have.
    std::optional<quint64> m_savedContent;
    std::optional<quint64> m_recoverableContent;
    UndoManager m_undoManager;
    std::unique_ptr<RecoveryFile> m_recoveryFile;
    bool m_isAsking = false;
    DocumentWindow *m_window = nullptr;
    bool m_isClosed = false;
};

} // namespace Foundation
