#include "DocumentJson.h"
#include "archive/KeyedArchive.h"
#include "core/FileLayout.h"
#include "core/TestDocument.h"
#include "support/Printers.h"

#include <gtest/gtest.h>

namespace
{

using Foundation::Array;
using Foundation::Dictionary;
using Foundation::Key;
using Foundation::Ref;
using Foundation::Value;

const Key bufferKeys[] = {FileKey::dataArrayData, FileKey::catArrayData, FileKey::labelDict,
                          FileKey::documentCreationDateData};
const Key keyMaterial[] = {FileKey::salt, FileKey::IV, FileKey::rc, FileKey::sha1_rc};

QStringList keysOf(const Dictionary &dictionary)
{
    QStringList names;
    for (const auto &entry : dictionary.entries())
        names << entry.key.name();
    return names;
}

QByteArray dataUnder(const Key &key, const QByteArray &file)
{
    return rootOf(file)->value(key).dataValue();
}

TEST(SavePipeline, WritesTheKeysOfTheCurrentLayoutAndNoOther)
{
    TestDocument document = TestDocument::filled();
    document.state.myiOSPlatformDictionary->setValue(u"font", u"Unlikely"_qs);
    const QByteArray file = document.save();
    const Ref<Dictionary> root = rootOf(file);
    EXPECT_EQ(keysOf(*root).join(u' '),
              QStringLiteral("appversion latestPlatform dataArrayData catArrayData labelDict "
                             "documentCreationDateData salt IV rc sha1-rc OSXPlatformDictionary"));
    EXPECT_EQ(root->value(FileKey::appversion), Value(qint64(30600)));
    EXPECT_EQ(root->value(FileKey::latestPlatform).stringValue(), u"OSX"_qs);
}

TEST(SavePipeline, WritesTheWindowInReals)
{
    TestDocument document = TestDocument::filled();
    const auto root = rootOf(SavePipeline(document.state).dataOfType({{1.5, -2, 900, 600.25}, true}).value());
    EXPECT_EQ(
        jsonOfEntries(*root->value(FileKey::OSXPlatformDictionary).dictionary()).toStdString(),
        R"({"windowRecHeight":{"$real":600.25},"windowRecWidth":{"$real":900.0},"windowRecX":{"$real":1.5},)"
        R"("windowRecY":{"$real":-2.0},"makeToolbarVisibleAtDecrypt":true})");
}

TEST(SavePipeline, TwoSavesShareNothingThatIsEncipheredOrDrawn)
{
    TestDocument document = TestDocument::filled();
    const std::string content = document.json();
    const QByteArray one = document.save();
    const QByteArray other = document.save();
    for (const Key &key : bufferKeys)
        EXPECT_NE(dataUnder(key, one), dataUnder(key, other)) << qPrintable(key.name());
    for (const Key &key : keyMaterial)
        EXPECT_NE(dataUnder(key, one), dataUnder(key, other)) << qPrintable(key.name());
    for (const QByteArray &file : {one, other}) {
        TestDocument reopened = TestDocument::fromFile(file);
        EXPECT_NE(reopened.openWith(u"correct horsf"_qs), 0);
        EXPECT_EQ(reopened.openWith(Password), 0);
        EXPECT_EQ(reopened.filing(), u"Generic 2: Ada Grace, Friends 1: Emmy"_qs);
    }
    EXPECT_EQ(document.json(), content) << "saving touched the live content";
}

TEST(SavePipeline, NothingOfTheContentStandsInClear)
{
    TestDocument document = TestDocument::filled();
    const QString secret = u"Zyzzyva"_qs;
    document.record(0)->setValue(RecordKey::note, secret);
    document.category(1)->setValue(CategoryKey::cat_category, secret + u"é"_qs);
    document.state.myLabelDictionary->setValue(u"note", secret);
    document.state.plainPassword = secret;
    const QByteArray file = document.save();
    const QByteArray wide(reinterpret_cast<const char *>(secret.utf16()), 2 * secret.size());
    EXPECT_FALSE(file.contains(secret.toUtf8()));
    EXPECT_FALSE(file.contains(wide) || file.contains(wide.mid(1)));
    EXPECT_FALSE(file.contains("firstName") || file.contains("cat_"));
}

TEST(SavePipeline, ANewPasswordTakesEffectWithTheNextSave)
{
    TestDocument document = TestDocument::filled();
    document.save();
    const VLCommonCrypto *firstEngine = document.state.myCommonCrypto.get();
    document.save();
    EXPECT_EQ(document.state.myCommonCrypto.get(), firstEngine);

    const QString changed = u"battery staple"_qs;
    document.state.plainPassword = changed;
    TestDocument reopened = TestDocument::fromFile(document.save());
    EXPECT_EQ(document.state.myCommonCrypto->password(), changed);
    EXPECT_NE(reopened.openWith(Password), 0);
    EXPECT_EQ(reopened.openWith(changed), 0);

    // A lock too: until a save the file keeps the old password, the buffers in memory have the new one.
    document.state.plainPassword = Password;
    document.lock();
    EXPECT_NE(document.openWith(changed), 0);
    EXPECT_EQ(document.openWith(Password), 0);
}

TEST(SavePipeline, CopiesShareValuesAndHaveTheIdOfTheirCategoryInItsPlace)
{
    TestDocument document = TestDocument::filled();
    const auto record = document.record(0);
    record->setValue(RecordKey::note, QString(100, u'n'));
    record->setValue(RecordKey::usageCount, Value());     // As in a duplicate.
    record->setValue(RecordKey::cat_uniqueID, Value(99)); // Stale since the category changed.
    for (const Value &id : {Value(qint64(1) << 40), Value(), Value(u"12"_qs)}) {
        document.category(0)->setValue(CategoryKey::cat_uniqueID, id);
        const SavePipeline pipeline(document.state);
        const auto copy = pipeline.getCopyOfContentArrayForSaveOperation()->at(0).dictionary();
        EXPECT_EQ(copy->value(RecordKey::cat_uniqueID), Value(id.longValue()));
        EXPECT_FALSE(copy->contains(RecordKey::categoryPtr));
        EXPECT_FALSE(copy->contains(RecordKey::usageCount));
        EXPECT_EQ(copy->value(RecordKey::note).sharedObject(), record->value(RecordKey::note).sharedObject());
        EXPECT_EQ(record->value(RecordKey::cat_uniqueID), Value(99));
        EXPECT_EQ(record->value(RecordKey::categoryPtr).dictionary(), document.category(0));

        const auto category = pipeline.getCopyOfCategoryArrayForSaveOperation()->at(0).dictionary();
        EXPECT_FALSE(category->contains(CategoryKey::records));
        EXPECT_TRUE(document.category(0)->contains(CategoryKey::records));
    }
}

TEST(SavePipeline, ARecordWithoutCategoryComesBackInTheFirst)
{
    TestDocument document = TestDocument::filled();
    document.record(2)->setValue(RecordKey::categoryPtr, Value());
    document.state.myArray->values.erase(document.state.myArray->values.begin());
    TestDocument reopened = TestDocument::fromFile(document.save());
    ASSERT_EQ(reopened.openWith(Password), 0);
    EXPECT_EQ(reopened.record(1)->value(RecordKey::cat_uniqueID), Value(qint64(0)));
    EXPECT_EQ(reopened.filing(), u"Generic 2: Grace Emmy, Friends 0:"_qs);
}

TEST(SavePipeline, AShutGateGivesALineInTheLogAndNothingElse)
{
    TestDocument document = TestDocument::filled();
    document.lock();
    const QByteArray buffer = document.state.myEncryptedArrayData;
    static QString logged;
    const auto former = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &line) { logged += line; });
    EXPECT_EQ(SavePipeline(document.state).dataOfType({}), std::nullopt);
    qInstallMessageHandler(former);
    EXPECT_EQ(logged, u"returned nil from dataOfType");
    EXPECT_EQ(document.state.myEncryptedArrayData, buffer);

    ASSERT_EQ(document.openWith(Password), 0);
    EXPECT_FALSE(document.save().isEmpty());
}

