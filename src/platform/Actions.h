#pragma once

#include <QList>
#include <QMetaType>
#include <QObject>
#include <QString>

namespace Foundation
{

// The properties of the control or menu item that sent an action. A property that the sender does not have
// keeps its default.
struct ActionSender
{
    int tag = 0;
    QString title;
    QString stringValue;
    qsizetype indexOfSelectedItem = -1;
};

// A menu or tool-bar item whose state is asked for. The responder returns whether it is enabled and may set
// `isChecked`.
struct MenuItem
{
    QString action;
    QString title;
    int tag = 0;
    bool isChecked = false;
};

// An action is an invokable method with an ActionSender as its argument. It is looked up by name in a list of
// responders, and the first responder that has the method is called.

// The first responder that has the action, or null.
QObject *responderForAction(const QList<QObject *> &responders, const QString &action);
// Calls the action on that responder. False if there is none.
bool sendAction(const QList<QObject *> &responders, const QString &action, const ActionSender &sender);

} // namespace Foundation

Q_DECLARE_METATYPE(Foundation::ActionSender)
