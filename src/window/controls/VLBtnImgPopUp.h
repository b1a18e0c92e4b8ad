#pragma once

#include <QToolButton>

// A button whose action fires when it is pressed, not when it is let go.
class VLBtnImgPopUp : public QToolButton
{
    Q_OBJECT

public:
    using QToolButton::QToolButton;

protected:
    void mousePressEvent(QMouseEvent *event) override;
};
