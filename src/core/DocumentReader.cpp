#include "core/DocumentReader.h"

#include "archive/KeyedArchive.h"
#include "core/FileLayout.h"

using Foundation::Dictionary;
using Foundation::Ref;
using Foundation::Value;

namespace
{

void loadPerFieldLayout(const Dictionary &root, DocumentState &state)
{
    // Such a file may have no captions, and must not keep those of an open document that is reverted to it.
    state.myLabelDictionary = defaultLabelDictionary();
    state.myEncryptedArray = root.value(FileKey::dataArray).array();
    state.myEncryptedCategoryArray = root.value(FileKey::categoryArray).array();
}

void loadLayoutA(const Dictionary &root, DocumentState &state, const Foundation::Clock &clock)
{
    state.myEncryptedDocumentCreationDateData = QByteArray();
    state.documentCreationDate = Value::date(clock.secondsSince2001());
    state.myEncriptedLabelDictionary = nullptr;
    loadPerFieldLayout(root, state);
}

void loadLayoutB(const Dictionary &root, DocumentState &state)
{
    state.myEncryptedDocumentCreationDateData = root.value(FileKey::crtnDt).dataValue();
    state.myEncriptedLabelDictionary = root.value(FileKey::labelDict).dictionary();
    loadPerFieldLayout(root, state);
}

void loadLayoutC(const Dictionary &root, DocumentState &state)
{
    state.myEncryptedArrayData = root.value(FileKey::dataArrayData).dataValue();
    state.myEncryptedCategoryArrayData = root.value(FileKey::catArrayData).dataValue();
    state.myEncriptedLabelDictionaryData = root.value(FileKey::labelDict).dataValue();
    state.myEncryptedDocumentCreationDateData = root.value(FileKey::documentCreationDateData).dataValue();
    state.mySalt = root.value(FileKey::salt).dataValue();
    state.myIV = root.value(FileKey::IV).dataValue();
    state.myRCDataEncrypted = root.value(FileKey::rc).dataValue();
    state.mySha1_RcData = root.value(FileKey::sha1_rc).dataValue();
    state.buffersBelongToCheckPair = true;
    state.YouCanSave = true;
}

void loadLayoutD(const Dictionary &root, DocumentState &state)
{
    loadLayoutC(root, state);
    const Ref<Dictionary> platform = root.value(FileKey::OSXPlatformDictionary).dictionary();
    if (!platform)
        return;
    state.useMyWinRect = true;
    // Required: reading drops the fractions of the frame.
    state.myWinRectToUse = {double(platform->value(PlatformKey::windowRecX).intValue()),
                            double(platform->value(PlatformKey::windowRecY).intValue()),
                            double(platform->value(PlatformKey::windowRecWidth).intValue()),
                            double(platform->value(PlatformKey::windowRecHeight).intValue())};
    state.makeToolbarVisibleAtDecrypt = platform->value(PlatformKey::makeToolbarVisibleAtDecrypt).boolValue();
}

} // namespace

Foundation::Result<void, ReadError> readDocument(const QByteArray &bytes, DocumentState &state,
                                                 const Foundation::Clock &clock)
{
    const auto archive = Foundation::unarchivedRoot(bytes);
    const Ref<Dictionary> root = archive ? archive->dictionary() : nullptr;
    if (!root)
        return Foundation::Failure{ReadError::NotADocument};
    state.YouCanSave = false;
    state.requiresMandatoryPassword = false; // The document has a password already.
    state.myOpeningDocumentVersion = root->value(FileKey::appversion).unsignedLongValue();
    // Required: printed as a signed number, although it is compared as an unsigned one.
    state.fileDocRelease = QString::number(qint64(state.myOpeningDocumentVersion));
    state.isEncrypted = true;
    state.makeToolbarVisibleAtDecrypt = true;

    const auto layout = fileLayoutOfVersion(state.myOpeningDocumentVersion);
    if (!layout)
        return Foundation::Failure{ReadError::NewerFormat};
    switch (*layout) {
    case FileLayout::A:
        loadLayoutA(*root, state, clock);
        break;
    case FileLayout::B:
        loadLayoutB(*root, state);
        break;
    case FileLayout::C:
        loadLayoutC(*root, state);
        break;
    case FileLayout::D:
        loadLayoutD(*root, state);
        break;
    }
    return {};
}
