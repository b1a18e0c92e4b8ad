#pragma once

#include <QWidget>

#include <functional>
#include <vector>

class FieldText;
class QPainter;

// The visible lines of a page of texts, so that a sheet of paper can end between any two lines.
class PrintedLines
{
public:
    // Collects the lines of the visible labels and texts of the page. Valid until the page changes.
    explicit PrintedLines(const QWidget *page);

    // The end of a sheet that begins at `top` and has the height `height`: the top of the first line that
    // does not fit. Always greater than `top`.
    double endOfSheet(double top, double height) const;
    double end() const;
    // Paints the lines that begin between `top` and `bottom`, at their positions on the page.
    void paint(QPainter &painter, double top, double bottom) const;

private:
    struct Line
    {
        double top;
        double bottom; // of the part that must not be separated
        std::function<void(QPainter &painter)> paint;
    };

    void add(const QWidget *page, const QWidget *widget);
    void addText(const FieldText *text, const QPointF &place);

    std::vector<Line> m_lines;
};
