#include "lifecycle/VLCryptoDoc.h"

#include "foundation/Services.h"

#include <QPointer>

using Foundation::ActionSender;
using Foundation::Alert;
using Foundation::Services;

const QString VLCryptoDoc::MandatoryPasswordSheet = QStringLiteral("mandatoryPasswordSheet");

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
}

void VLCryptoDoc::decryptRejected()
{
    showAlert(
        {tr("Wrong Password"),
         tr("You inserted a wrong password.\nTo access this document you must insert exactly the password "
            "used to protect it"),
         {tr("OK")}});
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
    setPlainPassword(m_plainPasswordInserted);
    setPlainPasswordInserted(empty);
    setPlainPasswordInsertedRetype(empty);
    updateChangeCount(ChangeDone);
    showAlert(
        {tr("Password accepted"),
         tr("This password will be used when saving this document.\nData will be stored on disk encrypted "
            "using a secure algorithm.\n\nNext time, to open this document, this password will be "
            "required.\nStore your password in a safe place.\nThere is no way, even for the developers of "
            "this application, to open the document and decrypt the data without the right password."),
         {tr("OK")}});
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
    // The sheet comes back as the user left it, and only a good password or its cancel button ends the round.
    showAlert({message, informativeText, {tr("Retry")}}, [this](int) {
        Services::shared().mainQueue().addOperation([document = QPointer(this)] {
            if (document)
                document->askMandatoryPasswordToProtectDocument();
        });
    });
}

bool VLCryptoDoc::validateUserInterfaceItem(const QString &action) const
{
    static const QStringList needOpenContent = {
        QStringLiteral("saveDocument"),     QStringLiteral("saveDocumentAs"),
        QStringLiteral("documentPassword"), QStringLiteral("revertDocumentToSaved"),
        QStringLiteral("runPageLayout"),    QStringLiteral("printDocument")};
    return needOpenContent.contains(action) ? isDecrypted() : Document::validateUserInterfaceItem(action);
}

void VLCryptoDoc::canCloseDocument(Completion shouldClose)
{
    if (isEncrypted())
        close();
    else
        Document::canCloseDocument(std::move(shouldClose));
}
