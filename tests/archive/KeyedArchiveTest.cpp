#include "archive/KeyedArchive.h"

#include "archive/PropertyList.h"
#include "support/Describe.h"
#include "support/Printers.h"
#include "support/PropertyListBuilder.h"
#include "values/Array.h"
#include "values/Dictionary.h"

#include <gtest/gtest.h>

#include <QFileInfo>
#include <QProcess>

#include <functional>
#include <limits>

using namespace Foundation;

namespace
{

using Uid = KeyedArchiveBuilder::Uid;

std::string unarchived(const std::function<Uid(KeyedArchiveBuilder &)> &build)
{
    KeyedArchiveBuilder archive;
    const Uid root = build(archive);
    const QByteArray bytes = archive.bytes(root);
    const auto value = unarchivedRoot(bytes);
    EXPECT_EQ(canBeUnarchived(bytes), value.has_value());
    return describe(value);
}

Value texts(std::initializer_list<std::u16string_view> all)
{
    std::vector<Value> values;
    for (const auto &text : all)
        values.push_back(Value::fromUtf16(text.data(), qsizetype(text.size())));
    return Value(Array::create(std::move(values)));
}

TEST(KeyedArchive, ReadsEachClassInEachForm)
{
    using Builder = KeyedArchiveBuilder;
    const auto made = [](QByteArrayView className, QByteArrayView field, auto content) {
        return [=](Builder &a) {
            return a.place(a.instance({{field, content(a)}}, a.describedClass(className)));
        };
    };
    // An instance with the fields of arrays and of data.
    const auto ofClass = [](QByteArrayView className, QByteArrayView ancestor = "NSObject") {
        return [=](Builder &a) {
            const auto items = a.referencesTo({a.text("x")});
            return a.place(a.instance({{"NS.objects", items}, {"NS.data", a.list.data("y")}},
                                      a.describedClass(className, {ancestor, "NSObject"})));
        };
    };
    const auto bare = [](auto content) { return [=](Builder &a) { return a.place(content(a.list)); }; };
    const std::tuple<const char *, std::function<Uid(Builder &)>, const char *> cases[] = {
        {"the null object at the root is nothing", [](Builder &) { return 0; }, "null"},
        {"in a list it is the archived null", [](Builder &a) { return a.array({0}); }, "[nil]"},
        {"its name elsewhere is a text",
         [](Builder &a) {
             return a.array({a.text("$null"), a.text("")});
         },
         "[\"$null\" \"\"]"},
        {"bare number", bare([](auto &list) { return list.integer(7, 2); }), "i64:7"},
        {"bare date", bare([](auto &list) { return list.date(-1.5); }), "date:-0x1.8p+0"},
        {"text in a field", made("NSString", "NS.string", [](Builder &a) { return a.list.units(u"\u00e9"); }),
         "\"\\u00e9\""},
        {"text behind a field",
         made("NSString", "NS.string", [](Builder &a) { return a.referenceTo(a.text("b")); }), "\"b\""},
        {"characters of a styled text",
         made("NSAttributedString", "NSString", [](Builder &a) { return a.referenceTo(a.text("s")); }),
         "\"s\""},
        {"UTF-8 in a field", made("NSString", "NS.bytes", [](Builder &a) { return a.list.data("\xC3\xA9"); }),
         "\"\\u00e9\""},
        {"a number for a text",
         made("NSString", "NS.string", [](Builder &a) { return a.list.integer(1, 1); }), "refused"},
        {"a text without a field", made("NSString", "NS.other", [](Builder &a) { return a.list.ascii("a"); }),
         "refused"},
        {"data in a field", made("NSData", "NS.data", [](Builder &a) { return a.list.data("ab"); }),
         "<6162>"},
        {"a number for data", made("NSData", "NS.data", [](Builder &a) { return a.list.integer(1, 1); }),
         "refused"},
        {"data behind a field",
         made("NSData", "NS.data", [](Builder &a) { return a.referenceTo(a.place(a.list.data(""))); }), "<>"},
        {"data by its other name", made("NSData", "NS.bytes", [](Builder &a) { return a.list.data("ab"); }),
         "<6162>"},
        {"date", made("NSDate", "NS.time", [](Builder &a) { return a.list.real64(0.25); }), "date:0x1p-2"},
        {"date of a whole number", made("NSDate", "NS.time", [](Builder &a) { return a.list.integer(3, 1); }),
         "date:0x1.8p+1"},
        {"date of a text", made("NSDate", "NS.time", [](Builder &a) { return a.list.ascii("3"); }),
         "refused"},
        {"array", ofClass("NSArray"), "[\"x\"]"},
        {"mutable data", ofClass("NSMutableData"), "<79>"},
        {"null", ofClass("NSNull"), "nil"},
        {"unknown class", ofClass("NSSet"), "refused"},
        {"subclass", ofClass("VLList", "NSMutableArray"), "[\"x\"]"},
        {"a text as class", [](Builder &a) { return a.place(a.instance({}, a.text("NSNull"))); }, "refused"},
        {"a class that is not there", [](Builder &a) { return a.place(a.instance({}, 99)); }, "refused"},
        {"a dictionary without class", bare([](auto &list) { return list.dictionary({}, {}); }), "refused"},
        {"a bare array", bare([](auto &list) { return list.array({}); }), "refused"},
        {"a UID that is not there", [](Builder &a) { return a.nextUid(); }, "refused"},
        {"dictionary", [](Builder &a) { return a.dictionary({a.text("k"), a.text("")}, {0, a.text("v")}); },
         "{k=nil =\"v\"}"},
        {"the last of equal keys counts",
         [](Builder &a) { return a.dictionary({a.text("k"), a.text("k")}, {a.text("v"), a.text("w")}); },
         "{k=\"w\"}"},
        {"fewer values than keys", [](Builder &a) { return a.dictionary({a.text("k")}, {}); }, "refused"},
        {"fewer keys than values", [](Builder &a) { return a.dictionary({}, {0}); }, "refused"},
        {"a key that is no text",
         [](Builder &a) { return a.dictionary({a.place(a.list.integer(1, 1))}, {0}); }, "refused"},
    };
    for (const auto &[rule, build, description] : cases)
        EXPECT_EQ(unarchived(build), description) << rule;
}

TEST(KeyedArchive, NeedsTheFrameOfAnArchive)
{
    const QByteArray objects = "<key>$objects</key><array><string>$null</string><string>a</string></array>";
    const QByteArray root = "<key>root</key><dict><key>CF$UID</key><integer>1</integer></dict>";
    const QByteArray top = "<key>$top</key><dict>" + root + "</dict>";
    const std::tuple<const char *, QByteArray, const char *> cases[] = {
        {"as it should be", top + objects, "\"a\""},
        {"no objects", top, "refused"},
        {"objects that are no list", top + "<key>$objects</key>" + "<string>a</string>", "refused"},
        {"no top", objects, "refused"},
        {"a top that is no dictionary", objects + "<key>$top</key><array/>", "refused"},
        {"a root that is no reference",
         objects + "<key>$top</key><dict><key>root</key><integer>1</integer></dict>", "refused"},
    };
    for (const auto &[rule, content, description] : cases) {
        SCOPED_TRACE(rule);
        EXPECT_EQ(describe(unarchivedRoot("<plist><dict>" + content + "</dict></plist>")), description);
    }
    for (const char *bytes : {"", "bplist00", "no archive", "<plist><array/></plist>"})
        EXPECT_EQ(describe(unarchivedRoot(bytes)), "refused") << bytes;
}

TEST(KeyedArchive, GivesBackWhatWasArchived)
{
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    const auto inner = Dictionary::create();
    inner->setValue(u"nil", Value::archivedNull());
    inner->setValue(u"", texts({}));
    inner->setValue(u"a longer key \u00e9", Value(Dictionary::create()));
    const auto list = [](std::vector<Value> values) { return Value(Array::create(std::move(values))); };
    std::vector<Value> numbers; // beyond 255 they take two bytes, as the references to so many objects do
    for (qint64 number = -1; number < 300; ++number)
        numbers.insert(numbers.end(), 2, Value(number));
    const Value cases[] = {
        {},
        list(numbers),
        list({Value(1.5F), Value(0.1), Value(-0.0), Value(-0.0F), Value(5e-324), Value(std::nan(""))}),
        list({Value::date(-0.5), Value::date(0), Value::date(1e12 + 0.125), Value::date(Infinity)}),
        texts({u"a\r\nb\r", u"\ufeffx", u"e\u0301", u"\xD800", u"\xDC00\xD800", {u"\u00e9\0 long text", 12}}),
        list({Value(QByteArray("")), Value(QByteArray("\0\xFF", 2)), Value(QByteArray(300, 'x'))}),
        Value(inner),
        list({list({Value(inner), list({})}), Value::archivedNull()}),
    };
    for (const Value &value : cases) {
        const QByteArray bytes = archivedData(value);
        const auto again = unarchivedRoot(bytes);
        EXPECT_EQ(describe(again), describe(value));
        EXPECT_EQ(archivedData(again.value_or(Value())), bytes);
    }
    // What the format cannot tell apart.
    EXPECT_EQ(describe(unarchivedRoot(archivedData(Value(qint32(-5))))), "i64:-5");
    EXPECT_EQ(describe(unarchivedRoot(archivedData(Value(Array::create({Value()}))))), "[nil]");
}

TEST(KeyedArchive, WritesSharedObjectsOnceAndKeepsThemShared)
{
    const auto category = Dictionary::create();
    const Value note(u"a note of more than fourteen characters"_qs);
    category->setValue(u"name", note);
    const auto first = Dictionary::create();
    const auto second = Dictionary::create();
    for (const auto &record : {first, second}) {
        record->setValue(u"category", Value(category));
        record->setValue(u"note", note);
    }
    const QByteArray bytes = archivedData(Value(Array::create({Value(first), Value(second), Value(first)})));
    EXPECT_EQ(bytes.count("a note of"), 1);
    const auto root = unarchivedRoot(bytes);
    ASSERT_TRUE(root);
    const auto records = root->array();
    EXPECT_EQ(records->at(0), records->at(2));
    EXPECT_FALSE(records->at(0) == records->at(1));
    EXPECT_EQ(records->at(0).dictionary()->value(u"category"),
              records->at(1).dictionary()->value(u"category"));
    EXPECT_EQ(archivedData(*root), bytes);
    EXPECT_EQ(archivedData(records->at(1)).count("a note of"), 1)
        << "what another walk left behind is no hindrance";
}

// One object of the list under two UIDs is two mutable dictionaries, met in any order; texts may be shared.
TEST(KeyedArchive, MakesOneObjectForEachUid)
{
    KeyedArchiveBuilder archive;
    const auto shared = archive.bareDictionary({archive.text("k")}, {0});
    const Uid one = archive.place(shared);
    const Uid other = archive.place(shared);
    const auto text = archive.list.ascii("a text of more than fourteen characters");
    const Uid root = archive.array({one, other, one, other, archive.place(text), archive.place(text)});
    const auto value = unarchivedRoot(archive.bytes(root));
    ASSERT_TRUE(value);
    const auto items = value->array();
    EXPECT_EQ(items->at(0), items->at(2));
    EXPECT_EQ(items->at(1), items->at(3));
    EXPECT_FALSE(items->at(0) == items->at(1));
    EXPECT_EQ(describe(items->at(0)), "{k=nil}");
    EXPECT_EQ(items->at(4), items->at(5));
}

// Sends bytes through another program. Nothing if it is not on this machine.
std::optional<QByteArray> throughProgram(const QString &program, const QStringList &arguments,
                                         const QByteArray &input)
{
    if (!QFileInfo(program).isExecutable())
        return std::nullopt;
    QProcess process;
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished(-1));
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
    return process.readAllStandardOutput();
}

