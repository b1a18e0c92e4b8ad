#include "documents/Document.h"

#include <QDir>
#include <QFileInfo>

namespace Foundation
{

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
    return QStringLiteral("vexcards");
}

bool Document::canBeItsFile(QByteArrayView, QByteArrayView, qint64) const
{
    return true;
}

FileReadResult Document::fileContent(const QString &path) const
{
    const auto canBeIt = [this](QByteArrayView head, QByteArrayView tail, qint64 size) {
        return canBeItsFile(head, tail, size);
    };
    return readRegularFile(path, LargestFile, FileSystem::system(), canBeIt);
}

bool Document::readFromFile(const QString &path, QString *reason)
{
    const FileReadResult file = fileContent(path);
    if (!file.succeeded()) {
        *reason = file.error;
        return false;
    }
    if (!readFromData(file.bytes, autosavingFileType(), reason))
        return false;
    m_fileURL = QFileInfo(path).absoluteFilePath();
    m_fileIdentity = file.identity;
    noteSavedContent();
    removeAbandonedFiles(path);
    Q_EMIT fileURLChanged();
    return true;
}

std::optional<QByteArray> Document::bytesToWrite(QString *reason)
{
    *reason = reasonNotToWrite();
    if (!reason->isNull())
        return std::nullopt;
    auto bytes = dataOfType(autosavingFileType());
    *reason = bytes ? reasonNotReadable() : tr("It could not be enciphered.");
    if (reason->isNull() && bytes->size() > LargestFile)
        *reason = tr("It has grown too large: such a file could not be opened again. Delete contacts or "
                     "shorten long notes, and save again.");
    return reason->isNull() ? bytes : std::nullopt;
}

bool Document::isOurs(const std::optional<FileIdentity> &file) const
{
    return file && m_fileIdentity && file->hasSameContentAs(*m_fileIdentity);
}

bool Document::autosave(QString *reason)
{
    *reason = QString();
    if (!isDocumentEdited() || autosavingFileType().isNull())
        return true;
    const auto isFileOurs = [this] {
        return !m_isAsking && !m_fileURL.isNull() && isOurs(identityOfFile(m_fileURL));
    };
    if (!hasUnsavedContent()) {
        if (isFileOurs())
            updateChangeCount(ChangeCleared);
        return true;
    }
    if (isFileOurs()) {
        if (writeToFile(QString(m_fileURL), reason, m_fileIdentity))
            return true;
        if (isFileOurs()) {
            // The user is told of the file, and the changes are safe all the same if they can be.
            QString ignored;
            writeRecoveryFile(&ignored);
            return false;
        }
    }
    return writeRecoveryFile(reason);
}

bool Document::writeRecoveryFile(QString *reason)
{
    const quint64 content = contentStamp();
    // A program that cleans up may have removed it.
    if (m_recoveryFile && !m_recoveryFile->isHeld())
        m_recoveryFile = nullptr;
    if (m_recoveryFile && m_recoverableContent == content && QFileInfo::exists(m_recoveryFile->path()))
        return true;
    const auto bytes = bytesToWrite(reason);
    if (!bytes)
        return false;
    if (!m_recoveryFile || !m_recoveryFile->write(*bytes, reason)) {
        auto fresh = RecoveryFile::create();
        if (!fresh) {
            if (reason->isNull())
                *reason = tr("The folder for unsaved documents cannot be made.");
            return false;
        }
        if (!fresh->write(*bytes, reason)) {
            fresh->remove();
            return false;
        }
        dropRecoveryFile();
        m_recoveryFile = std::move(fresh);
    }
    m_recoverableContent = content;
    return true;
}

void Document::keepUnsavedContent()
{
    QString ignored; // The change stays unsaved, and is marked as such when it can be seen again.
    if (hasUnsavedContent() && !autosavingFileType().isNull())
        writeRecoveryFile(&ignored);
}

void Document::forgetSavedContent()
{
    m_savedContent.reset();
    m_recoverableContent.reset();
}

