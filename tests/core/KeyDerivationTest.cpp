#include "core/KeyDerivation.h"

#include "support/Printers.h"

#include <gtest/gtest.h>

#include <openssl/evp.h>
#include <random>

namespace
{

QByteArray libraryKey(const QByteArray &secret, const QByteArray &salt, int rounds, qsizetype length)
{
    QByteArray key(length, '\0');
    EXPECT_TRUE(PKCS5_PBKDF2_HMAC(
        secret.constData(), int(secret.size()), reinterpret_cast<const unsigned char *>(salt.constData()),
        int(salt.size()), rounds, EVP_sha1(), int(length), reinterpret_cast<unsigned char *>(key.data())));
    return key;
}

// A secret longer than the hash's 64-byte block is hashed first; zeros at its end tell hashing from padding.
TEST(KeyDerivation, AgreesWithTheLibrarysOwnDerivation)
{
    std::mt19937 random(20070809);
    const auto from = [&random](int lowest, int highest) {
        return std::uniform_int_distribution<int>(lowest, highest)(random);
    };
    const auto bytes = [&from](int count) {
        QByteArray drawn(count, '\0');
        for (char &byte : drawn)
            byte = char(from(0, 255));
        return drawn;
    };
    for (int i = 0; i < 500; ++i) {
        QByteArray secret = bytes(from(0, 150));
        if (i % 4 == 0)
            secret.fill('\0');
        const QByteArray salt = bytes(from(0, 100));
        const int rounds = from(1, 50);
        const int length = from(1, 100);
        ASSERT_EQ(pbkdf2HmacSha1(secret, salt, rounds, length), libraryKey(secret, salt, rounds, length))
            << "secret " << secret.toHex().constData() << " salt " << salt.toHex().constData() << " rounds "
            << rounds;
    }
    EXPECT_EQ(pbkdf2HmacSha1(QByteArray(), QByteArray(), 3, 32), libraryKey("", "", 3, 32));
    EXPECT_TRUE(pbkdf2HmacSha1("secret", "salt", 3, 0).isEmpty());
}

} // namespace
