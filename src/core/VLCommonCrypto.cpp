#include "core/VLCommonCrypto.h"

#include "archive/LargeArray.h"
#include "core/KeyDerivation.h"
#include "files/RandomBytes.h"
#include "helpers/RandomNumbers.h"

#include <algorithm>
#include <memory>
#include <openssl/crypto.h>
#include <openssl/err.h>
#include <openssl/evp.h>

using Foundation::Failure;

namespace
{

// The library uses int for sizes, and a document may be larger, so data is passed in pieces of whole blocks.
constexpr qsizetype PieceSizeInBytes = 1 << 20;
static_assert(PieceSizeInBytes % VLCommonCrypto::BlockSizeInBytes == 0);

VLCommonCrypto::RandomSource randomSource = &Foundation::secureRandomBytes;

struct CipherRun
{
    VLCipherOperation operation;
    quint32 options;
    const QByteArray &key;
    const QByteArray &vector;

    bool padded() const { return options & CipherPKCS7Padding; }
    bool chained() const { return !(options & CipherECBMode); }
};

using CipherContext = std::unique_ptr<EVP_CIPHER_CTX, decltype(&EVP_CIPHER_CTX_free)>;

const unsigned char *bytes(const QByteArray &data)
{
    return reinterpret_cast<const unsigned char *>(data.constData());
}

CipherResult prepareContext(const CipherContext &context, const CipherRun &run)
{
    if (!context)
        return Failure{CipherMemoryError};
    const EVP_CIPHER *cipher = run.chained() ? EVP_aes_256_cbc() : EVP_aes_256_ecb();
    const unsigned char *vector = run.chained() ? bytes(run.vector) : nullptr;
    const int enciphers = run.operation == CipherEncrypt ? 1 : 0;
    if (!EVP_CipherInit_ex(context.get(), cipher, nullptr, bytes(run.key), vector, enciphers) ||
        !EVP_CIPHER_CTX_set_padding(context.get(), run.padded() ? 1 : 0))
        return Failure{CipherParameterError};
    return {};
}

// Checks the arguments. Data and vector come from files and may be hostile.
CipherResult checkInput(const QByteArray &data, const CipherRun &run)
{
    if (run.operation != CipherEncrypt && run.operation != CipherDecrypt)
        return Failure{CipherParameterError};
    if (run.chained() && run.vector.size() < VLCommonCrypto::VectorSizeInBytes)
        return Failure{CipherParameterError}; // The library would read beyond the end of the vector.
    const bool wholeBlocksOnly = run.operation == CipherDecrypt || !run.padded();
    if (wholeBlocksOnly && data.size() % VLCommonCrypto::BlockSizeInBytes != 0)
        return Failure{CipherAlignmentError};
    return {};
}

// `result` may be the same object as `data`.
CipherResult runCipher(const QByteArray &data, const CipherRun &run, QByteArray &result)
{
    if (auto checked = checkInput(data, run); !checked)
        return checked;
    const CipherContext context(EVP_CIPHER_CTX_new(), &EVP_CIPHER_CTX_free);
    if (auto prepared = prepareContext(context, run); !prepared)
        return prepared;

    const qsizetype size = data.size();
    // Allocated once and not initialised, because the buffers of a document may be large.
    if (&result == &data)
        result.resize(size + VLCommonCrypto::BlockSizeInBytes);
    else
        result = Foundation::uninitializedBytes(size + VLCommonCrypto::BlockSizeInBytes);
    auto *const begin = reinterpret_cast<unsigned char *>(result.data());
    unsigned char *end = begin;
    for (qsizetype taken = 0; taken < size; taken += PieceSizeInBytes) {
        const qsizetype pieceSize = std::min(PieceSizeInBytes, size - taken);
        int written = 0;
        if (!EVP_CipherUpdate(context.get(), end, &written, bytes(data) + taken, int(pieceSize)))
            return Failure{CipherParameterError};
        end += written;
    }
    int written = 0;
    if (!EVP_CipherFinal_ex(context.get(), end, &written))
        return Failure{CipherDecodeError}; // The padding is wrong because of damage or a wrong key, or there
                                           // is no block.
    result.truncate(end + written - begin);
    return {};
}

} // namespace

VLCommonCrypto::VLCommonCrypto(const QString &password)
    : m_password(password)
{
    recalcIV_Salt_AESKey();
}

QString VLCommonCrypto::generateRandom256AsciiString()
{
    QString text(RandomStringLength, Qt::Uninitialized);
    for (QChar &character : text)
        character = QLatin1Char(char(randomLongInRange(1, 255)));
    return text;
}

