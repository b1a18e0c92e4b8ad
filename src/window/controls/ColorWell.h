#pragma once

#include "values/Color.h"

#include <QAbstractButton>

// A button that shows a colour. Pressed, it brings up the colour panel and takes what the user chooses there,
// until another well is pressed or the panel closes.
class ColorWell : public QAbstractButton
{
    Q_OBJECT

public:
    explicit ColorWell(QWidget *parent = nullptr);

    const Foundation::Color &color() const { return m_color; }
    // Tells nobody.
    void setColor(const Foundation::Color &color);
    // While the panel is this well's.
    bool isActive() const { return m_isActive; }

    QSize sizeHint() const override;

Q_SIGNALS:
    // The user chose another colour in the panel.
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
