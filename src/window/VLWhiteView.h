#pragma once

#include <QWidget>

// A white page with a thin gray frame, in a dark palette too: what is on it looks as it will on paper.
class VLWhiteView : public QWidget
{
    Q_OBJECT

public:
    explicit VLWhiteView(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};
