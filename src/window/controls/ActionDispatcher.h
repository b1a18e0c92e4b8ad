#pragma once

#include "lifecycle/VLCryptoDoc.h"

#include <QAction>
#include <QPointer>

#include <functional>

// Sends the actions of the controls and items of one window along the responder chain, and updates which
// items are enabled and checked, as the responders decide. While the document is locked, only the actions in
// LockedCommands.cpp can be enabled.
class ActionDispatcher : public QObject
{
    Q_OBJECT

public:
    // Returns the responder chain for an action. Called each time, because the chain depends on the focus.
    using Responders = std::function<QList<QObject *>(const QString &action)>;
    using Condition = std::function<bool()>;

    ActionDispatcher(VLCryptoDoc *document, Responders responders, QObject *parent = nullptr);

    // Connects an item whose dynamic properties contain its action and tag. If there is a condition, the item
    // is enabled only if the condition holds and the responder enables it.
    void addItem(QAction *item, const Condition &condition = {});
    // Returns false if no responder has the action.
    bool send(const QString &action, const Foundation::ActionSender &sender) const;
    // Whether document and responder enable the item. Sets its check mark too.
    bool isEnabled(Foundation::MenuItem &item) const;
    // Update all items, now or once on the next turn of the event loop.
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
    bool isEnabled(const Item &item, Foundation::MenuItem &menuItem) const
    {
        return isEnabled(menuItem) && (!item.condition || item.condition());
    }

    QPointer<VLCryptoDoc> m_document;
    Responders m_responders;
    QList<Item> m_items;
    bool m_isValidationPending = false;
    bool m_isValidating = false;
};

// The title of a menu item or button without its mnemonic mark.
QString titleWithoutMnemonic(const QString &title);
// The text as a title for a menu item or button, escaped so that every character is shown.
QString titleOfText(QString text);
