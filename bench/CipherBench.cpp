#include "core/KeyDerivation.h"
#include "core/VLCommonCrypto.h"

#include <benchmark/benchmark.h>

#include <QByteArray>
#include <QString>

#include <cstring>
#include <openssl/evp.h>

namespace
{

constexpr qint64 Megabyte = 1000 * 1000;
// A small document, and one of 100,000 records.
constexpr qint64 SmallSize = Megabyte;
constexpr qint64 LargeSize = 59 * Megabyte;

VLCommonCrypto &engine()
{
    static VLCommonCrypto shared(QStringLiteral("correct horse"));
    return shared;
}

void keyDerivation(benchmark::State &state)
{
    for (auto iteration : state) {
        (void)iteration;
        benchmark::DoNotOptimize(pbkdf2HmacSha1("correct horse", "saltsalt", VLCommonCrypto::RoundCount,
                                                VLCommonCrypto::KeySizeInBytes));
    }
}
BENCHMARK(keyDerivation)->Unit(benchmark::kMillisecond);

void keyDerivationOfTheLibrary(benchmark::State &state)
{
    unsigned char key[VLCommonCrypto::KeySizeInBytes];
    const auto *salt = reinterpret_cast<const unsigned char *>("saltsalt");
    for (auto iteration : state) {
        (void)iteration;
        PKCS5_PBKDF2_HMAC("correct horse", 13, salt, 8, VLCommonCrypto::RoundCount, EVP_sha1(), sizeof(key),
                          key);
        benchmark::DoNotOptimize(key);
    }
}
BENCHMARK(keyDerivationOfTheLibrary)->Unit(benchmark::kMillisecond);

// Complete calls of the engine, which derive the key and allocate the result.
void encipher(benchmark::State &state)
{
    const QByteArray plain(state.range(0), 'p');
    qint32 error = CipherSuccess;
    for (auto iteration : state) {
        (void)iteration;
        benchmark::DoNotOptimize(engine().encrypt(plain, &error));
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(encipher)->Arg(SmallSize)->Arg(LargeSize)->Unit(benchmark::kMillisecond);

void decipher(benchmark::State &state)
{
    qint32 error = CipherSuccess;
    const QByteArray cipher =
        engine().encrypt(QByteArray(state.range(0), 'p'), &error).value_or(QByteArray());
    for (auto iteration : state) {
        (void)iteration;
        benchmark::DoNotOptimize(engine().decrypt(cipher, &error));
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(decipher)->Arg(SmallSize)->Arg(LargeSize)->Unit(benchmark::kMillisecond);

// The limits for comparison: copying the same bytes into memory that is already in use, and into new memory.
void copyIntoOldMemory(benchmark::State &state)
{
    const QByteArray source(state.range(0), 'p');
    QByteArray target(state.range(0), 't');
    for (auto iteration : state) {
        (void)iteration;
        std::memcpy(target.data(), source.constData(), std::size_t(source.size()));
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(copyIntoOldMemory)->Arg(SmallSize)->Arg(LargeSize)->Unit(benchmark::kMillisecond);

void copyIntoNewMemory(benchmark::State &state)
{
    const QByteArray source(state.range(0), 'p');
    for (auto iteration : state) {
        (void)iteration;
        benchmark::DoNotOptimize(QByteArray(source.constData(), source.size()));
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(copyIntoNewMemory)->Arg(SmallSize)->Arg(LargeSize)->Unit(benchmark::kMillisecond);

} // namespace
