#include "core/VLCommonCrypto.h"

#include "helpers/RandomNumbers.h"
#include "support/Printers.h"

#include <gtest/gtest.h>

#include <QFile>

#include <cstdlib>
#include <openssl/err.h>

namespace
{

const QByteArray Salt = QByteArray::fromHex("0102030405060708");
const QByteArray Vector = QByteArray::fromHex("101112131415161718191a1b1c1d1e1f");

VLCommonCrypto engineFor(const QString &password, const QByteArray &vector = Vector,
                         const QByteArray &salt = Salt)
{
    VLCommonCrypto engine;
    engine.setPasswordToDecrypt(password, vector, salt);
    return engine;
}

QByteArray enciphered(VLCommonCrypto &engine, const QByteArray &plain)
{
    qint32 error = 1;
    const std::optional<QByteArray> cipher = engine.encrypt(plain, &error);
    EXPECT_EQ(error, CipherSuccess);
    QByteArray inPlace = plain;
    EXPECT_TRUE(engine.encryptInPlace(inPlace));
    EXPECT_EQ(inPlace, cipher);
    return cipher.value_or(QByteArray());
}

// The status of an attempt that gives nothing.
qint32 failureOfDeciphering(VLCommonCrypto &engine, const QByteArray &cipher)
{
    qint32 error = 1;
    EXPECT_EQ(engine.decrypt(cipher, &error), std::nullopt);
    return error;
}
qint32 failureOfEnciphering(VLCommonCrypto &engine)
{
    qint32 error = 1;
    QByteArray inPlace = "contacts";
    EXPECT_EQ(engine.encrypt("contacts", &error), std::nullopt);
    EXPECT_TRUE(engine.encryptInPlace(inPlace).failedWith(VLCipherStatus(error)));
    return error;
}

// A random source that hands out counted bytes, or nothing once told to fail, and remembers what it was asked
// for.
class ScriptedRandomSource
{
public:
    ScriptedRandomSource()
    {
        draws = 0;
        fails = false;
        VLCommonCrypto::setRandomSource(&draw);
    }
    ~ScriptedRandomSource() { VLCommonCrypto::setRandomSource(nullptr); }

    static inline bool fails = false;

private:
    static inline char draws = 0;

