#include "platform/Services.h"

#include <QCoreApplication>
#include <QTimer>

#include <algorithm>
#include <limits>

namespace Foundation
{

namespace
{

// Both assert. In a build without assertions they return a failure or the last button.
class NoWorkspace : public Workspace
{
public:
    bool openUrl(const QUrl &) override { return refuse(); }
    bool openFile(const QString &) override { return refuse(); }

private:
    static bool refuse()
    {
        Q_ASSERT_X(false, "Services", "no workspace is installed");
        return false;
    }
};

class NoModalAlerts : public ModalAlertPresenter
{
public:
    int runModal(const Alert &alert) override
    {
        Q_ASSERT_X(false, "Services", qPrintable(alert.message));
        return alert.closingReturn();
    }
};

class EventLoopQueue : public MainQueue
{
public:
    void addOperation(std::function<void()> operation) override
    {
        QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(operation), Qt::QueuedConnection);
    }
};

class SystemClock : public Clock
{
public:
    QDateTime now() const override { return QDateTime::currentDateTime(); }
};

class SystemTimers : public Timers
{
public:
    Timer schedule(int seconds, std::function<void()> fired) override
    {
        // The called function may destroy the timer, so the timer is deleted only after the call has
        // returned.
        const std::shared_ptr<QTimer> timer(new QTimer, [](QTimer *dropped) {
            dropped->stop();
            dropped->deleteLater();
        });
        timer->setSingleShot(true);
        timer->setTimerType(Qt::PreciseTimer);
        QObject::connect(timer.get(), &QTimer::timeout, timer.get(), std::move(fired));
        constexpr int LongestTime = std::numeric_limits<int>::max() / 1000; // some weeks
        timer->start(std::chrono::seconds(std::min(seconds, LongestTime)));
        return timer;
    }
};

class MonospacedMeasurer : public TextMeasurer
{
public:
    double widthOfText(const QString &text, const TextAttributes &attributes) const override
    {
        constexpr double AdvanceOfFontSize = 0.6;
        return double(text.size()) * AdvanceOfFontSize * attributes.fontSize;
    }
};

class EmptyImage : public ImageObject
{
public:
    bool isEmpty() const override { return true; }
    QByteArray tiffRepresentation() const override { return {}; }
};

class NoImageReader : public ImageReader
{
public:
    Ref<ImageObject> imageFromData(const QByteArray &) const override { return nullptr; }
    Ref<ImageObject> emptyImage() const override { return Ref<ImageObject>(new EmptyImage); }
};

NoWorkspace noWorkspace;
NoModalAlerts noModalAlerts;
EventLoopQueue eventLoopQueue;
SystemClock systemClock;
SystemTimers systemTimers;
MonospacedMeasurer monospacedMeasurer;
NoImageReader noImageReader;

} // namespace

double Clock::secondsSince2001() const
{
    constexpr qint64 MillisecondsTo2001 = 978307200000;
    return double(now().toMSecsSinceEpoch() - MillisecondsTo2001) / 1000.0;
}

Services::Services()
    : m_workspace(&noWorkspace)
    , m_modalAlerts(&noModalAlerts)
    , m_mainQueue(&eventLoopQueue)
    , m_clock(&systemClock)
    , m_timers(&systemTimers)
    , m_textMeasurer(&monospacedMeasurer)
    , m_imageReader(&noImageReader)
{
}

Services &Services::shared()
{
    static Services services;
    return services;
}

void Services::setWorkspace(Workspace *workspace)
{
    m_workspace = workspace ? workspace : &noWorkspace;
}

void Services::setModalAlerts(ModalAlertPresenter *presenter)
{
    m_modalAlerts = presenter ? presenter : &noModalAlerts;
}

void Services::setMainQueue(MainQueue *queue)
{
    m_mainQueue = queue ? queue : &eventLoopQueue;
}

void Services::setClock(Clock *clock)
{
    m_clock = clock ? clock : &systemClock;
}

void Services::setTimers(Timers *timers)
{
    m_timers = timers ? timers : &systemTimers;
}

void Services::setTextMeasurer(TextMeasurer *measurer)
{
    m_textMeasurer = measurer ? measurer : &monospacedMeasurer;
}

void Services::setImageReader(ImageReader *reader)
{
    m_imageReader = reader ? reader : &noImageReader;
}

} // namespace Foundation
