#pragma once

#include <QByteArray>
#include <QByteArrayView>

// PBKDF2 with HMAC-SHA1 (RFC 8018 section 5.2, RFC 2104, FIPS 180-4): `length` bytes that follow from secret
// and salt alone. `rounds` must be at least 1. Secret and salt may be empty or of any length.
//
// Costs two SHA-1 blocks per round for every 20 bytes begun, and some 200 bytes of memory for each of those.
// Remembers nothing between calls and wipes its buffers; the returned key is the caller's to guard.
QByteArray pbkdf2HmacSha1(QByteArrayView secret, QByteArrayView salt, int rounds, qsizetype length);
