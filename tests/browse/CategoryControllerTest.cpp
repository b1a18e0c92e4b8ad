#include "browse/VLColoredCategoryArrayController.h"
#include "core/RecordModel.h"
#include "support/Printers.h"

#include <gtest/gtest.h>

using Foundation::Value;

namespace
{

QString nameOf(const Foundation::ArrayController::Object &category)
{
    return category->value(CategoryKey::cat_category).stringValue();
}

qint64 idOf(const VLColoredCategoryArrayController::Object &category)
{
    return category->value(CategoryKey::cat_uniqueID).longValue();
}

TEST(CategoryController, NamesAndIdsAreTheFirstFreeOnes)
{
    VLColoredCategoryArrayController categories;
    const auto first = categories.addDefault({});
    const auto second = categories.addDefault({});
    const auto third = categories.addWithName(u"generic"_qs);
    EXPECT_EQ(nameOf(first), u"Generic");
    EXPECT_EQ(idOf(first), 1);
    EXPECT_EQ(nameOf(second), u"Generic 1");
    EXPECT_EQ(idOf(second), 2);
    EXPECT_EQ(idOf(third), 3);
    categories.removeObject(second);
    const auto again = categories.addDefault({}); // The freed name and id are given again.
    EXPECT_EQ(nameOf(again), u"Generic 1");
    EXPECT_EQ(idOf(again), 2);
    EXPECT_EQ(categories.getLastCategory(), again);
    categories.addWithName(u"%1 %2"_qs);
    EXPECT_EQ(categories.unusedCategoryNameWithPostfix(u"%1 %2"_qs), u"%1 %2 1");
}

TEST(CategoryController, ANameIsTheFirstFreeOneWhateverTheirOrder)
{
    VLCategoryArrayController rows;
    auto content = Foundation::Array::create();
    for (const QString &name : {u"Untitled 1"_qs, u"Untitled"_qs, u"Untitled 3"_qs}) {
        auto row = Foundation::Dictionary::create();
        row->setValue(CategoryKey::cat_category, name);
        content->values.emplace_back(row);
    }
    rows.setContent(content);
    EXPECT_EQ(nameOf(rows.newObject()), u"Untitled 2");
    EXPECT_EQ(rows.unusedCategoryNameWithPostfix(u"untitled"_qs), u"untitled");
    for (int number = 2; number <= 31'999; ++number) {
        content->values.push_back(Foundation::Dictionary::create());
        content->values.back().dictionary()->setValue(CategoryKey::cat_category,
                                                      u"Untitled %1"_qs.arg(number));
        if (number < 31'998)
            continue;
        rows.rearrangeObjects();
        EXPECT_EQ(nameOf(rows.newObject()), u"Untitled 31999") << "the last number tried, free or not";
    }
}

TEST(CategoryController, CountsMoveOnlyForCategoriesOfTheList)
{
    VLColoredCategoryArrayController categories;
    const auto category = categories.addDefault({});
    const auto stranger = categories.newObject();
    EXPECT_TRUE(categories.incrementObj(category, 3));
    EXPECT_FALSE(categories.incrementObj(stranger, 3));
    EXPECT_TRUE(categories.incrementObjUsingThisInCategoryWithUniqueID(1, -1));
    EXPECT_FALSE(categories.incrementObjUsingThisInCategoryWithUniqueID(9, -1));
    EXPECT_EQ(category->value(CategoryKey::cat_howManyUsingThis).intValue(), 2);
    // 0 stands for a missing id, even where a damaged category bears it.
    category->setValue(CategoryKey::cat_uniqueID, Value());
    EXPECT_FALSE(categories.incrementObjUsingThisInCategoryWithUniqueID(0, 1));
    EXPECT_EQ(categories.categoryWithTitle(u"Generic"_qs), category);
    EXPECT_EQ(categories.categoryWithTitle(u"GENERIC"_qs), nullptr);
}

} // namespace
