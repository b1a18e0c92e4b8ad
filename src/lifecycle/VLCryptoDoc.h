#pragma once

#include "core/DocumentState.h"
#include "documents/Document.h"
#include "lifecycle/MyDocumentWindow.h"

// A document behind a master password: holds the password and the flag that says whether the content is open
// to the user, and runs the sheets through which a password comes in. Knows no cipher: it asks its subclass
// to decipher and looks at zero or non-zero.
//
// The password is kept as plain text as long as the document is open, also while it is locked.
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
    // Longer than five UTF-16 units; nothing is trimmed and nothing else is asked of a password.
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

    // The window as this class knows it; null without one.
    MyDocumentWindow *myWindow() const { return static_cast<MyDocumentWindow *>(window()); }

    // 0 for success. The base class can decipher nothing.
    virtual qint32 Decript() { return 1; }
    virtual qint32 decryptDone() { return 1; }
    virtual qint32 decryptFailed() { return 1; }

    // Tries the sender's text as the password; an empty one is ignored without a word. Either way the
    // document counts as unedited afterwards. A rejected text stays in plainPassword: what counts is
    // isEncrypted.
    Q_INVOKABLE void submitPasswordToDecrypt(const Foundation::ActionSender &sender);
    // Asks for the first password of a document. Cancelling closes the document without a question.
    void askMandatoryPasswordToProtectDocument();
    // Both buttons of the sheet; the tag of the confirming one is 1000.
    Q_INVOKABLE void confirmMandatoryPasswordSheet(const Foundation::ActionSender &sender);
    void mandatoryPasswordNonEqual();
    void mandatoryPasswordMustBe6CharLong();

    // Changes the password; a document that has none gets its first one. The new one is used when the
    // document is saved next, for which it counts as edited.
    Q_INVOKABLE void documentPassword(const Foundation::ActionSender &sender);
    void showChangePasswordSheet(Foundation::DocumentWindow *window);
    Q_INVOKABLE void confirmChangePasswordSheet(const Foundation::ActionSender &sender);
    Q_INVOKABLE void cancelChangePasswordSheet(const Foundation::ActionSender &sender);

    // Takes a password without asking for the former one. Nothing here calls it; a refusal leads to the sheet
    // of the change. The context is handed through and not looked at.
    void showInsertPasswordSheet(Foundation::DocumentWindow *window, void *contextInfo);
    Q_INVOKABLE void confirmInsertPasswordSheet(const Foundation::ActionSender &sender);
    Q_INVOKABLE void cancelInsertPasswordSheet(const Foundation::ActionSender &sender);

    // The refusals of both. Retry brings up the sheet of the change on the window, as the user left it.
    void passwordNotEqualSheet(Foundation::DocumentWindow *window, void *contextInfo);
    void passwordMustBe6CharLong(Foundation::DocumentWindow *window, void *contextInfo);
    void passwordMustMatch(Foundation::DocumentWindow *window);

    bool validateUserInterfaceItem(const QString &action) const override;
    // An encrypted document closes at once, and `shouldClose` is never called: the file is what it shows.
    void canCloseDocument(Completion shouldClose) override;

Q_SIGNALS:
    void isEncryptedChanged();
    void plainPasswordChanged();
    void passwordFieldsChanged();

protected:
    DocumentState &mutableState() { return m_state; }
    // A sheet with one message on the document's window.
    void showAlert(
        const Foundation::Alert &alert, Foundation::AlertAnswer answered = [](int) {});

private:
    void mandatorySheetDidEnd(int returnCode);
    void mandatoryPasswordRefused(const QString &message, const QString &informativeText);
    void insertSheetDidEnd(void *contextInfo);
    void passwordRefused(Foundation::DocumentWindow *window, const QString &message,
                         const QString &informativeText);
    // Takes the text that was typed as the password, and empties the fields.
    void acceptInsertedPassword();
    // The maker is called by one name after the first password and by another after an inserted one.
    void sayAccepted(const QString &maker);
    void decryptRejected();
    void set(QString &field, const QString &text);

    DocumentState m_state;
    QString m_plainPasswordInserted = QStringLiteral("");
    QString m_plainPasswordInsertedRetype = QStringLiteral("");
    QString m_plainPasswordPrevious = QStringLiteral("");
    bool m_showClearPassword = false;
    bool m_sheetWasConfirmed = false; // which button ended the sheet that inserts a password
};
