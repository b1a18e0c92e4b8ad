#include "core/VLCrypto.h"

#include "support/Printers.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <openssl/err.h>
#include <openssl/evp.h>

namespace
{

using Memory = std::unique_ptr<unsigned char, decltype(&std::free)>;

VLCrypto engineFor(const QString &password)
{
    return VLCrypto(VLCrypto::DocumentVector.data(), password);
}

QByteArray enciphered(const QString &password, const QByteArray &plain)
{
    return engineFor(password).cryptData(plain).value_or(QByteArray("nothing"));
}

const unsigned char *bytesOf(const QByteArray &data)
{
    return reinterpret_cast<const unsigned char *>(data.constData());
}

// Made with: openssl enc -bf-cbc -provider legacy -K <16 bytes> -iv 5a13c72e914db608
const struct
{
    QString password, text;
    QByteArray cipher;
} knownAnswers[] = {
    {u"geheim7"_qs, u"Grüße"_qs, QByteArray::fromHex("c2b79e6750dc5246")},
    {u"12345678901234567890"_qs, u"x"_qs, QByteArray::fromHex("30bf88604785d665")},
    {u"a"_qs, u"12345678"_qs, QByteArray::fromHex("760753be240e9663e4be011923403c1d")},
};

TEST(VLCrypto, AgreesWithTheLibrarysOwnTool)
{
    for (const auto &c : knownAnswers) {
        SCOPED_TRACE(qPrintable(c.password));
        const VLCrypto engine = engineFor(c.password);
        quint32 code = 9;
        EXPECT_EQ(engine.cryptString(c.text), c.cipher);
        EXPECT_EQ(engine.decryptToString(c.cipher, &code), c.text);
        EXPECT_EQ(code, LegacySuccess);
    }
}

TEST(VLCrypto, ItsKeyIsSixteenBytesOfThePassword)
{
    const QByteArray plain("a field");
    const QString sixteen = u"abcdefghijklmnop"_qs;
    EXPECT_EQ(enciphered(sixteen + u"more"_qs, plain), enciphered(sixteen, plain));
    EXPECT_NE(enciphered(sixteen.left(15), plain), enciphered(sixteen, plain));
    quint32 code = 9;
    for (const QString &unencodable : {u"пароль"_qs, u"ş"_qs}) {
        VLCrypto engine = engineFor(unencodable);
        EXPECT_FALSE(engine.hasKey());
        EXPECT_EQ(engine.cryptData(plain), std::nullopt);
        EXPECT_EQ(engine.decryptToData(enciphered(sixteen, plain), &code), std::nullopt);
        EXPECT_EQ(code, LegacyFinalFailed);
        // A new password is another key.
        engine.setPassword(sixteen);
        EXPECT_EQ(engine.decryptToData(enciphered(sixteen, plain), &code), plain);
        engine.setPassword(u"another"_qs);
        EXPECT_NE(engine.decryptToData(enciphered(sixteen, plain), &code), plain);
    }
}

TEST(VLCrypto, IsReadyWithPasswordAndVectorAndEnciphersOnlyThen)
{
    VLCrypto engine;
    EXPECT_FALSE(engine.initVector());
    EXPECT_FALSE(engine.isReady());
    engine.setInitVector(VLCrypto::DocumentVector.data());
    EXPECT_EQ(engine.initVector(), VLCrypto::DocumentVector);
    EXPECT_FALSE(engine.isReady());
    EXPECT_EQ(engine.cryptLong(1), std::nullopt);
    engine.setPassword(u"secret"_qs);
    EXPECT_TRUE(engine.isReady());
    const QByteArray plain("eighteen bytes now");
    const QByteArray cipher = engine.cryptData(plain).value_or(QByteArray());
    EXPECT_EQ(engine.cryptData(QByteArray()), std::nullopt);
    engine.setInitVector(nullptr);
    EXPECT_FALSE(engine.isReady());
    // Deciphering never asks; without a vector the first block comes out otherwise.
    quint32 code = 9;
    const QByteArray otherwise = engine.decryptToData(cipher, &code).value_or(QByteArray());
    EXPECT_EQ(code, LegacySuccess);
    EXPECT_EQ(otherwise.mid(8), plain.mid(8));
    EXPECT_NE(otherwise, plain);
}

TEST(VLCrypto, ReadsNumbersOfFourAndEightBytes)
{
    const VLCrypto engine = engineFor(u"secret"_qs);
    quint32 code = 9;
    for (const qint64 number : {qint64(0), qint64(-1), qint64(12), qint64(1) << 40}) {
        EXPECT_EQ(engine.decryptToLong(*engine.cryptLong(number), &code), number);
        EXPECT_EQ(engine.decryptToLong(*engine.cryptLongToInt32(number), &code), qint32(number));
        EXPECT_EQ(code, LegacySuccess);
    }
    EXPECT_EQ(engine.decryptToLong(QByteArray(), &code), 0);
    EXPECT_EQ(engine.decryptToLong(*engine.cryptData("\1\2\3\4\5\6\7\10\11"), &code), 0x0807060504030201);
    EXPECT_EQ(engine.decryptToLong(*engine.cryptData("\5"), &code), 5);
    EXPECT_EQ(code, LegacySuccess);
}

TEST(VLCrypto, TellsEmptyFromBroken)
{
    const VLCrypto engine = engineFor(u"secret"_qs);
    const QByteArray cipher = *engine.cryptData("sixteen bytes it");
    quint32 code = 9;
    EXPECT_EQ(engine.decryptToString(QByteArray(), &code), u"");
    EXPECT_EQ(code, LegacySuccess);
    for (const QByteArray &broken : {cipher.chopped(1), cipher.chopped(8), QByteArray("short")}) {
        EXPECT_EQ(engine.decryptToString(broken, &code), std::nullopt);
        EXPECT_EQ(code, LegacyFinalFailed);
        EXPECT_EQ(engine.decryptToLong(broken, &code), 0);
    }
    EXPECT_EQ(ERR_peek_error(), 0U) << "nothing stays in the library's queue";
    EXPECT_EQ(engine.decryptToData(cipher, &code), QByteArray("sixteen bytes it"))
        << "and the engine goes on";
}

TEST(VLCrypto, WorksOverPlainMemory)
{
    const QByteArray plain("12345678");
    const unsigned char *vector = VLCrypto::DocumentVector.data();
    qint32 length = 9;
    quint32 code = 9;
    const Memory cipher(legacyEncryptBytes(bytesOf(plain), 8, bytesOf("a"), 1, vector, &length), &std::free);
    ASSERT_TRUE(cipher);
    EXPECT_EQ(QByteArray(reinterpret_cast<char *>(cipher.get()), length), knownAnswers[2].cipher);
    const Memory back(legacyDecryptBytes(cipher.get(), length, bytesOf("a"), 1, vector, &length, &code),
                      &std::free);
    ASSERT_TRUE(back);
    EXPECT_EQ(QByteArray(reinterpret_cast<char *>(back.get()), length), plain);
    EXPECT_EQ(code, LegacySuccess);

    EXPECT_EQ(legacyDecryptBytes(bytesOf(plain), -1, bytesOf("a"), 1, vector, &length, &code), nullptr);
    EXPECT_EQ(length, 0);
    EXPECT_EQ(code, LegacySuccess) << "no data is no failure";
}

TEST(VLCrypto, LeavesTheLibrarysOwnContextClean)
{
    enciphered(u"secret"_qs, "x");
    ERR_set_mark();
    EVP_CIPHER *const found = EVP_CIPHER_fetch(nullptr, "BF-CBC", nullptr);
    ERR_pop_to_mark();
    EXPECT_EQ(found, nullptr);
    EVP_CIPHER_free(found);
}

} // namespace
