#pragma once

#include "platform/Services.h"

#include <QWidget>

// Says things through a screen reader: what changes away from the focus, which nothing would say otherwise.
//
// An invisible child of its window, a notification to assistive technology. Screen readers speak its name
// when it says that it is shown; they do not speak changed names, descriptions or labels.
class Announcer : public QWidget
{
    Q_OBJECT

public:
    explicit Announcer(QWidget *window);

    // On a later turn, together with what else is said until then: a screen reader asks for the name some
    // time after the event, and would miss a text that was replaced meanwhile.
    void say(const QString &text);

private:
    void sayPending();

    QStringList m_pending;
};
