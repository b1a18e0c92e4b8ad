#include "platform/Actions.h"

#include <QMetaMethod>

namespace Foundation
{

namespace
{

QMetaMethod methodOf(const QObject *responder, const QString &action)
{
    const QByteArray signature = action.toLatin1() + "(Foundation::ActionSender)";
    const QMetaObject *meta = responder->metaObject();
    const int index = meta->indexOfMethod(signature.constData());
    return index < 0 ? QMetaMethod() : meta->method(index);
}

} // namespace

QObject *responderForAction(const QList<QObject *> &responders, const QString &action)
{
    for (QObject *responder : responders) {
        if (responder && methodOf(responder, action).isValid())
            return responder;
    }
    return nullptr;
}

bool sendAction(const QList<QObject *> &responders, const QString &action, const ActionSender &sender)
{
    QObject *responder = responderForAction(responders, action);
    return responder && methodOf(responder, action)
                            .invoke(responder, Qt::DirectConnection, Q_ARG(Foundation::ActionSender, sender));
}

} // namespace Foundation
