#pragma once

#include "core/RecordModel.h"
#include "core/VLCommonCrypto.h"
#include "core/VLCrypto.h"
#include "values/Geometry.h"

#include <memory>

// The state of a document without its window: content, password, cipher engine and enciphered buffers. The
// pipelines of this folder work on it, so that they need no document object. A null byte array means that a
// buffer is absent.
//
// The arrays own their dictionaries. The `categoryPtr` of a record is the same object as in
// `myCategoryArray`. Deciphering replaces the arrays; all other changes are made by list controllers.
struct DocumentState
{
    Foundation::Ref<Foundation::Array> myArray = Foundation::Array::create();
    Foundation::Ref<Foundation::Array> myCategoryArray = Foundation::Array::create();
    Foundation::Ref<Foundation::Dictionary> myLabelDictionary = defaultLabelDictionary();
    Foundation::Value documentCreationDate; // a date, or Null if a file of an old release has no valid one

    bool isEncrypted = false; // the document is locked
    QString plainPassword = QStringLiteral("");
    bool YouCanSave = true; // the gate of SavePipeline: a save is allowed
    bool requiresMandatoryPassword = true;
    quint64 myOpeningDocumentVersion = 0;
    QString fileDocRelease; // the format number as text; null until a file is read

    // For documents up to release 30000. Gets the password each time the document is deciphered.
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
    // True if the four buffers were enciphered under the salt, vector and check pair above. False after a
    // locked document got a new password, and with it new ones.
    bool buffersBelongToCheckPair = true;

    // True if the last enciphering left a buffer empty because the reader would refuse its content.
    bool refusesOwnContent = false;

    // The content of old layouts, whose fields are enciphered separately.
    Foundation::Ref<Foundation::Array> myEncryptedArray = Foundation::Array::create();
    Foundation::Ref<Foundation::Array> myEncryptedCategoryArray;
    Foundation::Ref<Foundation::Dictionary> myEncriptedLabelDictionary;

    // Window frame and toolbar for the next save; null if the document has none.
    Foundation::Ref<Foundation::Dictionary> OSXPlatformDictionary;
    // Never written to a file.
    Foundation::Ref<Foundation::Dictionary> myiOSPlatformDictionary = Foundation::Dictionary::create();
    // Window frame and toolbar as they were read; applied when the document is unlocked.
    bool useMyWinRect = false;
    Foundation::Rect myWinRectToUse;
    bool makeToolbarVisibleAtDecrypt = false;
};
