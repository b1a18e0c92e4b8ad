#include "DocumentJson.h"
#include "core/FileLayout.h"
#include "core/TestDocument.h"
#include "foundation/KeyedArchive.h"
#include "support/Printers.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

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

// Keeps log lines while it lives, instead of printing them.
class CapturedLog
{
public:
    CapturedLog()
        : m_previous(qInstallMessageHandler(&keep))
    {
        lines.clear();
    }
    ~CapturedLog() { qInstallMessageHandler(m_previous); }

    static inline QStringList lines;

private:
    static void keep(QtMsgType, const QMessageLogContext &, const QString &line) { lines << line; }

    QtMessageHandler m_previous;
};

TEST(SavePipeline, WritesTheKeysOfTheCurrentLayoutAndNoOther)
{
    TestDocument document = TestDocument::filled();
    document.state.myiOSPlatformDictionary->setValue(u"font", QStringLiteral("Unlikely"));
    const QByteArray file = document.save();
    const Ref<Dictionary> root = rootOf(file);
    EXPECT_EQ(keysOf(*root).join(u' '),
              QStringLiteral("appversion latestPlatform dataArrayData catArrayData labelDict "
                             "documentCreationDateData salt IV rc sha1-rc OSXPlatformDictionary"));
    EXPECT_EQ(root->value(FileKey::appversion), Value(qint64(30600)));
    EXPECT_EQ(root->value(FileKey::latestPlatform).stringValue(), QStringLiteral("OSX"));
    for (const Key &key : bufferKeys) {
        SCOPED_TRACE(qPrintable(key.name()));
        EXPECT_GT(dataUnder(key, file).size(), 0);
        EXPECT_EQ(dataUnder(key, file).size() % 16, 0);
    }
    EXPECT_EQ(dataUnder(FileKey::salt, file).size(), 8);
    EXPECT_EQ(dataUnder(FileKey::IV, file).size(), 16);
    EXPECT_GE(dataUnder(FileKey::rc, file).size(), 272);
    EXPECT_LE(dataUnder(FileKey::rc, file).size(), 528);
    EXPECT_EQ(dataUnder(FileKey::sha1_rc, file).size(), 20);
}

TEST(SavePipeline, WritesTheWindowInReals)
{
    const struct
    {
        SavePipeline::WindowPlacement window;
        const char *json;
    } cases[] = {
        {{{1.5, -2, 900, 600.25}, true},
         R"({"windowRecHeight":{"$real":600.25},"windowRecWidth":{"$real":900.0},"windowRecX":{"$real":1.5},)"
         R"("windowRecY":{"$real":-2.0},"makeToolbarVisibleAtDecrypt":true})"},
        {{},
         R"({"windowRecHeight":{"$real":0.0},"windowRecWidth":{"$real":0.0},"windowRecX":{"$real":0.0},)"
         R"("windowRecY":{"$real":0.0},"makeToolbarVisibleAtDecrypt":false})"},
    };
    for (const auto &c : cases) {
        TestDocument document = TestDocument::filled();
        const auto root = rootOf(SavePipeline(document.state).dataOfType(c.window).value());
        EXPECT_EQ(jsonOfEntries(*root->value(FileKey::OSXPlatformDictionary).dictionary()).toStdString(),
                  c.json);
    }
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
        EXPECT_NE(reopened.openWith(QStringLiteral("correct horsf")), 0);
        EXPECT_EQ(reopened.openWith(Password), 0);
        EXPECT_EQ(reopened.filing(), QStringLiteral("Generic 2: Ada Grace, Friends 1: Emmy"));
    }
    EXPECT_EQ(document.json(), content) << "saving touched the live content";
}

TEST(SavePipeline, NothingOfTheContentStandsInClear)
{
    TestDocument document = TestDocument::filled();
    const QString secret = QStringLiteral("Zyzzyva");
    document.record(0)->setValue(RecordKey::note, secret);
    document.category(1)->setValue(CategoryKey::cat_category, secret + QStringLiteral("é"));
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

    const QString changed = QStringLiteral("battery staple");
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

TEST(SavePipeline, CopiesOfRecordsHaveTheIdOfTheirCategoryInItsPlace)
{
    const struct
    {
        const char *rule;
        Value id;
        qint64 stored;
    } cases[] = {
        {"as a long", Value(qint32(7)), 7},
        {"beyond 32 bits", Value(qint64(1) << 40), qint64(1) << 40},
        {"of a category without one", Value(), 0},
        {"that is a text", QStringLiteral("12"), 12},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.rule);
        TestDocument document = TestDocument::filled();
        document.category(0)->setValue(CategoryKey::cat_uniqueID, c.id);
        document.record(0)->setValue(RecordKey::cat_uniqueID, Value(99)); // Stale since the category changed.
        const auto copy =
            SavePipeline(document.state).getCopyOfContentArrayForSaveOperation()->at(0).dictionary();
        EXPECT_EQ(copy->value(RecordKey::cat_uniqueID), Value(c.stored));
        EXPECT_FALSE(copy->contains(RecordKey::categoryPtr));
        EXPECT_EQ(document.record(0)->value(RecordKey::cat_uniqueID), Value(99));
        EXPECT_EQ(document.record(0)->value(RecordKey::categoryPtr).dictionary(), document.category(0));
    }
}

