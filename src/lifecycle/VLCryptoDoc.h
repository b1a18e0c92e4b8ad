#pragma once

#include "core/DocumentState.h"
#include "documents/Document.h"
#include "lifecycle/MyDocumentWindow.h"

// A document with a master password. It has the password, the flag that says whether the document is locked,
// and the sheets that ask for passwords. It contains no cipher: the subclass deciphers, and only 0 means
// success.
//
// The password is in memory as plain text as long as the document exists, also while it is locked.
class VLCryptoDoc : public Foundation::Document
{
    Q_OBJECT
    Q_PROPERTY(bool isEncrypted READ isEncrypted WRITE setIsEncrypted NOTIFY isEncryptedChanged)
    Q_PROPERTY(bool isDecrypted READ isDecrypted NOTIFY isEncryptedChanged)
    Q_PROPERTY(QString plainPassword READ plainPassword WRITE setPlainPassword NOTIFY plainPasswordChanged)
    Q_PROPERTY(QString plainPasswordInserted READ plainPasswordInserted WRITE setPlainPasswordInserted NOTIFY
                   passwordFieldsChanged)
    Q_PROPERTY(QString plainPasswordInsertedRetype READ plainPasswordInsertedRetype WRITE
                   setPlainPasswordInsertedRetype NOTIFY passwordFieldsChanged)
    Q_PROPERTY(QString plainPasswordPrevious READ plainPasswordPrevious WRITE setPlainPasswordPrevious NOTIFY
                   passwordFieldsChanged)
    Q_PROPERTY(bool showClearPasswordInInsertPasswordSheet READ showClearPasswordInInsertPasswordSheet WRITE
                   setShowClearPasswordInInsertPasswordSheet NOTIFY passwordFieldsChanged)

public:
    // In UTF-16 units. A password is not trimmed, and there are no other requirements.
    static constexpr qsizetype ShortestPassword = 6;
    static const QString MandatoryPasswordSheet;
    static const QString ChangePasswordSheet;
    static const QString InsertPasswordSheet;

    using Document::Document;

    bool isEncrypted() const { return m_state.isEncrypted; }
    bool isDecrypted() const { return !m_state.isEncrypted; }
    void setIsEncrypted(bool encrypted);
    const QString &plainPassword() const { return m_state.plainPassword; }
    void setPlainPassword(const QString &password);
    const QString &plainPasswordInserted() const { return m_plainPasswordInserted; }
    void setPlainPasswordInserted(const QString &text);
    const QString &plainPasswordInsertedRetype() const { return m_plainPasswordInsertedRetype; }
    void setPlainPasswordInsertedRetype(const QString &text);
    const QString &plainPasswordPrevious() const { return m_plainPasswordPrevious; }
    void setPlainPasswordPrevious(const QString &text);
    bool showClearPasswordInInsertPasswordSheet() const { return m_showClearPassword; }
    void setShowClearPasswordInInsertPasswordSheet(bool show);

    const DocumentState &state() const { return m_state; }

    // The window of the document; null without one.
    MyDocumentWindow *myWindow() const { return static_cast<MyDocumentWindow *>(window()); }
    void setWindow(MyDocumentWindow *window) { Document::setWindow(window); }

    // Decript() returns 0 after success. The base class cannot decipher and always fails.
    virtual qint32 Decript() { return 1; }
    virtual qint32 decryptDone() { return 1; }
    virtual qint32 decryptFailed() { return 1; }

    // Tries the text of the sender as the password. An empty text is ignored. Afterwards the document counts
    // as unedited, unless it was unlocked and its content is in no file of the user's. Required: a wrong
    // password stays in plainPassword(), so use isEncrypted() to see whether the document is open.
    Q_INVOKABLE void submitPasswordToDecrypt(const Foundation::ActionSender &sender);
    // Opens the sheet that asks for the first password. Cancelling it closes the document without asking.
    void askMandatoryPasswordToProtectDocument();
    // Action of both buttons of the sheet. The confirming button has the tag 1000.
    Q_INVOKABLE void confirmMandatoryPasswordSheet(const Foundation::ActionSender &sender);
    void mandatoryPasswordNonEqual();
    void mandatoryPasswordMustBe6CharLong();

    // Opens the sheet that changes the password, or the one for the first password if there is none. The next
    // save uses the new password; until then the document counts as edited.
    Q_INVOKABLE void documentPassword(const Foundation::ActionSender &sender);
    void showChangePasswordSheet(Foundation::DocumentWindow *window);
    Q_INVOKABLE void confirmChangePasswordSheet(const Foundation::ActionSender &sender);
    Q_INVOKABLE void cancelChangePasswordSheet(const Foundation::ActionSender &sender);

    // Opens a sheet that sets a password without asking for the former one. After a refusal, Retry opens the
    // sheet that changes the password. `contextInfo` is only passed on. Prescribed; no caller yet.
    void showInsertPasswordSheet(Foundation::DocumentWindow *window, void *contextInfo);
    Q_INVOKABLE void confirmInsertPasswordSheet(const Foundation::ActionSender &sender);
    Q_INVOKABLE void cancelInsertPasswordSheet(const Foundation::ActionSender &sender);

    // Alerts of both sheets about refused passwords. Retry opens the sheet that changes the password, with
    // what the user typed.
    void passwordNotEqualSheet(Foundation::DocumentWindow *window, void *contextInfo);
    void passwordMustBe6CharLong(Foundation::DocumentWindow *window, void *contextInfo);
    void passwordMustMatch(Foundation::DocumentWindow *window);

    bool validateUserInterfaceItem(const QString &action) const override;
    // Required: a locked document closes immediately, and `shouldClose` is never called.
    void canCloseDocument(Completion shouldClose) override;

Q_SIGNALS:
    void isEncryptedChanged();
    void plainPasswordChanged();
    void passwordFieldsChanged();

protected:
    DocumentState &mutableState() { return m_state; }
    // Shows an alert on the window of the document. Does nothing without a window.
    void showAlert(
        const Foundation::Alert &alert, Foundation::AlertAnswer answered = [](int) {});

private:
    void mandatorySheetDidEnd(int returnCode);
    void mandatoryPasswordRefused(const QString &message, const QString &informativeText);
    void insertSheetDidEnd(void *contextInfo);
    void passwordRefused(Foundation::DocumentWindow *window, const QString &message,
                         const QString &informativeText);
    // Makes the typed text the password and clears the fields.
    void acceptInsertedPassword();
    // Required: `maker` has one form after the first password and another one after an inserted password.
    void sayAccepted(const QString &maker);
    void decryptRejected();
    void set(QString &field, const QString &text);

    DocumentState m_state;
    QString m_plainPasswordInserted = QStringLiteral("");
    QString m_plainPasswordInsertedRetype = QStringLiteral("");
    QString m_plainPasswordPrevious = QStringLiteral("");
    bool m_showClearPassword = false;
    bool m_sheetWasConfirmed = false; // the confirming button ended the sheet that inserts a password
};
