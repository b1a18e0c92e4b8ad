#pragma once

#include <QByteArray>

// Overwrites the bytes, unless another array shares them, and clears the array. For the bytes of passwords
// and for deciphered archives. The content that the user sees stays in memory anyway.
void wipe(QByteArray &bytes);

// Owns an array and wipes it in the destructor.
class SecretBytes
{
public:
    explicit SecretBytes(QByteArray bytes)
        : m_bytes(std::move(bytes))
    {
    }
    ~SecretBytes() { wipe(m_bytes); }
    SecretBytes(const SecretBytes &) = delete;
    SecretBytes &operator=(const SecretBytes &) = delete;

    const QByteArray &bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
};
