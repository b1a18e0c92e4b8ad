#include "shell/MyAppDelegate.h"

#include "helpers/VLAppSupportUtility.h"
#include "helpers/transformers/HelperTransformers.h"
#include "lifecycle/MyDocument.h"
#include "platform/UserDefaults.h"

MyAppDelegate::MyAppDelegate(Foundation::DocumentController &documents, QObject *parent)
    : QObject(parent)
    , m_documents(documents)
{
    installApplicationTransformers();
}

QVariantHash MyAppDelegate::registeredDefaults()
{
    return {
        {QStringLiteral("notifyUpdate"), true},
        {QStringLiteral("StartupActionTag"), 0},
        {QStringLiteral("StartupSelectedDoc"), QStringLiteral("")},
        {QStringLiteral("lastVersionUsedToUpdatePref"), 0},
        {QStringLiteral("tableFontFamily"), QStringLiteral("Lucida Grande")},
        {QStringLiteral("tableFontSize"), 12.0F},
        {QStringLiteral("tableFontBold"), false},
        {QStringLiteral("tableFontItalic"), false},
        {QStringLiteral("autolocBackgroundEnabled"),
         false}, // The spelling is that of existing settings files.
        {QStringLiteral("autolocBackgroundInterval"), 120},
    };
}

void MyAppDelegate::initialize()
{
    Foundation::UserDefaults::setStandardFile(
        QStringLiteral("%1/%1.conf").arg(VLAppSupportUtility::NameInPaths));
    Foundation::UserDefaults::standardUserDefaults().registerDefaults(registeredDefaults());
}

void MyAppDelegate::applicationDidResignActive()
{
    const auto &defaults = Foundation::UserDefaults::standardUserDefaults();
    if (defaults.boolForKey(QStringLiteral("autolocBackgroundEnabled")))
        setAutomaticLockWithTimeInterval(defaults.integerForKey(QStringLiteral("autolocBackgroundInterval")));
}

void MyAppDelegate::applicationDidBecomeActive()
{
    setAutomaticLockWithTimeInterval(0);
}

void MyAppDelegate::setAutomaticLockWithTimeInterval(qint32 seconds)
{
    constexpr qint32 ShortestInterval = 30;
    m_repeatingAutomaticLockTimer = nullptr;
    if (seconds < 1)
        return;
    m_repeatingAutomaticLockTimer = Foundation::Services::shared().timers().schedule(
        std::max(seconds, ShortestInterval), [this] { AutomaticLockAllOpenedDocuments(); });
}

void MyAppDelegate::AutomaticLockAllOpenedDocuments()
{
    for (Foundation::Document *document : m_documents.documents()) {
        if (auto *addressBook = qobject_cast<MyDocument *>(document))
            addressBook->lockAutomatically();
    }
}
