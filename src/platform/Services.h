#pragma once

#include "platform/Alert.h"
#include "platform/TextAttributes.h"
#include "values/OpaqueObject.h"

#include <QDateTime>
#include <QString>
#include <QUrl>

#include <functional>
#include <memory>

namespace Foundation
{

// What the logic asks of the desktop around it. The window layer gives the real services at start, tests give
// scripted ones. All run on the main thread.

// Opens addresses and files in the user's other programs.
class Workspace
{
public:
    virtual ~Workspace() = default;
    // False if `url` is invalid or nothing opened it. Nothing is shown to the user.
    virtual bool openUrl(const QUrl &url) = 0;
    // Opens the file in the program meant for it; programs themselves are never run.
    virtual bool openFile(const QString &path) = 0;
};

// Shows an alert that belongs to no window and waits for the answer.
class ModalAlertPresenter
{
public:
    virtual ~ModalAlertPresenter() = default;
    // The code of the button pressed; closing the alert counts as its last button.
    virtual int runModal(const Alert &alert) = 0;
};

// Runs work on a later turn of the event loop, in the order given and always on the main thread.
class MainQueue
{
public:
    virtual ~MainQueue() = default;
    virtual void addOperation(std::function<void()> operation) = 0;
};

// The present moment.
class Clock
{
public:
    virtual ~Clock() = default;
    // In local time.
    virtual QDateTime now() const = 0;
    // Seconds since 2001-01-01 00:00:00 UTC with fractions: the form of dates in documents.
    double secondsSince2001() const;
};

// Calls something once after a time.
class Timers
{
public:
    // Dropping the last copy calls the timer off.
    using Timer = std::shared_ptr<void>;

    virtual ~Timers() = default;
    // On a turn of the event loop, that many seconds from now.
    virtual Timer schedule(int seconds, std::function<void()> fired) = 0;
};

// Tells how wide text comes out when it is drawn.
class TextMeasurer
{
public:
    virtual ~TextMeasurer() = default;
    // In points, on one line. 0 for an empty text.
    virtual double widthOfText(const QString &text, const TextAttributes &attributes) const = 0;
};

// Reads pictures in whatever form the desktop knows.
class ImageReader
{
public:
    virtual ~ImageReader() = default;
    // Null for data that is no picture.
    virtual Ref<ImageObject> imageFromData(const QByteArray &data) const = 0;
    virtual Ref<ImageObject> emptyImage() const = 0;
};

// The services in force. Until something else is installed: nothing opens, alerts are answered with their
// last button, no data is a picture, the main queue is the event loop of the application, clock and timers
// are the system's, and every UTF-16 unit of a text is 0.6 of the font size wide, about what a monospaced
// font takes.
class Services
{
public:
    static Services &shared();

    Workspace &workspace() const { return *m_workspace; }
    ModalAlertPresenter &modalAlerts() const { return *m_modalAlerts; }
    MainQueue &mainQueue() const { return *m_mainQueue; }
    Clock &clock() const { return *m_clock; }
    Timers &timers() const { return *m_timers; }
    TextMeasurer &textMeasurer() const { return *m_textMeasurer; }
    ImageReader &imageReader() const { return *m_imageReader; }

    // Not owned: the caller keeps the service alive. Null brings the built-in one back.
    void setWorkspace(Workspace *workspace);
    void setModalAlerts(ModalAlertPresenter *presenter);
    void setMainQueue(MainQueue *queue);
    void setClock(Clock *clock);
    void setTimers(Timers *timers);
    void setTextMeasurer(TextMeasurer *measurer);
    void setImageReader(ImageReader *reader);

private:
    Services();

    Workspace *m_workspace;
    ModalAlertPresenter *m_modalAlerts;
    MainQueue *m_mainQueue;
    Clock *m_clock;
    Timers *m_timers;
    TextMeasurer *m_textMeasurer;
    ImageReader *m_imageReader;
};

} // namespace Foundation