TEST(KeyedArchive, WritesTheFrameAndTheClassesOfThePublicFormat)
{
    const auto record = Dictionary::create();
    record->setValue(u"created", Value::date(-1.5));
    record->setValue(u"nil", Value::archivedNull());
    EXPECT_EQ(
        describe(readPropertyList(archivedData(Value(Array::create({Value(record)}))))),
        R"({$version=i64:100000 $archiver="NSKeyedArchiver" $top={root={CF$UID=i64:1}} $objects=["$null" )"
        R"({NS.objects=[{CF$UID=i64:2}] $class={CF$UID=i64:8}} {NS.keys=[{CF$UID=i64:3} {CF$UID=i64:4}] )"
        R"(NS.objects=[{CF$UID=i64:5} {CF$UID=i64:6}] $class={CF$UID=i64:7}} "created" "nil" )"
        R"({NS.time=f64:-0x1.8p+0 $class={CF$UID=i64:9}} {$class={CF$UID=i64:10}} )"
        R"({$classname="NSMutableDictionary" $classes=["NSMutableDictionary" "NSDictionary" "NSObject"]} )"
        R"({$classname="NSMutableArray" $classes=["NSMutableArray" "NSArray" "NSObject"]} )"
        R"({$classname="NSDate" $classes=["NSDate" "NSObject"]} )"
        R"({$classname="NSNull" $classes=["NSNull" "NSObject"]}]})");
}

