#include "archive/PropertyList.h"

#include "support/Describe.h"
#include "support/Printers.h"
#include "support/PropertyListBuilder.h"
#include "values/Array.h"
#include "values/Dictionary.h"

#include <gtest/gtest.h>

#include <ctime>

using namespace Foundation;

namespace
{

QByteArray hex(const char *digits)
{
    return QByteArray::fromHex(digits);
}

// The bytes of single objects as the public format defines them. Written are the shortest forms.
struct ObjectCase
{
    const char *rule, *bytes, *description;
    bool isWritten = true;
};

const ObjectCase objectCases[] = {
    {"false", "08", "false"},
    {"true", "09", "true"},
    {"one byte has no sign", "10ff", "i64:255"},
    {"zero in eight bytes", "130000000000000000", "i64:0", false},
    {"four bytes have no sign", "12ffffffff", "i64:4294967295"},
    {"eight bytes have one", "13ffffffffffffffff", "i64:-1"},
    {"smallest", "138000000000000000", "i64:-9223372036854775808"},
    {"largest signed", "137fffffffffffffff", "i64:9223372036854775807"},
    {"2^63 takes sixteen bytes", "1400000000000000008000000000000000", "u64:9223372036854775808"},
    {"largest unsigned", "140000000000000000ffffffffffffffff", "u64:18446744073709551615"},
    {"negative in sixteen bytes", "14fffffffffffffffffffffffffffffffe", "i64:-2", false},
    {"32-bit real", "22bf800000", "f32:-0x1p+0"},
    {"64-bit real", "233ff8000000000000", "f64:0x1.8p+0"},
    {"minus zero", "238000000000000000", "f64:-0x0p+0"},
    {"no number", "237ff8000000000000", "f64:nan"},
    {"date before 2001 with a fraction", "33bfe0000000000000", "date:-0x1p-1"},
    {"empty data", "40", "<>"},
    {"data", "42ff00", "<ff00>"},
    {"fifteen bytes need a long count", "4f100f000102030405060708090a0b0c0d0e",
     "<000102030405060708090a0b0c0d0e>"},
    {"fourteen characters", "5e3031323334353637383961626364", "\"0123456789abcd\""},
    {"fifteen", "5f100f303132333435363738396162636465", "\"0123456789abcde\""},
    {"a count of eight bytes", "5f13000000000000000361626300", "\"abc\"", false},
    {"the null object's name is a text", "55246e756c6c", "\"$null\""},
    {"seven units", "6700e9002000200020002000200020", "\"\\u00e9      \""},
    {"ASCII in units", "6200610062", "\"ab\"", false},
    {"lone surrogates", "63d800dc01d800", "\"\\ud800\\udc01\\ud800\""},
    {"a leading U+FEFF is text", "62feff0061", "\"\\ufeffa\""},
    {"UID", "8105ff", "{CF$UID=i64:1535}"},
    {"UID of eight bytes", "870000000100000000", "{CF$UID=i64:4294967296}"},
    {"UID of three", "82010000", "{CF$UID=i64:65536}", false},
    {"empty list", "a0", "[]"},
    {"empty dictionary", "d0", "{}"},
};

const struct
{
    const char *rule, *bytes;
} refusedObjects[] = {{"the format's null is no value", "00"},
                      {"no ASCII", "51e9"},
                      {"integer beyond 64 bits", "1400000000000000010000000000000000"},
                      {"negative beyond 64 bits", "14ffffffffffffffff0000000000000000"},
                      {"real of two bytes", "213c00"},
                      {"set", "c0"},
                      {"UID of nine bytes", "88000000000000000001"},
                      {"UID of sixteen bytes", "8f00000000000000000000000000000001"},
                      {"cut number", "13000000"},
                      {"cut units", "61e9"},
                      {"a long count that is no integer", "5f220000000061"},
                      {"a long count of sixteen bytes", "5f140000000000000000000000000000000161"},
                      {"a count far beyond the file", "4f13ffffffffffffffff"},
                      {"a list longer than the file", "af137fffffffffffffff"},
                      {"twice the pairs would wrap to few", "df138000000000000001"}};

TEST(BinaryPropertyList, ReadsAndWritesEachSortOfObject)
{
    const auto listOf = [](const char *bytes) {
        PropertyListBuilder list;
        list.referenceSize = list.offsetSize = 1;
        list.add(hex(bytes));
        return list.bytes(0);
    };
    for (const auto &c : objectCases) {
        SCOPED_TRACE(c.rule);
        const auto value = readPropertyList(listOf(c.bytes));
        EXPECT_EQ(describe(value), c.description);
        if (c.isWritten && value) {
            EXPECT_EQ(writeBinaryPropertyList(*value), listOf(c.bytes));
        }
    }
    for (const auto &c : refusedObjects)
        EXPECT_EQ(describe(readPropertyList(listOf(c.bytes))), "refused") << c.rule;
}

TEST(BinaryPropertyList, ReadsReferencesAndOffsetsOfEveryWidth)
{
    for (int width = 1; width <= 8; ++width) {
        for (int other = 1; other <= 8; ++other) {
            PropertyListBuilder list;
            list.referenceSize = width;
            list.offsetSize = other;
            const auto key = list.ascii("key");
            const auto number = list.integer(5, 1);
            const auto inner = list.array({number, key, number});
            const auto top = list.dictionary({key}, {inner});
            EXPECT_EQ(describe(readPropertyList(list.bytes(top))), "{key=[i64:5 \"key\" i64:5]}");
        }
    }
}

// The file says how wide its numbers are, how many objects it has, which is on top and where the offsets
// stand.
TEST(BinaryPropertyList, RefusesATrailerThatLies)
{
    PropertyListBuilder list;
    const auto text = list.ascii("text");
    const QByteArray good = list.bytes(list.array({text}));
    ASSERT_EQ(describe(readPropertyList(good)), "[\"text\"]");
    const auto objectsEnd = quint64(good.size() - 32 - 8);
    const std::tuple<int, int, std::vector<quint64>> lies[] = {
        {26, 1, {0, 9, 255}},
        {25, 1, {0, 4, 9}},
        {24, 8, {0, 1, 3, 1ULL << 60, 1ULL << 62, ~0ULL}},
        {16, 8, {2, ~0ULL}},
        {8, 8, {0, 7, objectsEnd + 1, ~0ULL, quint64(good.size())}},
    };
    for (const auto &[fromEnd, size, values] : lies) {
        for (const quint64 value : values) {
            QByteArray bytes = good;
            bytes.replace(bytes.size() - fromEnd, size, list.bigEndian(value, size));
            EXPECT_EQ(describe(readPropertyList(bytes)), "refused") << fromEnd << ' ' << value;
        }
    }
    for (const quint64 offset : {0ULL, 7ULL, (unsigned long long)objectsEnd, 0xFFFFFFFFULL}) {
        list.offsets[text] = offset;
        EXPECT_EQ(describe(readPropertyList(list.bytes(1))), "refused") << offset;
    }
}

TEST(BinaryPropertyList, SharesWhatTheFileShares)
{
    PropertyListBuilder list;
    const auto text = list.ascii("a text that is longer than a value");
    const auto inner = list.array({text, text});
    const auto value = readPropertyList(list.bytes(list.array({inner, inner, text})));
    ASSERT_TRUE(value);
    const auto outer = value->array();
    EXPECT_EQ(outer->at(0), outer->at(1));
    EXPECT_EQ(outer->at(0).array()->at(0).sharedObject(), outer->at(2).sharedObject());
    // Two of them and the text, written once each.
    EXPECT_EQ(writeBinaryPropertyList(*value).count("a text"), 1);
    EXPECT_EQ(describe(readPropertyList(writeBinaryPropertyList(*value))), describe(value));
}

// Near the limit of what may be shared, where nothing may be written of which a reader counts more than of
// what was read.
TEST(BinaryPropertyList, WritesWhatItReadSuchThatItIsReadAgain)
{
    PropertyListBuilder list;
    const PropertyListBuilder::Numbers keys = {list.ascii("k"), list.ascii("l")};
    auto nested = list.dictionary({list.ascii("CF$UID")}, {list.integer(1, 1)});
    for (int doublings = 0; doublings < 18; ++doublings)
        nested = list.dictionary(keys, {nested, nested});
    const auto value = readPropertyList(list.bytes(nested));
    ASSERT_TRUE(value);
    EXPECT_TRUE(readPropertyList(writeBinaryPropertyList(*value)));
}

TEST(BinaryPropertyList, WritesNullsAsTexts)
{
    const auto dictionary = Dictionary::create();
    dictionary->setValue(u"", Value::archivedNull());
    const Value list(Array::create({Value(), Value(dictionary)}));
    EXPECT_EQ(describe(readPropertyList(writeBinaryPropertyList(list))), "[\"$null\" {=\"$null\"}]");
}

QByteArray xml(const QByteArray &content)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n<plist version=\"1.0\">" +
           content + "</plist>\n";
}

