#include "window/card/PrintedLines.h"

#include "window/binding/FieldText.h"
#include "window/controls/TextLabel.h"
#include "window/list/CategoryView.h"

#include <QPainter>
#include <QTextBlock>
#include <QTextLayout>

#include <algorithm>
#include <memory>

PrintedLines::PrintedLines(const QWidget *page)
{
    for (const QWidget *widget : page->findChildren<QWidget *>()) {
        if (widget->isVisibleTo(page))
            add(page, widget);
    }
}

void PrintedLines::add(const QWidget *page, const QWidget *widget)
{
    const QPointF place = widget->mapTo(page, QPoint());
    const double bottom = place.y() + widget->height();
    if (const auto *label = qobject_cast<const TextLabel *>(widget)) {
        // A heading must be on the same sheet as the line below it.
        const double company = label->look() == TextLabel::Look::Heading ? 2 * widget->height() : 0;
        m_lines.push_back({place.y(), bottom + company, [label, place](QPainter &painter) {
                               painter.translate(place);
                               label->draw(painter);
                           }});
    } else if (const auto *category = qobject_cast<const CategoryView *>(widget)) {
        m_lines.push_back({place.y(), bottom, [category, place](QPainter &painter) {
                               painter.translate(place);
                               category->draw(painter);
                           }});
    } else if (const auto *text = qobject_cast<const FieldText *>(widget)) {
        addText(text, place);
    }
}

void PrintedLines::addText(const FieldText *text, const QPointF &place)
{
    QStringList paragraphs;
    for (QTextBlock block = text->document()->begin(); block.isValid(); block = block.next())
        paragraphs.append(block.text());
    if (const QString note = text->shorteningNote(); !note.isEmpty())
        paragraphs.append(note);
    double bottom = place.y();
    for (const QString &paragraph : paragraphs) {
        // Not the layout of the widget, which is updated only while it is shown.
        const auto layout = std::make_shared<QTextLayout>(paragraph, text->font());
        layout->setTextOption(text->document()->defaultTextOption());
        layout->beginLayout();
        for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
            line.setLineWidth(text->width());
            const double top = bottom;
            bottom += line.height();
            m_lines.push_back(
                {top, bottom,
                 [layout, line, at = QPointF(place.x(), top), ink = text->shownColor()](QPainter &painter) {
                     painter.setPen(ink);
                     line.draw(&painter, at);
                 }});
        }
        layout->endLayout();
    }
}

double PrintedLines::endOfSheet(double top, double height) const
{
    double end = top + height;
    // If the sheet ends earlier, it may cut a line beside this one, so check again.
    for (bool isCutting = true; isCutting;) {
        isCutting = false;
        for (const Line &line : m_lines) {
            if (line.top > top && line.top < end && line.bottom > end) {
                end = line.top;
                isCutting = true;
            }
        }
    }
    return end;
}

double PrintedLines::end() const
{
    double end = 0;
    for (const Line &line : m_lines)
        end = std::max(end, line.bottom);
    return end;
}

void PrintedLines::paint(QPainter &painter, double top, double bottom) const
{
    for (const Line &line : m_lines) {
        if (line.top < top || line.top >= bottom)
            continue;
        painter.save();
        line.paint(painter);
        painter.restore();
    }
}
