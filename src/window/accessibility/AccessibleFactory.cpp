#include "window/accessibility/AccessibleFactory.h"

#include "window/accessibility/AccessibilityEventFilter.h"
#include "window/accessibility/AccessibleField.h"
#include "window/accessibility/AccessibleSpinBox.h"
#include "window/accessibility/AccessibleTable.h"
#include "window/accessibility/Announcer.h"

#include <QAbstractSpinBox>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QTableView>
#include <QTextEdit>
#include <QTreeView>

namespace
{

// The toolkit calls this for the class of the object first, and for its base classes only if the result was
// null.
QAccessibleInterface *newInterface(const QString &, QObject *object)
{
    if (qobject_cast<QTableView *>(object) || qobject_cast<QListView *>(object) ||
        qobject_cast<QTreeView *>(object))
        return new AccessibleTable(static_cast<QAbstractItemView *>(object));
    if (auto *field = qobject_cast<QLineEdit *>(object))
        return new AccessibleField(field);
    if (auto *box = qobject_cast<QAbstractSpinBox *>(object))
        return new AccessibleSpinBox(box);
    const bool isText = qobject_cast<QTextEdit *>(object) || qobject_cast<QPlainTextEdit *>(object);
    if (auto *area = isText ? nullptr : qobject_cast<QAbstractScrollArea *>(object))
        return new QAccessibleWidget(area);
    if (auto *announcer = qobject_cast<Announcer *>(object))
        return new QAccessibleWidget(announcer, QAccessible::Notification);
    return nullptr;
}

} // namespace

void installAccessibility()
{
    QAccessible::installFactory(newInterface);
    AccessibilityEventFilter::install();
}
