#include "window/controls/SheetQueue.h"

#include "platform/Services.h"

#include <QTimer>

SheetQueue::SheetQueue(QWidget *window)
    : m_window(window)
{
}

void SheetQueue::begin(const QString &name, DialogMaker make, Ended ended, Over over)
{
    if (m_isDropped)
        return;
    if (m_isLocked && over != Over::LockedWindow) {
        tellLater(std::move(ended));
        return;
    }
    m_waiting.push_back({name, std::move(make), std::move(ended)});
    beginNext();
}

void SheetQueue::beginNext()
{
    if (m_isBusy || m_waiting.empty())
        return;
    m_isBusy = true;
    m_current = std::move(m_waiting.front());
    m_waiting.pop_front();
    m_dialog = m_current.make(m_window);
    m_dialog->setWindowModality(Qt::WindowModal);
    connect(m_dialog, &QDialog::finished, this, &SheetQueue::finished);
    m_dialog->open();
    Q_EMIT changed();
}

void SheetQueue::finished(int result)
{
    m_dialog->deleteLater();
    m_dialog = nullptr;
    Foundation::Services::shared().mainQueue().addOperation(
        [queue = QPointer(this), ended = std::move(m_current.ended), result] {
            if (!queue || queue->m_isDropped)
                return;
            if (ended)
                ended(result);
            // The function may have closed the window.
            if (!queue)
                return;
            queue->m_isBusy = false;
            queue->beginNext();
        });
    Q_EMIT changed();
}

void SheetQueue::end(const QString &name, int result)
{
    if (m_dialog && m_current.name == name)
        m_dialog->done(result);
}

void SheetQueue::tellLater(Ended ended)
{
    Foundation::Services::shared().mainQueue().addOperation(
        [queue = QPointer(this), ended = std::move(ended)] {
            if (queue && !queue->m_isDropped && ended)
                ended(QDialog::Rejected);
        });
}

void SheetQueue::endAll()
{
    endCurrent();
    for (Sheet &sheet : std::exchange(m_waiting, {}))
        tellLater(std::move(sheet.ended));
}

void SheetQueue::setLocked(bool locked)
{
    m_isLocked = locked;
    if (locked)
        endAll();
}

void SheetQueue::endCurrent()
{
    if (!m_dialog)
        return;
    // A modal question over the dialog runs a nested event loop in code of the dialog, so the dialog must not
    // be deleted before that code has returned.
    for (auto *question : m_dialog->findChildren<QDialog *>()) {
        if (!question->isModal() || !question->isVisible())
            continue;
        question->reject();
        QTimer::singleShot(1, this, &SheetQueue::endCurrent);
        return;
    }
    m_dialog->done(QDialog::Rejected);
}

void SheetQueue::drop()
{
    m_isDropped = true;
    m_waiting.clear();
    if (!m_dialog)
        return;
    m_dialog->disconnect(this);
    m_dialog->hide();
    m_dialog->deleteLater();
    m_dialog = nullptr;
}
