#pragma once

#include <QWidget>

#include <functional>
#include <vector>

class FieldText;
class QPainter;

// What can be seen on a page of texts, line by line, for sheets of paper that may end between any two lines.
class PrintedLines
{
public:
    // Takes down the visible labels and texts below the page. Valid until the page changes.
    explicit PrintedLines(const QWidget *page);

    // Where the sheet ends that begins at `top` and has room for `height`: above the first line that does not
    // fit any more. Always beyond `top`.
    double endOfSheet(double top, double height) const;
    double end() const;
    // Paints the lines that begin between the two, as they stand on the page.
    void paint(QPainter &painter, double top, double bottom) const;

private:
    struct Line
    {
        double top;
        double bottom; // of what must stay together
        std::function<void(QPainter &painter)> paint;
    };

    void add(const QWidget *page, const QWidget *widget);
    void addText(const FieldText *text, const QPointF &place);

    std::vector<Line> m_lines;
};
