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
    // NaN and numbers outside the bounds must not be converted to int.
    const double wanted = value.toDouble();
    const double minimum = minimumValue().toDouble();
    const double maximum = maximumValue().toDouble();
    if (object() && wanted >= minimum && wanted <= maximum)
        object()->setProperty("value", wanted);
}
