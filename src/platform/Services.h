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

// Interfaces through which the logic uses the desktop. The window layer installs the real services at start,
// tests install doubles. All of them run on the main thread.

// Opens addresses and files in other programs.
class Workspace
{
public:
    virtual ~Workspace() = default;
    // False if `url` is invalid or no program opened it. Does not show an error.
    virtual bool openUrl(const QUrl &url) = 0;
    // Opens the file in the program for its type. Never runs a file that is a program; its folder is shown
    // instead. False if nothing was opened.
    virtual bool openFile(const QString &path) = 0;
};

// Shows alerts that belong to no window.
class ModalAlertPresenter
{
public:
    virtual ~ModalAlertPresenter() = default;
    // Blocks until the user answers, and returns the code of the button. Escape and closing the alert give
    // `alert.closingReturn()`.
    virtual int runModal(const Alert &alert) = 0;
};

// Runs operations on a later turn of the event loop, on the main thread and in the order in which they were
// added.
class MainQueue
{
public:
    virtual ~MainQueue() = default;
    virtual void addOperation(std::function<void()> operation) = 0;
};

// The current time.
class Clock
{
public:
    virtual ~Clock() = default;
    // In local time.
    virtual QDateTime now() const = 0;
    // Seconds since 2001-01-01 00:00:00 UTC, with fractions, as dates are stored in documents.
    double secondsSince2001() const;
};

// One-shot timers.
class Timers
{
public:
    // The timer is cancelled when its last copy is destroyed.
    using Timer = std::shared_ptr<void>;

    virtual ~Timers() = default;
    // Calls `fired` once, after that many seconds, from the event loop.
    virtual Timer schedule(int seconds, std::function<void()> fired) = 0;
};

// Measures text.
class TextMeasurer
{
public:
    virtual ~TextMeasurer() = default;
    // The width in points of the text on one line; 0 for an empty text.
    virtual double widthOfText(const QString &text, const TextAttributes &attributes) const = 0;
};

// Reads pictures in all formats that the desktop supports.
class ImageReader
{
public:
    virtual ~ImageReader() = default;
    // Null if the data is no picture.
    virtual Ref<ImageObject> imageFromData(const QByteArray &data) const = 0;
    virtual Ref<ImageObject> emptyImage() const = 0;
};

// The services in use. The workspace and the modal alerts must be installed before they are used: without
// them an assertion fails, or, in a build without assertions, nothing opens and an alert is answered with its
// last button. The others have built-in ones: no data is a picture, the main queue is the event loop, clock
// and timers are those of the system, and each UTF-16 unit of a text has a width of 0.6 of the font size,
// about that of a monospaced font.
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

    // The service is not owned and must outlive its use. Null restores the built-in one.
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
