#pragma once

#include "platform/Services.h"

#include <QList>

#include <deque>

// Services that a test scripts and questions. Each installs itself while it lives.

class RecordingWorkspace : public Foundation::Workspace
{
public:
    RecordingWorkspace() { Foundation::Services::shared().setWorkspace(this); }
    ~RecordingWorkspace() override { Foundation::Services::shared().setWorkspace(nullptr); }

    bool openUrl(const QUrl &url) override;
    bool openFile(const QString &path) override;

    // In the order of the calls; an invalid address stands as an empty text.
    QStringList openedUrls;
    QStringList openedFiles;
    bool succeeds = true;
};

// Answers with `nextAnswers` in turn and keeps what was asked.
class ScriptedModalAlerts : public Foundation::ModalAlertPresenter
{
public:
    ScriptedModalAlerts() { Foundation::Services::shared().setModalAlerts(this); }
    ~ScriptedModalAlerts() override { Foundation::Services::shared().setModalAlerts(nullptr); }

    int runModal(const Foundation::Alert &alert) override;

    QList<Foundation::Alert> shown;
    std::deque<int> nextAnswers;
};

// A main queue turned by hand.
class ManualQueue : public Foundation::MainQueue
{
public:
    ManualQueue() { Foundation::Services::shared().setMainQueue(this); }
    ~ManualQueue() override { Foundation::Services::shared().setMainQueue(nullptr); }

    void addOperation(std::function<void()> operation) override;
    // Runs everything that waits, and what that adds.
    void drain();
    std::size_t waiting() const { return m_operations.size(); }

private:
    std::deque<std::function<void()>> m_operations;
};

// A clock that stands until it is moved.
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

// Timers that fire when time is moved.
class ManualTimers : public Foundation::Timers
{
public:
    ManualTimers() { Foundation::Services::shared().setTimers(this); }
    ~ManualTimers() override { Foundation::Services::shared().setTimers(nullptr); }

    Timer schedule(int seconds, std::function<void()> fired) override;
    void advance(int seconds);
    // That have neither fired nor been called off.
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

// Measures text by a rule that the test gives.
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