TEST(XmlPropertyList, ReadsEachElementInAnyZone)
{
    const QByteArray zone = qgetenv("TZ");
    qputenv("TZ", "XYZ-9");
    tzset();
    const std::tuple<const char *, const char *> cases[] = {
        {"<string/>", "\"\""},
        {"<string> a &lt;&amp;&#65;\r\n</string>", "\" a <&A\\u000a\""},
        {"<string>\xF0\x9F\x98\x80</string>", "\"\\ud83d\\ude00\""},
        {"<string>a<!-- - -->b<![CDATA[<c>&d;]]><?e?></string>", "\"ab<c>&d;\""},
        {"<integer> -5 </integer>", "i64:-5"},
        {"<integer>+7</integer>", "i64:7"},
        {"<integer>0xfF</integer>", "i64:255"},
        {"<integer>18446744073709551615</integer>", "u64:18446744073709551615"},
        {"<real>-1.5e0</real>", "f64:-0x1.8p+0"},
        {"<real> NaN </real>", "f64:nan"},
        {"<real>+Infinity</real>", "f64:inf"},
        {"<true/>", "true"},
        {"<false></false>", "false"},
        {"<date>2001-01-01T00:00:10Z</date>", "date:0x1.4p+3"},
        {"<date>2001-01-01T00:00:10</date>", "date:0x1.4p+3"},
        {"<data>\n\tAQ ID\r\n\tBA==\n</data>", "<01020304>"},
        {"<data/>", "<>"},
        {"<array> <true/><array/>\n<dict/></array>", "[true [] {}]"},
        {"<dict><key>b</key><true/><key/><integer>1</integer></dict>", "{b=true =i64:1}"},
        {"<dict><key>a</key><true/><key>a</key><false/></dict>", "{a=false}"},
        {"<dict><key>CF$UID</key><integer>3</integer></dict>", "{CF$UID=i64:3}"},
    };
    for (const auto &[content, description] : cases)
        EXPECT_EQ(describe(readPropertyList(xml(content))), description) << content;
    zone.isNull() ? qunsetenv("TZ") : qputenv("TZ", zone);
    tzset();
    const char *const refused[] = {"<integer>18446744073709551616</integer>",
                                   "<integer>1.5</integer>",
                                   "<real>1,5</real>",
                                   "<date>2001-02-30T00:00:00Z</date>",
                                   "<data>A?</data>",
                                   "<data>\xC3\xA9</data>",
                                   "<dict><key>a</key></dict>",
                                   "<dict><key>a</key><key>b</key><true/></dict>",
                                   "<dict><true/></dict>",
                                   "<array><key>a</key></array>",
                                   "<string><true/></string>",
                                   "<array><string>a</array></string>",
                                   "<set/>",
                                   "<true/><true/>",
                                   "<plist><true/></plist>",
                                   "",
                                   "<string>a&undeclared;b</string>",
                                   "<array>&undeclared;</array>"};
    for (const char *content : refused)
        EXPECT_EQ(describe(readPropertyList(xml(content))), "refused") << content;
    EXPECT_EQ(describe(readPropertyList("<plist><true/></plist>")), "true");
    EXPECT_EQ(describe(readPropertyList("<true/>")), "refused");
    EXPECT_EQ(describe(readPropertyList("")), "refused");
    EXPECT_EQ(describe(readPropertyList(xml("<true/>") + "more")), "refused");
}

