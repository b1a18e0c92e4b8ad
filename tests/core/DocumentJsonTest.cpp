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
    const std::tuple<Value, const char *> cases[] = {
        {Value(std::numeric_limits<qint64>::min()), R"({"$int":"-9223372036854775808"})"},
        {Value(0.0001), R"({"$real":0.0001})"},
        {Value(0.00001), R"({"$real":1e-05})"},
        {Value(9007199254740994.0), R"({"$real":9007199254740994.0})"},
        {Value(1e16), R"({"$real":1e+16})"},
        {Value(Infinite), R"({"$real":Infinity})"},
        {Value(-Infinite), R"({"$real":-Infinity})"},
        {Value(std::numeric_limits<double>::quiet_NaN()), R"({"$real":NaN})"},
        {Value(0.1F), R"({"$real32":0.10000000149011612})"},
        {u"a\"\\/\n\u0001\u007f"_qs, R"("a\"\\/\n\u0001\u007f")"},
    };
    for (const auto &[value, json] : cases)
        EXPECT_EQ(jsonOfValue(value).toStdString(), json);
}

} // namespace
