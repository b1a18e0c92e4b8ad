#include "DocumentJson.h"
#include "core/RecordModel.h"
#include "support/Printers.h"
#include "values/Array.h"
#include "window/WindowTest.h"
#include "window/binding/FieldText.h"
#include "window/list/RecordTable.h"

#include <QClipboard>
#include <QJsonDocument>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QTest>

#include <cmath>
#include <limits>

// Documents by other hands and of old releases in a real window.

namespace
{

using Foundation::Array;
using Foundation::Dictionary;
using Foundation::Ref;
using Foundation::Value;

class OddContentTest : public WindowTest
{
protected:
    QByteArray json() const { return jsonOfDocument(document()->state()); }
    void save()
    {
        press(Qt::Key_S, Qt::ControlModifier);
        EXPECT_FALSE(document()->isDocumentEdited());
    }
    void saveAndOpenAgain(const QString &path)
    {
        chooseNextPath(path);
        save();
        document()->close();
        ASSERT_TRUE(eventually([this] { return document() == nullptr; }));
        openDocument(path);
        unlock(password);
        ASSERT_TRUE(document()->isDecrypted());
    }
    QString shown(const char *fieldOfTheCard) const
    {
        return control<FieldText>(fieldOfTheCard)->toPlainText();
    }
};

TEST_F(OddContentTest, ValuesOfOtherKindsAreShownAndKept)
{
    makeProtectedDocument();
    addContact(QStringLiteral("Ada"), QStringLiteral("Byron"));
    const Ref<Dictionary> record = document()->myArray()->values[0].dictionary();
    const Ref<Array> numbers = Array::create();
    for (const int number : {1, 2})
        numbers->values.emplace_back(qint64(number));
    numbers->values.emplace_back(Array::create());
    record->setValue(RecordKey::phoneWork, Value(qint64(5551234)));
    record->setValue(RecordKey::faxWork, Value(1.5));
    record->setValue(RecordKey::emailWork, Value::date(1e300));
    record->setValue(RecordKey::webWork, Value(QByteArray("bytes")));
    record->setValue(RecordKey::note, numbers);
    const Value longText(QString(100'000, u'x'));
    record->setValue(RecordKey::addressWork, Array::create({longText, longText, longText}));
    record->setValue(RecordKey::company, Dictionary::create());
    record->setValue(RecordKey::isCompany, Value(QStringLiteral("0")));
    record->setValue(RecordKey::lastName, Value(qint64(1815)));
    const Ref<Dictionary> category = document()->myCategoryArray()->values[0].dictionary();
    const Ref<Dictionary> absurd = Dictionary::create();
    absurd->setValue(u"r", Value(std::nan("")));
    absurd->setValue(u"g", Value(std::numeric_limits<double>::max()));
    absurd->setValue(u"b", Value(QStringLiteral("blue")));
    category->setValue(CategoryKey::cat_category, Value(qint64(42)));
    category->setValue(CategoryKey::cat_backColor, absurd);
    category->setValue(CategoryKey::cat_textColor, Value(QStringLiteral("white")));
    document()->myLabelDictionary()->setValue(RecordKey::phoneWork, Value(qint64(7)));
    document()->myLabelDictionary()->setValue(RecordKey::faxWork, Array::create());
    document()->myLabelDictionary()->setValue(u"open08", Value(QStringLiteral("yes")));
    // As every save leaves them.
    record->setValue(RecordKey::cat_uniqueID, category->value(CategoryKey::cat_uniqueID));
    category->setValue(CategoryKey::records, Value());
    const QByteArray before = json();
    const QString path = pathOf(QStringLiteral("Odd.vexcards"));
    saveAndOpenAgain(path);

    EXPECT_EQ(names(), QStringList{QStringLiteral("Ada 1815")});
    press(Qt::Key_Home);
    press(Qt::Key_F2); // to the form, by the keys
    EXPECT_EQ(field("phoneWork"), u"5551234");
    EXPECT_EQ(field("faxWork"), u"1.5");
    EXPECT_EQ(field("emailWork"), u"1e+300");
    EXPECT_EQ(field("webWork"), u"");
    EXPECT_EQ(control<QPlainTextEdit>("note")->toPlainText(), u"1, 2, …");
    EXPECT_LT(control<QPlainTextEdit>("addressWork")->toPlainText().size(), 10'000);
    EXPECT_EQ(control<QLabel>("phoneWorkLabel")->text(), u"7");
    EXPECT_EQ(control<QComboBox>("category")->currentText(), u"42");
    window()->grab(); // every label and card gets painted
    press(Qt::Key_F2);
    window()->grab();
    press(Qt::Key_F, Qt::ControlModifier);
    type(QStringLiteral("Ada"));
    EXPECT_EQ(names().size(), 1);
    press(Qt::Key_A, Qt::ControlModifier);
    type(u"551234"_qs);
    EXPECT_EQ(names().size(), 1) << "found by what is shown";
    press(Qt::Key_Escape);
    for (const int key : {Qt::Key_K, Qt::Key_L}) {
        press(key, Qt::ControlModifier);
        ASSERT_TRUE(eventually([this] { return sheet() != nullptr; }));
        press(Qt::Key_Escape);
        ASSERT_TRUE(windowIsActive());
    }
    EXPECT_FALSE(document()->isDocumentEdited()) << "looking changes nothing";
    EXPECT_EQ(json(), before);
    press(Qt::Key_F2);
    enterField("lastName", QStringLiteral("Lovelace"));
    QByteArray changed = before;
    changed.replace(R"("lastName":{"$int":"1815"})", R"("lastName":"Lovelace")");
    ASSERT_NE(changed, before);
    saveAndOpenAgain(path);
    EXPECT_EQ(json(), changed);
}

// Laying out any of these would take minutes.
TEST_F(OddContentTest, TextsTooLongToLayOutAreShortenedAndStayWhole)
{
    makeProtectedDocument();
    for (const QString &name : {u"Ada"_qs, u"Eve"_qs})
        addContact(name, u"Byron"_qs);
    const QString megabytes = QString(4'000'000, u'x') + u"end"_qs;
    const Ref<Dictionary> category = document()->myCategoryArray()->values[0].dictionary();
    category->setValue(CategoryKey::cat_category, megabytes);
    category->setValue(CategoryKey::records, Value()); // as every save leaves it
    for (const Value &entry : document()->myArray()->values) {
        entry.dictionary()->setValue(RecordKey::lastName, megabytes);
        entry.dictionary()->setValue(RecordKey::note, megabytes);
        entry.dictionary()->setValue(RecordKey::categoryPtr, category);
        entry.dictionary()->setValue(RecordKey::cat_uniqueID, category->value(CategoryKey::cat_uniqueID));
    }
    for (const auto &caption : {RecordKey::note, RecordKey::firstName})
        document()->myLabelDictionary()->setValue(caption, megabytes);
    const auto shortened = [this, &megabytes] { return json().replace(megabytes.toLatin1(), "LONG"); };
    const QByteArray before = shortened();
    saveAndOpenAgain(pathOf(u"Long.vexcards"_qs));
    window()->grab();
    EXPECT_EQ(shortened(), before) << "after looking";
    for (const int key : {Qt::Key_K, Qt::Key_L}) {
        press(key, Qt::ControlModifier);
        ASSERT_TRUE(eventually([this] { return sheet() != nullptr; }));
        dismiss(Qt::Key_Escape);
    }
    press(Qt::Key_F2);
    enterField("firstName", u"Augusta"_qs);
    EXPECT_EQ(shortened(), QByteArray(before).replace("\"Ada\"", "\"Augusta\"")) << "after another edit";
    document()->myArrayController()->setSelectionIndexes({0, 1});
    runEvents();
    enterField("firstName", u"Both"_qs);
    auto *note = control<QPlainTextEdit>("note");
    note->setFocus();
    type(u"!"_qs);
    note->setPlainText(u"by assistive technology"_qs);
    enterField("lastName", u"!"_qs);
    const auto both = QByteArray(before).replace("\"Ada\"", "\"Both\"").replace("\"Eve\"", "\"Both\"");
    EXPECT_EQ(shortened(), both) << "after editing several";

    note->findChild<QPushButton *>()->click();
    ASSERT_TRUE(eventually([this] { return sheet() != nullptr; }));
    auto *editor = control<QPlainTextEdit>("wholeText");
    EXPECT_TRUE(sheet()->windowTitle().startsWith(u"xxx")) << "the caption";
    editor->selectAll();
    editor->copy();
    EXPECT_TRUE(QGuiApplication::clipboard()->text() == megabytes);
    press(Qt::Key_End, Qt::ControlModifier);
    type(u"+"_qs);
    dismiss(u"Done"_qs);
    for (const Value &entry : document()->myArray()->values)
        EXPECT_TRUE(entry.dictionary()->value(RecordKey::note) == Value(megabytes + u'+'));
}

// Read back by a program that knows nothing of this one.
TEST_F(OddContentTest, DocumentsOfOldReleasesAreOpenedEditedAndSaved)
{
    const struct
    {
        const char *name;
        QString password;
    } documents[] = {{"legacy-1000", QStringLiteral("geheim7")},
                     {"legacy-1100", QStringLiteral("geheim7")},
                     {"legacy-20300", QStringLiteral("geheim7")},
                     {"legacy-30000-int32", QStringLiteral("geheim7")},
                     {"version-30100", QStringLiteral("correct horse")},
                     {"version-30301", QStringLiteral("correct horse")}};
    for (const auto &c : documents) {
        SCOPED_TRACE(c.name);
        const QString name = QLatin1String(c.name) + QStringLiteral(".vexcards");
        const QString path = pathOf(name);
        ASSERT_TRUE(QFile::copy(QStringLiteral(VEXAREL_TEST_DATA "/documents/") + name, path));
        openDocument(path);
        unlock(QStringLiteral("wrong password"));
        EXPECT_EQ(nextAlert().value(0), u"Wrong Password");
        press(Qt::Key_Return);
        ASSERT_TRUE(windowIsActive());
        press(Qt::Key_A, Qt::ControlModifier);
        unlock(c.password);
        ASSERT_TRUE(document()->isDecrypted());
        EXPECT_FALSE(document()->isDocumentEdited());
        window()->grab();
        addContact(QStringLiteral("Neu"), QStringLiteral("Ångström"));
        save();
        QProcess reader;
        reader.start(QStringLiteral("/usr/bin/python3"),
                     {QStringLiteral(VEXAREL_SOURCE_DIR "/tests/core/read_document.py"), path, c.password});
        ASSERT_TRUE(reader.waitForFinished(-1));
        EXPECT_EQ(reader.exitCode(), 0) << reader.readAllStandardError().constData();
        const QByteArray read = reader.readAllStandardOutput();
        EXPECT_TRUE(read.contains(R"("lastName":"\u00c5ngstr\u00f6m")"));
        // After a lock it is a current document, whatever the file was.
        document()->doLockDocument();
        unlock(c.password);
        ASSERT_TRUE(document()->isDecrypted());
        const QByteArray shown = json().replace("$real32", "$real"); // That program knows one kind of reals.
        EXPECT_EQ(QJsonDocument::fromJson(read).toJson().toStdString(),
                  QJsonDocument::fromJson(shown).toJson().toStdString());
        document()->close();
        ASSERT_TRUE(eventually([this] { return document() == nullptr; }));
    }
}

} // namespace
