#pragma once

#include "values/Color.h"

#include <QAbstractButton>

// A button that shows a colour. A click opens the colour panel; the well then takes the colours that the user
// chooses there, until another well is clicked or the panel is closed.
class ColorWell : public QAbstractButton
{
    Q_OBJECT

public:
    explicit ColorWell(QWidget *parent = nullptr);

    const Foundation::Color &color() const { return m_color; }
    // Sets the colour without sending colorChosen().
    void setColor(const Foundation::Color &color);
    // True while the panel belongs to this well.
    bool isActive() const { return m_isActive; }

    QSize sizeHint() const override;

Q_SIGNALS:
    // The user chose another colour in the panel, which is now color().
    void colorChosen();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void showColor(const Foundation::Color &color);
    void activate();
    void takeColor();

    Foundation::Color m_color;
    bool m_isActive = false;
};
