#pragma once

#include "values/Result.h"

#include <QByteArray>
#include <QString>

#include <optional>

// The result of a cipher call. Callers only distinguish 0 from the other values, which are those of the
// public cipher interface that wrote the first documents.
enum VLCipherStatus : qint32 {
    CipherSuccess = 0,
    CipherParameterError = -4300,
    CipherBufferTooSmallError = -4301, // Never returned, since the size is computed beforehand.
    CipherMemoryError = -4302,
    CipherAlignmentError = -4303,
    CipherDecodeError = -4304,
};

// The same for our own classes. A failure has no words.
using CipherResult = Foundation::Result<void, VLCipherStatus>;

enum VLCipherOperation : quint32 { CipherEncrypt = 0, CipherDecrypt = 1 };

// Bits of the option word. Without the first bit there is no padding; without the second, blocks are chained.
enum VLCipherOption : quint32 { CipherPKCS7Padding = 1, CipherECBMode = 2 };

// The cipher engine of a document: enciphers whole buffers under one password.
//
// Scheme: AES-256-CBC with PKCS#7 padding (FIPS 197, SP 800-38A); the key is PBKDF2-HMAC-SHA1 (RFC 8018) of
// password and salt. A buffer of n bytes becomes 16 * (n / 16 + 1) bytes of bare cipher text. Salt and vector
// are stored beside it, and all buffers of one save share them.
//
// There is no authentication: with a wrong password or salt, or damaged data, deciphering usually fails
// because of the padding, but may also give garbage, so the caller must compare a digest. Every cipher call
// blocks for one key derivation; keys are never cached. Main thread only. Stores copies of its arguments.
class VLCommonCrypto
{
public:
    static constexpr int RoundCount = 10000;
    static constexpr qsizetype KeySizeInBytes = 32;
    static constexpr qsizetype SaltSizeInBytes = 8;
    static constexpr qsizetype VectorSizeInBytes = 16;
    static constexpr qsizetype BlockSizeInBytes = 16;
    static constexpr qsizetype RandomStringLength = 256;

    // Makes a vector, a salt and the key, in this order. Blocks for one key derivation.
    explicit VLCommonCrypto(const QString &password = QString());

    // 256 characters with codes from 1 to 255. They come from randomLongInRange() and can be guessed, so they
    // must never be used as a key. They are used for the check text, whose content does not matter.
    static QString generateRandom256AsciiString();
    // Bytes from the secure random source of the system. Nothing if it fails.
    [[nodiscard]] static std::optional<QByteArray> randomDataOfLength(quint64 length);
    // The key of 32 bytes for a password and a salt. A null password counts as the empty one, a null salt as
    // an empty one. Blocks for one key derivation.
    static QByteArray AESKeyForPassword(const QString &password, const QByteArray &salt);
    // The SHA-1 digest of 20 bytes. Nothing if the library fails.
    [[nodiscard]] static std::optional<QByteArray> dataSHA1(const QByteArray &data);

    // Replaces the source of randomDataOfLength() for all engines, for tests. Null restores the secure source
    // of the system.
    using RandomSource = std::optional<QByteArray> (*)(quint64 length);
    static void setRandomSource(RandomSource source);

    // Renews vector, salt and key for the same password. Required: if the random source fails, the value
    // becomes null and no error is reported. Without a vector the next cipher call fails; without a salt the
    // key is derived from an empty salt.
    void recalcIV_Salt_AESKey();
    // Stores the password and renews vector, salt and key. Prescribed; no caller yet.
    void setPasswordToEncrypt(const QString &password);
    // Stores the three values. The next cipher call derives the key.
    void setPasswordToDecrypt(const QString &password, const QByteArray &iv, const QByteArray &salt);

    // Both set *error, which must not be null, and return nothing unless *error is 0. An empty array becomes
    // one block, and deciphering this block gives an empty array.
    [[nodiscard]] std::optional<QByteArray> encrypt(const QByteArray &data, qint32 *error);
    [[nodiscard]] std::optional<QByteArray> decrypt(const QByteArray &data, qint32 *error);

    // Enciphers `data` in place, so that no plain text is left. After a failure the content of `data` is
    // undefined.
    CipherResult encryptInPlace(QByteArray &data);

    // The same without a status and with the option word of the caller, see doCipher(). Prescribed; no caller
    // yet.
    [[nodiscard]] std::optional<QByteArray> encrypt(const QByteArray &data, const QByteArray &key,
                                                    quint32 *padding);
    [[nodiscard]] std::optional<QByteArray> decrypt(const QByteArray &data, const QByteArray &key,
                                                    quint32 *padding);

    // Derives the key, stores it and runs the cipher over `data`. Required: `key` is ignored. `context` is a
    // VLCipherOperation, `padding` an option word; neither pointer may be null. Enciphering accepts the
    // option words 2 (no chaining, no padding) and 1, and sets *padding to 1 for any other word. Deciphering
    // uses the bits as they are. *error is a parameter error for an unknown operation or a vector of fewer
    // than 16 bytes (further bytes are ignored, and without chaining no vector is needed), an alignment error
    // if `data` does not consist of whole blocks where it must, and a decode error for a wrong padding.
    [[nodiscard]] std::optional<QByteArray> doCipher(const QByteArray &data, const QByteArray &key,
                                                     quint32 context, quint32 *padding, qint32 *error);

    QString password() const { return m_password; }
    void setPassword(const QString &password) { m_password = password; }
    QByteArray salt() const { return m_salt; }
    void setSalt(const QByteArray &salt) { m_salt = salt; }
    // The key that was last derived or set. No cipher call uses it.
    QByteArray AESKey() const { return m_AESKey; }
    void setAESKey(const QByteArray &key) { m_AESKey = key; }
    QByteArray IV() const { return m_IV; }
    void setIV(const QByteArray &vector) { m_IV = vector; }

private:
    // Derives the key and runs the cipher; all cipher calls use this. `result` may be the same object as
    // `data`.
    CipherResult runWithNewKey(const QByteArray &data, quint32 context, quint32 *padding, QByteArray &result);

    QString m_password;
    QByteArray m_salt;
    QByteArray m_AESKey;
    QByteArray m_IV;
};
