#pragma once

#include <QByteArray>
#include <QString>

#include <array>
#include <memory>
#include <optional>

// The result of deciphering a field.
enum VLLegacyCode : quint32 {
    LegacySuccess = 0,
    LegacyUpdateFailed = 1,
    LegacyFinalFailed = 2, // the padding is wrong, the usual result of a wrong password
};

class LegacyBlowfish;

// The cipher engine of documents up to release 30000, which encipher every field separately. The application
// only deciphers with it.
//
// Scheme: Blowfish in CBC mode (B. Schneier, "Description of a New Variable-Length Key, 64-Bit Block Cipher",
// 1994; OpenSSL's BF-CBC) with PKCS#7 padding, a key of 16 bytes, no salt and no rounds: the first 16 bytes
// of the password in Mac Roman, filled up with zeros. Passwords with the same first 16 bytes are equivalent.
// A field of n bytes becomes 8 * (n / 8 + 1) bytes; an empty buffer is an empty field.
//
// A wrong password is recognised only by the padding: one field in 256 passes and gives garbage. A password
// that cannot be encoded in Mac Roman deciphers nothing. Main thread only.
class VLCrypto
{
public:
    static constexpr qsizetype BlockSizeInBytes = 8;
    static constexpr qsizetype KeySizeInBytes = 16;
    using Vector = std::array<unsigned char, BlockSizeInBytes>;

    // The vector of all documents of those releases.
    static constexpr Vector DocumentVector = {0x5a, 0x13, 0xc7, 0x2e, 0x91, 0x4d, 0xb6, 0x08};

    // Whether the cipher is installed on this computer. Without it every password is wrong.
    static bool isAvailable();

    explicit VLCrypto(const unsigned char *vector = nullptr, const QString &password = QStringLiteral(""));
    ~VLCrypto();
    VLCrypto(VLCrypto &&) noexcept;
    VLCrypto &operator=(VLCrypto &&) noexcept;

    // Copies 8 bytes. Null clears the vector; the cipher then uses zeros.
    void setInitVector(const unsigned char *vector);
    const std::optional<Vector> &initVector() const { return m_vector; }
    void setPassword(const QString &password);
    QString password() const { return m_password; }
    // True if there are a password and a vector.
    bool isReady() const { return !m_password.isEmpty() && m_vector.has_value(); }
    // True if the password can be encoded, so that there is a key.
    bool hasKey() const;

    // Encipher one field. Return nothing unless isReady(), for a text that cannot be encoded in Mac Roman,
    // and for an empty input. Prescribed; no caller yet.
    [[nodiscard]] std::optional<QByteArray> cryptString(const QString &text) const;
    [[nodiscard]] std::optional<QByteArray> cryptData(const QByteArray &data) const;
    // The 8 bytes, or the lower 4 bytes, of a number in the byte order of the machine.
    [[nodiscard]] std::optional<QByteArray> cryptLong(qint64 number) const;
    [[nodiscard]] std::optional<QByteArray> cryptLongToInt32(qint64 number) const;

    // Set *errorCode, which must not be null, and return nothing unless it is 0. An empty input gives an
    // empty result.
    [[nodiscard]] std::optional<QString> decryptToString(const QByteArray &bytes, quint32 *errorCode) const;
    [[nodiscard]] std::optional<QByteArray> decryptToData(const QByteArray &bytes, quint32 *errorCode) const;
    // The signed number in 4 bytes, or in the first 8 bytes of a longer field, in the byte order of the
    // machine. Returns 0 for an empty input and if *errorCode is not 0.
    [[nodiscard]] qint64 decryptToLong(const QByteArray &bytes, quint32 *errorCode) const;

private:
    // Null for a password without a key. Made at the first use and kept, because preparing the key takes
    // longer than a field.
    LegacyBlowfish *cipherToEncrypt() const;
    LegacyBlowfish *cipherToDecrypt() const;

    std::optional<Vector> m_vector;
    QString m_password;
    mutable std::unique_ptr<LegacyBlowfish> m_encryption;
    mutable std::unique_ptr<LegacyBlowfish> m_decryption;
};

// The cipher over plain memory. Returns *outputLength bytes, which the caller must release with free(), or
// null without data and after a failure. A key of another length than 16 bytes is truncated or filled with
// zeros; a null vector means zeros. Prescribed; no caller yet.
unsigned char *legacyEncryptBytes(const unsigned char *data, qint32 length, const unsigned char *key,
                                  qint32 keyLength, const unsigned char *vector, qint32 *outputLength);
// *errorCode is a VLLegacyCode; 0 without data. Prescribed; no caller yet.
unsigned char *legacyDecryptBytes(const unsigned char *data, qint32 length, const unsigned char *key,
                                  qint32 keyLength, const unsigned char *vector, qint32 *outputLength,
                                  quint32 *errorCode);
