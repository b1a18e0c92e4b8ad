#pragma once

#include "values/Result.h"

#include <QtGlobal>

// The result of MyDocument::Decript(): 0 after success, otherwise the reason why the document is still
// locked. Callers only distinguish 0 from the other values. The numbers are from three families:
//
// - VLCipherStatus, below 0: the cipher of documents from release 30100 on (VLCommonCrypto);
// - VLLegacyCode, 1 and 2: the cipher of older documents (VLCrypto);
// - the numbers below: the pipeline itself.
//
// Required: the numbers of the ciphers and the 1 for a wrong check value. The number 1 therefore has two
// meanings, but never for the same document, because old documents have no check value.
enum DecryptStatus : qint32 {
    DecryptSuccess = 0,
    DecryptWrongPassword = 1,   // the digest of the check value differs, or no password can be right
    DecryptDamagedContent = 3,  // the password is right, but the content is damaged
    DecryptUnreadableField = 4, // an entry of an old release is no enciphered field
};

// The code of a failure is the status. There are no words, because all failures have the same alert.
template <class Value = void>
using DecryptResult = Foundation::Result<Value, DecryptStatus>;

// Makes a failure from the status of a cipher.
inline Foundation::Failure<DecryptStatus> decryptFailure(qint32 cipherStatus)
{
    return {DecryptStatus(cipherStatus)};
}

inline qint32 statusOf(const DecryptResult<> &result)
{
    return result ? DecryptSuccess : result.failure().code;
}
