#include "core/VLCrypto.h"

#include "core/MacRoman.h"
#include "core/SecretBytes.h"
#include "values/Result.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <openssl/crypto.h>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/provider.h>

using Foundation::Failure;

namespace
{

template <class Value>
using LegacyResult = Foundation::Result<Value, VLLegacyCode>;

// Blowfish is in the legacy provider. A separate library context keeps it, and the other outdated ciphers,
// away from the rest of the program. Null if the provider is not installed.
EVP_CIPHER *blowfish()
{
    static EVP_CIPHER *const cipher = [] {
        ERR_set_mark();
        OSSL_LIB_CTX *const library = OSSL_LIB_CTX_new();
        const bool isLoaded = library && OSSL_PROVIDER_load(library, "legacy");
        EVP_CIPHER *const fetched = isLoaded ? EVP_CIPHER_fetch(library, "BF-CBC", nullptr) : nullptr;
        ERR_pop_to_mark();
        return fetched;
    }();
    return cipher;
}

const unsigned char *bytesOf(const QByteArray &data)
{
    return reinterpret_cast<const unsigned char *>(data.constData());
}

} // namespace

// The cipher in one direction, with a prepared key.
class LegacyBlowfish
{
public:
    enum Direction { Decrypt = 0, Encrypt = 1 };

    LegacyBlowfish(Direction direction, const unsigned char *key, qsizetype keyLength)
        : m_context(EVP_CIPHER_CTX_new(), &EVP_CIPHER_CTX_free)
    {
        // The length of the key is never set, because the default of 16 bytes is that of all files. Setting
        // it would prepare a wrong key first and lose it afterwards.
        unsigned char fullKey[VLCrypto::KeySizeInBytes] = {};
        std::copy_n(key, std::clamp<qsizetype>(keyLength, 0, VLCrypto::KeySizeInBytes), fullKey);
        m_isReady = blowfish() && m_context &&
                    EVP_CipherInit_ex(m_context.get(), blowfish(), nullptr, fullKey, nullptr, direction) &&
                    EVP_CIPHER_CTX_set_padding(m_context.get(), 1);
        OPENSSL_cleanse(fullKey, sizeof fullKey);
    }

    // Returns the length of the output. `result` must have space for one block more than `data`.
    LegacyResult<int> run(const unsigned char *data, int length, const unsigned char *vector,
                          unsigned char *result)
    {
        static constexpr VLCrypto::Vector zeros = {};
        // An error left in the queue of the library would be attributed to the next encrypted connection.
        ERR_set_mark();
        auto written = runFrom(vector ? vector : zeros.data(), data, length, result);
        ERR_pop_to_mark();
        return written;
    }

private:
    LegacyResult<int> runFrom(const unsigned char *vector, const unsigned char *data, int length,
                              unsigned char *result)
    {
        int updated = 0;
        int last = 0;
        if (!m_isReady || !EVP_CipherInit_ex(m_context.get(), nullptr, nullptr, nullptr, vector, -1) ||
            !EVP_CipherUpdate(m_context.get(), result, &updated, data, length))
            return Failure{LegacyUpdateFailed};
        if (!EVP_CipherFinal_ex(m_context.get(), result + updated, &last))
            return Failure{LegacyFinalFailed};
        return updated + last;
    }

    std::unique_ptr<EVP_CIPHER_CTX, decltype(&EVP_CIPHER_CTX_free)> m_context;
    bool m_isReady = false;
};

namespace
{

// Returns null if the password has no key.
std::unique_ptr<LegacyBlowfish> cipherOfPassword(LegacyBlowfish::Direction direction, const QString &password)
{
    auto bytes = Foundation::macRomanBytes(password);
    if (!bytes)
        return nullptr;
    const SecretBytes key(std::move(*bytes));
    return std::make_unique<LegacyBlowfish>(direction, bytesOf(key.bytes()), key.bytes().size());
}

// Without a cipher it fails like a wrong password.
LegacyResult<QByteArray> runOverData(LegacyBlowfish *cipher, const QByteArray &data,
                                     const std::optional<VLCrypto::Vector> &vector)
{
    if (!cipher || data.size() > INT32_MAX - VLCrypto::BlockSizeInBytes)
        return Failure{LegacyFinalFailed};
    QByteArray result(data.size() + VLCrypto::BlockSizeInBytes, Qt::Uninitialized);
    const auto written = cipher->run(bytesOf(data), int(data.size()), vector ? vector->data() : nullptr,
                                     reinterpret_cast<unsigned char *>(result.data()));
    if (!written)
        return written.failure();
    result.truncate(*written);
    return result;
}

struct Memory
{
    unsigned char *bytes; // Must be released with free().
    qint32 length;
};

LegacyResult<Memory> runOverMemory(LegacyBlowfish &cipher, const unsigned char *data, qint32 length,
                                   const unsigned char *vector)
{
    const auto room = std::size_t(length) + std::size_t(VLCrypto::BlockSizeInBytes);
    auto *const work = static_cast<unsigned char *>(std::calloc(room, 1));
    if (!work)
        return Failure{LegacyUpdateFailed};
    const auto written = cipher.run(data, length, vector, work);
    if (!written) {
        std::free(work);
        return written.failure();
    }
    return Memory{work, *written};
}

} // namespace

