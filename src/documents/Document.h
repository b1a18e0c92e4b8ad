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

// A document: its file, its changes, its undo stack, and the questions before work is lost. Subclasses
// convert between bytes and content.
//
// Saving is atomic and durable (see writeFileDurably()): after a failure the old file is complete, the
// document is still edited, and the user gets the reason. A file that another program replaced or changed
// since it was read is never overwritten without a question. Main thread only.
class Document : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString displayName READ displayName NOTIFY fileURLChanged)
    Q_PROPERTY(bool documentEdited READ isDocumentEdited NOTIFY documentEditedChanged)

public:
    enum ChangeType { ChangeDone = 0, ChangeUndone = 1, ChangeCleared = 2 };
    // Receives the answer to a question.
    using Completion = std::function<void(bool)>;
    using SaveCompletion = std::function<void(const DocumentResult<> &result)>;

    // The maximum size in bytes of a file that can be opened.
    static constexpr qint64 LargestFile = qint64(2) << 30;

    explicit Document(QObject *parent = nullptr);

    // The path of the document's file; null for one that was never saved.
    QString fileURL() const { return m_fileURL; }
    // The name of the file, or "Untitled" with a number if the document was never saved.
    QString displayName() const;
    void setUntitledNumber(int number);

    bool isDocumentEdited() const { return m_changeCount != 0; }
    // Whether the file lacks some of the content, by the stamp of the content. This may differ from
    // isDocumentEdited(), because a document can be marked as edited without a change, and unmarked with one.
    // True without a file.
    bool hasUnsavedContent() const { return m_savedContent != contentStamp(); }
    // `change` is one of ChangeType, as an int.
    void updateChangeCount(int change);
    UndoManager &undoManager() { return m_undoManager; }

    // Not owned. Null before the window is made and after it is closed.
    DocumentWindow *window() const { return m_window; }
    DocumentWindow *windowForSheet() const { return m_window; }
    // Called after the window was made and set.
    virtual void windowControllerDidLoadNib();

    // The names for its files and folders.
    virtual DocumentType documentType() const = 0;
    // Returns the bytes of the file, or nothing if the document cannot be saved now.
    [[nodiscard]] virtual std::optional<QByteArray> dataOfType(const QString &type) = 0;
    // Takes the content of a file. Returns false and sets *error if the document must not be opened.
    [[nodiscard]] virtual bool readFromData(const QByteArray &bytes, const QString &type,
                                            Failure<DocumentError> *error) = 0;
    // Fails if nothing may be written now although dataOfType() would give bytes.
    virtual DocumentResult<> checkMayBeWritten() const { return {}; }
    // Called after dataOfType(): fails if its bytes could not be opened again.
    virtual DocumentResult<> checkCanBeRead() const { return {}; }
    // Whether a large file of that size can be a document, judged by its first and last bytes.
    virtual bool canBeItsFile(QByteArrayView head, QByteArrayView tail, qint64 size) const;
    // The type for automatic saving. Null if the document must not be saved automatically now.
    virtual QString autosavingFileType() const;
    static bool autosavesInPlace() { return true; }

    DocumentResult<> readFromFile(const QString &path);
    // Saves to `path`, which becomes the file of the document. If `expected` is given, another existing file
    // is not replaced.
    DocumentResult<> writeToFile(const QString &path,
                                 const std::optional<FileIdentity> &expected = std::nullopt);

    // Saves changes automatically if autosavingFileType() permits it. Normally writes the file of the
    // document, which then counts as saved. Writes a recovery file instead, and the document stays edited, if
    // it has no file, if another program touched the file, if the file cannot be written, or while the user
    // is asked about the changes. Succeeds if there is nothing to do, also for a document that is marked as
    // edited although its file has all of the content.
    DocumentResult<> autosave();
    // Writes unsaved content into a recovery file, for use before a lock. Ignores failures.
    void keepUnsavedContent();
    // Takes the content of a recovery file. The document has no file of its own, and keeps the recovery file
    // until it is saved or closed.
    DocumentResult<> recover(std::unique_ptr<RecoveryFile> file);
    // Whether closing keeps the recovery file, because the user has not decided about its content.
    virtual bool keepsRecoveryFile() const { return false; }
    // True if there is a recovery file.
    bool isRecoverable() const { return m_recoveryFile != nullptr; }

    // The responders of this document, in order.
    virtual QList<QObject *> responders() { return {this}; }
    // Whether a menu item is enabled. May also set its check mark.
    virtual bool validateMenuItem(MenuItem &item);
    virtual bool validateUserInterfaceItem(const QString &action) const;

    Q_INVOKABLE void saveDocument(const Foundation::ActionSender &sender);
    Q_INVOKABLE void saveDocumentAs(const Foundation::ActionSender &sender);
    // Asks, and then reads the file again. All changes and the undo stack are lost.
    Q_INVOKABLE void revertDocumentToSaved(const Foundation::ActionSender &sender);
    Q_INVOKABLE void performClose(const Foundation::ActionSender &sender);
    Q_INVOKABLE void undo(const Foundation::ActionSender &sender);
    Q_INVOKABLE void redo(const Foundation::ActionSender &sender);

    // Asks about unsaved changes and calls `shouldClose` with the answer. Some documents close immediately
    // and never call it, so callers must not rely on the call.
    virtual void canCloseDocument(Completion shouldClose);
    // Saves to the file of the document, or asks for one. Calls `completion` after the save, after the user
    // cancelled, or after the user was told why it failed.
    void saveWithCompletion(SaveCompletion completion);
    // Closes without asking. The document is deleted on a later turn of the event loop.
    void close();
    bool isClosed() const { return m_isClosed; }

