#pragma once

#include <QByteArray>
#include <QByteArrayView>

// PBKDF2 with HMAC-SHA1 (RFC 8018 section 5.2, RFC 2104, FIPS 180-4). Returns `length` bytes that depend only
// on the arguments. `rounds` must be at least 1. Secret and salt may have any length, also 0.
//
// Takes two SHA-1 blocks per round and about 200 bytes of memory for every 20 bytes of the result. Stores
// nothing between calls and wipes its buffers; the caller must wipe the returned key.
QByteArray pbkdf2HmacSha1(QByteArrayView secret, QByteArrayView salt, int rounds, qsizetype length);
