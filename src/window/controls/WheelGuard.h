#pragma once

#include <QObject>

// Keeps the wheel from changing values. Turned over a pop-up or a number field, with the focus or without, it
// scrolls what these lie in. Installed on the application, it is there for all of them, also those of the
// toolkit's dialogs.
class WheelGuard : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override;
};