Q_SIGNALS:
    void fileURLChanged();
    void documentEditedChanged();
    // Sent at every change, also if the document is already edited.
    void changed();
    // The user's command to save has written the file. Not sent by automatic saving.
    void saved();
    void closed();

protected:
    // Subclasses require a window of their own type.
    void setWindow(DocumentWindow *window) { m_window = window; }
    // A number that changes when the content changes. This implementation changes with every mark.
    virtual quint64 contentStamp() const { return m_markCount; }
    // Must be called when the content equals that of the file.
    void noteSavedContent() { m_savedContent = contentStamp(); }
    void forgetSavedContent();

private:
    void revert();
    // The bytes to write. Fails if the document may not be written now or could not be opened again.
    DocumentResult<QByteArray> bytesToWrite();
    // Reads the file into the document and returns its identity.
    DocumentResult<FileIdentity> takeContentOfFile(const QString &path);
    // Whether the file has the content that this document read or wrote last.
    bool isOurs(const std::optional<FileIdentity> &file) const;
    DocumentResult<> writeRecoveryFile();
    // Writes the existing recovery file, or a new one if the existing one cannot be written.
    FileResult<> writeRecoveryFile(const QByteArray &bytes);
    void dropRecoveryFile();
    // Shows a question about the changes. Meanwhile the file is not written.
    void ask(const Alert &alert, AlertAnswer answered);
    void saveAsWithCompletion(const SaveCompletion &completion);
    void saveToPath(const QString &path, const SaveCompletion &completion,
                    const std::optional<FileIdentity> &expected = std::nullopt);
    void sayNotSaved(const Failure<DocumentError> &failure, const SaveCompletion &completion);
    // Asks the user if the file is no longer the one that was read.
    void confirmOverwriting(const std::optional<FileIdentity> &present, SaveCompletion answered);

    QString m_fileURL;
    std::optional<FileIdentity> m_fileIdentity;
    int m_untitledNumber = 1;
    int m_changeCount = 0;
    quint64 m_markCount = 0;
    // The stamps of the content in the file and in the recovery file.
    std::optional<quint64> m_savedContent;
    std::optional<quint64> m_recoverableContent;
    UndoManager m_undoManager;
    std::unique_ptr<RecoveryFile> m_recoveryFile;
    bool m_isAsking = false;
    DocumentWindow *m_window = nullptr;
    bool m_isClosed = false;
};

} // namespace Foundation
