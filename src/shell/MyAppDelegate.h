#pragma once

#include "documents/DocumentController.h"
#include "platform/Services.h"

#include <QObject>
#include <QVariantHash>

// Exists once, as long as the application: default settings and automatic lock.
class MyAppDelegate : public QObject
{
    Q_OBJECT

public:
    // Installs the transformers of the application for interface files. `documents` is not owned and must
    // outlive the delegate.
    explicit MyAppDelegate(Foundation::DocumentController &documents, QObject *parent = nullptr);

    // Registers the default settings. Must be called before any setting is read.
    static void initialize();
    // The ten settings with a default. Two other settings have none.
    static QVariantHash registeredDefaults();

    // The user has switched to another application, or back. A change between windows, panels and dialogs of
    // this application does not count.
    void applicationDidResignActive();
    void applicationDidBecomeActive();
    // Locks all documents once after that many seconds, but not before 30 seconds have passed. Replaces a
    // former timer. A value below 1 only cancels the timer.
    void setAutomaticLockWithTimeInterval(qint32 seconds);
    void AutomaticLockAllOpenedDocuments();
    // The timer that is active or has fired; null if there is none. Required name: the timer fires only once.
    const Foundation::Timers::Timer &repeatingAutomaticLockTimer() const
    {
        return m_repeatingAutomaticLockTimer;
    }

private:
    Foundation::DocumentController &m_documents;
    Foundation::Timers::Timer m_repeatingAutomaticLockTimer;
};
