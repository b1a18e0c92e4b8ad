#include "lists/SortOrder.h"

#include "support/Printers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

using namespace Foundation;

namespace
{

using Objects = SortOrder::Objects;
using Positions = SortOrder::Positions;

Ref<Dictionary> named(const Value &name, const Ref<Dictionary> &category = nullptr)
{
    Ref<Dictionary> object = Dictionary::create();
    object->setValue(u"name", name);
    object->setValue(u"category", category);
    return object;
}

Positions all(const Objects &objects)
{
    Positions positions;
    for (quint32 i = 0; i < objects.size(); ++i)
        positions.push_back(i);
    return positions;
}

TEST(SortOrder, ComparesByKindAndLeavesTiesInTheOrderOfTheList)
{
    const std::tuple<const char *, std::vector<Value>, Positions, Positions> cases[] = {
        {"texts by the language", {u"zoe"_qs, u"Émile"_qs, u"eva"_qs, u"Eva"_qs}, {1, 2, 3, 0}, {0, 3, 2, 1}},
        {"numbers in texts by size", {u"eva 10"_qs, u"eva 9"_qs}, {1, 0}, {0, 1}},
        {"ties", {u"b"_qs, u"a"_qs, u"b"_qs, u"a"_qs}, {1, 3, 0, 2}, {0, 2, 1, 3}},
        {"absent ones first", {u"a"_qs, Value(), u""_qs}, {1, 2, 0}, {0, 1, 2}},
        {"numbers, one that is none as 0",
         {Value(2.0), Value(std::nan("")), Value(-1.0)},
         {2, 1, 0},
         {0, 1, 2}},
        {"dates", {Value::date(3), Value::date(-3), Value::date(0)}, {1, 2, 0}, {0, 2, 1}},
    };
    const QLocale former;
    QLocale::setDefault(QLocale::English);
    for (const auto &[rule, names, ascending, descending] : cases) {
        SCOPED_TRACE(rule);
        Objects objects;
        for (const Value &name : names)
            objects.push_back(named(name));
        for (const bool isAscending : {true, false}) {
            SortOrder order;
            order.setDescriptors({{u"name"_qs, isAscending}});
            Positions positions = all(objects);
            order.arrange(objects, positions);
            EXPECT_EQ(positions, isAscending ? ascending : descending);
        }
    }
    QLocale::setDefault(former);
}

TEST(SortOrder, TellsManyLongTextsByTheirLastLetters)
{
    // More long texts than the order keeps keys for, each of them shared by two objects.
    Objects objects;
    for (quint32 i = 0; i < 2500; ++i)
        objects.push_back(named(QString(80, u'n') + QString::number(9999 - i % 1250)));
    SortOrder order;
    order.setDescriptors({{u"name"_qs, true}});
    Positions positions = all(objects);
    order.arrange(objects, positions);
    for (quint32 i = 0; i < 2500; ++i)
        ASSERT_EQ(positions[i], 1249 - i / 2 + (i % 2) * 1250);
}

// Against the rule put plainly, over random changes of names, categories and the list.
TEST(SortOrder, FollowsEveryChange)
{
    std::mt19937 random(1);
    const auto below = [&random](std::size_t limit) { return std::size_t(random()) % limit; };
    const auto word = [&] { return Value(QString(QChar(u'a' + char16_t(below(6))))); };
    const Objects categories = {named(word()), named(word()), named(word())};
    Objects objects;
    for (int i = 0; i < 150; ++i)
        objects.push_back(named(word(), categories[below(3)]));
    SortOrder order;
    order.setDescriptors({{u"category.name"_qs, true}, {u"name"_qs, false}});
    for (int round = 0; round < 600; ++round) {
        const auto place = objects.begin() + std::ptrdiff_t(below(objects.size()));
        switch (below(6)) {
        case 0:
            categories[below(3)]->setValue(u"name", word());
            break;
        case 1:
            objects.insert(place, named(word(), categories[below(3)]));
            break;
        case 2:
            objects.erase(place);
            break;
        case 3:
            std::rotate(objects.begin(), place, objects.end());
            break;
        default:
            (*place)->setValue(u"name", word());
        }
        const std::size_t share = 1 + below(30);
        Positions shown = all(objects);
        std::erase_if(shown, [&](quint32) { return below(share) > 0; });
        Positions expected = shown;
        std::stable_sort(expected.begin(), expected.end(), [&objects](quint32 a, quint32 b) {
            const auto text = [&objects](quint32 i, QStringView path) {
                return objects[i]->valueForKeyPath(path).stringValue();
            };
            const int categoriesDiffer = text(a, u"category.name").compare(text(b, u"category.name"));
            return categoriesDiffer < 0 || (categoriesDiffer == 0 && text(a, u"name") > text(b, u"name"));
        });
        order.arrange(objects, shown);
        ASSERT_EQ(shown, expected) << round;
    }
}

} // namespace
