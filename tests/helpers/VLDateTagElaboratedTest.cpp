#include "helpers/VLDateTagElaborated.h"

#include "support/Printers.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

TEST(DateTags, AreReplacedByThePresentMoment)
{
    const ManualClock clock(QDateTime(QDate(2123, 2, 9), QTime(15, 4, 6)));
    const std::tuple<const char *, QString, QString> cases[] = {
        {"each tag", u"<yy>|<YY>|<mm>|<dd>|<hh>|<ii>|<ss>"_qs, u"23|2123|02|09|15|04|06"_qs},
        {"everywhere", u"<dd><dd> <dd>"_qs, u"0909 09"_qs},
        {"letter case counts", u"<Yy><MM><DD><hH><II>"_qs, u"<Yy><MM><DD><hH><II>"_qs},
        {"brackets around a tag", u"<<yy>>"_qs, u"<23>"_qs},
    };
    for (const auto &[rule, text, replaced] : cases)
        EXPECT_EQ(VLDateTagElaborated().transformedValue(text).stringValue(), replaced) << rule;
}

TEST(DateTags, MakeAnEmptyTextOfNothing)
{
    for (const Foundation::Value &value : {Foundation::Value(), Foundation::Value(7)})
        EXPECT_EQ(VLDateTagElaborated().transformedValue(value), Foundation::Value(u""_qs));
}
