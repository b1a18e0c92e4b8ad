#pragma once

#include <QLabel>

// A line of plain text that never makes its window wider: a text that does not fit is elided, and its tool
// tip shows all of it. Quiet is the look of captions and hints, Heading that of headings of groups.
class TextLabel : public QLabel
{
    Q_OBJECT
    Q_PROPERTY(Look look READ look WRITE setLook)
    Q_PROPERTY(Qt::TextElideMode elideMode READ elideMode WRITE setElideMode)

public:
    enum class Look { Plain, Quiet, Heading };
    Q_ENUM(Look)

    explicit TextLabel(QWidget *parent = nullptr);

    Look look() const { return m_look; }
    void setLook(Look look);
    Qt::TextElideMode elideMode() const { return m_elideMode; }
    void setElideMode(Qt::TextElideMode mode) { m_elideMode = mode; }

    // Paints the label as on the screen. The origin of the painter is its upper left corner.
    void draw(QPainter &painter) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString shownText() const;
    int lineHeight() const;

    Look m_look = Look::Plain;
    Qt::TextElideMode m_elideMode = Qt::ElideRight;
};

// The colour of quiet text on the background of a widget: readable, but less prominent.
QColor quietTextColor(const QPalette &palette);
// The colour of links on the background of a widget.
QColor linkColor(const QPalette &palette);
