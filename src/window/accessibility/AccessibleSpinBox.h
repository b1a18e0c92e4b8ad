#pragma once

#include "window/accessibility/AccessibleField.h"

class QAbstractSpinBox;

// A number field for assistive technology: the text of its AccessibleField, and its number as a value.
class AccessibleSpinBox : public AccessibleField, public QAccessibleValueInterface
{
public:
    explicit AccessibleSpinBox(QAbstractSpinBox *box);

    // The line edit inside is no child: it is this field.
    int childCount() const override { return 0; }
    QAccessibleInterface *child(int) const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    void *interface_cast(QAccessible::InterfaceType type) override;

    // Invalid for a box of something else than a number.
    QVariant currentValue() const override { return property("value"); }
    void setCurrentValue(const QVariant &value) override;
    QVariant maximumValue() const override { return property("maximum"); }
    QVariant minimumValue() const override { return property("minimum"); }
    QVariant minimumStepSize() const override { return property("singleStep"); }

private:
    QVariant property(const char *name) const;
};