TEST(XmlPropertyList, ReadsFiveHundredTwelveLevelsAndNoMore)
{
    for (const int depth : {512, 513, 200'000}) {
        const QByteArray nested =
            QByteArray("<array>").repeated(depth) + QByteArray("</array>").repeated(depth);
        EXPECT_EQ(readPropertyList(xml(nested)).has_value(), depth <= 512) << depth;
    }
}

TEST(XmlPropertyList, FollowsTheEncoding)
{
    const QString text =
        u"\ufeff<?xml version=\"1.0\" encoding=\"UTF-16\"?><plist><string>\u00fc\u3c00</string></plist>"_qs;
    const char *expected = "\"\\u00fc\\u3c00\"";
    const QByteArray wide(reinterpret_cast<const char *>(text.utf16()), 2 * text.size());
    EXPECT_EQ(describe(readPropertyList(wide)), expected);
    EXPECT_EQ(describe(readPropertyList(wide.sliced(2))), expected) << "without a mark";
    const std::tuple<const char *, const char *> cases[] = {
        {"\xEF\xBB\xBF<plist><string>\xC3\xBC</string></plist>", "\"\\u00fc\""},
        {"<plist><string>\xFC</string></plist>", "refused"},
        {"<?xml version=\"1.0\" encoding=\"iso-8859-1\"?><plist><string>\xFC</string></plist>",
         "\"\\u00fc\""},
        {"<?xml version=\"1.0\" encoding=\"UTF-16\"?><plist><string>a</string></plist>", "refused"},
        {"<?xml version=\"1.0\" encoding=\"EBCDIC-US\"?><plist><string>a</string></plist>", "refused"},
    };
    for (const auto &[bytes, description] : cases)
        EXPECT_EQ(describe(readPropertyList(bytes)), description) << bytes;
}

// Nothing but the public document type is needed, and a few attributes at most.
TEST(XmlPropertyList, RefusesDeclarationsAndLongTags)
{
    QByteArray attributes;
    for (int i = 0; i < 300'000; ++i)
        attributes += " a" + QByteArray::number(i) + "='>'";
    const QByteArray cases[] = {
        "<!DOCTYPE plist [<!ENTITY a \"b\">]><plist><string>&a;</string></plist>",
        "<!DOCTYPE plist SYSTEM \"[\" [<!ENTITY a \"b\">]><plist><string>unused</string></plist>",
        "<plist><array" + attributes + "/></plist>",
    };
    for (const QByteArray &bytes : cases) {
        EXPECT_EQ(describe(readPropertyList(bytes)), "refused") << bytes.left(80).constData();
        const QString text = QString::fromUtf8("\xEF\xBB\xBF" + bytes);
        const QByteArray wide(reinterpret_cast<const char *>(text.utf16()), 2 * text.size());
        EXPECT_EQ(describe(readPropertyList(wide)), "refused") << bytes.left(80).constData();
    }
    const char *harmless[] = {
        "<!DOCTYPE plist SYSTEM \"[\"><plist><true/></plist>",
        "<!-- <!DOCTYPE plist [ --><plist a='[>' b=\"'>\"><true c=\"\"/></plist>",
        "<?a <![CDATA[ ?><plist><true/><!-- < --></plist>",
    };
    for (const char *bytes : harmless)
        EXPECT_EQ(describe(readPropertyList(bytes)), "true") << bytes;
}

} // namespace
