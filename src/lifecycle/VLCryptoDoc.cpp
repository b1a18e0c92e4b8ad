#include "lifecycle/VLCryptoDoc.h"

#include "core/FileLayout.h"
#include "platform/Services.h"

#include <QPointer>

using Foundation::ActionSender;
using Foundation::Alert;
using Foundation::AlertButton;
using Foundation::DocumentWindow;
using Foundation::Services;

const QString VLCryptoDoc::MandatoryPasswordSheet = QStringLiteral("mandatoryPasswordSheet");
const QString VLCryptoDoc::ChangePasswordSheet = QStringLiteral("changePasswordSheet");
const QString VLCryptoDoc::InsertPasswordSheet = QStringLiteral("insertPasswordSheet");

namespace
{
const QString empty = QStringLiteral("");
}

void VLCryptoDoc::setIsEncrypted(bool encrypted)
{
    m_state.isEncrypted = encrypted;
    Q_EMIT isEncryptedChanged();
}

void VLCryptoDoc::setPlainPassword(const QString &password)
{
    m_state.plainPassword = password;
    Q_EMIT plainPasswordChanged();
}

void VLCryptoDoc::set(QString &field, const QString &text)
{
    if (field == text)
        return;
    field = text;
    Q_EMIT passwordFieldsChanged();
}

void VLCryptoDoc::setPlainPasswordInserted(const QString &text)
{
    set(m_plainPasswordInserted, text);
}

void VLCryptoDoc::setPlainPasswordInsertedRetype(const QString &text)
{
    set(m_plainPasswordInsertedRetype, text);
}

void VLCryptoDoc::setPlainPasswordPrevious(const QString &text)
{
    set(m_plainPasswordPrevious, text);
}

void VLCryptoDoc::setShowClearPasswordInInsertPasswordSheet(bool show)
{
    m_showClearPassword = show;
    Q_EMIT passwordFieldsChanged();
}

void VLCryptoDoc::showAlert(const Alert &alert, Foundation::AlertAnswer answered)
{
    if (windowForSheet())
        windowForSheet()->beginAlert(alert, std::move(answered));
}

void VLCryptoDoc::submitPasswordToDecrypt(const ActionSender &sender)
{
    setPlainPasswordInserted(sender.stringValue);
    if (sender.stringValue.isEmpty())
        return;
    // Asked before deciphering, while the former content and its stamp still exist.
    const bool hadUnsavedContent = hasUnsavedContent();
    setPlainPassword(sender.stringValue);
    if (myWindow())
        myWindow()->setDecryptProgressShown(true);
    const bool succeeded = Decript() == 0;
    if (succeeded)
        decryptDone();
    else
        decryptFailed();
    if (myWindow())
        myWindow()->setDecryptProgressShown(false);
    if (succeeded) {
        setPlainPasswordInserted(empty);
        setPlainPasswordInsertedRetype(empty);
        setPlainPasswordPrevious(empty);
    } else {
        decryptRejected();
    }
    updateChangeCount(ChangeCleared);
    if (!succeeded)
        return;
    // Required: an attempt leaves the document unedited. Content that is in no file of the user's is marked
    // again.
    if (hadUnsavedContent)
        updateChangeCount(ChangeDone);
    else
        noteSavedContent();
}

void VLCryptoDoc::decryptRejected()
{
    if (m_state.myOpeningDocumentVersion < FirstEngineVersion && !VLCrypto::isAvailable()) {
        showAlert({tr("This document cannot be opened on this computer"),
                   tr("It is of an old release, whose cipher is no longer installed with every system.\n"
                      "Install the “legacy” provider of OpenSSL, and start this application again."),
                   {{tr("OK")}},
                   Alert::Style::Warning,
                   true});
        return;
    }
    showAlert(
        {tr("Wrong Password"),
         tr("You inserted a wrong password.\nTo access this document you must insert exactly the password "
            "used to protect it"),
         {{tr("OK")}},
         Alert::Style::Warning,
         true});
}

void VLCryptoDoc::askMandatoryPasswordToProtectDocument()
{
    if (window())
        window()->beginSheet(MandatoryPasswordSheet,
                             [this](int returnCode) { mandatorySheetDidEnd(returnCode); });
}

