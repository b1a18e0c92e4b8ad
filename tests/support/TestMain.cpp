#include "platform/UserDefaults.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QStandardPaths>

// The main function of the test programs without windows.
int main(int argc, char **argv)
{
    QStandardPaths::setTestModeEnabled(true);
    Foundation::UserDefaults::setStandardFile(QStringLiteral("vexarel/vexarel.conf"));
    QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
