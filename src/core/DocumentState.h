#pragma once

#include "core/RecordModel.h"
#include "core/VLCommonCrypto.h"
#include "core/VLCrypto.h"
#include "values/Geometry.h"

#include <memory>

// All that a document holds apart from its window: content, password, cipher engine and enciphered buffers.
// The pipelines of this folder work on it, so that password and content go in and bytes come out without any
// document object. A null byte array stands for an absent buffer.
//
// The arrays own their dictionaries; a record's `categoryPtr` is the very dictionary that stands in
// `myCategoryArray`. Arrays are replaced whole by a decryption and otherwise changed by list controllers.
struct DocumentState
{
    Foundation::Ref<Foundation::Array> myArray = Foundation::Array::create();
    Foundation::Ref<Foundation::Array> myCategoryArray = Foundation::Array::create();
    Foundation::Ref<Foundation::Dictionary> myLabelDictionary = defaultLabelDictionary();
    Foundation::Value documentCreationDate; // a date, or Null where a file of an old release lost it

    bool isEncrypted = false; // the document shows its locked face
    QString plainPassword = QStringLiteral("");
    bool YouCanSave = true; // all that a current file needs is in memory
    bool requiresMandatoryPassword = true;
    quint64 myOpeningDocumentVersion = 0;
    QString fileDocRelease; // null until a file is read

    // Of documents up to release 30000; gets the password at each decryption.
    VLCrypto myCryptoEngine{VLCrypto::DocumentVector.data()};
    std::unique_ptr<VLCommonCrypto> myCommonCrypto;
    QByteArray mySalt;
    QByteArray myIV;
    QByteArray myRCDataEncrypted;
    QByteArray mySha1_RcData;
    QByteArray myEncryptedArrayData;
    QByteArray myEncryptedCategoryArrayData;
    QByteArray myEncriptedLabelDictionaryData;
    QByteArray myEncryptedDocumentCreationDateData;
    // The four buffers were made under the salt, vector and check pair above. False once a locked document
    // got new ones that its buffers do not know.
    bool buffersBelongToCheckPair = true;

    // The last enciphering left a buffer out since no reader would take the content that belongs there.
    bool refusesOwnContent = false;

    // Old layouts, whose fields are enciphered one by one.
    Foundation::Ref<Foundation::Array> myEncryptedArray = Foundation::Array::create();
    Foundation::Ref<Foundation::Array> myEncryptedCategoryArray;
    Foundation::Ref<Foundation::Dictionary> myEncriptedLabelDictionary;

    // Window frame and toolbar as the next save writes them; null when the document has none.
    Foundation::Ref<Foundation::Dictionary> OSXPlatformDictionary;
    // Never reaches a file.
    Foundation::Ref<Foundation::Dictionary> myiOSPlatformDictionary = Foundation::Dictionary::create();
    // The same as it was read, applied once the document is open.
    bool useMyWinRect = false;
    Foundation::Rect myWinRectToUse;
    bool makeToolbarVisibleAtDecrypt = false;
};