// Other writers choose other widths, orders and ways to share.
TEST(KeyedArchive, ReadsWhatIndependentWritersMakeOfIt)
{
    const auto record = Dictionary::create();
    record->setValue(u"name", Value(u"Z\u00fcrich \U0001F600"_qs));
    record->setValue(u"created", Value::date(-1.5));
    record->setValue(u"isCompany", Value(true));
    record->setValue(u"large", Value(quint64(1) << 63));
    record->setValue(u"half", Value(0.5));
    record->setValue(u"salt", Value(QByteArray("\x00\xFF", 2)));
    const Value document(Array::create({Value(record), Value(record), Value(u""_qs), Value::archivedNull()}));
    const QByteArray bytes = archivedData(document);
    const QString script = u"import plistlib, sys\n"
                           "archive = plistlib.loads(sys.stdin.buffer.read())\n"
                           "sys.stdout.buffer.write(plistlib.dumps(archive, fmt=plistlib.FMT_BINARY))"_qs;
    const std::optional<QByteArray> rewritten[] = {
        throughProgram(u"/usr/bin/python3"_qs, {u"-c"_qs, script}, bytes),
        throughProgram(u"/usr/bin/plistutil"_qs, {u"-i"_qs, u"-"_qs, u"-f"_qs, u"xml"_qs}, bytes),
    };
    for (const auto &file : rewritten) {
        if (!file)
            GTEST_SKIP() << "no python3 or no plistutil here";
        EXPECT_EQ(describe(unarchivedRoot(*file)), describe(document)) << file->left(200).constData();
    }
}

} // namespace
