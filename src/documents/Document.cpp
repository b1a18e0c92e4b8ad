#include "documents/Document.h"

#include "documents/RecoveryFolder.h"

#include <QDir>
#include <QFileInfo>

namespace Foundation
{

namespace
{

Failure<DocumentError> fileFailure(const Failure<FileError> &cause)
{
    return {DocumentError::File, cause.words};
}

} // namespace

Document::Document(QObject *parent)
    : QObject(parent)
{
}

QString Document::displayName() const
{
    if (!m_fileURL.isNull())
        return QFileInfo(m_fileURL).fileName();
    return m_untitledNumber == 1 ? tr("Untitled") : tr("Untitled %1").arg(m_untitledNumber);
}

void Document::setUntitledNumber(int number)
{
    m_untitledNumber = number;
    Q_EMIT fileURLChanged();
}

void Document::updateChangeCount(int change)
{
    const bool wasEdited = isDocumentEdited();
    if (change != ChangeCleared)
        ++m_markCount;
    if (change == ChangeCleared)
        m_changeCount = 0;
    else
        m_changeCount += change == ChangeUndone ? -1 : 1;
    if (isDocumentEdited() != wasEdited)
        Q_EMIT documentEditedChanged();
    if (change != ChangeCleared)
        Q_EMIT changed();
}

void Document::windowControllerDidLoadNib() {}

QString Document::autosavingFileType() const
{
    return documentType().fileNameExtension;
}

bool Document::canBeItsFile(QByteArrayView, QByteArrayView, qint64) const
{
    return true;
}

DocumentResult<FileIdentity> Document::takeContentOfFile(const QString &path)
{
    const auto canBeIt = [this](QByteArrayView head, QByteArrayView tail, qint64 size) {
        return canBeItsFile(head, tail, size);
    };
    const auto content = readRegularFile(path, LargestFile, FileSystem::system(), canBeIt);
    if (!content)
        return fileFailure(content.failure());
    Failure<DocumentError> error{DocumentError::Content};
    if (!readFromData(content->bytes, autosavingFileType(), &error))
        return error;
    return content->identity;
}

DocumentResult<> Document::readFromFile(const QString &path)
{
    const auto identity = takeContentOfFile(path);
    if (!identity)
        return identity.failure();
    m_fileURL = QFileInfo(path).absoluteFilePath();
    m_fileIdentity = *identity;
    noteSavedContent();
    removeAbandonedFiles(path, documentType().application);
    Q_EMIT fileURLChanged();
    return {};
}

DocumentResult<QByteArray> Document::bytesToWrite()
{
    if (const auto mayBeWritten = checkMayBeWritten(); !mayBeWritten)
        return mayBeWritten.failure();
    const auto bytes = dataOfType(autosavingFileType());
    if (!bytes)
        return Failure{DocumentError::Content, tr("It could not be enciphered.")};
    if (const auto canBeRead = checkCanBeRead(); !canBeRead)
        return canBeRead.failure();
    if (bytes->size() > LargestFile)
        return Failure{DocumentError::Content,
                       tr("It has grown too large: such a file could not be opened again. Delete contacts or "
                          "shorten long notes, and save again.")};
    return *bytes;
}

bool Document::isOurs(const std::optional<FileIdentity> &file) const
{
    return file && m_fileIdentity && file->hasSameContentAs(*m_fileIdentity);
}

DocumentResult<> Document::autosave()
{
    if (!isDocumentEdited() || autosavingFileType().isNull())
        return {};
    const auto isFileOurs = [this] {
        return !m_isAsking && !m_fileURL.isNull() && isOurs(identityOfFile(m_fileURL));
    };
    if (!hasUnsavedContent()) {
        if (isFileOurs())
            updateChangeCount(ChangeCleared);
        return {};
    }
    if (isFileOurs()) {
        auto written = writeToFile(QString(m_fileURL), m_fileIdentity);
        if (written)
            return written;
        if (isFileOurs()) {
            (void)writeRecoveryFile(); // The failure of the file itself is reported.
            return written;
        }
    }
    return writeRecoveryFile();
}

DocumentResult<> Document::writeRecoveryFile()
{
    const quint64 content = contentStamp();
    // Another program may have removed the lock file.
    if (m_recoveryFile && !m_recoveryFile->isHeld())
        m_recoveryFile = nullptr;
    if (m_recoveryFile && m_recoverableContent == content && m_recoveryFile->exists())
        return {};
    const auto bytes = bytesToWrite();
    if (!bytes)
        return bytes.failure();
    if (const auto written = writeRecoveryFile(*bytes); !written)
        return fileFailure(written.failure());
    m_recoverableContent = content;
    return {};
}

FileResult<> Document::writeRecoveryFile(const QByteArray &bytes)
{
    FileResult<> written;
    if (m_recoveryFile) {
        written = m_recoveryFile->write(bytes);
        if (written)
            return {};
    }
    auto fresh = RecoveryFolder(documentType()).newFile();
    if (!fresh)
        return written ? fresh.failure() : written.failure();
    if (auto writtenAnew = (*fresh)->write(bytes); !writtenAnew) {
        (*fresh)->remove();
        return writtenAnew;
    }
    dropRecoveryFile();
    m_recoveryFile = std::move(*fresh);
    return {};
}

void Document::keepUnsavedContent()
{
    if (hasUnsavedContent() && !autosavingFileType().isNull())
        (void)writeRecoveryFile(); // Without the file, the document is marked as edited after unlocking.
}

void Document::forgetSavedContent()
{
    m_savedContent.reset();
    m_recoverableContent.reset();
}

DocumentResult<> Document::recover(std::unique_ptr<RecoveryFile> file)
{
    const auto taken = takeContentOfFile(file->path());
    if (!taken)
        return taken.failure();
    m_recoveryFile = std::move(file);
    forgetSavedContent();
    return {};
}

void Document::dropRecoveryFile()
{
    if (m_recoveryFile)
        m_recoveryFile->remove();
    m_recoveryFile = nullptr;
}

void Document::ask(const Alert &alert, AlertAnswer answered)
{
    m_isAsking = true;
    m_window->beginAlert(alert, [this, answered = std::move(answered)](int returnCode) {
        m_isAsking = false;
        answered(returnCode);
    });
}

DocumentResult<> Document::writeToFile(const QString &path, const std::optional<FileIdentity> &expected)
{
    const auto bytes = bytesToWrite();
    if (!bytes)
        return bytes.failure();
    const FileWriteResult written = writeFileDurably(path, *bytes, documentType().application, expected);
    // Also set after FileError::Unconfirmed, when the new content is in place.
    if (written.identity) {
        m_fileURL = QFileInfo(path).absoluteFilePath();
        m_fileIdentity = written.identity;
        Q_EMIT fileURLChanged();
    }
    if (!written)
        return fileFailure(written.failure());
    dropRecoveryFile();
    noteSavedContent();
    updateChangeCount(ChangeCleared);
    return {};
}

bool Document::validateMenuItem(MenuItem &item)
{
    return validateUserInterfaceItem(item.action);
}

bool Document::validateUserInterfaceItem(const QString &action) const
{
    if (action == u"undo")
        return m_undoManager.canUndo();
    if (action == u"redo")
        return m_undoManager.canRedo();
    if (action == u"revertDocumentToSaved")
        return !m_fileURL.isNull() && isDocumentEdited();
    return true;
}

void Document::saveDocument(const ActionSender &)
{
    saveWithCompletion([](const DocumentResult<> &) {});
}

void Document::saveDocumentAs(const ActionSender &)
{
    saveAsWithCompletion([](const DocumentResult<> &) {});
}

void Document::revertDocumentToSaved(const ActionSender &)
{
    if (m_fileURL.isNull() || !m_window)
        return;
    const Alert alert{
        tr("Do you want to revert to the last saved version of the document “%1”?").arg(displayName()),
        tr("Your current changes will be lost."),
        {{tr("Revert")}, {tr("Cancel"), AlertButton::Cancel}}};
    ask(alert, [this](int returnCode) {
        if (returnCode == Alert::FirstButtonReturn)
            revert();
    });
}

void Document::revert()
{
    const auto read = readFromFile(QString(m_fileURL));
    if (read) {
        m_undoManager.removeAllActions();
        dropRecoveryFile();
        updateChangeCount(ChangeCleared);
        return;
    }
    // The content did not change if the file could not be read.
    if (!read.failedWith(DocumentError::NewerFormat) && m_window)
        m_window->beginAlert(
            {tr("The document “%1” could not be reverted.").arg(displayName()), read.words(), {{tr("OK")}}},
            [](int) {});
}

void Document::performClose(const ActionSender &)
{
    canCloseDocument([this](bool shouldClose) {
        if (shouldClose)
            close();
    });
}

void Document::undo(const ActionSender &)
{
    if (validateUserInterfaceItem(QStringLiteral("undo")))
        m_undoManager.undo();
}

void Document::redo(const ActionSender &)
{
    if (validateUserInterfaceItem(QStringLiteral("redo")))
        m_undoManager.redo();
}

void Document::saveWithCompletion(SaveCompletion completion)
{
    if (m_fileURL.isNull()) {
        saveAsWithCompletion(completion);
        return;
    }
    const auto present = identityOfFile(m_fileURL);
    confirmOverwriting(
        present, [this, present, completion = std::move(completion)](const DocumentResult<> &confirmed) {
            if (!confirmed)
                completion(confirmed);
            else if (!present && identityOfFile(m_fileURL))
                saveWithCompletion(
                    completion); // Another program created the file meanwhile, so the question differs.
            else
                saveToPath(m_fileURL, completion, present);
        });
}

void Document::saveAsWithCompletion(const SaveCompletion &completion)
{
    if (const auto mayBeWritten = checkMayBeWritten(); !mayBeWritten) {
        sayNotSaved(mayBeWritten.failure(), completion);
        return;
    }
    if (!m_window) {
        completion(Failure{DocumentError::File, tr("The document has no file yet.")});
        return;
    }
    const QString suggestion =
        m_fileURL.isNull() ? QDir::homePath() + u'/' + displayName() + u'.' + documentType().fileNameExtension
                           : m_fileURL;
    m_window->beginSavePanel(suggestion, [this, completion](const QString &path) {
        if (path.isNull())
            completion(Failure{DocumentError::GivenUp});
        else
            saveToPath(path, completion);
    });
}

void Document::saveToPath(const QString &path, const SaveCompletion &completion,
                          const std::optional<FileIdentity> &expected)
{
    const auto written = writeToFile(path, expected);
    if (!written) {
        sayNotSaved(written.failure(), completion);
        return;
    }
    Q_EMIT saved();
    completion(written);
}

void Document::sayNotSaved(const Failure<DocumentError> &failure, const SaveCompletion &completion)
{
    if (!m_window) {
        completion(failure);
        return;
    }
    const Alert alert{tr("The document “%1” could not be saved.").arg(displayName()),
                      failure.words,
                      {{tr("OK")}},
                      Alert::Style::Warning,
                      true};
    m_window->beginAlert(alert, [completion, failure](int) { completion(failure); });
}

void Document::confirmOverwriting(const std::optional<FileIdentity> &present, SaveCompletion answered)
{
    if (isOurs(present)) {
        answered({});
        return;
    }
    const QString message =
        (present ? tr("The file of the document “%1” has been changed by another program.")
                 : tr("The file of the document “%1” is no longer there."))
            .arg(displayName());
    if (!m_window) {
        answered(Failure{DocumentError::FileTouched, message});
        return;
    }
    const Alert alert{
        message,
        present ? tr("If you save, what the other program wrote is lost.")
                : tr("It may have been moved or deleted. If you save, it is made again in its old place."),
        {{tr("Save Anyway")}, {tr("Cancel"), AlertButton::Cancel}}};
    ask(alert, [answered = std::move(answered)](int returnCode) {
        if (returnCode == Alert::FirstButtonReturn)
            answered({});
        else
            answered(Failure{DocumentError::GivenUp});
    });
}

void Document::canCloseDocument(Completion shouldClose)
{
    if (!isDocumentEdited() || !m_window) {
        shouldClose(true);
        return;
    }
    const Alert alert{
        tr("Do you want to save the changes to the document “%1”?").arg(displayName()),
        tr("Your changes will be lost if you don’t save them."),
        {{tr("Save")}, {tr("Cancel"), AlertButton::Cancel}, {tr("Discard"), AlertButton::Discard}}};
    m_window->makeKeyAndOrderFront();
    if (m_isAsking) {
        shouldClose(false); // The open question decides.
        return;
    }
    ask(alert, [this, shouldClose = std::move(shouldClose)](int returnCode) {
        if (returnCode == Alert::FirstButtonReturn)
            saveWithCompletion(
                [shouldClose](const DocumentResult<> &saved) { shouldClose(saved.succeeded()); });
        else
            shouldClose(returnCode == Alert::ThirdButtonReturn);
    });
}

void Document::close()
{
    if (m_isClosed)
        return;
    m_isClosed = true;
    if (keepsRecoveryFile())
        m_recoveryFile = nullptr;
    else
        dropRecoveryFile();
    if (m_window)
        m_window->close();
    m_window = nullptr;
    Q_EMIT closed();
    deleteLater();
}

} // namespace Foundation
