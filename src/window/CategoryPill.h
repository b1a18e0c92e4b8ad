#pragma once

#include "foundation/Dictionary.h"

#include <QColor>
#include <QWidget>

#include <optional>

class QPainter;

// What a category looks like: its name on a rounded label in its own two colours.
struct CategoryPill
{
    QString name;
    QColor back;
    QColor text;

    // Of the record's category; nothing for a record without one.
    static std::optional<CategoryPill> ofRecord(const Foundation::Dictionary &record);

    // Paints the label into the left of the room, as wide as the name needs, elided where the room is too
    // narrow. An outline sets it off from a background of about its own colour, as that of a selected row may
    // be.
    void paint(QPainter &painter, const QRect &room, const QColor &background) const;
    QSize size(const QFontMetrics &metrics) const;
};

// The label of one category by itself. Nothing is drawn as long as there is none.
class CategoryPillView : public QWidget
{
    Q_OBJECT

public:
    explicit CategoryPillView(QWidget *parent = nullptr);

    const std::optional<CategoryPill> &pill() const { return m_pill; }
    void setPill(const std::optional<CategoryPill> &pill);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    std::optional<CategoryPill> m_pill;
};
