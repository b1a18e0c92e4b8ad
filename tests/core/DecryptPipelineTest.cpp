#include "core/DecryptPipeline.h"

#include "archive/KeyedArchive.h"
#include "core/FileLayout.h"
#include "core/TestDocument.h"
#include "support/Printers.h"

#include <gtest/gtest.h>

namespace
{

using namespace Foundation;

const QString WrongPassword = u"correct horsf"_qs;

// Which of the four buffers are gone: r(ecords), c(ategories), l(abels), d(ate).
std::string consumedBuffers(const DocumentState &state)
{
    const QByteArray *const buffers[] = {&state.myEncryptedArrayData, &state.myEncryptedCategoryArrayData,
                                         &state.myEncriptedLabelDictionaryData,
                                         &state.myEncryptedDocumentCreationDateData};
    std::string gone;
    for (std::size_t i = 0; i < std::size(buffers); ++i)
        gone += buffers[i]->isNull() ? std::string(1, "rcld"[i]) : "";
    return gone;
}

// A saved document whose third label differs from the default ones, to tell whether labels were replaced.
QByteArray savedWithOwnLabel()
{
    TestDocument document = TestDocument::filled();
    document.state.myLabelDictionary->setValue(u"company", u"Firm:"_qs);
    return document.save();
}

bool hasOwnLabel(const TestDocument &document)
{
    return document.state.myLabelDictionary->value(u"company").stringValue() == u"Firm:"_qs;
}

TEST(DecryptPipeline, AWrongPasswordLeavesAllButTheEngineAsItWas)
{
    TestDocument document = TestDocument::fromFile(savedWithOwnLabel());
    const QByteArray salt = document.state.mySalt;
    for (int attempt = 0; attempt < 3; ++attempt) {
        EXPECT_NE(document.openWith(WrongPassword), 0);
        EXPECT_EQ(consumedBuffers(document.state), "");
        EXPECT_EQ(document.state.mySalt, salt);
        EXPECT_EQ(document.state.myCommonCrypto->password(), WrongPassword);
        EXPECT_EQ(document.state.plainPassword, WrongPassword);
        EXPECT_TRUE(document.state.isEncrypted);
        EXPECT_FALSE(hasOwnLabel(document) || document.hasReplacedLabels);
    }
    EXPECT_EQ(document.openWith(Password), 0);
    EXPECT_EQ(consumedBuffers(document.state), "rcd") << "the labels' buffer stays";
    EXPECT_EQ(document.filing(), u"Generic 2: Ada Grace, Friends 1: Emmy"_qs);
    EXPECT_TRUE(hasOwnLabel(document) && document.hasReplacedLabels);
}

// An archive of the right shape but with a wrong thing in it, for each buffer.
QByteArray archiveOfWrongType(const Key &buffer)
{
    if (buffer == FileKey::dataArrayData || buffer == FileKey::catArrayData)
        return archivedData(Array::create({Value(Dictionary::create()), Value(1)}));
    if (buffer == FileKey::labelDict)
        return archivedData(Array::create());
    return archivedData(u"2001-01-01"_qs);
}

bool mayBeLost(const Key &buffer)
{
    return buffer == FileKey::labelDict || buffer == FileKey::documentCreationDateData;
}

TEST(DecryptPipeline, ADocumentMayHaveNoCaptionsAtAll)
{
    const QByteArray file =
        withPlainBuffer(TestDocument::filled().save(), FileKey::labelDict, archivedData(Value()));
    for (const qint64 version : {30600, 30300}) {
        TestDocument document = TestDocument::fromFile(withKey(file, FileKey::appversion, Value(version)));
        ASSERT_EQ(document.openWith(Password), 0) << version;
        EXPECT_EQ(document.state.myLabelDictionary->count(), 0) << version;
    }
}

TEST(DecryptPipeline, DamageBehindARightPasswordFailsHalfWay)
{
    const struct
    {
        Key damaged;
        const char *consumed;
        bool labelsReplaced;
    } cases[] = {
        {FileKey::dataArrayData, "", false},
        {FileKey::catArrayData, "r", false},
        {FileKey::labelDict, "rc", false},
        {FileKey::documentCreationDateData, "rc", true},
    };
    const QByteArray file = savedWithOwnLabel();
    for (const auto &c : cases) {
        SCOPED_TRACE(qPrintable(c.damaged.name()));
        const QByteArray cut = rootOf(file)->value(c.damaged).dataValue().chopped(1);
        const QByteArray damages[] = {
            withKey(file, c.damaged, cut),
            withPlainBuffer(file, c.damaged, "no archive"),
            withPlainBuffer(file, c.damaged, archiveOfWrongType(c.damaged)),
            // Captions and the creation date may be lost, nothing else may.
            withPlainBuffer(file, c.damaged, archivedData(mayBeLost(c.damaged) ? Value(1.5) : Value())),
        };
        for (std::size_t kind = 0; kind < std::size(damages); ++kind) {
            SCOPED_TRACE(kind);
            TestDocument document = TestDocument::fromFile(damages[kind]);
            document.state.documentCreationDate = Value::date(1);
            EXPECT_NE(document.openWith(Password), 0);
            EXPECT_EQ(consumedBuffers(document.state), c.consumed);
            EXPECT_EQ(hasOwnLabel(document), c.labelsReplaced);
            EXPECT_EQ(document.hasReplacedLabels, c.labelsReplaced);
            EXPECT_EQ(document.state.documentCreationDate, Value::date(1));
            EXPECT_EQ(document.state.myArray->count(), 0);
            EXPECT_EQ(document.state.myCategoryArray->count(), 0);
            EXPECT_EQ(document.defaultCategoriesMade, 0);
            // The consumed buffers are lost to this document: what it would save now must not be written.
            EXPECT_NE(document.openWith(Password), 0);
            document.save();
            EXPECT_EQ(SavePipeline::canBeRead(document.state).succeeded(),
                      c.damaged == FileKey::dataArrayData);
        }
    }
}

// The digest of nothing is a value like any other: an absent check pair opens no document.
TEST(DecryptPipeline, AnAbsentOrBrokenCheckPairNeverMatches)
{
    const QByteArray file = TestDocument::filled().save();
    const QByteArray digestOfNothing = QByteArray::fromHex("da39a3ee5e6b4b0d3255bfef95601890afd80709");
    const QByteArray withoutValue = withKey(file, FileKey::rc, Value());
    const std::tuple<const char *, QByteArray, bool> cases[] = {
        {"whole", file, true},
        {"no digest", withKey(file, FileKey::sha1_rc, Value()), false},
        {"no value, digest of nothing", withKey(withoutValue, FileKey::sha1_rc, digestOfNothing), false},
        {"empty value, digest of nothing",
         withKey(withKey(file, FileKey::rc, QByteArray("")), FileKey::sha1_rc, digestOfNothing), false},
        {"a value that is enciphered nothing is one",
         withKey(withPlainBuffer(file, FileKey::rc, QByteArray("")), FileKey::sha1_rc, digestOfNothing),
         true},
        {"no salt", withKey(file, FileKey::salt, Value()), false},
        {"no vector", withKey(file, FileKey::IV, Value()), false},
        {"a version without engine", withKey(file, FileKey::appversion, Value(20303)), false},
    };
    for (const auto &[rule, tried, opens] : cases)
        EXPECT_EQ(TestDocument::fromFile(tried).openWith(Password) == 0, opens) << rule;
}

TEST(DecryptPipeline, ResetsTheFlagsOfTheReleasesThatLeftThemOut)
{
    TestDocument saved = TestDocument::filled();
    saved.state.myLabelDictionary->setValue(u"company", u"Firm:"_qs);
    saved.state.myLabelDictionary->setValue(u"open01", Value(true));
    saved.state.myLabelDictionary->setValue(u"open14", Value());
    const QByteArray file = saved.save();
    const std::tuple<qint32, bool> cases[] = {{30100, true}, {30101, false}, {30200, true}, {30300, true},
                                              {30301, true}, {30302, false}, {30600, false}};
    for (const auto &[version, resets] : cases) {
        SCOPED_TRACE(version);
        TestDocument document = TestDocument::fromFile(withKey(file, FileKey::appversion, Value(version)));
        ASSERT_EQ(document.openWith(Password), 0);
        const auto &labels = document.state.myLabelDictionary;
        EXPECT_EQ(labels->value(u"open01"), Value(!resets));
        EXPECT_EQ(labels->contains(Key(u"open14")), resets);
        EXPECT_TRUE(hasOwnLabel(document)) << "captions are left alone";

        // A lock makes current buffers, whatever the file was.
        labels->setValue(u"open01", Value(true));
        document.lock();
        EXPECT_EQ(document.state.myOpeningDocumentVersion, 30600U);
        ASSERT_EQ(document.openWith(Password), 0);
        EXPECT_EQ(document.state.myLabelDictionary->value(u"open01"), Value(true));
    }
}

// Categories A, B … and records 0, 1 … of these ids, linked.
TestDocument restored(const std::vector<Value> &recordIds, const std::vector<Value> &categoryIds)
{
    TestDocument document;
    for (std::size_t i = 0; i < categoryIds.size(); ++i) {
        const auto category = document.addCategory(QString(QChar(u'A' + char16_t(i))), 0);
        category->setValue(CategoryKey::cat_uniqueID, categoryIds[i]);
        category->setValue(CategoryKey::cat_howManyUsingThis, Value(77)); // Never trusted.
    }
    for (const Value &id : recordIds) {
        const QString name = QString::number(document.state.myArray->count());
        document.addRecord(name, nullptr)->setValue(RecordKey::cat_uniqueID, id);
    }
    document.decryption().restoreFromSaveOperationContent(*document.state.myArray,
                                                          *document.state.myCategoryArray);
    return document;
}

TEST(DecryptPipeline, FilesEveryRecordById)
{
    const qint64 beyond32Bits = (qint64(1) << 32) + 2;
    const struct
    {
        const char *rule;
        std::vector<Value> recordIds, categoryIds;
        const char *filing;
        int defaultCategories = 0;
    } cases[] = {
        {"by number", {Value(2), Value(1)}, {Value(1), Value(2)}, "A 1: 1, B 1: 0"},
        {"all 64 bits count",
         {Value(2), Value(beyond32Bits)},
         {Value(1), Value(beyond32Bits)},
         "A 1: 0, B 1: 1"},
        {"an absent id is 0 on both sides", {Value(), Value(0)}, {Value(1), Value()}, "A 0:, B 2: 0 1"},
        {"texts and reals are numbers", {Value(u"2"_qs), Value(2.9)}, {Value(1), Value(2)}, "A 0:, B 2: 0 1"},
        {"even without records", {}, {}, "Generic 0:", 1},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.rule);
        const TestDocument document = restored(c.recordIds, c.categoryIds);
        EXPECT_EQ(document.filing(), QLatin1String(c.filing));
        EXPECT_EQ(document.defaultCategoriesMade, c.defaultCategories);
        for (qsizetype i = 0; i < document.state.myArray->count(); ++i) {
            const Value id = document.record(i)->value(RecordKey::cat_uniqueID);
            EXPECT_TRUE(id == c.recordIds[std::size_t(i)]) << "the id stays as it was read";
            const auto filed = document.record(i)->value(RecordKey::categoryPtr).dictionary();
            const auto found = DecryptPipeline::catInArray(*document.state.myCategoryArray, id.longValue());
            EXPECT_EQ(filed, found ? found : document.category(0));
        }
    }
}

// Undo may bring back a record whose category has gone from the list meanwhile.
TEST(DecryptPipeline, ARecordKeepsItsCategoryAlive)
{
    TestDocument document = TestDocument::fromFile(TestDocument::filled().save());
    ASSERT_EQ(document.openWith(Password), 0);
    const auto removed = document.record(2);
    document.state.myArray->values.pop_back();
    document.state.myCategoryArray->values.clear();
    EXPECT_EQ(removed->valueForKeyPath(u"categoryPtr.cat_category").stringValue(), u"Friends"_qs);
    // Such a record is still saved under the id that its category had.
    document.state.myArray->values.emplace_back(removed);
    const auto copies = SavePipeline(document.state).getCopyOfContentArrayForSaveOperation();
    EXPECT_EQ(copies->at(2).dictionary()->value(RecordKey::cat_uniqueID), Value(qint64(2)));
}

} // namespace
