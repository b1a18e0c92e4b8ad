#pragma once

#include <QWidget>

// The strip above the list that says which filter is active. Its background is tinted with the selection
// colour, with a line below.
class StatusStrip : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent *event) override;
};
