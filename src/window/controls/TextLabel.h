#pragma once

#include <QLabel>

// A line of plain text that never widens its window: what does not fit is elided, and the pointer over it
// shows all. Beside the ordinary look there is a quieter one for captions and hints, and the one of the
// headings of groups.
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

    // As on the screen, with the painter's origin as the upper left corner.
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

// The colour of quiet text on the widget's background: readable, but behind what it describes.
QColor quietTextColor(const QPalette &palette);
// The colour of links on the widget's background.
QColor linkColor(const QPalette &palette);
