#pragma once

#include "core/DocumentState.h"

// The prescribed accessors of the stored properties of a document, over its DocumentState. A setter sends no
// notification; properties that a window shows are set through MyDocument. Most setters, and the arrays for
// export, import and people, are prescribed and have no caller yet.
class DocumentProperties
{
public:
    using Array = Foundation::Array;
    using Dictionary = Foundation::Dictionary;
    template <class T>
    using Ref = Foundation::Ref<T>;

    // A date, or Null if a file of an old release has no valid one.
    const Foundation::Value &documentCreationDate() const { return m_properties.documentCreationDate; }
    void setDocumentCreationDate(const Foundation::Value &date) { m_properties.documentCreationDate = date; }

    bool YouCanSave() const { return m_properties.YouCanSave; }
    void setYouCanSave(bool canSave) { m_properties.YouCanSave = canSave; }
    bool requiresMandatoryPassword() const { return m_properties.requiresMandatoryPassword; }
    void setRequiresMandatoryPassword(bool required) { m_properties.requiresMandatoryPassword = required; }
    quint64 myOpeningDocumentVersion() const { return m_properties.myOpeningDocumentVersion; }
    void setMyOpeningDocumentVersion(quint64 version) { m_properties.myOpeningDocumentVersion = version; }
    const QString &fileDocRelease() const { return m_properties.fileDocRelease; }
    void setFileDocRelease(const QString &release) { m_properties.fileDocRelease = release; }

    VLCrypto &myCryptoEngine() const { return m_properties.myCryptoEngine; }
    // Null before the document was saved or deciphered for the first time.
    VLCommonCrypto *myCommonCrypto() const { return m_properties.myCommonCrypto.get(); }
    void setMyCommonCrypto(std::unique_ptr<VLCommonCrypto> engine)
    {
        m_properties.myCommonCrypto = std::move(engine);
    }
    const QByteArray &mySalt() const { return m_properties.mySalt; }
    void setMySalt(const QByteArray &salt) { m_properties.mySalt = salt; }
    const QByteArray &myIV() const { return m_properties.myIV; }
    void setMyIV(const QByteArray &iv) { m_properties.myIV = iv; }
    const QByteArray &myRCDataEncrypted() const { return m_properties.myRCDataEncrypted; }
    void setMyRCDataEncrypted(const QByteArray &data) { m_properties.myRCDataEncrypted = data; }
    const QByteArray &mySha1_RcData() const { return m_properties.mySha1_RcData; }
    void setMySha1_RcData(const QByteArray &digest) { m_properties.mySha1_RcData = digest; }

    const QByteArray &myEncryptedArrayData() const { return m_properties.myEncryptedArrayData; }
    void setMyEncryptedArrayData(const QByteArray &data) { m_properties.myEncryptedArrayData = data; }
    const QByteArray &myEncryptedCategoryArrayData() const
    {
        return m_properties.myEncryptedCategoryArrayData;
    }
    void setMyEncryptedCategoryArrayData(const QByteArray &data)
    {
        m_properties.myEncryptedCategoryArrayData = data;
    }
    const QByteArray &myEncriptedLabelDictionaryData() const
    {
        return m_properties.myEncriptedLabelDictionaryData;
    }
    void setMyEncriptedLabelDictionaryData(const QByteArray &data)
    {
        m_properties.myEncriptedLabelDictionaryData = data;
    }
    const QByteArray &myEncryptedDocumentCreationDateData() const
    {
        return m_properties.myEncryptedDocumentCreationDateData;
    }
    void setMyEncryptedDocumentCreationDateData(const QByteArray &data)
    {
        m_properties.myEncryptedDocumentCreationDateData = data;
    }
    const Ref<Array> &myEncryptedArray() const { return m_properties.myEncryptedArray; }
    void setMyEncryptedArray(const Ref<Array> &records) { m_properties.myEncryptedArray = records; }
    const Ref<Array> &myEncryptedCategoryArray() const { return m_properties.myEncryptedCategoryArray; }
    void setMyEncryptedCategoryArray(const Ref<Array> &categories)
    {
        m_properties.myEncryptedCategoryArray = categories;
    }
    const Ref<Dictionary> &myEncriptedLabelDictionary() const
    {
        return m_properties.myEncriptedLabelDictionary;
    }
    void setMyEncriptedLabelDictionary(const Ref<Dictionary> &labels)
    {
        m_properties.myEncriptedLabelDictionary = labels;
    }

    const Ref<Dictionary> &OSXPlatformDictionary() const { return m_properties.OSXPlatformDictionary; }
    void setOSXPlatformDictionary(const Ref<Dictionary> &platform)
    {
        m_properties.OSXPlatformDictionary = platform;
    }
    // Never written to a file.
    const Ref<Dictionary> &myiOSPlatformDictionary() const { return m_properties.myiOSPlatformDictionary; }
    void setMyiOSPlatformDictionary(const Ref<Dictionary> &platform)
    {
        m_properties.myiOSPlatformDictionary = platform;
    }
    bool useMyWinRect() const { return m_properties.useMyWinRect; }
    void setUseMyWinRect(bool use) { m_properties.useMyWinRect = use; }
    const Foundation::Rect &myWinRectToUse() const { return m_properties.myWinRectToUse; }
    void setMyWinRectToUse(const Foundation::Rect &frame) { m_properties.myWinRectToUse = frame; }
    bool makeToolbarVisibleAtDecrypt() const { return m_properties.makeToolbarVisibleAtDecrypt; }
    void setMakeToolbarVisibleAtDecrypt(bool visible) { m_properties.makeToolbarVisibleAtDecrypt = visible; }

    // Prescribed; no caller yet.
    bool usageCountDirtyFlag() const { return m_usageCountDirtyFlag; }
    void setUsageCountDirtyFlag(bool isDirty) { m_usageCountDirtyFlag = isDirty; }

    const Ref<Array> &arrayForExport() const { return m_arrayForExport; }
    void setArrayForExport(const Ref<Array> &table) { m_arrayForExport = table; }
    const Ref<Array> &arrayForImport() const { return m_arrayForImport; }
    void setArrayForImport(const Ref<Array> &table) { m_arrayForImport = table; }
    const Ref<Array> &abPeopleArray() const { return m_abPeopleArray; }
    void setAbPeopleArray(const Ref<Array> &people) { m_abPeopleArray = people; }

protected:
    // `state` belongs to the document and must outlive this object.
    explicit DocumentProperties(DocumentState &state)
        : m_properties(state)
    {
    }
    ~DocumentProperties() = default;

private:
    DocumentState &m_properties;
    Ref<Array> m_arrayForExport = newArrayForExport();
    Ref<Array> m_arrayForImport = newArrayForImport();
    Ref<Array> m_abPeopleArray = Array::create();
    bool m_usageCountDirtyFlag = false;
};
