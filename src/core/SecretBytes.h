#pragma once

#include <QByteArray>

// Overwrites the bytes, if nobody else shares them, and empties the array. For passwords' bytes and plain
// archives on their way; what the user sees on the screen stays in memory anyway.
void wipe(QByteArray &bytes);

// Wipes an array at the end of a scope.
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
