#pragma once

#include "window/accessibility/AccessibleField.h"

class QAbstractSpinBox;

// The accessible class of a number field: an AccessibleField that also has the number as a value.
class AccessibleSpinBox : public AccessibleField, public QAccessibleValueInterface
{
public:
    explicit AccessibleSpinBox(QAbstractSpinBox *box);

    // The inner line edit is not a child, because this object represents it.
    int childCount() const override { return 0; }
    QAccessibleInterface *child(int) const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    void *interface_cast(QAccessible::InterfaceType type) override;

    // All values are invalid for a box that does not contain a number.
    QVariant currentValue() const override { return property("value"); }
    void setCurrentValue(const QVariant &value) override;
    QVariant maximumValue() const override { return property("maximum"); }
    QVariant minimumValue() const override { return property("minimum"); }
    QVariant minimumStepSize() const override { return property("singleStep"); }

private:
    QVariant property(const char *name) const;
};
