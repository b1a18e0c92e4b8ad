#pragma once

#include <QString>

// Opens what a user typed into a field (a web address with or without a scheme, a mail address, or the
// address of a file) in the program for it.
//
// Schemes are recognised by their exact lower-case prefix: http://, https://, ftp://, mailto:, feed://,
// file://. Only the character " " is trimmed. Operations return false if nothing was opened; the user is not
// told. Main thread only.
//
// Addresses are parsed strictly (RFC 3986) and never repaired: an address with a blank, a control character,
// half a surrogate pair, a stray percent sign or an invalid host or port opens nothing. Letters outside
// ASCII, which the standard does not allow but users type, are encoded: as punycode in the host, as UTF-8
// elsewhere.
class VLUrlResolutor
{
public:
    VLUrlResolutor();
    VLUrlResolutor(const VLUrlResolutor &) = delete;
    VLUrlResolutor &operator=(const VLUrlResolutor &) = delete;

    // The shared object, made at the first call.
    static VLUrlResolutor &sharedUrlResolutor();

    // The prefix for an address without a scheme. Initially "http://".
    QString defaultProtocolType() const { return m_defaultProtocolType; }
    void setDefaultProtocolType(const QString &type) { m_defaultProtocolType = type; }

    // First try smartOpenUrl(), then openWithDefaultProtocol(). For an empty text, the default protocol alone
    // is tried.
    bool openUrl(const QString &url);
    bool openUrl(const QString &url, const QString &withUser);
    bool openUrl(const QString &url, const QString &withUser, const QString &withPassword);

    // Opens a text only if its scheme is recognised or if it is a mail address.
    bool smartOpenUrl(const QString &url, const QString &withUser, const QString &withPassword);
    // Opens the text with the default protocol before it. Blanks at the beginning of `url` make the address
    // invalid, so that it opens nothing.
    bool openWithDefaultProtocol(const QString &url, const QString &withUser, const QString &withPassword);
    // The trimmed text; in an ftp address, with user and password inserted. Null for a null text. `masked`
    // has no effect: the password is readable. Prescribed; no caller yet.
    QString smartUrl(const QString &url, const QString &withUser, const QString &withPassword,
                     bool masked) const;

    // Open the text unchanged. User and password are ignored. openTelneet() is prescribed and has no caller.
    bool openHttp(const QString &url, const QString &withUser, const QString &withPassword);
    bool openHttps(const QString &url, const QString &withUser, const QString &withPassword);
    bool openMail(const QString &url, const QString &withUser, const QString &withPassword);
    bool openFeed(const QString &url, const QString &withUser, const QString &withPassword);
    bool openTelneet(const QString &url, const QString &withUser, const QString &withPassword);
    // `url` must begin with ftp://. User and password are inserted, unescaped, if neither is empty.
    bool openFtp(const QString &url, const QString &withUser, const QString &withPassword);
    // `url` must begin with file://. The rest is the path, in which percent signs have no special meaning.
    // Returns whether the file exists, even if no program opened it.
    bool openFile(const QString &url, const QString &withUser, const QString &withPassword);

private:
    QString m_defaultProtocolType;
};
