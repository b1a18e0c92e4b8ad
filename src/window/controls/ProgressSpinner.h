#pragma once

#include <QWidget>

// Says that work is under way. The work blocks the event loop, so that nothing would turn: the ring is
// painted once, before the work begins, and keeps its room when it is not shown.
class ProgressSpinner : public QWidget
{
    Q_OBJECT

public:
    explicit ProgressSpinner(QWidget *parent = nullptr);

    bool isRunning() const { return m_isRunning; }
    // On the screen when this returns.
    void setRunning(bool running);

    QSize sizeHint() const override { return {16, 16}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool m_isRunning = false;
};
