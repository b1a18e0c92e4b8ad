#include "helpers/VLAppSupportUtility.h"

#include "platform/Services.h"

#include <QSysInfo>
#include <QUrl>

using namespace Foundation;

const QString VLAppSupportUtility::ApplicationName = QStringLiteral("Vexarel");
const QString VLAppSupportUtility::NameInPaths = QStringLiteral("vexarel");

namespace
{

// Names under "example" are reserved (RFC 2606), so these addresses cannot belong to a stranger.
const QString HomePage = QStringLiteral("https://www.brightmoor-labs.example/");
const QString ProductPage = QStringLiteral("https://www.brightmoor-labs.example/vexarel/");
const QString SocialMediaPage = QStringLiteral("https://social.brightmoor-labs.example/@brightmoor");
const QString SupportMailbox = QStringLiteral("mailto:support@brightmoor-labs.example");

void openPage(const QString &address)
{
    // Required: a page or mail that cannot be opened is not reported.
    Services::shared().workspace().openUrl(QUrl(address, QUrl::StrictMode));
}

// A group of two digits without its leading zero.
QString withoutLeadingZero(const QString &group)
{
    return group.startsWith(u'0') ? group.sliced(1) : group;
}

// Leaves all characters that a query may contain unescaped (RFC 3986).
QString percentEncodedForQuery(const QString &text)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(text, "!$&'()*+,;=:@/?"));
}

bool offerLastVersion(const QString &message, const QString &informativeText)
{
    const Alert alert{
        .message = message,
        .informativeText = informativeText,
        .buttons = {{VLAppSupportUtility::tr("Go to Download Last Version")},
                    {VLAppSupportUtility::tr("Cancel"), Foundation::AlertButton::Cancel}},
        .style = Alert::Style::Warning,
    };
    const bool accepted = Services::shared().modalAlerts().runModal(alert) == Alert::FirstButtonReturn;
    if (accepted)
        VLAppSupportUtility::visitUs(nullptr);
    return accepted;
}

} // namespace

QString VLAppSupportUtility::calcReleaseString(qint64 release)
{
    const QString digits = QString::number(release);
    const qsizetype count = digits.size();
    if (count < 4)
        return QStringLiteral("");
    QString major = digits.first(count - 4);
    QString minor = withoutLeadingZero(digits.sliced(count - 4, 2));
    QString patch = withoutLeadingZero(digits.last(2));
    if (count == 4) {
        // Releases of four digits have a minor of one digit, and their patch was always shown with both
        // digits.
        major = digits.first(1);
        minor = digits.sliced(1, 1);
        patch = digits.last(2);
    }
    const QString dotted = major + u'.' + minor + u'.' + patch;
    return dotted.endsWith(QLatin1String(".0")) ? dotted.chopped(2) : dotted;
}

void VLAppSupportUtility::emailUs(QObject *)
{
    // The mailbox sorts its mail by this exact wording, so the name of the system is the same on every
    // system.
    const QString subject =
        QStringLiteral("Support Request for %1 rel. %2 - macOS %3")
            .arg(ApplicationName, calcReleaseString(ApplicationRelease), QSysInfo::prettyProductName());
    openPage(SupportMailbox + QLatin1String("?subject=") + percentEncodedForQuery(subject));
}

void VLAppSupportUtility::visitUs(QObject *)
{
    openPage(HomePage);
}

void VLAppSupportUtility::visitAppUrl(QObject *)
{
    openPage(ProductPage);
}

void VLAppSupportUtility::visitTwitter(QObject *)
{
    openPage(SocialMediaPage);
}

bool VLAppSupportUtility::sayFilecreatedWithANewerVersion(QObject *)
{
    return offerLastVersion(
        tr("The document you requested to open was created with a more recent version of this application"),
        tr("To open this file you need a release of this application equal or successive to the one "
           "used to create this file.\n\nProbably you are using an outdated release.\nYou can download "
           "for free the last version of this application from our site"));
}

bool VLAppSupportUtility::dataIn_ApplicationSupportFolder_CreatedWithANewerVersion(QObject *)
{
    return offerLastVersion(
        tr("Data file the software tryed to open from the Application Support folder was created with a "
           "more recent version of this application"),
        tr("You need a release of this application equal or successive to the one used to create this "
           "data file.\n\nPlease use a more recent version of this application"));
}
