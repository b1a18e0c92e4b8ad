#pragma once

#include <QObject>
#include <QVariantHash>

// The one object that lives as long as the application.
class MyAppDelegate : public QObject
{
    Q_OBJECT

public:
    // Installs the named transformers that interface files bind through.
    explicit MyAppDelegate(QObject *parent = nullptr);

    // Registers the settings' defaults. Must run before anything reads a setting.
    static void initialize();
    // Exactly the ten settings that have a default; two more begin absent.
    static QVariantHash registeredDefaults();
};
