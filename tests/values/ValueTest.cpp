#include "support/Describe.h"
#include "support/Printers.h"
#include "values/Array.h"
#include "values/Dictionary.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Foundation;

namespace
{

constexpr qint32 IntMax = std::numeric_limits<qint32>::max();
constexpr qint32 IntMin = std::numeric_limits<qint32>::min();
constexpr qint64 LongMax = std::numeric_limits<qint64>::max();
constexpr qint64 LongMin = std::numeric_limits<qint64>::min();
constexpr double Infinity = std::numeric_limits<double>::infinity();

TEST(Value, ReadsAsTheNumberAskedFor)
{
    const struct
    {
        const char *rule;
        Value value;
        qint64 asLong;
        qint32 asInt;
        qint16 asShort;
        double asDouble;
        bool asBool;
    } cases[] = {
        {"null reads zero", {}, 0, 0, 0, 0, false},
        {"so does the archived null", Value::archivedNull(), 0, 0, 0, 0, false},
        {"and what is no number", Value(Array::create()), 0, 0, 0, 0, false},
        {"true is one", Value(true), 1, 1, 1, 1, true},
        {"narrowing keeps 16 bits", Value(65539), 65539, 65539, 3, 65539, true},
        {"and 32", Value(qint64(0x1'0000'7788)), 0x1'0000'7788, 0x7788, 0x7788, 4294997896.0, true},
        {"negative", Value(-2), -2, -2, -2, -2, true},
        {"beyond the signed range, the bits", Value(~quint64(0)), -1, -1, -1, 18446744073709551615.0, true},
        {"a real is cut toward zero", Value(-2.9), -2, -2, -2, -2.9, true},
        {"a small one is true and cut to 0", Value(0.5F), 0, 0, 0, 0.5, true},
        {"minus zero is false", Value(-0.0), 0, 0, 0, -0.0, false},
        {"a huge real is held at the end", Value(-Infinity), LongMin, 0, 0, -Infinity, true},
        {"2^63 is the first too large", Value(0x1p63), LongMax, -1, -1, 0x1p63, true},
        {"text: number behind blanks", Value(u" \t+12abc"_qs), 12, 12, 12, 12, true},
        {"text: negative fraction", Value(u"-3.75e1x"_qs), -3, -3, -3, -37.5, true},
        {"text: no number", Value(u"phone 5"_qs), 0, 0, 0, 0, false},
        {"text: two signs are none", Value(u"+-5"_qs), 0, 0, 0, 0, false},
        {"text: words for reals are no numbers", Value(u"infinity"_qs), 0, 0, 0, 0, false},
        {"text: no hexadecimal", Value(u"0x10"_qs), 0, 0, 0, 0, false},
        {"text: too large", Value(u"9223372036854775808"_qs), LongMax, IntMax, -1, 0x1p63, true},
        {"text: too small", Value(u"-9999999999999999999"_qs), LongMin, IntMin, 0, -1e19, true},
        {"text: real beyond range", Value(u"-1e999"_qs), -1, -1, -1, -Infinity, true},
        {"text: no digit of ours", Value(QString(u'\u0665')), 0, 0, 0, 0, false},
        {"text: yes", Value(u"Yes"_qs), 0, 0, 0, 0, true},
        {"text: t", Value(u" -00true"_qs), 0, 0, 0, -0.0, true},
        {"text: no", Value(u"no"_qs), 0, 0, 0, 0, false},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.rule);
        EXPECT_EQ(c.value.longValue(), c.asLong);
        EXPECT_EQ(c.value.intValue(), c.asInt);
        EXPECT_EQ(c.value.shortValue(), c.asShort);
        EXPECT_EQ(c.value.doubleValue(), c.asDouble);
        EXPECT_EQ(std::signbit(c.value.doubleValue()), std::signbit(c.asDouble));
        EXPECT_EQ(c.value.boolValue(), c.asBool);
    }
    EXPECT_EQ(Value(std::nan("")).longValue(), 0);
    EXPECT_EQ(Value(1e19).unsignedLongValue(), 10000000000000000000U);
    EXPECT_EQ(Value(1e308).unsignedLongValue(), ~quint64(0));
    EXPECT_EQ(Value(-1.0).unsignedLongValue(), ~quint64(0));
}

TEST(Value, KeepsTheKindThatItWasMadeWith)
{
    const std::tuple<Value, const char *> cases[] = {
        {Value(qint32(-7)), "i32:-7"},
        {Value(quint64(LongMax)), "i64:9223372036854775807"},
        {Value(quint64(LongMax) + 1), "u64:9223372036854775808"},
        {Value(1.5F), "f32:0x1.8p+0"},
        {Value(1.5), "f64:0x1.8p+0"},
        {Value::date(-0.5), "date:-0x1p-1"},
        {Value(QString()), "null"},
        {Value(u""_qs), "\"\""},
        {Value(QByteArray()), "null"},
        {Value(QByteArray("")), "<>"},
        {Value(Ref<Array>()), "null"},
    };
    for (const auto &[value, description] : cases)
        EXPECT_EQ(describe(value), description);
}

// Texts lie in the value or in a box, as ASCII or as units: at every length around the changes.
TEST(Value, KeepsEveryUnitOfATextOfAnyLength)
{
    const QString ascii = u"0123456789abcdef"_qs;
    const QString units[] = {u"\u00e9"_qs, u"e\u0301"_qs, QString(QChar(0xD800)), u"\ufeff"_qs,
                             QString(QChar(0xFFFF))};
    for (qsizetype size = 0; size <= ascii.size(); ++size) {
        const QString text = ascii.first(size);
        EXPECT_EQ(Value(text).stringValue(), text);
        EXPECT_TRUE(Value(text).isString());
        EXPECT_EQ(Value(text).text().size, size);
        EXPECT_EQ(Value(text), Value(QString(text)));
        for (const QString &unit : units) {
            const QString wide = text + QChar(0) + unit;
            EXPECT_EQ(Value(wide).stringValue(), wide);
            EXPECT_EQ(Value(wide), Value(QString(wide)));
            EXPECT_FALSE(Value(wide) == Value(text + QChar(0) + u'x'));
        }
    }
    EXPECT_FALSE(Value(u"12345"_qs) == Value(12345));
    EXPECT_FALSE(Value(qint32(1)) == Value(qint64(1)));
    EXPECT_FALSE(Value(true) == Value(1));
}

TEST(Value, SharesItsContentByReference)
{
    const auto array = Array::create({Value(1)});
    Value first(array);
    Value second = first;
    Value third = std::move(first);
    EXPECT_TRUE(first.isNull());
    third.array()->values.push_back(Value(u"a text that is longer than a value"_qs));
    EXPECT_EQ(describe(second), "[i32:1 \"a text that is longer than a value\"]");
    EXPECT_EQ(second, third);
    EXPECT_FALSE(second == Value(Array::create({Value(1)}))) << "containers are equal only to themselves";
    Value &self = third;
    third = self;
    third = std::move(self);
    EXPECT_EQ(third, second);
    // What a value holds may own that value.
    Value inner(Array::create({Value(Array::create({Value(QByteArray("x"))}))}));
    inner = Value(inner.array()->at(0));
    EXPECT_EQ(describe(inner), "[<78>]");
}

} // namespace
