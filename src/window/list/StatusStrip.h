#pragma once

#include <QWidget>

// The strip above the list that tells which filter is in force: tinted in the colour of the selection, with a
// line below.
class StatusStrip : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent *event) override;
};
