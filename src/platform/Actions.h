#pragma once

#include <QList>
#include <QMetaType>
#include <QObject>
#include <QString>

namespace Foundation
{

// What an action learns of the control or menu item that sent it.
struct ActionSender
{
    int tag = 0;
    QString title;
    QString stringValue;
    qsizetype indexOfSelectedItem = -1;
};

// A menu or tool-bar item that asks whether it is enabled; the answer may set its check mark.
struct MenuItem
{
    QString action;
    QString title;
    int tag = 0;
    bool isChecked = false;
};

// Actions are invokable methods of one argument, the sender, and are looked up by name along a chain of
// responders: the first that has the method gets it.

// Null if none of the responders has the action.
QObject *responderForAction(const QList<QObject *> &responders, const QString &action);
// False if none of the responders has the action.
bool sendAction(const QList<QObject *> &responders, const QString &action, const ActionSender &sender);

} // namespace Foundation

Q_DECLARE_METATYPE(Foundation::ActionSender)
