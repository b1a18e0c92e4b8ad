#pragma once

#include "documents/DocumentController.h"
#include "platform/Services.h"

#include <QObject>
#include <QVariantHash>

// The one object that lives as long as the application.
class MyAppDelegate : public QObject
{
    Q_OBJECT

public:
    // Installs the named transformers that interface files bind through.
    // The documents are not owned and outlive the delegate.
    explicit MyAppDelegate(Foundation::DocumentController &documents, QObject *parent = nullptr);

    // Registers the settings' defaults. Must run before anything reads a setting.
    static void initialize();
    // Exactly the ten settings that have a default; two more begin absent.
    static QVariantHash registeredDefaults();

    // The application has lost the focus to another one, or got it back. Windows of its own, panels and
    // dialogs among them, do not count as others.
    void applicationDidResignActive();
    void applicationDidBecomeActive();
    // Locks all documents once, after that many seconds but never before half a minute; in place of a lock
    // that was to come. Less than 1: no lock is to come.
    void setAutomaticLockWithTimeInterval(qint32 seconds);
    void AutomaticLockAllOpenedDocuments();
    // The one that waits or has fired; null if there is none. It fires once, whatever its name says.
    const Foundation::Timers::Timer &repeatingAutomaticLockTimer() const
    {
        return m_repeatingAutomaticLockTimer;
    }

private:
    Foundation::DocumentController &m_documents;
    Foundation::Timers::Timer m_repeatingAutomaticLockTimer;
};
