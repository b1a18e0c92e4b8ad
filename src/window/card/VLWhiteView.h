#pragma once

#include <QWidget>

class QPagedPaintDevice;
class QPainter;

// A white page with a thin gray frame, also in a dark palette, so that its content looks as on paper.
class VLWhiteView : public QWidget
{
    Q_OBJECT

public:
    explicit VLWhiteView(QWidget *parent = nullptr);

    // Lays the page out for the width of the paper, at the resolution of the screen, and paints it onto as
    // many sheets as it needs. Texts are painted as text, so that they can be selected in a PDF. A line is
    // never cut, and a heading is on the same sheet as the line below it. Returns false if the device refuses
    // another sheet.
    bool print(QPainter &painter, QPagedPaintDevice &device);

protected:
    void paintEvent(QPaintEvent *event) override;
};
