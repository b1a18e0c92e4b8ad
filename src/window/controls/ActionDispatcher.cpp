#include "window/controls/ActionDispatcher.h"

#include "window/controls/InterfaceProperties.h"
#include "window/controls/LockedCommands.h"
#include "window/controls/MenuItemValidator.h"

using Foundation::ActionSender;
using Foundation::MenuItem;

ActionDispatcher::ActionDispatcher(VLCryptoDoc *document, Responders responders, QObject *parent)
    : QObject(parent)
    , m_document(document)
    , m_responders(std::move(responders))
{
}

void ActionDispatcher::addItem(QAction *item, const Condition &condition)
{
    m_items.append({item, textProperty(item, InterfaceProperty::Action), condition});
    if (!item->isCheckable()) {
        connect(item, &QAction::triggered, this, [this, added = m_items.last()] { trigger(added); });
        return;
    }
    // Assistive technology toggles the check mark without triggering the item.
    connect(item, &QAction::toggled, this, [this, added = m_items.last()] {
        if (!m_isValidating)
            trigger(added);
    });
}

bool ActionDispatcher::send(const QString &action, const ActionSender &sender) const
{
    return Foundation::sendAction(m_responders(action), action, sender);
}

void ActionDispatcher::trigger(const Item &item)
{
    MenuItem menuItem{item.action, titleWithoutMnemonic(item.item->text()), tagOf(item.item)};
    // A shortcut may arrive before the items were updated.
    if (isEnabled(item, menuItem))
        send(item.action, {menuItem.tag, menuItem.title, QString(), -1});
    // The toolkit toggles the check mark of a chosen item, but only the responder decides it.
    validate();
}

bool ActionDispatcher::isEnabled(MenuItem &item) const
{
    if (!m_document)
        return false;
    QObject *responder = Foundation::responderForAction(m_responders(item.action), item.action);
    if (!responder)
        return false;
    auto *validator = dynamic_cast<MenuItemValidator *>(responder);
    const bool isValid = validator ? validator->validateMenuItem(item) : m_document->validateMenuItem(item);
    return isValid && (m_document->isDecrypted() || mayBeUsedWhileLocked(item.action));
}

void ActionDispatcher::validate()
{
    m_isValidating = true;
    for (const Item &item : m_items) {
        if (!item.item)
            continue;
        MenuItem menuItem{item.action, titleWithoutMnemonic(item.item->text()), tagOf(item.item)};
        item.item->setEnabled(isEnabled(item, menuItem));
        if (item.item->isCheckable())
            item.item->setChecked(menuItem.isChecked);
    }
    m_isValidating = false;
    Q_EMIT validated();
}

void ActionDispatcher::validateLater()
{
    if (m_isValidationPending)
        return;
    m_isValidationPending = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_isValidationPending = false;
            validate();
        },
        Qt::QueuedConnection);
}

QString titleWithoutMnemonic(const QString &title)
{
    QString plain;
    for (qsizetype i = 0; i < title.size(); ++i) {
        if (title[i] == u'&' && ++i == title.size())
            break;
        plain += title[i];
    }
    return plain;
}

QString titleOfText(QString text)
{
    return text.replace(u'&', QStringLiteral("&&"));
}