// After a failed attempt the engine has the rejected password, which is also the document's: nothing is
// renewed.
TEST(SavePipeline, ALockedDocumentIsWrittenAsItStandsButForItsWindow)
{
    const QByteArray file = TestDocument::filled().save();
    TestDocument document = TestDocument::fromFile(file);
    ASSERT_NE(document.openWith(u"wrong"_qs), 0);
    const QByteArray again = document.save();
    EXPECT_EQ(again, withKey(file, FileKey::OSXPlatformDictionary, Value()));
    EXPECT_TRUE(SavePipeline::canBeRead(document.state));
}

// With no engine yet, the password "" of a document that was just read counts as a new one.
TEST(SavePipeline, ALockedDocumentThatWasNeverTriedLosesItsKeyMaterial)
{
    const QByteArray file = TestDocument::filled().save();
    TestDocument document = TestDocument::fromFile(file);
    ASSERT_TRUE(SavePipeline::canBeRead(document.state));
    const QByteArray ruined = document.save();
    for (const Key &key : bufferKeys)
        EXPECT_EQ(dataUnder(key, ruined), dataUnder(key, file)) << qPrintable(key.name());
    for (const Key &key : keyMaterial)
        EXPECT_NE(dataUnder(key, ruined), dataUnder(key, file)) << qPrintable(key.name());
    for (const QString &password : {Password, u""_qs})
        EXPECT_NE(TestDocument::fromFile(ruined).openWith(password), 0);
    EXPECT_FALSE(SavePipeline::canBeRead(document.state));
    ASSERT_TRUE(readDocument(file, document.state, Foundation::Services::shared().clock()));
    EXPECT_TRUE(SavePipeline::canBeRead(document.state));
}

