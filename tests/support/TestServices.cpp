#include "support/TestServices.h"

#include <gtest/gtest.h>

#include <algorithm>

bool RecordingWorkspace::openUrl(const QUrl &url)
{
    openedUrls.append(url.isValid() ? QString::fromUtf8(url.toEncoded()) : QString());
    return url.isValid() && succeeds;
}

bool RecordingWorkspace::openFile(const QString &path)
{
    openedFiles.append(path);
    return succeeds;
}

int ScriptedModalAlerts::runModal(const Foundation::Alert &alert)
{
    shown.append(alert);
    if (nextAnswers.empty()) {
        ADD_FAILURE() << "an alert without an answer: " << qPrintable(alert.message);
        return alert.closingReturn();
    }
    const int answer = nextAnswers.front();
    nextAnswers.pop_front();
    return answer;
}

void ManualQueue::addOperation(std::function<void()> operation)
{
    m_operations.push_back(std::move(operation));
}

void ManualQueue::drain()
{
    while (!m_operations.empty()) {
        const auto operation = std::move(m_operations.front());
        m_operations.pop_front();
        operation();
    }
}

Foundation::Timers::Timer ManualTimers::schedule(int seconds, std::function<void()> fired)
{
    auto handle = std::make_shared<int>();
    m_entries.push_back({m_now + seconds, std::move(fired), handle});
    return handle;
}

void ManualTimers::advance(int seconds)
{
    m_now += seconds;
    std::vector<Entry> due;
    for (Entry &entry : std::exchange(m_entries, {}))
        (entry.due <= m_now ? due : m_entries).push_back(std::move(entry));
    for (const Entry &entry : due) {
        if (!entry.handle.expired())
            entry.fired();
    }
}

std::size_t ManualTimers::pending() const
{
    return std::size_t(std::count_if(m_entries.begin(), m_entries.end(),
                                     [](const Entry &entry) { return !entry.handle.expired(); }));
}
