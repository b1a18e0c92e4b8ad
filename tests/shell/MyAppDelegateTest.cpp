#include "shell/MyAppDelegate.h"

#include "platform/UserDefaults.h"
#include "support/Printers.h"

#include <gtest/gtest.h>

namespace
{

TEST(MyAppDelegateTest, RegistersDefaultsBelowWhatTheUserSet)
{
    MyAppDelegate::initialize();
    auto &settings = Foundation::UserDefaults::standardUserDefaults();
    const QString interval = u"autolocBackgroundInterval"_qs;
    EXPECT_EQ(settings.integerForKey(interval), 120);
    settings.setValue(interval, 31);
    MyAppDelegate::initialize();
    EXPECT_EQ(settings.integerForKey(interval), 31);
    settings.setValue(interval, QVariant());
    EXPECT_EQ(settings.integerForKey(interval), 120);
}

} // namespace
