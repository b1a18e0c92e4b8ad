#include "DocumentJson.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{

using namespace Foundation;

constexpr double Infinite = std::numeric_limits<double>::infinity();

// The numbers as Python 3.11 prints them.
TEST(DocumentJson, TellsTheKindsOfValuesApart)
{
    auto dictionary = Dictionary::create();
    dictionary->setValue(u"a\"b", Array::create({Value(), Value::archivedNull(), Value(Array::create())}));
    const struct
    {
        Value value;
        const char *json;
    } cases[] = {
        {Value::archivedNull(), "null"},
        {Value(std::numeric_limits<qint64>::min()), R"({"$int":"-9223372036854775808"})"},
        {Value(std::numeric_limits<quint64>::max()), R"({"$int":"18446744073709551615"})"},
        {Value(-0.0), R"({"$real":-0.0})"},
        {Value(0.0001), R"({"$real":0.0001})"},
        {Value(0.00001), R"({"$real":1e-05})"},
        {Value(-2214564421.000174), R"({"$real":-2214564421.000174})"},
        {Value(9007199254740994.0), R"({"$real":9007199254740994.0})"},
        {Value(1e16), R"({"$real":1e+16})"},
        {Value(5e-324), R"({"$real":5e-324})"},
        {Value(1.7976931348623157e308), R"({"$real":1.7976931348623157e+308})"},
        {Value(Infinite), R"({"$real":Infinity})"},
        {Value(-Infinite), R"({"$real":-Infinity})"},
        {Value(std::numeric_limits<double>::quiet_NaN()), R"({"$real":NaN})"},
        {Value(0.1F), R"({"$real32":0.10000000149011612})"},
        {QByteArray::fromHex("0001ff"), R"({"$data":"AAH/"})"},
        {u"a\"\\/\n\u0001\u007f"_qs, R"("a\"\\/\n\u0001\u007f")"},
        {QString(QChar(0xD83D)), R"("\ud83d")"},
        {dictionary, R"({"$dict":{"a\"b":[null,null,[]]}})"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(jsonOfValue(c.value).toStdString(), c.json);
}

} // namespace