void VLCryptoDoc::confirmMandatoryPasswordSheet(const ActionSender &sender)
{
    if (window())
        window()->endSheet(MandatoryPasswordSheet, sender.tag);
}

void VLCryptoDoc::mandatorySheetDidEnd(int returnCode)
{
    setShowClearPasswordInInsertPasswordSheet(true);
    if (returnCode != Alert::FirstButtonReturn) {
        Services::shared().mainQueue().addOperation([document = QPointer(this)] {
            if (document)
                document->close();
        });
        return;
    }
    if (m_plainPasswordInserted != m_plainPasswordInsertedRetype) {
        mandatoryPasswordNonEqual();
        return;
    }
    if (m_plainPasswordInserted.size() < ShortestPassword) {
        mandatoryPasswordMustBe6CharLong();
        return;
    }
    acceptInsertedPassword();
    updateChangeCount(ChangeDone);
    sayAccepted(tr("the developers of this application"));
    updateChangeCount(ChangeDone);
}

void VLCryptoDoc::mandatoryPasswordNonEqual()
{
    mandatoryPasswordRefused(tr("Password inserted in the two fields doesn't match"),
                             tr("You must insert exactly the same password in the two fields."));
}

void VLCryptoDoc::mandatoryPasswordMustBe6CharLong()
{
    mandatoryPasswordRefused(tr("Password too short"),
                             tr("You have to use a password which is at least six character long."));
}

void VLCryptoDoc::mandatoryPasswordRefused(const QString &message, const QString &informativeText)
{
    // The sheet opens again with the typed text, until the password is accepted or the user cancels.
    showAlert({message, informativeText, {{tr("Retry")}}}, [this](int) {
        Services::shared().mainQueue().addOperation([document = QPointer(this)] {
            if (document)
                document->askMandatoryPasswordToProtectDocument();
        });
    });
}

void VLCryptoDoc::sayAccepted(const QString &maker)
{
    showAlert({tr("Password accepted"),
               tr("This password will be used when saving this document.\nData will be stored on disk "
                  "encrypted using a secure algorithm.\n\nNext time, to open this document, this password "
                  "will be required.\nStore your password in a safe place.\nThere is no way, even for %1, to "
                  "open the document and decrypt the data without the right password.")
                   .arg(maker),
               {{tr("OK")}}});
}

void VLCryptoDoc::acceptInsertedPassword()
{
    setPlainPassword(m_plainPasswordInserted);
    forgetSavedContent(); // The file still has the former password.
    setPlainPasswordInserted(empty);
    setPlainPasswordInsertedRetype(empty);
}

void VLCryptoDoc::documentPassword(const ActionSender &)
{
    if (plainPassword().isEmpty()) {
        askMandatoryPasswordToProtectDocument();
        return;
    }
    setShowClearPasswordInInsertPasswordSheet(false);
    setPlainPasswordPrevious(empty);
    setPlainPasswordInserted(empty);
    setPlainPasswordInsertedRetype(empty);
    showChangePasswordSheet(windowForSheet());
}

void VLCryptoDoc::showChangePasswordSheet(DocumentWindow *window)
{
    if (window)
        window->beginSheet(ChangePasswordSheet,
                           [this](int) { setShowClearPasswordInInsertPasswordSheet(false); });
}

void VLCryptoDoc::cancelChangePasswordSheet(const ActionSender &)
{
    if (windowForSheet())
        windowForSheet()->endSheet(ChangePasswordSheet);
}

void VLCryptoDoc::confirmChangePasswordSheet(const ActionSender &)
{
    DocumentWindow *window = windowForSheet();
    if (window)
        window->endSheet(ChangePasswordSheet);
    if (m_plainPasswordPrevious != plainPassword()) {
        passwordMustMatch(window);
        return;
    }
    if (m_plainPasswordInserted != m_plainPasswordInsertedRetype) {
        passwordNotEqualSheet(window, nullptr);
        return;
    }
    if (m_plainPasswordInserted.size() < ShortestPassword) {
        passwordMustBe6CharLong(window, nullptr);
        return;
    }
    acceptInsertedPassword();
    setPlainPasswordPrevious(empty);
    updateChangeCount(ChangeDone);
    showAlert(
        {tr("Password changed successfuly"),
         tr("This new password will be used when saving this document.\nData will be stored on disk "
            "encrypted "
            "using a secure algorithm.\n\nNext time, to open this document, this new password will be "
            "required.\nStore your new password in a safe place.\nThere is no way, even for the Brightmoor "
            "Labs, to open the document and decrypt the data without the right password."),
         {{tr("OK")}}});
    updateChangeCount(ChangeDone);
}

