#pragma once

#include <QString>

// Opens what a user typed into a field, a web address with or without its scheme, a mail address, the address
// of a file, in the program meant for it.
//
// Schemes are recognised by their exact, lower-case prefix: http://, https://, ftp://, mailto:, feed://,
// file://. Only the character " " is trimmed. An answer is false when nothing was opened, and nobody is told.
// Main thread only.
//
// Addresses are parsed strictly (RFC 3986): one with a blank, a control character, half a surrogate pair, a
// stray percent sign or an impossible host or port opens nothing, and none is repaired. Letters beyond ASCII,
// which the standard lacks but people type, are encoded: as punycode in the host, as UTF-8 elsewhere.
class VLUrlResolutor
{
public:
    VLUrlResolutor();
    VLUrlResolutor(const VLUrlResolutor &) = delete;
    VLUrlResolutor &operator=(const VLUrlResolutor &) = delete;

    // Made at the first call.
    static VLUrlResolutor &sharedUrlResolutor();

    // What goes in front of an address without a scheme; "http://" at first.
    QString defaultProtocolType() const { return m_defaultProtocolType; }
    void setDefaultProtocolType(const QString &type) { m_defaultProtocolType = type; }

    // Open the text as it is recognised, otherwise, and when that failed, behind the default protocol. An
    // empty text is an attempt to open the default protocol alone.
    bool openUrl(const QString &url);
    bool openUrl(const QString &url, const QString &withUser);
    bool openUrl(const QString &url, const QString &withUser, const QString &withPassword);

    // Opens only what is recognised, a bare mail address included.
    bool smartOpenUrl(const QString &url, const QString &withUser, const QString &withPassword);
    // Blanks before `url` end up inside the address, which then opens nothing.
    bool openWithDefaultProtocol(const QString &url, const QString &withUser, const QString &withPassword);
    // The form in which the text would be opened; null for null. `masked` has no effect: the password shows.
    QString smartUrl(const QString &url, const QString &withUser, const QString &withPassword,
                     bool masked) const;

    // Open the text as it stands. User and password are ignored.
    bool openHttp(const QString &url, const QString &withUser, const QString &withPassword);
    bool openHttps(const QString &url, const QString &withUser, const QString &withPassword);
    bool openMail(const QString &url, const QString &withUser, const QString &withPassword);
    bool openFeed(const QString &url, const QString &withUser, const QString &withPassword);
    bool openTelneet(const QString &url, const QString &withUser, const QString &withPassword);
    // `url` begins with ftp://. User and password enter it when both are there, unescaped.
    bool openFtp(const QString &url, const QString &withUser, const QString &withPassword);
    // `url` begins with file://; the rest is the path, percent signs included. Answers whether the file
    // exists, whatever becomes of opening it.
    bool openFile(const QString &url, const QString &withUser, const QString &withPassword);

private:
    QString m_defaultProtocolType;
};
