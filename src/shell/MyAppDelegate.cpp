#include "shell/MyAppDelegate.h"

#include "foundation/UserDefaults.h"
#include "helpers/HelperTransformers.h"

MyAppDelegate::MyAppDelegate(QObject *parent)
    : QObject(parent)
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
        {QStringLiteral("autolocBackgroundEnabled"), false}, // Spelled so in every settings file.
        {QStringLiteral("autolocBackgroundInterval"), 120},
    };
}

void MyAppDelegate::initialize()
{
    Foundation::UserDefaults::standardUserDefaults().registerDefaults(registeredDefaults());
}
