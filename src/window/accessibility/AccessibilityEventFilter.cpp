#include "window/accessibility/AccessibilityEventFilter.h"

#include "window/controls/PasswordField.h"

#include <QAbstractItemView>
#include <QAccessible>

namespace
{

void filterEvent(QAccessibleEvent *event);

// An installed handler replaces the call of the bridge by the toolkit, which has no public name.
void passOn(QAccessibleEvent *event)
{
    QAccessible::installUpdateHandler(nullptr);
    QAccessible::updateAccessibility(event);
    QAccessible::installUpdateHandler(filterEvent);
}

bool isAboutText(QAccessible::Event type)
{
    switch (type) {
    case QAccessible::TextInserted:
    case QAccessible::TextRemoved:
    case QAccessible::TextUpdated:
    case QAccessible::TextCaretMoved:
    case QAccessible::TextSelectionChanged:
    case QAccessible::ValueChanged:
        return true;
    default:
        return false;
    }
}

bool keepsTextSecret(const QObject *object)
{
    const auto *field = qobject_cast<const QLineEdit *>(object);
    return field && (field->echoMode() != QLineEdit::Normal || qobject_cast<const PasswordField *>(field));
}

bool isOffTheScreen(const QObject *object)
{
    return object->isWidgetType() && !static_cast<const QWidget *>(object)->isVisible();
}

void passOnFocusOfView(const QAbstractItemView *view, QAccessibleEvent *event)
{
    if (!view->hasFocus())
        return;
    QAccessibleInterface *table = event->accessibleInterface();
    while (table && table->object() != view)
        table = table->parent();
    QAccessibleInterface *cell = table ? table->focusChild() : nullptr;
    if (!cell) {
        passOn(event);
        return;
    }
    QAccessibleEvent focus(cell, QAccessible::Focus);
    passOn(&focus);
}

void filterEvent(QAccessibleEvent *event)
{
    const QObject *object = event->object();
    if (object && isAboutText(event->type()) && (keepsTextSecret(object) || isOffTheScreen(object)))
        return;
    const auto *view = qobject_cast<const QAbstractItemView *>(object);
    if (view && event->type() == QAccessible::Focus)
        passOnFocusOfView(view, event);
    else
        passOn(event);
}

} // namespace

void AccessibilityEventFilter::install()
{
    QAccessible::installUpdateHandler(filterEvent);
}
