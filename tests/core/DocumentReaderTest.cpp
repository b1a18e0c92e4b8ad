#include "archive/KeyedArchive.h"
#include "core/FileLayout.h"
#include "core/TestDocument.h"
#include "support/Printers.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{

using Foundation::Array;
using Foundation::Dictionary;
using Foundation::Ref;
using Foundation::Value;

// A root that has a value under every key of every layout: each buffer holds the name of its key.
QByteArray fileOfAllKeys(const Value &appversion)
{
    auto root = Dictionary::create();
    root->setValue(FileKey::appversion, appversion);
    for (const auto &key : {FileKey::dataArrayData, FileKey::catArrayData, FileKey::documentCreationDateData,
                            FileKey::salt, FileKey::IV, FileKey::rc, FileKey::sha1_rc, FileKey::crtnDt})
        root->setValue(key, key.name().toLatin1());
    root->setValue(FileKey::dataArray, Array::create({Value(u"records"_qs)}));
    root->setValue(FileKey::categoryArray, Array::create({Value(u"categories"_qs)}));
    // A dictionary wherever it is read as one.
    const bool perField = appversion.longValue() < 30100 && appversion.longValue() != 20303;
    root->setValue(FileKey::labelDict,
                   perField ? Value(Dictionary::create()) : Value(QByteArray("labelDict")));
    root->setValue(FileKey::OSXPlatformDictionary, SavePipeline::platformDictionary({{1, 2, 3, 4}, false}));
    return Foundation::archivedData(root);
}

void expectLockedFace(const DocumentState &state, qint64 version)
{
    EXPECT_TRUE(state.isEncrypted);
    EXPECT_FALSE(state.requiresMandatoryPassword);
    EXPECT_EQ(state.fileDocRelease, QString::number(version));
    EXPECT_EQ(state.myArray->count(), 0);
    EXPECT_EQ(state.myCommonCrypto, nullptr);
}

// The oldest release kept neither captions nor a date: it was made now.
TEST(DocumentReader, LoadsTheKeysOfReleasesThatEncipheredFields)
{
    const ManualClock clock(QDateTime(QDate(2011, 3, 1), QTime(12, 0), Qt::UTC));
    for (const qint64 version : {1000, 1100, 2000, 2010, 20100, 20200, 20300, 20301, 20302, 20400, 30000}) {
        SCOPED_TRACE(version);
        const TestDocument document = TestDocument::fromFile(fileOfAllKeys(Value(version)));
        const DocumentState &state = document.state;
        const bool isOldest = version == 1000;
        expectLockedFace(state, version);
        EXPECT_FALSE(state.YouCanSave);
        EXPECT_TRUE(state.makeToolbarVisibleAtDecrypt);
        EXPECT_EQ(state.documentCreationDate, isOldest ? Value::date(clock.secondsSince2001()) : Value());
        EXPECT_EQ(state.myEncryptedDocumentCreationDateData, isOldest ? QByteArray() : QByteArray("crtnDt"));
        EXPECT_EQ(state.myEncriptedLabelDictionary == nullptr, isOldest);
        EXPECT_EQ(state.myEncryptedArray->at(0).stringValue(), u"records"_qs);
        EXPECT_EQ(state.myEncryptedCategoryArray->at(0).stringValue(), u"categories"_qs);
        EXPECT_TRUE(state.mySalt.isNull());
    }
}

