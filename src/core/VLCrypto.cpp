#include "core/VLCrypto.h"

#include "core/MacRoman.h"
#include "core/SecretBytes.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <openssl/crypto.h>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/provider.h>

namespace
{

// Blowfish has moved to a provider of its own. A library context apart keeps it, and everything else that is
// outdated, from the rest of the program. Null where the provider is not installed.
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

// The cipher in one direction, with its key prepared.
class LegacyBlowfish
{
public:
    enum Direction { Decrypt = 0, Encrypt = 1 };

    LegacyBlowfish(Direction direction, const unsigned char *key, qsizetype keyLength)
        : m_context(EVP_CIPHER_CTX_new(), &EVP_CIPHER_CTX_free)
    {
        // The length of the key is never set: the cipher's own, 16 bytes, is the one of all files. Setting
        // another makes another key before the key is known and forgets it afterwards.
        unsigned char fullKey[VLCrypto::KeySizeInBytes] = {};
        std::copy_n(key, std::clamp<qsizetype>(keyLength, 0, VLCrypto::KeySizeInBytes), fullKey);
        m_isReady = blowfish() && m_context &&
                    EVP_CipherInit_ex(m_context.get(), blowfish(), nullptr, fullKey, nullptr, direction) &&
                    EVP_CIPHER_CTX_set_padding(m_context.get(), 1);
        OPENSSL_cleanse(fullKey, sizeof fullKey);
    }

    // `result` has room for a block more than `data`.
    VLLegacyCode run(const unsigned char *data, int length, const unsigned char *vector,
                     unsigned char *result, int *resultLength)
    {
        static constexpr VLCrypto::Vector zeros = {};
        // A failure left in the library's queue would be taken for one of the next encrypted connection.
        ERR_set_mark();
        const VLLegacyCode code = runFrom(vector ? vector : zeros.data(), data, length, result, resultLength);
        ERR_pop_to_mark();
        return code;
    }

private:
    VLLegacyCode runFrom(const unsigned char *vector, const unsigned char *data, int length,
                         unsigned char *result, int *resultLength)
    {
        int last = 0;
        if (!m_isReady || !EVP_CipherInit_ex(m_context.get(), nullptr, nullptr, nullptr, vector, -1) ||
            !EVP_CipherUpdate(m_context.get(), result, resultLength, data, length))
            return LegacyUpdateFailed;
        if (!EVP_CipherFinal_ex(m_context.get(), result + *resultLength, &last))
            return LegacyFinalFailed;
        *resultLength += last;
        return LegacySuccess;
    }

    std::unique_ptr<EVP_CIPHER_CTX, decltype(&EVP_CIPHER_CTX_free)> m_context;
    bool m_isReady = false;
};

namespace
{

// Null if the password has no key.
std::unique_ptr<LegacyBlowfish> cipherOfPassword(LegacyBlowfish::Direction direction, const QString &password)
{
    auto bytes = Foundation::macRomanBytes(password);
    if (!bytes)
        return nullptr;
    const SecretBytes key(std::move(*bytes));
    return std::make_unique<LegacyBlowfish>(direction, bytesOf(key.bytes()), key.bytes().size());
}

// Nothing unless *code is success. Without a cipher that is what a wrong password gives.
std::optional<QByteArray> runOverData(LegacyBlowfish *cipher, const QByteArray &data,
                                      const std::optional<VLCrypto::Vector> &vector, VLLegacyCode *code)
{
    *code = LegacyFinalFailed;
    if (!cipher || data.size() > INT32_MAX - VLCrypto::BlockSizeInBytes)
        return std::nullopt;
    QByteArray result(data.size() + VLCrypto::BlockSizeInBytes, Qt::Uninitialized);
    int written = 0;
    *code = cipher->run(bytesOf(data), int(data.size()), vector ? vector->data() : nullptr,
                        reinterpret_cast<unsigned char *>(result.data()), &written);
    if (*code != LegacySuccess)
        return std::nullopt;
    result.truncate(written);
    return result;
}

// Null unless *code is success.
unsigned char *runOverMemory(LegacyBlowfish &cipher, const unsigned char *data, qint32 length,
                             const unsigned char *vector, qint32 *outputLength, VLLegacyCode *code)
{
    const auto room = std::size_t(length) + std::size_t(VLCrypto::BlockSizeInBytes);
    auto *const work = static_cast<unsigned char *>(std::calloc(room, 1));
    int written = 0;
    *code = work ? cipher.run(data, length, vector, work, &written) : LegacyUpdateFailed;
    if (*code != LegacySuccess) {
        std::free(work);
        return nullptr;
    }
    *outputLength = written;
    return work;
}

} // namespace

unsigned char *legacyEncryptBytes(const unsigned char *data, qint32 length, const unsigned char *key,
                                  qint32 keyLength, const unsigned char *vector, qint32 *outputLength)
{
    *outputLength = 0;
    if (length < 1)
        return nullptr;
    LegacyBlowfish cipher(LegacyBlowfish::Encrypt, key, keyLength);
    VLLegacyCode code = LegacySuccess;
    return runOverMemory(cipher, data, length, vector, outputLength, &code);
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
    VLLegacyCode ending = LegacySuccess;
    unsigned char *const work = runOverMemory(cipher, data, length, vector, outputLength, &ending);
    *code = ending;
    if (!work)
        return nullptr;
    // Of exactly the length of the plain text, which may be none.
    auto *const plain = static_cast<unsigned char *>(std::malloc(std::size_t(std::max(*outputLength, 1))));
    if (plain)
        std::memcpy(plain, work, std::size_t(*outputLength));
    OPENSSL_cleanse(work, std::size_t(length));
    std::free(work);
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
    VLLegacyCode code = LegacySuccess;
    return runOverData(cipherToEncrypt(), data, m_vector, &code);
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
    VLLegacyCode ending = LegacySuccess;
    auto plain = runOverData(cipherToDecrypt(), bytes, m_vector, &ending);
    *errorCode = ending;
    return plain;
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
