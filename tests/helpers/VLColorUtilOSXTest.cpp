#include "helpers/VLColorUtilOSX.h"

#include <gtest/gtest.h>

using namespace Foundation;

namespace
{

Ref<Dictionary> dictionaryOf(const Value &r, const Value &g, const Value &b, const Value &a)
{
    auto dict = Dictionary::create();
    dict->setValue(u"r", r);
    dict->setValue(u"g", g);
    dict->setValue(u"b", b);
    dict->setValue(u"a", a);
    return dict;
}

} // namespace

TEST(ColourDictionary, IsReadInSinglePrecision)
{
    const std::tuple<const char *, Ref<Dictionary>, Color> cases[] = {
        {"doubles narrow",
         dictionaryOf(0.1, 0.75, 1.0 / 3.0, 1.0),
         {double(0.1F), 0.75, double(1.0F / 3.0F), 1.0}},
        {"what is absent is 0", dictionaryOf({}, 0.5, {}, {}), {0, 0.5, 0, 0}},
        {"no dictionary", nullptr, {0, 0, 0, 0}},
        {"numbers outside", dictionaryOf(-3.0, 1e308, 1.5, std::nan("")), {0, 1, 1, 0}},
    };
    for (const auto &[rule, dict, color] : cases)
        EXPECT_EQ(VLColorUtilOSX::NSColorFromDict(dict), color) << rule;
}

TEST(ColourDictionary, IsWrittenInDoublePrecision)
{
    const auto dict = VLColorUtilOSX::dictFromNSColor({.red = 0.1, .green = 0.2, .blue = 0.3, .alpha = 0.4});
    const auto expected = dictionaryOf(0.1, 0.2, 0.3, 0.4);
    ASSERT_EQ(dict->count(), expected->count());
    for (const auto &entry : expected->entries())
        EXPECT_EQ(dict->value(entry.key), entry.value) << qPrintable(entry.key.name());
}
