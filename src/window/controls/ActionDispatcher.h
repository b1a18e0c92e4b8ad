#pragma once

#include "documents/Document.h"

#include <QAction>
#include <QPointer>

#include <functional>

// Sends the actions of one window's controls and menu items along the responder chain, and keeps the menu and
// tool-bar items enabled and checked as the responders say.
class ActionDispatcher : public QObject
{
    Q_OBJECT

public:
    // The chain for an action by name, asked for anew each time: what is first in it follows the focus.
    using Responders = std::function<QList<QObject *>(const QString &action)>;
    using Condition = std::function<bool()>;

    ActionDispatcher(Foundation::Document *document, Responders responders, QObject *parent = nullptr);

    // Takes an item whose dynamic properties tell action and tag. A condition must hold beside what the
    // responder says.
    void addItem(QAction *item, const Condition &condition = {});
    // False if nothing in the chain has the action.
    bool send(const QString &action, const Foundation::ActionSender &sender) const;
    // Brings all items up to date: now, or once on the next turn of the event loop.
    void validate();
    void validateLater();

Q_SIGNALS:
    void validated();

private:
    struct Item
    {
        QPointer<QAction> item;
        QString action;
        Condition condition;
    };

    void trigger(const Item &item);
    bool isEnabled(const Item &item, Foundation::MenuItem &menuItem) const;

    QPointer<Foundation::Document> m_document;
    Responders m_responders;
    QList<Item> m_items;
    bool m_isValidationPending = false;
    bool m_isValidating = false;
};

// The title of a menu item or button without the marks of its mnemonic.
QString titleWithoutMnemonic(const QString &title);
// A text as the title of a menu item or button that shall show every character of it.
QString titleOfText(QString text);
