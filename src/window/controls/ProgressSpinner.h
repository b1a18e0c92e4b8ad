#pragma once

#include <QWidget>

// Shows that work is in progress. The work blocks the event loop, so an animation would stand still; the ring
// is painted once before the work begins. It takes its space also while it is not shown.
class ProgressSpinner : public QWidget
{
    Q_OBJECT

public:
    explicit ProgressSpinner(QWidget *parent = nullptr);

    bool isRunning() const { return m_isRunning; }
    // Paints the change before it returns.
    void setRunning(bool running);

    QSize sizeHint() const override { return {16, 16}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool m_isRunning = false;
};