void VLCryptoDoc::showInsertPasswordSheet(DocumentWindow *window, void *contextInfo)
{
    m_sheetWasConfirmed = false;
    if (window)
        window->beginSheet(InsertPasswordSheet, [this, contextInfo](int) { insertSheetDidEnd(contextInfo); });
}

void VLCryptoDoc::confirmInsertPasswordSheet(const ActionSender &)
{
    m_sheetWasConfirmed = true;
    if (windowForSheet())
        windowForSheet()->endSheet(InsertPasswordSheet);
}

void VLCryptoDoc::cancelInsertPasswordSheet(const ActionSender &)
{
    m_sheetWasConfirmed = false;
    if (windowForSheet())
        windowForSheet()->endSheet(InsertPasswordSheet);
}

void VLCryptoDoc::insertSheetDidEnd(void *contextInfo)
{
    setShowClearPasswordInInsertPasswordSheet(true);
    // Reset, because the next sheet may be ended by a lock and not by a button.
    if (!std::exchange(m_sheetWasConfirmed, false))
        return;
    if (m_plainPasswordInserted != m_plainPasswordInsertedRetype) {
        passwordNotEqualSheet(windowForSheet(), contextInfo);
        return;
    }
    if (m_plainPasswordInserted.size() < ShortestPassword) {
        passwordMustBe6CharLong(windowForSheet(), contextInfo);
        return;
    }
    acceptInsertedPassword();
    updateChangeCount(ChangeDone);
    sayAccepted(tr("Brightmoor Labs"));
}

void VLCryptoDoc::passwordNotEqualSheet(DocumentWindow *window, void *)
{
    passwordRefused(
        window, tr("Passwords inserted in the two fields doesn't match"),
        tr("You must insert exactly the same password in the two 'New Password' fields. No changes "
           "were applied"));
}

void VLCryptoDoc::passwordMustBe6CharLong(DocumentWindow *window, void *)
{
    passwordRefused(
        window, tr("Password Too Short. You have to use a password which is at least six character long."),
        tr("No changes were applied"));
}

void VLCryptoDoc::passwordMustMatch(DocumentWindow *window)
{
    passwordRefused(window,
                    tr("Password inserted in the 'Old Master Password' field must be equal to the password "
                       "previously used to protect this document."),
                    tr("No changes were applied"));
}

void VLCryptoDoc::passwordRefused(DocumentWindow *window, const QString &message,
                                  const QString &informativeText)
{
    if (!window)
        return;
    window->beginAlert({message, informativeText, {{tr("Retry")}, {tr("Cancel"), AlertButton::Cancel}}},
                       [this, window](int returnCode) {
                           if (returnCode != Alert::FirstButtonReturn)
                               return;
                           Services::shared().mainQueue().addOperation([document = QPointer(this), window] {
                               // The window exists only as long as its document.
                               if (document && document->window() == window)
                                   document->showChangePasswordSheet(window);
                           });
                       });
}

bool VLCryptoDoc::validateUserInterfaceItem(const QString &action) const
{
    static const QStringList needOpenContent = {QStringLiteral("saveDocument"),
                                                QStringLiteral("saveDocumentAs"),
                                                QStringLiteral("documentPassword"),
                                                QStringLiteral("revertDocumentToSaved"),
                                                QStringLiteral("runPageLayout"),
                                                QStringLiteral("printDocument"),
                                                QStringLiteral("undo"),
                                                QStringLiteral("redo")};
    return (isDecrypted() || !needOpenContent.contains(action)) &&
           Document::validateUserInterfaceItem(action);
}

void VLCryptoDoc::canCloseDocument(Completion shouldClose)
{
    if (isEncrypted())
        close();
    else
        Document::canCloseDocument(std::move(shouldClose));
}
