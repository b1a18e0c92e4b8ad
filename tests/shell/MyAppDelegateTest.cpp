#include "shell/MyAppDelegate.h"

#include "platform/UserDefaults.h"
#include "support/Printers.h"

#include <gtest/gtest.h>

namespace
{

TEST(MyAppDelegateTest, RegistersTenDefaultsBelowWhatTheUserSet)
{
    const QVariantHash defaults = MyAppDelegate::registeredDefaults();
    EXPECT_EQ(defaults.size(), 10);
    EXPECT_EQ(defaults.value(u"tableFontFamily"_qs), QVariant(u"Lucida Grande"_qs));

    MyAppDelegate::initialize();
    auto &settings = Foundation::UserDefaults::standardUserDefaults();
    const QString interval = u"autolocBackgroundInterval"_qs;
    EXPECT_EQ(settings.integerForKey(interval), 120);
    settings.setValue(interval, 31);
    MyAppDelegate::initialize();
    EXPECT_EQ(settings.integerForKey(interval), 31);
    settings.setValue(interval, QVariant());
    EXPECT_EQ(settings.integerForKey(interval), 120);
    EXPECT_FALSE(settings.value(u"StartupSelectedDocBookmark"_qs).isValid());
}

} // namespace