unsigned char *legacyEncryptBytes(const unsigned char *data, qint32 length, const unsigned char *key,
                                  qint32 keyLength, const unsigned char *vector, qint32 *outputLength)
{
    *outputLength = 0;
    if (length < 1)
        return nullptr;
    LegacyBlowfish cipher(LegacyBlowfish::Encrypt, key, keyLength);
    const auto run = runOverMemory(cipher, data, length, vector);
    if (!run)
        return nullptr;
    *outputLength = run->length;
    return run->bytes;
}

unsigned char *legacyDecryptBytes(const unsigned char *data, qint32 length, const unsigned char *key,
                                  qint32 keyLength, const unsigned char *vector, qint32 *outputLength,
                                  quint32 *code)
{
    *outputLength = 0;
    *code = LegacySuccess;
    if (length < 1)
        return nullptr;
    LegacyBlowfish cipher(LegacyBlowfish::Decrypt, key, keyLength);
    const auto run = runOverMemory(cipher, data, length, vector);
    if (!run) {
        *code = run.failure().code;
        return nullptr;
    }
    *outputLength = run->length;
    // The memory has exactly the length of the plain text, which may be 0.
    auto *const plain = static_cast<unsigned char *>(std::malloc(std::size_t(std::max(*outputLength, 1))));
    if (plain)
        std::memcpy(plain, run->bytes, std::size_t(*outputLength));
    OPENSSL_cleanse(run->bytes, std::size_t(length));
    std::free(run->bytes);
    return plain;
}

VLCrypto::VLCrypto(const unsigned char *vector, const QString &password)
{
    setInitVector(vector);
    setPassword(password);
}

VLCrypto::~VLCrypto() = default;
VLCrypto::VLCrypto(VLCrypto &&) noexcept = default;
VLCrypto &VLCrypto::operator=(VLCrypto &&) noexcept = default;

void VLCrypto::setInitVector(const unsigned char *vector)
{
    m_vector.reset();
    if (vector)
        std::copy_n(vector, BlockSizeInBytes, m_vector.emplace().begin());
}

void VLCrypto::setPassword(const QString &password)
{
    m_password = password;
    m_encryption = nullptr;
    m_decryption = nullptr;
}

LegacyBlowfish *VLCrypto::cipherToEncrypt() const
{
    if (!m_encryption)
        m_encryption = cipherOfPassword(LegacyBlowfish::Encrypt, m_password);
    return m_encryption.get();
}

LegacyBlowfish *VLCrypto::cipherToDecrypt() const
{
    if (!m_decryption)
        m_decryption = cipherOfPassword(LegacyBlowfish::Decrypt, m_password);
    return m_decryption.get();
}

bool VLCrypto::isAvailable()
{
    return blowfish() != nullptr;
}

bool VLCrypto::hasKey() const
{
    return Foundation::macRomanBytes(m_password).has_value();
}

std::optional<QByteArray> VLCrypto::cryptString(const QString &text) const
{
    const auto bytes = Foundation::macRomanBytes(text);
    return bytes ? cryptData(*bytes) : std::nullopt;
}

std::optional<QByteArray> VLCrypto::cryptData(const QByteArray &data) const
{
    if (!isReady() || data.isEmpty())
        return std::nullopt;
    auto cipherText = runOverData(cipherToEncrypt(), data, m_vector);
    return cipherText ? std::optional(*cipherText) : std::nullopt;
}

std::optional<QByteArray> VLCrypto::cryptLong(qint64 number) const
{
    return cryptData(QByteArray(reinterpret_cast<const char *>(&number), sizeof number));
}

std::optional<QByteArray> VLCrypto::cryptLongToInt32(qint64 number) const
{
    const auto low = qint32(number);
    return cryptData(QByteArray(reinterpret_cast<const char *>(&low), sizeof low));
}

std::optional<QByteArray> VLCrypto::decryptToData(const QByteArray &bytes, quint32 *errorCode) const
{
    *errorCode = LegacySuccess;
    if (bytes.isEmpty())
        return QByteArray("");
    const auto plain = runOverData(cipherToDecrypt(), bytes, m_vector);
    if (!plain) {
        *errorCode = plain.failure().code;
        return std::nullopt;
    }
    return *plain;
}

std::optional<QString> VLCrypto::decryptToString(const QByteArray &bytes, quint32 *errorCode) const
{
    auto plain = decryptToData(bytes, errorCode);
    return plain ? std::optional(Foundation::textFromMacRoman(*plain)) : std::nullopt;
}

qint64 VLCrypto::decryptToLong(const QByteArray &bytes, quint32 *errorCode) const
{
    const auto plain = decryptToData(bytes, errorCode);
    if (!plain)
        return 0;
    if (qint32 small = 0; plain->size() == sizeof small) {
        std::memcpy(&small, plain->constData(), sizeof small);
        return small;
    }
    qint64 number = 0;
    std::memcpy(&number, plain->constData(), std::min(sizeof number, std::size_t(plain->size())));
    return number;
}