TEST(SavePipeline, CopiesShareValuesAndGainNothing)
{
    TestDocument document = TestDocument::filled();
    const auto record = document.record(0);
    const QString longNote(100, u'n');
    record->setValue(RecordKey::note, longNote);
    record->setValue(RecordKey::usageCount, Value()); // As in a duplicate.
    const SavePipeline pipeline(document.state);
    const auto copy = pipeline.getCopyOfContentArrayForSaveOperation()->at(0).dictionary();
    EXPECT_EQ(copy->value(RecordKey::note).sharedObject(), record->value(RecordKey::note).sharedObject());
    EXPECT_FALSE(copy->contains(RecordKey::usageCount));

    const auto category = pipeline.getCopyOfCategoryArrayForSaveOperation()->at(0).dictionary();
    EXPECT_FALSE(category->contains(CategoryKey::records));
    EXPECT_TRUE(document.category(0)->contains(CategoryKey::records));
    EXPECT_EQ(category->value(CategoryKey::cat_backColor),
              document.category(0)->value(CategoryKey::cat_backColor));
}

TEST(SavePipeline, ARecordWithoutCategoryComesBackInTheFirst)
{
    TestDocument document = TestDocument::filled();
    document.record(2)->setValue(RecordKey::categoryPtr, Value());
    document.state.myArray->values.erase(document.state.myArray->values.begin());
    TestDocument reopened = TestDocument::fromFile(document.save());
    ASSERT_EQ(reopened.openWith(Password), 0);
    EXPECT_EQ(reopened.record(1)->value(RecordKey::cat_uniqueID), Value(qint64(0)));
    EXPECT_EQ(reopened.filing(), QStringLiteral("Generic 2: Grace Emmy, Friends 0:"));
}

TEST(SavePipeline, AShutGateGivesALineInTheLogAndNothingElse)
{
    TestDocument document = TestDocument::filled();
    document.lock();
    const QByteArray buffer = document.state.myEncryptedArrayData;
    const CapturedLog log;
    EXPECT_EQ(SavePipeline(document.state).dataOfType({}), std::nullopt);
    EXPECT_EQ(log.lines, QStringList(QStringLiteral("returned nil from dataOfType")));
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
    ASSERT_NE(document.openWith(QStringLiteral("wrong")), 0);
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
    for (const QString &password : {Password, QStringLiteral("")})
        EXPECT_NE(TestDocument::fromFile(ruined).openWith(password), 0);

    // All keys are there, yet nobody may write this over the file.
    EXPECT_FALSE(SavePipeline::canBeRead(document.state));
    document.save();
    EXPECT_FALSE(SavePipeline::canBeRead(document.state));
    ASSERT_EQ(readDocument(file, document.state), ReadOutcome::Loaded);
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
         {QStringLiteral("dataArrayData"), QStringLiteral("catArrayData"), QStringLiteral("labelDict"),
          QStringLiteral("documentCreationDateData"), QStringLiteral("IV"), QStringLiteral("rc")}},
        {"no salt: the key is lost",
         [](quint64 length) { return length == 8 ? std::nullopt : std::optional(QByteArray(16, 'v')); },
         {QStringLiteral("salt")}},
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
    EXPECT_FALSE(SavePipeline::canBeRead(document.state));
    document.record(0)->setValue(RecordKey::note, Value());
    document.save();
    EXPECT_TRUE(SavePipeline::canBeRead(document.state));
}

TEST(SavePipeline, DocumentsWithoutPasswordOrDateCanBeReadAgain)
{
    TestDocument document = TestDocument::filled();
    document.state.plainPassword = QStringLiteral("");
    document.state.documentCreationDate = Value();
    TestDocument reopened = TestDocument::fromFile(document.save());
    reopened.state.documentCreationDate = Value::date(1);
    EXPECT_EQ(reopened.openWith(QStringLiteral("")), 0);
    EXPECT_TRUE(reopened.state.documentCreationDate.isNull());
    EXPECT_EQ(reopened.record(0)->value(RecordKey::firstName).stringValue(), QStringLiteral("Ada"));
}

// Another program deciphers our file and reads the archives in it by the public description of the format.
TEST(SavePipeline, AnotherProgramReadsWhatWasSaved)
{
    const QString python = QStringLiteral("/usr/bin/python3");
    if (!QFile::exists(python) || QStandardPaths::findExecutable(QStringLiteral("openssl")).isEmpty())
        GTEST_SKIP() << "needs " << qPrintable(python) << " and openssl";
    TestDocument document =
        TestDocument::fromFile(sampleBytes(QStringLiteral("records-extra-types.vexcards")));
    ASSERT_EQ(document.openWith(Password), 0);
    document.state.plainPassword = QStringLiteral("pässwörd😀");

    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("saved.vexcards")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(document.save());
    file.close();
    QProcess reader;
    reader.start(python, {QStringLiteral(VEXAREL_SOURCE_DIR "/tests/core/read_document.py"), file.fileName(),
                          document.state.plainPassword});
    ASSERT_TRUE(reader.waitForFinished());
    EXPECT_EQ(reader.readAllStandardError().toStdString(), "");
    // That program knows one kind of reals.
    EXPECT_EQ(
        jsonLines(reader.readAllStandardOutput()),
        jsonLines(QByteArray::fromStdString(document.json()).replace('\n', "").replace("$real32", "$real")));
}

} // namespace
