#pragma once

#include "values/Result.h"

#include <QByteArray>
#include <QString>

#include <optional>

// What a cipher call reports. Callers only tell zero from the rest; the numbers are those of the public
// cipher interface under which documents were first written.
enum VLCipherStatus : qint32 {
    CipherSuccess = 0,
    CipherParameterError = -4300,
    CipherBufferTooSmallError = -4301, // Part of the family; never given, as room is reckoned beforehand.
    CipherMemoryError = -4302,
    CipherAlignmentError = -4303,
    CipherDecodeError = -4304,
};

// The same between our own classes. A failure has no words.
using CipherResult = Foundation::Result<void, VLCipherStatus>;

enum VLCipherOperation : quint32 { CipherEncrypt = 0, CipherDecrypt = 1 };

// Bits of the option word. Without the first nothing is padded, without the second blocks are chained.
enum VLCipherOption : quint32 { CipherPKCS7Padding = 1, CipherECBMode = 2 };

// Cipher engine of a document: enciphers whole buffers under one password.
//
// Scheme: AES-256-CBC with PKCS#7 padding (FIPS 197, SP 800-38A); the key is PBKDF2-HMAC-SHA1 (RFC 8018) of
// password and salt. A buffer of n bytes becomes 16 * (n / 16 + 1) bytes of bare cipher text; salt and vector
// travel beside it, and all buffers of one save share them.
//
// Nothing is checked for genuineness: a wrong password, salt or damaged text mostly breaks the padding and
// fails, but may also give garbage, so the caller compares a digest. Every cipher call blocks for one key
// derivation; keys are never cached. Nothing throws. Main thread only. Keeps copies of what it is given.
class VLCommonCrypto
{
public:
    static constexpr int RoundCount = 10000;
    static constexpr qsizetype KeySizeInBytes = 32;
    static constexpr qsizetype SaltSizeInBytes = 8;
    static constexpr qsizetype VectorSizeInBytes = 16;
    static constexpr qsizetype BlockSizeInBytes = 16;
    static constexpr qsizetype RandomStringLength = 256;

    // Makes a vector, a salt and the key, in this order.
    explicit VLCommonCrypto(const QString &password = QString());

    // 256 characters of codes 1 to 255. Drawn from the system's plain generator and therefore guessable: good
    // for a text that is only known to who can decipher it, never for a key.
    static QString generateRandom256AsciiString();
    // Bytes of the system's secure source; nothing if that fails.
    [[nodiscard]] static std::optional<QByteArray> randomDataOfLength(quint64 length);
    // The 32-byte key of an engine with this password and salt. A null password has the key of the empty one,
    // and an absent salt counts as an empty one.
    static QByteArray AESKeyForPassword(const QString &password, const QByteArray &salt);
    // The 20-byte SHA-1 digest; nothing if the library has none to give.
    [[nodiscard]] static std::optional<QByteArray> dataSHA1(const QByteArray &data);

    // Where randomDataOfLength draws from, for all engines, so that a test can let it fail. Null brings the
    // system's secure source back.
    using RandomSource = std::optional<QByteArray> (*)(quint64 length);
    static void setRandomSource(RandomSource source);

    // Renews vector, salt and key for the unchanged password. Where the random source fails the value becomes
    // null and nothing tells: without a vector the next cipher call fails, without a salt the key has none.
    void recalcIV_Salt_AESKey();
    // Stores the password and renews the rest.
    void setPasswordToEncrypt(const QString &password);
    // Stores the three values as given. Derives no key: the next cipher call does.
    void setPasswordToDecrypt(const QString &password, const QByteArray &iv, const QByteArray &salt);

    // Both set *error, which must not be null, and return nothing unless it is 0. An empty plain text becomes
    // one block, which becomes an empty array again, not nothing.
    [[nodiscard]] std::optional<QByteArray> encrypt(const QByteArray &data, qint32 *error);
    [[nodiscard]] std::optional<QByteArray> decrypt(const QByteArray &data, qint32 *error);

    // encrypt() in the memory of the plain text, of which nothing is left. After a failure `data` may hold
    // anything.
    CipherResult encryptInPlace(QByteArray &data);

    // The same without a status and with an option word of the caller's, as in doCipher.
    [[nodiscard]] std::optional<QByteArray> encrypt(const QByteArray &data, const QByteArray &key,
                                                    quint32 *padding);
    [[nodiscard]] std::optional<QByteArray> decrypt(const QByteArray &data, const QByteArray &key,
                                                    quint32 *padding);

    // Derives the key anew, stores it and runs the cipher once over `data`, whatever `key` says: the key
    // always comes from password and salt. `context` is a VLCipherOperation, `padding` an option word,
    // neither pointer may be null. Enciphering knows the words 2, blocks unchained and unpadded, and 1, which
    // replaces all others at `padding`. Deciphering takes the bits of the word as they are. Status: parameter
    // error for an unknown operation or a vector of fewer than 16 bytes (more are not looked at, and
    // unchained blocks need none); alignment error for data that isn't whole blocks where it has to be;
    // decode error for a broken padding.
    [[nodiscard]] std::optional<QByteArray> doCipher(const QByteArray &data, const QByteArray &key,
                                                     quint32 context, quint32 *padding, qint32 *error);

    QString password() const { return m_password; }
    void setPassword(const QString &password) { m_password = password; }
    QByteArray salt() const { return m_salt; }
    void setSalt(const QByteArray &salt) { m_salt = salt; }
    // The key last derived or set. No cipher call uses it.
    QByteArray AESKey() const { return m_AESKey; }
    void setAESKey(const QByteArray &key) { m_AESKey = key; }
    QByteArray IV() const { return m_IV; }
    void setIV(const QByteArray &vector) { m_IV = vector; }

private:
    // The one way to the cipher, which derives the key. `result` may be `data` itself.
    CipherResult runWithNewKey(const QByteArray &data, quint32 context, quint32 *padding, QByteArray &result);

    QString m_password;
    QByteArray m_salt;
    QByteArray m_AESKey;
    QByteArray m_IV;
};
