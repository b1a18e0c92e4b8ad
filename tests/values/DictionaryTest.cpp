#include "values/Dictionary.h"

#include "support/Describe.h"
#include "support/Printers.h"

#include <gtest/gtest.h>

using namespace Foundation;

namespace
{

QString numbered(int i)
{
    return u"key%1"_qs.arg(i);
}

Ref<Dictionary> numberedDictionary(int count)
{
    auto dictionary = Dictionary::create();
    for (int i = 0; i < count; ++i)
        dictionary->setValue(numbered(i), Value(i));
    return dictionary;
}

TEST(Dictionary, KeepsTheOrderInWhichKeysWereFirstSet)
{
    auto dictionary = Dictionary::create();
    dictionary->setValue(u"b", Value(1));
    dictionary->setValue(u"a", Value(2));
    dictionary->setValue(u"c", Value(3));
    dictionary->setValue(u"b", Value(4));
    EXPECT_EQ(describe(Value(dictionary)), "{b=i32:4 a=i32:2 c=i32:3}");
    dictionary->setValue(u"a", Value());
    dictionary->setValue(u"absent", Value());
    EXPECT_EQ(describe(Value(dictionary)), "{b=i32:4 c=i32:3}");
    EXPECT_FALSE(dictionary->contains(Key(u"a")));
    EXPECT_TRUE(dictionary->value(u"a").isNull());
    dictionary->setValue(u"a", Value::archivedNull());
    EXPECT_EQ(describe(Value(dictionary)), "{b=i32:4 c=i32:3 a=nil}") << "only Null removes";
}

// Around the number of keys from which on an index is kept.
TEST(Dictionary, FindsEveryKeyOnBothSidesOfItsIndex)
{
    const int threshold = int(Dictionary::IndexThreshold);
    for (const int count : {threshold - 1, threshold, threshold + 1, threshold + 2, 10 * threshold}) {
        SCOPED_TRACE(count);
        const auto dictionary = numberedDictionary(count);
        const auto copy = dictionary->copy();
        for (int i = 0; i < count; i += 3)
            dictionary->setValue(numbered(i), Value());
        dictionary->setValue(u"new", Value(-1));
        for (int i = 0; i < count; ++i) {
            EXPECT_EQ(dictionary->value(numbered(i)), i % 3 == 0 ? Value() : Value(i));
            EXPECT_EQ(copy->value(numbered(i)), Value(i));
        }
        EXPECT_EQ(dictionary->count(), count - (count + 2) / 3 + 1);
        EXPECT_EQ(dictionary->value(u"new"), Value(-1));
        EXPECT_EQ(dictionary->entries().back().key.name(), u"new"_qs);
        EXPECT_EQ(copy->count(), count);
    }
}

TEST(Dictionary, FollowsDottedPaths)
{
    const auto root = Dictionary::create();
    const auto category = numberedDictionary(1);
    root->setValue(u"category", Value(category));
    root->setValue(u"text", Value(u"x"_qs));
    root->setValue(u"", Value(category));
    const std::tuple<QString, Value> cases[] = {
        {u"text"_qs, Value(u"x"_qs)},        {u"category"_qs, Value(category)},
        {u"category.key0"_qs, Value(0)},     {u"category.absent"_qs, Value()},
        {u"absent.key0"_qs, Value()},        {u"text.key0"_qs, Value()},
        {u"category.key0.more"_qs, Value()}, {u".key0"_qs, Value(0)},
        {u"category."_qs, Value()},          {u""_qs, Value(category)},
    };
    for (const auto &[path, value] : cases)
        EXPECT_EQ(root->valueForKeyPath(path), value) << qPrintable(path);
}

// What is removed or replaced may be the last owner of the dictionary itself.
TEST(Dictionary, SurvivesLosingItsLastOwner)
{
    for (const Value &replacement : {Value(), Value(1)}) {
        const Key witness(u"a name that only the dictionary bears besides");
        Dictionary *dictionary = nullptr;
        {
            const auto made = Dictionary::create();
            dictionary = made.get();
            made->setValue(witness, Value(true));
            made->setValue(u"self", Value(made));
        }
        EXPECT_FALSE(witness.isOnly());
        dictionary->setValue(u"self", replacement);
        EXPECT_TRUE(witness.isOnly()) << "gone with the value";
    }
}

} // namespace
