#pragma once

#include "platform/Services.h"

#include <QWidget>

// Makes screen readers say a text. For changes away from the focus, which they would not say otherwise.
//
// An announcer is an invisible child of its window with the accessible role of a notification. Screen readers
// say its name when it sends a Show event; they do not say changed names, descriptions or labels.
class Announcer : public QWidget
{
    Q_OBJECT

public:
    explicit Announcer(QWidget *window);

    // Says the text on a later turn of the event loop, together with other texts until then. A screen reader
    // asks for the name some time after the event, so a text that is replaced too early would be lost.
    void say(const QString &text);

private:
    void sayPending();

    QStringList m_pending;
};