    static std::optional<QByteArray> draw(quint64 length)
    {
        ++draws;
        if (fails)
            return std::nullopt;
        return QByteArray(qsizetype(length), draws);
    }
};

TEST(VLCommonCrypto, GivesTheBytesOfOtherPrograms)
{
    QFile vectors(QStringLiteral(VEXAREL_TEST_DATA "/cipher-vectors.txt"));
    ASSERT_TRUE(vectors.open(QIODevice::ReadOnly));
    int checked = 0;
    while (!vectors.atEnd()) {
        const QByteArray line = vectors.readLine().trimmed();
        const QList<QByteArray> columns = line.split(' ');
        if (line.startsWith('#') || columns.size() != 6)
            continue;
        ++checked;
        SCOPED_TRACE(line.left(120).constData());
        QByteArray plain(columns[3].toLongLong(), '\0');
        for (qsizetype i = 0; i < plain.size(); ++i)
            plain[i] = char((7 * i + 3) % 251);
        VLCommonCrypto engine = engineFor(QString::fromUtf8(QByteArray::fromHex(columns[0])),
                                          QByteArray::fromHex(columns[2]), QByteArray::fromHex(columns[1]));
        const QByteArray cipher = enciphered(engine, plain);
        EXPECT_EQ(engine.AESKey(), QByteArray::fromHex(columns[4]));
        if (columns[5].startsWith("sha1:"))
            EXPECT_EQ("sha1:" + VLCommonCrypto::dataSHA1(cipher).value_or(QByteArray()).toHex(), columns[5]);
        else
            EXPECT_EQ(cipher.toHex(), columns[5]);
        qint32 error = 1;
        const std::optional<QByteArray> back = engine.decrypt(cipher, &error);
        EXPECT_EQ(error, CipherSuccess);
        EXPECT_TRUE(back == plain);
        EXPECT_FALSE(back && back->isNull()) << "empty is not nothing";
    }
    EXPECT_EQ(checked, 31);
}

// What the known answers leave open.
TEST(VLCommonCrypto, CutsTheSecretToTheUnitsOfThePassword)
{
    const std::tuple<const char *, QString, QString, bool> cases[] = {
        {"a letter may be cut within", u"aé"_qs, u"aê"_qs, true},
        {"a NUL doesn't end it", QString(QLatin1String("a\0b", 3)), QString(QLatin1String("a\0c", 3)), false},
        {"half a pair alone is a question mark", QString(QChar(0xD83D)), u"?"_qs, true},
        {"none is the same as empty", QString(), u""_qs, true},
    };
    for (const auto &[rule, one, other, sameKey] : cases)
        EXPECT_EQ(VLCommonCrypto::AESKeyForPassword(one, Salt) ==
                      VLCommonCrypto::AESKeyForPassword(other, Salt),
                  sameKey)
            << rule;
}

TEST(VLCommonCrypto, DerivesTheKeyAnewInEveryCall)
{
    VLCommonCrypto engine(u"other"_qs);
    const QByteArray keyBefore = engine.AESKey();
    engine.setPasswordToDecrypt(u"secret"_qs, Vector, Salt);
    EXPECT_EQ(engine.AESKey(), keyBefore); // Stale until the next call.
    const QByteArray key = VLCommonCrypto::AESKeyForPassword(u"secret"_qs, Salt);
    const QByteArray cipher = enciphered(engine, "contacts");
    for (const QByteArray &set : {QByteArray(32, 'k'), QByteArray()}) {
        engine.setAESKey(set);
        EXPECT_EQ(enciphered(engine, "contacts"), cipher);
        EXPECT_EQ(engine.AESKey(), key);
    }
    // A key in the call is ignored as well, even one that is far too short.
    quint32 padding = CipherPKCS7Padding;
    EXPECT_EQ(engine.encrypt("contacts", QByteArray(32, 'k'), &padding), cipher);
    EXPECT_EQ(engine.decrypt(cipher, QByteArray("k"), &padding), QByteArray("contacts"));
    engine.setPassword(u"changed"_qs);
    EXPECT_NE(enciphered(engine, "contacts"), cipher);
}

TEST(VLCommonCrypto, RefusesWhatIsCutOrDoesNotBelongTogether)
{
    VLCommonCrypto engine = engineFor(u"secret"_qs);
    const QByteArray cipher = enciphered(engine, QByteArray(40, 'A'));
    ASSERT_EQ(cipher.size(), 48);
    for (qsizetype length = 0; length < cipher.size(); ++length)
        EXPECT_EQ(failureOfDeciphering(engine, cipher.left(length)),
                  length % 16 == 0 ? CipherDecodeError : CipherAlignmentError)
            << length;
    EXPECT_EQ(ERR_peek_error(), 0u); // Nothing is left for the next user of the library.

    for (const QByteArray &vector : {QByteArray(), Vector.left(15)}) {
        SCOPED_TRACE(vector.size());
        engine.setIV(vector);
        EXPECT_EQ(failureOfEnciphering(engine), CipherParameterError);
        EXPECT_EQ(failureOfDeciphering(engine, cipher), CipherParameterError);
    }
    engine.setIV(Vector + "more");
    EXPECT_EQ(enciphered(engine, QByteArray(40, 'A')), cipher);

    const std::pair<QString, QByteArray> others[] = {{u"Secret"_qs, Salt}, {u"secret"_qs, Salt.left(4)}};
    for (const auto &[password, salt] : others) {
        engine.setPasswordToDecrypt(password, Vector, salt);
        EXPECT_EQ(failureOfDeciphering(engine, cipher), CipherDecodeError) << qPrintable(password);
    }
}

TEST(VLCommonCrypto, ObeysTheOptionWord)
{
    VLCommonCrypto engine = engineFor(u"secret"_qs, QByteArray(16, '\0'));
    const QByteArray cipher = enciphered(engine, "contacts");
    for (const quint32 word : {0u, 1u, 3u, 4u, 0xFFFFFFFFu}) {
        quint32 padding = word;
        EXPECT_EQ(engine.encrypt("contacts", QByteArray(), &padding), cipher) << word;
        EXPECT_EQ(padding, 1u) << "it is settled when enciphering";
    }
    // Deciphering takes it as given; one block under a vector of zeros needs no chain.
    for (quint32 padding : {0u, 1u, 2u, 3u})
        EXPECT_EQ(engine.decrypt(cipher, QByteArray(), &padding)->size(),
                  padding & CipherPKCS7Padding ? 8 : 16);
    // Word two neither chains nor pads. Chaining begins by adding the vector, so with zeros its first block
    // is the bare cipher's.
    const QByteArray block = "sixteen letters!";
    const QByteArray bareBlock = enciphered(engine, block).left(16);
    quint32 padding = CipherECBMode;
    qint32 error = 1;
    engine.setIV(QByteArray());
    EXPECT_EQ(engine.doCipher(block + block, {}, CipherEncrypt, &padding, &error), bareBlock + bareBlock);
    EXPECT_EQ(engine.doCipher(bareBlock + bareBlock, {}, CipherDecrypt, &padding, &error), block + block);
    EXPECT_EQ(engine.doCipher(block.left(15), {}, CipherEncrypt, &padding, &error), std::nullopt);
    EXPECT_EQ(error, CipherAlignmentError);
    constexpr auto UnknownOperation = 2;
    EXPECT_EQ(engine.doCipher(block, {}, UnknownOperation, &padding, &error), std::nullopt);
    EXPECT_EQ(error, CipherParameterError);
}

TEST(VLCommonCrypto, MakesVectorThenSaltThenKey)
{
    const ScriptedRandomSource source;
    VLCommonCrypto engine(u"secret"_qs);
    char draws = 0;
    const auto expectRenewed = [&](const QString &password) {
        EXPECT_EQ(engine.password(), password);
        EXPECT_EQ(engine.IV(), QByteArray(16, ++draws));
        EXPECT_EQ(engine.salt(), QByteArray(8, ++draws));
        EXPECT_EQ(engine.AESKey(), VLCommonCrypto::AESKeyForPassword(password, engine.salt()));
    };
    expectRenewed(u"secret"_qs);
    engine.recalcIV_Salt_AESKey();
    expectRenewed(u"secret"_qs);
    engine.setPasswordToEncrypt(u"changed"_qs);
    expectRenewed(u"changed"_qs);
}

TEST(VLCommonCrypto, GoesOnWithNothingWhenTheRandomSourceFails)
{
    ScriptedRandomSource source;
    VLCommonCrypto engine(u"secret"_qs);
    source.fails = true;
    EXPECT_EQ(VLCommonCrypto::randomDataOfLength(8), std::nullopt);
    engine.recalcIV_Salt_AESKey();
    EXPECT_TRUE(engine.IV().isNull());
    EXPECT_TRUE(engine.salt().isNull());
    EXPECT_EQ(engine.AESKey(), VLCommonCrypto::AESKeyForPassword(u"secret"_qs, QByteArray("")));
    EXPECT_EQ(failureOfEnciphering(engine), CipherParameterError);
}

TEST(VLCommonCrypto, CheckStringFollowsThePlainGenerator)
{
    randomLongInRange(0, 0); // Takes the one seeding from the clock.
    srandom(7);
    const QString text = VLCommonCrypto::generateRandom256AsciiString();
    ASSERT_EQ(text.size(), 256);
    srandom(7);
    for (const QChar character : text)
        ASSERT_EQ(character.unicode(), 1 + random() % 255);
}

} // namespace
