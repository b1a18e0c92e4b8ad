#pragma once

#include "platform/Services.h"

#include <QList>

#include <deque>

// Doubles of the services. Each installs itself in its constructor and restores the built-in one in its
// destructor.

class RecordingWorkspace : public Foundation::Workspace
{
public:
    RecordingWorkspace() { Foundation::Services::shared().setWorkspace(this); }
    ~RecordingWorkspace() override { Foundation::Services::shared().setWorkspace(nullptr); }

    bool openUrl(const QUrl &url) override;
    bool openFile(const QString &path) override;

    // The opened addresses in the order of the calls; an empty text for an invalid address.
    QStringList openedUrls;
    QStringList openedFiles;
    bool succeeds = true;
};

// Answers with the next of `nextAnswers` and records the alerts.
class ScriptedModalAlerts : public Foundation::ModalAlertPresenter
{
public:
    ScriptedModalAlerts() { Foundation::Services::shared().setModalAlerts(this); }
    ~ScriptedModalAlerts() override { Foundation::Services::shared().setModalAlerts(nullptr); }

    int runModal(const Foundation::Alert &alert) override;

    QList<Foundation::Alert> shown;
    std::deque<int> nextAnswers;
};

// A main queue that runs only when the test drains it.
class ManualQueue : public Foundation::MainQueue
{
public:
    ManualQueue() { Foundation::Services::shared().setMainQueue(this); }
    ~ManualQueue() override { Foundation::Services::shared().setMainQueue(nullptr); }

    void addOperation(std::function<void()> operation) override;
    // Runs all operations, including those that are added meanwhile.
    void drain();
    std::size_t waiting() const { return m_operations.size(); }

private:
    std::deque<std::function<void()>> m_operations;
};

// A clock that the test sets.
class ManualClock : public Foundation::Clock
{
public:
    explicit ManualClock(const QDateTime &start)
        : moment(start)
    {
        Foundation::Services::shared().setClock(this);
    }
    ~ManualClock() override { Foundation::Services::shared().setClock(nullptr); }

    QDateTime now() const override { return moment; }

    QDateTime moment;
};

// Timers that fire when the test advances the time.
class ManualTimers : public Foundation::Timers
{
public:
    ManualTimers() { Foundation::Services::shared().setTimers(this); }
    ~ManualTimers() override { Foundation::Services::shared().setTimers(nullptr); }

    Timer schedule(int seconds, std::function<void()> fired) override;
    void advance(int seconds);
    // The timers that have neither fired nor been cancelled.
    std::size_t pending() const;

private:
    struct Entry
    {
        int due;
        std::function<void()> fired;
        std::weak_ptr<void> handle;
    };

    int m_now = 0;
    std::vector<Entry> m_entries;
};

// Measures text by a function of the test.
class ScriptedTextMeasurer : public Foundation::TextMeasurer
{
public:
    using Rule = std::function<double(const QString &text, const Foundation::TextAttributes &attributes)>;

    explicit ScriptedTextMeasurer(Rule widthRule)
        : rule(std::move(widthRule))
    {
        Foundation::Services::shared().setTextMeasurer(this);
    }
    ~ScriptedTextMeasurer() override { Foundation::Services::shared().setTextMeasurer(nullptr); }

    double widthOfText(const QString &text, const Foundation::TextAttributes &attributes) const override
    {
        ++measurements;
        return rule(text, attributes);
    }

    Rule rule;
    mutable int measurements = 0;
};
