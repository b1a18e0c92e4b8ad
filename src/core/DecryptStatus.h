#pragma once

#include "values/Result.h"

#include <QtGlobal>

// Why a document stays locked, as MyDocument::Decript reports it: 0 is success, and callers only tell zero
// from the rest. The numbers come from three families:
//
// - VLCipherStatus, below 0: the cipher of documents from release 30100 on (VLCommonCrypto);
// - VLLegacyCode, 1 and 2: the cipher of older documents (VLCrypto);
// - those below, of the pipeline itself.
//
// The numbers of the ciphers and the 1 for a wrong check value are older than this program. The number 1
// therefore has two meanings, but never for one document: old documents have no check value.
enum DecryptStatus : qint32 {
    DecryptSuccess = 0,
    DecryptWrongPassword = 1,   // the digest of the check value differs, or nothing can decipher such a file
    DecryptDamagedContent = 3,  // behind a right password
    DecryptUnreadableField = 4, // of a file of an old release, and no enciphered field at all
};

// The code of a failure is the status, of whichever family. There are no words: all failures have the same
// alert.
template <class Value = void>
using DecryptResult = Foundation::Result<Value, DecryptStatus>;

// What a cipher reported, as a failure of the decryption.
inline Foundation::Failure<DecryptStatus> decryptFailure(qint32 cipherStatus)
{
    return {DecryptStatus(cipherStatus)};
}

inline qint32 statusOf(const DecryptResult<> &result)
{
    return result ? DecryptSuccess : result.failure().code;
}
