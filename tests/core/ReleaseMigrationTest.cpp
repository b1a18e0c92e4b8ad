#include "core/ReleaseMigration.h"

#include "archive/KeyedArchive.h"
#include "core/ReleaseDate.h"
#include "core/TestDocument.h"
#include "support/Printers.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

namespace
{

using Foundation::Array;
using Foundation::Dictionary;
using Foundation::Key;
using Foundation::Ref;
using Foundation::Value;

// A document of an old release, every field enciphered by itself.
struct OldDocument
{
    explicit OldDocument(quint64 version)
        : root(Dictionary::create())
        , records(Array::create())
        , categories(Array::create())
        , engine(VLCrypto::DocumentVector.data(), Password)
    {
        root->setValue(FileKey::appversion, Value(version));
        root->setValue(FileKey::dataArray, records);
        root->setValue(FileKey::categoryArray, categories);
        root->setValue(FileKey::crtnDt, text(u"2008-07-14 11:59:59 UTC"_qs));
    }
    Value text(const QString &plain) const { return *engine.cryptString(plain); }
    Value number(qint64 plain) const { return *engine.cryptLong(plain); }
    Ref<Dictionary> addRecord(const QString &firstName, qint64 category)
    {
        auto record = Dictionary::create();
        record->setValue(RecordKey::firstName, text(firstName));
        record->setValue(RecordKey::cat_uniqueID, number(category));
        records->values.emplace_back(record);
        return record;
    }
    void addCategory(const QString &name, qint64 id)
    {
        auto category = Dictionary::create();
        category->setValue(CategoryKey::cat_category, text(name));
        category->setValue(CategoryKey::cat_uniqueID, number(id));
        categories->values.emplace_back(category);
    }
    void setCaptions(const QString &caption)
    {
        auto captions = Dictionary::create();
        for (const char16_t *key : {u"company", u"note"})
            captions->setValue(QStringView(key), text(caption));
        root->setValue(FileKey::labelDict, captions);
    }
    TestDocument opened() const { return TestDocument::fromFile(Foundation::archivedData(root)); }