std::optional<QByteArray> VLCommonCrypto::randomDataOfLength(quint64 length)
{
    return randomSource(length);
}

void VLCommonCrypto::setRandomSource(RandomSource source)
{
    randomSource = source ? source : &Foundation::secureRandomBytes;
}

QByteArray VLCommonCrypto::AESKeyForPassword(const QString &password, const QByteArray &salt)
{
    // Required: takes as many bytes of the UTF-8 text as the password has UTF-16 units, so "Zürichsee" loses
    // its last letter. Every existing file was written this way; taking all bytes would lock out users with
    // accents. There are always enough bytes, since each unit takes at least one: a surrogate pair takes
    // four, and a lone surrogate becomes a question mark.
    QByteArray text = password.toUtf8();
    QByteArray key =
        pbkdf2HmacSha1(QByteArrayView(text).first(password.size()), salt, RoundCount, KeySizeInBytes);
    OPENSSL_cleanse(text.data(), std::size_t(text.size()));
    return key;
}

std::optional<QByteArray> VLCommonCrypto::dataSHA1(const QByteArray &data)
{
    QByteArray digest(EVP_MD_get_size(EVP_sha1()), Qt::Uninitialized);
    if (!EVP_Digest(data.constData(), std::size_t(data.size()),
                    reinterpret_cast<unsigned char *>(digest.data()), nullptr, EVP_sha1(), nullptr))
        return std::nullopt;
    return digest;
}

void VLCommonCrypto::recalcIV_Salt_AESKey()
{
    // Required: if the source fails, the value is null, and no error is reported here.
    m_IV = randomDataOfLength(VectorSizeInBytes).value_or(QByteArray());
    m_salt = randomDataOfLength(SaltSizeInBytes).value_or(QByteArray());
    m_AESKey = AESKeyForPassword(m_password, m_salt);
}

void VLCommonCrypto::setPasswordToEncrypt(const QString &password)
{
    m_password = password;
    recalcIV_Salt_AESKey();
}

void VLCommonCrypto::setPasswordToDecrypt(const QString &password, const QByteArray &iv,
                                          const QByteArray &salt)
{
    m_password = password;
    m_IV = iv;
    m_salt = salt;
}

std::optional<QByteArray> VLCommonCrypto::encrypt(const QByteArray &data, qint32 *error)
{
    quint32 padding = CipherPKCS7Padding;
    return doCipher(data, QByteArray(), CipherEncrypt, &padding, error);
}

std::optional<QByteArray> VLCommonCrypto::decrypt(const QByteArray &data, qint32 *error)
{
    quint32 padding = CipherPKCS7Padding;
    return doCipher(data, QByteArray(), CipherDecrypt, &padding, error);
}

std::optional<QByteArray> VLCommonCrypto::encrypt(const QByteArray &data, const QByteArray &key,
                                                  quint32 *padding)
{
    qint32 unseen = CipherSuccess;
    return doCipher(data, key, CipherEncrypt, padding, &unseen);
}

std::optional<QByteArray> VLCommonCrypto::decrypt(const QByteArray &data, const QByteArray &key,
                                                  quint32 *padding)
{
    qint32 unseen = CipherSuccess;
    return doCipher(data, key, CipherDecrypt, padding, &unseen);
}

CipherResult VLCommonCrypto::encryptInPlace(QByteArray &data)
{
    quint32 padding = CipherPKCS7Padding;
    return runWithNewKey(data, CipherEncrypt, &padding, data);
}

std::optional<QByteArray> VLCommonCrypto::doCipher(const QByteArray &data, const QByteArray &key,
                                                   quint32 context, quint32 *padding, qint32 *error)
{
    Q_UNUSED(key) // Required: the key of the caller is ignored.
    QByteArray result;
    const auto run = runWithNewKey(data, context, padding, result);
    *error = run ? CipherSuccess : run.failure().code;
    if (!run)
        return std::nullopt;
    return result;
}

CipherResult VLCommonCrypto::runWithNewKey(const QByteArray &data, quint32 context, quint32 *padding,
                                           QByteArray &result)
{
    m_AESKey = AESKeyForPassword(m_password, m_salt);
    if (context == CipherEncrypt && *padding != CipherECBMode)
        *padding = CipherPKCS7Padding;
    // An error left in the queue of the library would be attributed to the next encrypted connection.
    ERR_set_mark();
    auto run = runCipher(data, {VLCipherOperation(context), *padding, m_AESKey, m_IV}, result);
    ERR_pop_to_mark();
    return run;
}
