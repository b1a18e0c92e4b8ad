#include "core/SecretBytes.h"

#include <openssl/crypto.h>

void wipe(QByteArray &bytes)
{
    if (!bytes.isEmpty() && bytes.isDetached())
        OPENSSL_cleanse(bytes.data(), std::size_t(bytes.size()));
    bytes = QByteArray();
}