    Ref<Dictionary> root;
    Ref<Array> records, categories;
    VLCrypto engine;
};

OldDocument filledDocument(quint64 version)
{
    OldDocument document(version);
    document.addCategory(u"Büro"_qs, 7);
    for (const QString &name : {u"Ada"_qs, u"Emmy"_qs, u"Grace"_qs})
        document.addRecord(name, 7);
    return document;
}

TEST(ReleaseMigration, ReadsCreationDatesByThePatternOfTheRelease)
{
    constexpr double Noon2008 = 237729600; // 2008-07-14 12:00:00 UTC
    constexpr double H = 3600;
    constexpr auto Twelve = HourPattern::Twelve;
    constexpr auto All = HourPattern::TwentyFour;
    const std::tuple<const char *, HourPattern, std::optional<double>> cases[] = {
        {"2008-07-14 12:00:00 UTC", All, Noon2008},
        {"2008-07-14 12:00:00 UTC", Twelve, Noon2008 - 12 * H},
        {"2008-07-14 00:30:00 GMT", Twelve, Noon2008 - 11.5 * H},
        {"2008-07-14 13:00:00 UTC", Twelve, std::nullopt},
        {"2008-07-14 13:00:00 UTC", All, Noon2008 + H},
        {"2008-07-14 24:00:00 UTC", All, std::nullopt},
        {"2008-07-14 05:00:00 PDT", All, Noon2008},
        {"2008-07-14 06:30:00 GMT-5:30", All, Noon2008},
        {"2008-07-14 14:00:00 +0200", All, Noon2008},
        {"2008-07-14 14:00:00 Europe/Oslo", All, Noon2008},
        {"1999-12-31 23:59:59 UTC", All, -366 * 24 * H - 1},
        {"2008-02-30 12:00:00 UTC", All, std::nullopt},
        {"2008-07-14 12:00:00 XYZ", All, std::nullopt},
        {"2008-07-14 12:00:00 GMT+99", All, std::nullopt},
        {"2008-07-14 12:00:00 UTC\n", All, std::nullopt},
    };
    for (const auto &[text, hours, seconds] : cases)
        EXPECT_EQ(secondsOfReleaseDate(QString::fromUtf8(text), hours), seconds) << text;
}

TEST(ReleaseMigration, TheFirstReleasesHadNoIdsAndCountedTo24)
{
    for (const quint64 version : {1000, 1100}) {
        OldDocument old = filledDocument(version);
        old.addCategory(u"Familie"_qs, 3);
        old.addRecord(u"Rosa"_qs, 2);
        old.root->setValue(FileKey::crtnDt, old.text(u"2008-07-14 13:00:00 UTC"_qs));
        TestDocument document = old.opened();
        ASSERT_EQ(document.openWith(Password), 0);
        EXPECT_EQ(document.filing(), u"Büro 4: Ada Emmy Grace Rosa, Familie 0:");
        EXPECT_EQ(document.state.documentCreationDate == Value::date(237733200), version == 1100);
    }
}

TEST(ReleaseMigration, ADateThatDoesNotMatchIsNull)
{
    OldDocument old = filledDocument(30000);
    for (const Value &date : {Value(), old.text(u"2008-07-14 13:00:00 UTC"_qs)}) {
        old.root->setValue(FileKey::crtnDt, date);
        TestDocument document = old.opened();
        ASSERT_EQ(document.openWith(Password), 0);
        EXPECT_TRUE(document.state.documentCreationDate.isNull());
    }
}

TEST(ReleaseMigration, CaptionsComeFromTheFileAndFlagsAreDefaults)
{
    const auto caption = [](const TestDocument &document) {
        return document.state.myLabelDictionary->value(u"company").stringValue();
    };
    OldDocument old = filledDocument(1100);
    old.setCaptions(u"Firma:"_qs);
    TestDocument document = old.opened();
    ASSERT_EQ(document.openWith(Password), 0);
    EXPECT_EQ(caption(document), u"Firma:");
    EXPECT_EQ(document.state.myLabelDictionary->value(u"pager"), Value(u""_qs));
    EXPECT_TRUE(document.state.myLabelDictionary->value(u"open14").boolValue());

    // They stay even if a later field does not open.
    old.addRecord(u"x"_qs, 1)->setValue(RecordKey::note, Value(QByteArray("no whole block")));
    document = old.opened();
    EXPECT_EQ(document.openWith(Password), 2);
    EXPECT_EQ(caption(document), u"Firma:");
    EXPECT_TRUE(document.hasReplacedLabels);
    EXPECT_EQ(document.state.myArray->count(), 0);
    document.state.myEncryptedArray->values.pop_back();
    EXPECT_EQ(document.openWith(Password), 0) << "nothing was consumed";
    EXPECT_EQ(document.state.myEncryptedArray->count(), 3);
}

TEST(ReleaseMigration, DamageAndWrongPasswordsNeverOpen)
{
    const auto status = [](const OldDocument &old, const QString &password = Password) {
        return old.opened().openWith(password);
    };
    TestDocument locked = filledDocument(30000).opened();
    EXPECT_EQ(locked.openWith(u"wrong"_qs), 2);
    EXPECT_FALSE(locked.hasReplacedLabels);
    OldDocument empty(30000);
    empty.root->setValue(FileKey::crtnDt, Value());
    EXPECT_EQ(status(empty, u"anything"_qs), 0) << "no field tells";
    EXPECT_NE(status(empty, u"пароль"_qs), 0) << "but this one has no bytes";
    for (const Key &key : {FileKey::dataArray, FileKey::categoryArray}) {
        for (const Value &instead : {Value(), Value(u"text"_qs), Value(Dictionary::create())}) {
            OldDocument old = filledDocument(20400);
            old.root->setValue(key, instead);
            EXPECT_NE(status(old), 0);
        }
    }
    for (const Value &instead : {Value(u"Ada"_qs), Value(qint64(7)), Value(Array::create())}) {
        OldDocument old = filledDocument(20400);
        old.records->values[0].dictionary()->setValue(RecordKey::firstName, instead);
        EXPECT_NE(status(old), 0) << "a field that is not enciphered";
        old = filledDocument(20400);
        old.categories->values.emplace_back(instead);
        EXPECT_NE(status(old), 0);
    }
}

TEST(ReleaseMigration, AColourThatCannotBeReadIsTheDefault)
{
    OldDocument old = filledDocument(30000);
    const auto first = old.categories->values[0].dictionary();
    first->setValue(CategoryKey::cat_backColor, *old.engine.cryptData("no archive"));
    TestDocument document = old.opened();
    ASSERT_EQ(document.openWith(Password), 0);
    EXPECT_EQ(document.category(0)->valueForKeyPath(u"cat_backColor.g").doubleValue(), 0.75);
    EXPECT_EQ(document.category(0)->valueForKeyPath(u"cat_textColor.a").doubleValue(), 1);
}

TEST(ReleaseMigration, CaptionsDoNotOutliveARevertToAFileWithoutThem)
{
    for (const quint64 version : {1000, 1100}) {
        const OldDocument old = filledDocument(version);
        TestDocument document = old.opened();
        ASSERT_EQ(document.openWith(Password), 0);
        document.state.myLabelDictionary->setValue(u"company", u"Firma:"_qs);
        ASSERT_TRUE(readDocument(Foundation::archivedData(old.root), document.state,
                                 Foundation::Services::shared().clock()));
        ASSERT_EQ(document.openWith(Password), 0);
        EXPECT_EQ(document.state.myLabelDictionary->value(u"company").stringValue(), u"Company:");
    }
}

TEST(ReleaseMigration, DeciphersWhatFieldsShareOnce)
{
    OldDocument old = filledDocument(30000);
    const Value note = old.text(u"a note of more than a few letters"_qs);
    for (const Value &record : old.records->values)
        record.dictionary()->setValue(RecordKey::note, note);
    TestDocument document = old.opened();
    ASSERT_EQ(document.openWith(Password), 0);
    const auto noteOf = [&document](qsizetype i) { return document.record(i)->value(RecordKey::note); };
    EXPECT_EQ(noteOf(0), Value(u"a note of more than a few letters"_qs));
    EXPECT_EQ(noteOf(0).sharedObject(), noteOf(2).sharedObject());

    old.records->values.push_back(old.records->values.front());
    EXPECT_EQ(old.opened().openWith(Password), DecryptUnreadableField) << "no release wrote a record twice";
}

TEST(ReleaseMigration, RefusesMoreRecordsThanThereAreBytesFor)
{
    // Half of them without a byte of their own, at the end in spite of a colour that nobody can read.
    OldDocument old(30000);
    for (int i = 0; i < 90'000; ++i)
        old.records->values.emplace_back(Dictionary::create());
    EXPECT_EQ(old.opened().openWith(Password), 0);
    const Value noColor = *old.engine.cryptData("none");
    for (int i = 0; i < 90'000; ++i) {
        auto category = Dictionary::create();
        category->setValue(CategoryKey::cat_backColor, noColor);
        old.categories->values.emplace_back(category);
    }
    EXPECT_EQ(old.opened().openWith(Password), DecryptUnreadableField);
}

TEST(ReleaseMigration, AdjustsOnlyWhatIsMissing)
{
    const auto categories = Array::create();
    const auto second = Dictionary::create();
    categories->values = {Value(Dictionary::create()), Value(second)};
    second->setValue(CategoryKey::cat_uniqueID, Value(qint64(40)));
    second->setValue(CategoryKey::cat_howManyUsingThis, Value(qint32(5)));
    second->setValue(CategoryKey::cat_backColor, Value(u"kept"_qs));
    adjustCategoriesFromAncientRelease(*categories);
    EXPECT_EQ(second->value(CategoryKey::cat_uniqueID), Value(qint64(2)));
    EXPECT_EQ(second->value(CategoryKey::cat_howManyUsingThis), Value(qint32(5)));
    EXPECT_EQ(second->value(CategoryKey::cat_backColor), Value(u"kept"_qs));
    EXPECT_EQ(second->valueForKeyPath(u"cat_textColor.r").doubleValue(), 1);

    const auto records = Array::create();
    const auto record = Dictionary::create();
    record->setValue(CategoryKey::cat_backColor, Value(1.0));
    records->values.emplace_back(record);
    adjustRecordsFromOldRelease(*records);
    EXPECT_FALSE(record->contains(CategoryKey::cat_backColor));
    EXPECT_EQ(record->value(RecordKey::cat_uniqueID), Value(qint32(0)));
}

} // namespace
