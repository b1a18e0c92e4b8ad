#include "platform/UserDefaults.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QStandardPaths>

namespace
{

// What the toolkit complains about is a fault of ours, except for what drawing into memory cannot do, for
// printers that refuse, and for a machine without printers.
void failOnWarning(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    const bool isExpected = message.startsWith(u"This plugin does not support"_qs) ||
                            message == u"QPainter::begin(): Returned false" ||
                            message == u"QPageSetupDialog: Cannot be used on non-native printers";
    if (type != QtDebugMsg && !isExpected)
        ADD_FAILURE() << message.toStdString();
}

} // namespace

// Without a screen: windows are drawn into memory.
int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QStandardPaths::setTestModeEnabled(true);
    Foundation::UserDefaults::setStandardFile(u"vexarel/vexarel.conf"_qs);
    QApplication application(argc, argv);
    qInstallMessageHandler(failOnWarning);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