bool Document::recover(std::unique_ptr<RecoveryFile> file, QString *reason)
{
    const FileReadResult read = fileContent(file->path());
    *reason = read.error;
    if (!read.succeeded() || !readFromData(read.bytes, autosavingFileType(), reason))
        return false;
    m_recoveryFile = std::move(file);
    forgetSavedContent();
    return true;
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

bool Document::writeToFile(const QString &path, QString *reason, const std::optional<FileIdentity> &expected)
{
    const auto bytes = bytesToWrite(reason);
    if (!bytes)
        return false;
    const FileWriteResult result = writeFileDurably(path, *bytes, expected);
    // A result may carry both: the new content is in place, though perhaps not for good.
    if (result.identity) {
        m_fileURL = QFileInfo(path).absoluteFilePath();
        m_fileIdentity = result.identity;
        Q_EMIT fileURLChanged();
    }
    if (!result.succeeded()) {
        *reason = result.error;
        return false;
    }
    dropRecoveryFile();
    noteSavedContent();
    updateChangeCount(ChangeCleared);
    return true;
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
    saveWithCompletion([](bool) {});
}

void Document::saveDocumentAs(const ActionSender &)
{
    saveAsWithCompletion([](bool) {});
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
    QString reason;
    if (readFromFile(QString(m_fileURL), &reason)) {
        m_undoManager.removeAllActions();
        dropRecoveryFile();
        updateChangeCount(ChangeCleared);
        return;
    }
    // Nothing was taken from a file that cannot be read.
    if (!reason.isNull() && m_window)
        m_window->beginAlert(
            {tr("The document “%1” could not be reverted.").arg(displayName()), reason, {{tr("OK")}}},
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

void Document::saveWithCompletion(Completion completion)
{
    if (m_fileURL.isNull()) {
        saveAsWithCompletion(completion);
        return;
    }
    const auto present = identityOfFile(m_fileURL);
    confirmOverwriting(present, [this, present, completion = std::move(completion)](bool confirmed) {
        if (!confirmed)
            completion(false);
        else if (!present && identityOfFile(m_fileURL))
            saveWithCompletion(completion); // Somebody made it meanwhile, which is another question.
        else
            saveToPath(m_fileURL, completion, present);
    });
}

void Document::saveAsWithCompletion(const Completion &completion)
{
    const QString reason = reasonNotToWrite();
    if (!reason.isNull() || !m_window) {
        sayNotSaved(reason, completion);
        return;
    }
    const QString suggestion = m_fileURL.isNull()
                                   ? QDir::homePath() + u'/' + displayName() + QStringLiteral(".vexcards")
                                   : m_fileURL;
    m_window->beginSavePanel(suggestion, [this, completion](const QString &path) {
        if (path.isNull())
            completion(false);
        else
            saveToPath(path, completion);
    });
}

void Document::saveToPath(const QString &path, const Completion &completion,
                          const std::optional<FileIdentity> &expected)
{
    QString reason;
    if (!writeToFile(path, &reason, expected)) {
        sayNotSaved(reason, completion);
        return;
    }
    Q_EMIT saved();
    completion(true);
}

void Document::sayNotSaved(const QString &reason, const Completion &completion)
{
    if (!m_window) {
        completion(false);
        return;
    }
    const Alert alert{tr("The document “%1” could not be saved.").arg(displayName()),
                      reason,
                      {{tr("OK")}},
                      Alert::Style::Warning,
                      true};
    m_window->beginAlert(alert, [completion](int) { completion(false); });
}

void Document::confirmOverwriting(const std::optional<FileIdentity> &present,
                                  std::function<void(bool)> answered)
{
    const bool isUntouched = isOurs(present);
    if (isUntouched || !m_window) {
        answered(isUntouched);
        return;
    }
    const Alert alert{
        present ? tr("The file of the document “%1” has been changed by another program.").arg(displayName())
                : tr("The file of the document “%1” is no longer there.").arg(displayName()),
        present ? tr("If you save, what the other program wrote is lost.")
                : tr("It may have been moved or deleted. If you save, it is made again in its old place."),
        {{tr("Save Anyway")}, {tr("Cancel"), AlertButton::Cancel}}};
    ask(alert, [answered = std::move(answered)](int returnCode) {
        answered(returnCode == Alert::FirstButtonReturn);
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
        shouldClose(false); // The question that stands decides.
        return;
    }
    ask(alert, [this, shouldClose = std::move(shouldClose)](int returnCode) {
        if (returnCode == Alert::FirstButtonReturn)
            saveWithCompletion(shouldClose);
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
