#pragma once

#include <QByteArray>
#include <QString>

#include <array>
#include <memory>
#include <optional>

// What deciphering a field reports.
enum VLLegacyCode : quint32 {
    LegacySuccess = 0,
    LegacyUpdateFailed = 1,
    LegacyFinalFailed = 2, // the padding is broken: what a wrong password mostly gives
};

class LegacyBlowfish;

// Cipher engine of documents up to release 30000, which encipher every field by itself. Documents are only
// read with it.
//
// Scheme: Blowfish in CBC mode (B. Schneier, "Description of a New Variable-Length Key, 64-Bit Block Cipher",
// 1994; OpenSSL's BF-CBC) with PKCS#7 padding, a key of 16 bytes, no salt and no rounds: the first 16 bytes
// of the password in Mac Roman, filled up with zeros. Passwords that agree in 16 bytes are the same. A field
// of n bytes becomes 8 * (n / 8 + 1) bytes; an empty buffer stands for an empty field.
//
// Nothing tells a wrong password but a broken padding: one field in 256 passes and gives garbage. A password
// that Mac Roman cannot hold deciphers nothing. Main thread only.
class VLCrypto
{
public:
    static constexpr qsizetype BlockSizeInBytes = 8;
    static constexpr qsizetype KeySizeInBytes = 16;
    using Vector = std::array<unsigned char, BlockSizeInBytes>;

    // The vector of every document of those releases.
    static constexpr Vector DocumentVector = {0x5a, 0x13, 0xc7, 0x2e, 0x91, 0x4d, 0xb6, 0x08};

    // Whether this computer has the cipher at all. Without it every password is wrong.
    static bool isAvailable();

    explicit VLCrypto(const unsigned char *vector = nullptr, const QString &password = QStringLiteral(""));
    ~VLCrypto();
    VLCrypto(VLCrypto &&) noexcept;
    VLCrypto &operator=(VLCrypto &&) noexcept;

    // Copies 8 bytes; null clears the vector, and the cipher then runs from zeros.
    void setInitVector(const unsigned char *vector);
    const std::optional<Vector> &initVector() const { return m_vector; }
    void setPassword(const QString &password);
    QString password() const { return m_password; }
    // There are a password and a vector.
    bool isReady() const { return !m_password.isEmpty() && m_vector.has_value(); }
    // The password has a key.
    bool hasKey() const;

    // Nothing unless isReady(), for what Mac Roman cannot hold, and for an empty input.
    [[nodiscard]] std::optional<QByteArray> cryptString(const QString &text) const;
    [[nodiscard]] std::optional<QByteArray> cryptData(const QByteArray &data) const;
    // 8 bytes, and the low 4, in machine order.
    [[nodiscard]] std::optional<QByteArray> cryptLong(qint64 number) const;
    [[nodiscard]] std::optional<QByteArray> cryptLongToInt32(qint64 number) const;

    // Set *errorCode, which must not be null; nothing unless it is 0. An empty input is an empty result.
    [[nodiscard]] std::optional<QString> decryptToString(const QByteArray &bytes, quint32 *errorCode) const;
    [[nodiscard]] std::optional<QByteArray> decryptToData(const QByteArray &bytes, quint32 *errorCode) const;
    // Of 4 bytes the signed number, of others the first 8 as they lie in memory; 0 for an empty input and
    // when *errorCode is not 0.
    [[nodiscard]] qint64 decryptToLong(const QByteArray &bytes, quint32 *errorCode) const;

private:
    // Null for a password without a key. Made at the first need and kept, as preparing the key takes longer
    // than a field.
    LegacyBlowfish *cipherToEncrypt() const;
    LegacyBlowfish *cipherToDecrypt() const;

    std::optional<Vector> m_vector;
    QString m_password;
    mutable std::unique_ptr<LegacyBlowfish> m_encryption;
    mutable std::unique_ptr<LegacyBlowfish> m_decryption;
};

// The cipher itself over plain memory. The result, of *outputLength bytes, is the caller's and freed with
// free(); null for no data and for failures. Keys of other lengths than 16 bytes are cut or filled with
// zeros; a null vector is one of zeros.
unsigned char *legacyEncryptBytes(const unsigned char *data, qint32 length, const unsigned char *key,
                                  qint32 keyLength, const unsigned char *vector, qint32 *outputLength);
// *code is a VLLegacyCode; no data is no failure.
unsigned char *legacyDecryptBytes(const unsigned char *data, qint32 length, const unsigned char *key,
                                  qint32 keyLength, const unsigned char *vector, qint32 *outputLength,
                                  quint32 *errorCode);
