#pragma once

#include <QObject>

// An event filter for the application that keeps the mouse wheel from changing values. Over a pop-up or a
// number field, with or without the focus, the wheel scrolls the surrounding area instead. This includes the
// dialogs of the toolkit.
class WheelGuard : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override;
};
