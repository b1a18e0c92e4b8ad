#pragma once

#include <QToolButton>

// A button that sends its action when it is pressed, not when it is released.
class VLBtnImgPopUp : public QToolButton
{
    Q_OBJECT

public:
    using QToolButton::QToolButton;

protected:
    void mousePressEvent(QMouseEvent *event) override;
};