TEST(SavePipeline, ALockKeepsTheWindowThatTheDocumentHad)
{
    TestDocument document = TestDocument::filled();
    document.save();
    document.lock();
    document.state.YouCanSave = true;
    const auto file = SavePipeline(document.state).dataOfType({{0, 0, 1, 1}, false});
    TestDocument reopened = TestDocument::fromFile(*file);
    EXPECT_EQ(reopened.state.myWinRectToUse, (Foundation::Rect{100, 200, 900, 600}));
    EXPECT_EQ(reopened.openWith(Password), 0);
}

TEST(SavePipeline, AMissingBufferLeavesItsKeyOutAndIsFoundByTheGuard)
{
    const struct
    {
        const char *rule;
        VLCommonCrypto::RandomSource source;
        QStringList missing;
    } cases[] = {
        {"no vector: nothing can be enciphered",
         [](quint64 length) { return length == 16 ? std::nullopt : std::optional(QByteArray(8, 's')); },
         {u"dataArrayData"_qs, u"catArrayData"_qs, u"labelDict"_qs, u"documentCreationDateData"_qs, u"IV"_qs,
          u"rc"_qs}},
        {"no salt: the key is lost",
         [](quint64 length) { return length == 8 ? std::nullopt : std::optional(QByteArray(16, 'v')); },
         {u"salt"_qs}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.rule);
        TestDocument document = TestDocument::filled();
        const QStringList all = keysOf(*rootOf(document.save()));
        EXPECT_TRUE(SavePipeline::canBeRead(document.state));
        VLCommonCrypto::setRandomSource(c.source);
        QStringList missing = all;
        for (const QString &name : keysOf(*rootOf(document.save())))
            missing.removeOne(name);
        VLCommonCrypto::setRandomSource(nullptr);
        EXPECT_EQ(missing, c.missing);
        EXPECT_FALSE(SavePipeline::canBeRead(document.state));
        EXPECT_FALSE(document.save().isEmpty());
        EXPECT_TRUE(SavePipeline::canBeRead(document.state));
    }
}

TEST(SavePipeline, WhatNoReaderWouldTakeIsFoundByTheGuard)
{
    TestDocument document = TestDocument::filled();
    Value nested = Foundation::Array::create();
    for (int level = 0; level < 600; ++level)
        nested = Foundation::Array::create({nested});
    document.record(0)->setValue(RecordKey::note, nested);
    document.save();
    EXPECT_TRUE(
        SavePipeline::canBeRead(document.state).failedWith(SavePipeline::UnreadableBecause::ContentRefused));
    document.record(0)->setValue(RecordKey::note, Value());
    document.save();
    EXPECT_TRUE(SavePipeline::canBeRead(document.state));
}

TEST(SavePipeline, DocumentsWithoutPasswordOrDateCanBeReadAgain)
{
    TestDocument document = TestDocument::filled();
    document.state.plainPassword = u""_qs;
    document.state.documentCreationDate = Value();
    TestDocument reopened = TestDocument::fromFile(document.save());
    reopened.state.documentCreationDate = Value::date(1);
    EXPECT_EQ(reopened.openWith(u""_qs), 0);
    EXPECT_TRUE(reopened.state.documentCreationDate.isNull());
    EXPECT_EQ(reopened.record(0)->value(RecordKey::firstName).stringValue(), u"Ada"_qs);
}

} // namespace