TEST(DocumentReader, LoadsTheKeysOfReleasesThatEncipherArchives)
{
    const std::tuple<qint64, bool> cases[] = {
        {30100, false}, {30200, false}, {30300, true}, {30302, true}, {20303, true}};
    for (const auto &[version, readsWindow] : cases) {
        SCOPED_TRACE(version);
        const TestDocument document = TestDocument::fromFile(fileOfAllKeys(Value(version)));
        const DocumentState &state = document.state;
        expectLockedFace(state, version);
        EXPECT_TRUE(state.YouCanSave);
        EXPECT_EQ(state.myEncryptedArrayData, "dataArrayData");
        EXPECT_EQ(state.myEncryptedCategoryArrayData, "catArrayData");
        EXPECT_EQ(state.myEncriptedLabelDictionaryData, "labelDict");
        EXPECT_EQ(state.myEncryptedDocumentCreationDateData, "documentCreationDateData");
        EXPECT_EQ(state.mySalt, "salt");
        EXPECT_EQ(state.myIV, "IV");
        EXPECT_EQ(state.myRCDataEncrypted, "rc");
        EXPECT_EQ(state.mySha1_RcData, "sha1-rc");
        EXPECT_EQ(state.useMyWinRect, readsWindow);
        EXPECT_EQ(state.makeToolbarVisibleAtDecrypt, !readsWindow);
        const Foundation::Rect frame = readsWindow ? Foundation::Rect{1, 2, 3, 4} : Foundation::Rect{};
        EXPECT_EQ(state.myWinRectToUse, frame);
        EXPECT_EQ(state.OSXPlatformDictionary, nullptr) << "what the next save writes is not what was read";
    }
}

TEST(DocumentReader, ReadsTheVersionAsAnUnsignedNumber)
{
    const std::tuple<const char *, Value, bool, const char *> cases[] = {
        {"none is 0", Value(), false, "0"},
        {"a real is cut", Value(30600.9), false, "30600"},
        {"a text is a number", u"30600"_qs, false, "30600"},
        {"data is none", QByteArray("30600"), false, "0"},
        {"one too new", Value(30601), true, "30601"},
        {"beyond 32 bits", Value(qint64(4294967296 + 30600)), true, "4294997896"},
        {"a negative number is a large one", Value(-5), true, "-5"},
        {"which reads with a sign", Value(std::numeric_limits<quint64>::max() - 4), true, "-5"},
    };
    for (const auto &[rule, appversion, isNewer, release] : cases) {
        SCOPED_TRACE(rule);
        DocumentState state;
        EXPECT_EQ(readDocument(fileOfAllKeys(appversion), state, Foundation::Services::shared().clock())
                      .failedWith(ReadError::NewerFormat),
                  isNewer);
        EXPECT_EQ(state.fileDocRelease, QLatin1String(release));
        EXPECT_EQ(state.YouCanSave, !isNewer);
        EXPECT_EQ(state.mySalt.isNull(), isNewer);
    }
}

TEST(DocumentReader, TakesValuesOfAWrongTypeForAbsent)
{
    const QByteArray file = fileOfAllKeys(Value(30600));
    for (const auto &key : {FileKey::dataArrayData, FileKey::salt, FileKey::OSXPlatformDictionary}) {
        SCOPED_TRACE(qPrintable(key.name()));
        for (const Value &wrong : {Value(7), Value(u"text"_qs), Value(Array::create())}) {
            DocumentState state;
            EXPECT_TRUE(
                readDocument(withKey(file, key, wrong), state, Foundation::Services::shared().clock()));
            EXPECT_EQ(state.myEncryptedArrayData.isNull(), key == FileKey::dataArrayData);
            EXPECT_EQ(state.mySalt.isNull(), key == FileKey::salt);
            EXPECT_EQ(state.useMyWinRect, key != FileKey::OSXPlatformDictionary);
        }
    }
}

TEST(DocumentReader, LeavesTheStateAloneForBytesThatAreNoDocument)
{
    const QByteArray file = fileOfAllKeys(Value(30600));
    QList<QByteArray> cases{QByteArray(), "bplist00", "no archive", Foundation::archivedData(Array::create()),
                            Foundation::archivedData(Value())};
    for (qsizetype size = 1; size < file.size(); size += 7)
        cases.append(file.first(size));
    for (const QByteArray &bytes : cases) {
        SCOPED_TRACE(bytes.size());
        TestDocument document = TestDocument::filled();
        EXPECT_TRUE(readDocument(bytes, document.state, Foundation::Services::shared().clock())
                        .failedWith(ReadError::NotADocument));
        EXPECT_FALSE(document.state.isEncrypted);
        EXPECT_TRUE(document.state.YouCanSave);
        EXPECT_TRUE(document.state.requiresMandatoryPassword);
        EXPECT_TRUE(document.state.fileDocRelease.isNull());
    }
}

} // namespace
