#pragma once

#include <QWidget>

class QPagedPaintDevice;
class QPainter;

// A white page with a thin gray frame, in a dark palette too: what is on it looks as it will on paper.
class VLWhiteView : public QWidget
{
    Q_OBJECT

public:
    explicit VLWhiteView(QWidget *parent = nullptr);

    // Paints what the page shows onto as many sheets of the painter's device as it needs, laid out anew for
    // their width, at the screen's resolution: texts as text, which can be selected in a PDF. A line is never
    // cut, and a heading stands on the sheet of what it heads. False if the device refuses another sheet.
    bool print(QPainter &painter, QPagedPaintDevice &device);

protected:
    void paintEvent(QPaintEvent *event) override;
};
