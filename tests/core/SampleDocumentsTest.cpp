#include "DocumentJson.h"
#include "archive/KeyedArchive.h"
#include "core/TestDocument.h"
#include "platform/Services.h"
#include "support/Printers.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace
{

using Foundation::Value;

// A document written by another program, with what opening it must give.
struct Sample
{
    QJsonObject entry;

    QString name() const { return entry[u"file"_qs].toString(); }
    bool hasContent() const { return entry[u"expected"_qs].isString(); }
    QByteArray bytes() const { return sampleBytes(name()); }
    QByteArray expected() const { return sampleBytes(entry[u"expected"_qs].toString()); }
    QJsonArray attempts() const { return entry[u"passwords"_qs].toArray(); }
};

QList<Sample> samples()
{
    QList<Sample> samples;
    const auto manifest = QJsonDocument::fromJson(sampleBytes(u"manifest.json"_qs));
    for (const QJsonValue &entry : manifest[u"documents"_qs].toArray())
        samples.append(Sample{entry.toObject()});
    return samples;
}

QByteArray withoutBlanks(const QByteArray &json)
{
    QByteArray dense;
    bool inText = false;
    for (qsizetype i = 0; i < json.size(); ++i) {
        if (inText && json[i] == '\\')
            dense += json[i++];
        else if (json[i] == '"')
            inText = !inText;
        if (inText || !QByteArrayView(" \r\n\t").contains(json[i]))
            dense += json[i];
    }
    return dense;
}

// Compared as texts and not parsed, numbers are equal only digit by digit.
void expectContent(const TestDocument &document, const QByteArray &expected)
{
    QByteArray content = withoutBlanks(expected);
    for (const char *member : {R"("status":0,)", R"("defaultCategoryAdded":false,)",
                               R"("defaultCategoryAdded":true,)", R"(,"creationDateCertain":true)"})
        content.replace(member, "");
    // The oldest release kept no date.
    if (content.contains(R"("creationDate":"now")")) {
        const double age = Foundation::Services::shared().clock().secondsSince2001() -
                           document.state.documentCreationDate.dateValue();
        EXPECT_TRUE(age >= 0 && age < 60) << age;
        content.replace(R"("now")", jsonOfValue(document.state.documentCreationDate));
    }
    EXPECT_EQ(document.json(), jsonLines(content));
}

TEST(SampleDocuments, LoadAsTold)
{
    for (const Sample &sample : samples()) {
        SCOPED_TRACE(qPrintable(sample.name()));
        DocumentState state;
        const auto read = readDocument(sample.bytes(), state, Foundation::Services::shared().clock());
        if (sample.entry[u"archive"_qs] != u"ok"_qs) {
            EXPECT_TRUE(read.failedWith(ReadError::NotADocument));
            continue;
        }
        EXPECT_EQ(read.failedWith(ReadError::NewerFormat), sample.entry[u"refused"_qs].toBool());
        const QJsonObject loaded = sample.entry[u"loaded"_qs].toObject();
        const QJsonObject frame = loaded[u"myWinRectToUse"_qs].toObject();
        EXPECT_EQ(QString::number(state.myOpeningDocumentVersion), loaded[u"appversion"_qs].toString());
        EXPECT_EQ(state.fileDocRelease, loaded[u"fileDocRelease"_qs].toString());
        EXPECT_EQ(state.YouCanSave, loaded[u"YouCanSave"_qs].toBool());
        EXPECT_EQ(state.useMyWinRect, loaded[u"useMyWinRect"_qs].toBool());
        EXPECT_EQ(state.myWinRectToUse,
                  (Foundation::Rect{frame[u"x"_qs].toDouble(), frame[u"y"_qs].toDouble(),
                                    frame[u"width"_qs].toDouble(), frame[u"height"_qs].toDouble()}));
        EXPECT_EQ(state.makeToolbarVisibleAtDecrypt, loaded[u"makeToolbarVisibleAtDecrypt"_qs].toBool());
    }
}

TEST(SampleDocuments, OpenWithTheirPasswordsAndHoldWhatWasPutIn)
{
    int opened = 0;
    for (const Sample &sample : samples()) {
        for (const QJsonValue &attempt : sample.attempts()) {
            const QString password = attempt[u"password"_qs].toString();
            const bool opens = !attempt[u"nonzero"_qs].toBool();
            SCOPED_TRACE(qPrintable(sample.name() + u" with "_qs + password));
            TestDocument document = TestDocument::fromFile(sample.bytes());
            EXPECT_EQ(document.openWith(password) == 0, opens);
            if (!opens)
                continue;
            ++opened;
            ASSERT_TRUE(sample.hasContent());
            const auto expected = QJsonDocument::fromJson(sample.expected());
            EXPECT_EQ(document.defaultCategoriesMade, expected[u"defaultCategoryAdded"_qs].toBool());
            expectContent(document, sample.expected());
        }
    }
    EXPECT_EQ(opened, 40);
}

// Saved in the current layout and opened again, all is there, kind by kind and bit by bit. Only the ids of
// records in the first category for want of theirs are made good by a save.
TEST(SampleDocuments, KeepTheirContentThroughASave)
{
    for (const Sample &sample : samples()) {
        if (!sample.hasContent())
            continue;
        SCOPED_TRACE(qPrintable(sample.name()));
        TestDocument document = TestDocument::fromFile(sample.bytes());
        ASSERT_EQ(document.openWith(sample.attempts().first()[u"password"_qs].toString()), 0);
        for (qsizetype i = 0; i < document.state.myArray->count(); ++i) {
            const Value id = document.record(i)->valueForKeyPath(u"categoryPtr.cat_uniqueID");
            document.record(i)->setValue(RecordKey::cat_uniqueID, id);
        }
        document.category(0)->setValue(CategoryKey::records, Value());
        const SavePipeline pipeline(document.state);
        EXPECT_EQ(pipeline.archivedRecords(),
                  Foundation::archivedData(pipeline.getCopyOfContentArrayForSaveOperation()));
        EXPECT_EQ(pipeline.archivedCategories(),
                  Foundation::archivedData(pipeline.getCopyOfCategoryArrayForSaveOperation()));
        TestDocument reopened = TestDocument::fromFile(document.save());
        ASSERT_EQ(reopened.openWith(document.state.plainPassword), 0);
        EXPECT_EQ(reopened.json(), document.json());
        EXPECT_EQ(reopened.state.fileDocRelease, u"30600"_qs);
    }
}

} // namespace
