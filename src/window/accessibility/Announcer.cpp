#include "window/accessibility/Announcer.h"

#include <QAccessible>
#include <QPointer>

Announcer::Announcer(QWidget *window)
    : QWidget(window)
{
    hide();
}

void Announcer::say(const QString &text)
{
    m_pending.append(text);
    if (m_pending.size() == 1)
        Foundation::Services::shared().mainQueue().addOperation([announcer = QPointer(this)] {
            if (announcer)
                announcer->sayPending();
        });
}

void Announcer::sayPending()
{
    setAccessibleName(m_pending.join(QStringLiteral(". ")));
    m_pending.clear();
    QAccessibleEvent shown(this, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&shown);
}
