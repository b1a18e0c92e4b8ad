#include "helpers/VLAppSupportUtility.h"

#include "support/Printers.h"
#include "support/TestServices.h"

#include <gtest/gtest.h>

#include <QSysInfo>

using Foundation::Alert;

TEST(ReleaseString, ReadsTheDigitsInGroups)
{
    const std::tuple<const char *, qint64, QString> cases[] = {
        {"a patch of 0 is cut", 30600, u"3.6"_qs},
        {"but not a minor of 0 behind it", 100000, u"10.0"_qs},
        {"two digits each", 31210, u"3.12.10"_qs},
        {"four digits keep the zero of the patch", 1203, u"1.2.03"_qs},
        {"three digits are none", 999, u""_qs},
        {"a sign counts as a character", -10203, u"-1.2.3"_qs},
    };
    for (const auto &[rule, release, text] : cases)
        EXPECT_EQ(VLAppSupportUtility::calcReleaseString(release), text) << rule;
}

TEST(SupportActions, OpenTheMakersPagesAndBeginAMailWithReleaseAndSystem)
{
    RecordingWorkspace workspace;
    VLAppSupportUtility::visitUs(nullptr);
    VLAppSupportUtility::visitAppUrl(nullptr);
    VLAppSupportUtility::visitTwitter(nullptr);
    VLAppSupportUtility::emailUs(nullptr);
    const QString expected =
        u"https://www.brightmoor-labs.example/ https://www.brightmoor-labs.example/vexarel/ "
        u"https://social.brightmoor-labs.example/@brightmoor "
        u"mailto:support@brightmoor-labs.example?subject=Support%20Request%20for%20Vexarel%20"
        u"rel.%203.6.2%20-%20macOS%20"_qs;
    const QString opened = workspace.openedUrls.join(u' ');
    ASSERT_TRUE(opened.startsWith(expected)) << qPrintable(opened);
    EXPECT_EQ(QUrl::fromPercentEncoding(opened.mid(expected.size()).toLatin1()),
              QSysInfo::prettyProductName());
}

TEST(NewerDataAlerts, OfferTheLastVersion)
{
    const struct
    {
        bool (*say)(QObject *);
        QString beginning;
    } cases[] = {
        {VLAppSupportUtility::sayFilecreatedWithANewerVersion, u"The document you requested to open was "_qs},
        {VLAppSupportUtility::dataIn_ApplicationSupportFolder_CreatedWithANewerVersion,
         u"Data file the software tryed to open from the Application Support folder was "_qs},
    };
    for (const auto &c : cases) {
        RecordingWorkspace workspace;
        ScriptedModalAlerts alerts;
        alerts.nextAnswers = {Alert::SecondButtonReturn, Alert::FirstButtonReturn};
        EXPECT_FALSE(c.say(nullptr));
        EXPECT_TRUE(workspace.openedUrls.isEmpty());
        EXPECT_TRUE(c.say(nullptr));
        EXPECT_EQ(workspace.openedUrls, QStringList(u"https://www.brightmoor-labs.example/"_qs));

        const Alert &alert = alerts.shown.first();
        EXPECT_TRUE(alert.message.startsWith(c.beginning)) << qPrintable(alert.message);
        EXPECT_EQ(alert.buttons,
                  (QList<Foundation::AlertButton>{{u"Go to Download Last Version"_qs},
                                                  {u"Cancel"_qs, Foundation::AlertButton::Cancel}}));
        EXPECT_EQ(alert.style, Alert::Style::Warning);
    }
}
