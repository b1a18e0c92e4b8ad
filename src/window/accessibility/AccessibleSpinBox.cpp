#include "window/accessibility/AccessibleSpinBox.h"

#include <QAbstractSpinBox>

AccessibleSpinBox::AccessibleSpinBox(QAbstractSpinBox *box)
    : AccessibleField(box, QAccessible::SpinBox)
{
}

QVariant AccessibleSpinBox::property(const char *name) const
{
    return object() ? object()->property(name) : QVariant();
}

void *AccessibleSpinBox::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface *>(this);
    return AccessibleField::interface_cast(type);
}

void AccessibleSpinBox::setCurrentValue(const QVariant &value)
{
    // A number that is none, or beyond the bounds, must not reach a conversion to int.
    const double wanted = value.toDouble();
    const double minimum = minimumValue().toDouble();
    const double maximum = maximumValue().toDouble();
    if (object() && wanted >= minimum && wanted <= maximum)
        object()->setProperty("value", wanted);
}
