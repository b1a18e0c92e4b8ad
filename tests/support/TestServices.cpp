#include "support/TestServices.h"

#include <gtest/gtest.h>

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
        return Foundation::Alert::FirstButtonReturn + int(alert.buttons.size()) - 1;
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
