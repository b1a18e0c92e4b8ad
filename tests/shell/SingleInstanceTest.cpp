#include "shell/SingleInstance.h"

#include "support/Files.h"

#include <QCoreApplication>
#include <QLocalSocket>
#include <QTemporaryDir>

#include <future>

namespace
{

class SingleInstanceTest : public testing::Test
{
protected:
    SingleInstanceTest() { qputenv("XDG_RUNTIME_DIR", folder.path().toLocal8Bit()); }
    ~SingleInstanceTest() override { qunsetenv("XDG_RUNTIME_DIR"); }
    // In a thread, since both ends are one process here.
    bool handsOver(const QStringList &paths)
    {
        auto second = std::async(std::launch::async, [&paths] { return SingleInstance().handOver(paths); });
        while (second.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready)
            QCoreApplication::processEvents();
        return second.get();
    }

    QTemporaryDir folder;
};

TEST_F(SingleInstanceTest, ASecondStartHandsItsFilesOver)
{
    SingleInstance first;
    QList<QStringList> starts;
    QObject::connect(&first, &SingleInstance::startedAgain,
                     [&starts](const QStringList &paths) { starts.append(paths); });
    EXPECT_FALSE(first.handOver({u"a.vexcards"_qs}));
    EXPECT_TRUE(handsOver({u"/tmp/b ü.vexcards"_qs, u"c.vexcards"_qs}));
    EXPECT_TRUE(handsOver({}));
    ASSERT_EQ(starts.size(), 2);
    EXPECT_EQ(starts[0].value(0), u"/tmp/b ü.vexcards"_qs);
    EXPECT_TRUE(starts[0].value(1).startsWith(u'/')) << "the other has another working folder";
    EXPECT_TRUE(starts[1].isEmpty());
}

TEST_F(SingleInstanceTest, WhatACrashLeftBehindAndForeignTalkAreSurvived)
{
    putFile(folder.filePath(u"vexarel.socket"_qs), {});
    SingleInstance first;
    EXPECT_FALSE(first.handOver({}));
    int starts = 0;
    QObject::connect(&first, &SingleInstance::startedAgain, [&starts] { ++starts; });
    QLocalSocket foreign;
    foreign.connectToServer(folder.filePath(u"vexarel.socket"_qs));
    ASSERT_TRUE(foreign.waitForConnected(-1));
    foreign.write("\xff\xff\xff\xfe nonsense");
    foreign.flush();
    for (int turn = 0; turn < 50; ++turn)
        QCoreApplication::processEvents();
    EXPECT_EQ(starts, 0);
    EXPECT_TRUE(handsOver({})) << "it still listens";
}

TEST_F(SingleInstanceTest, OneThatIsBusyStaysTheFirstAndTakesNothingLate)
{
    int starts = 0;
    SingleInstance first;
    EXPECT_FALSE(first.handOver({}));
    QObject::connect(&first, &SingleInstance::startedAgain, [&starts] { ++starts; });
    {
        SingleInstance second;
        EXPECT_FALSE(second.handOver({})) << "the first one turns no events";
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(starts, 0);
    EXPECT_TRUE(handsOver({})) << "its socket is still there";
    EXPECT_EQ(starts, 1);
}

} // namespace
