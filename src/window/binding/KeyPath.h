#pragma once

#include "lists/ArrayController.h"

#include <QMetaMethod>
#include <QPointer>
#include <QStringList>

// The value to which a control is bound.
struct BoundValue
{
    Foundation::Value value;
    bool isMixed = false;  // the selected objects have different values; `value` is Null
    bool hasObject = true; // false if nothing is selected
};

// A dotted path from an object to a value, as in interface files: "plainPasswordInserted",
// "myLabelDictionary.note", "myArrayController.selection.phoneWork".
//
// The parts are properties of Qt's meta-object system; pointers to objects are followed. After a property
// whose value is a dictionary, the rest is a key path in it. After an ArrayController, "selection" means its
// selected objects and "arrangedObjects" its shown objects, and the rest is a key path in each of them. A
// path that cannot be resolved has the value Null and cannot be written. Owns nothing: if an object on the
// path is destroyed, the path can no longer be resolved.
class KeyPath
{
public:
    KeyPath(QObject *root, const QString &path);

    // Identifies what the path currently refers to. It changes when other objects are selected, and when the
    // dictionary on the path is replaced.
    struct Subject
    {
        quint64 selectionStamp = 0;
        Foundation::Ref<Foundation::Dictionary> dictionary;

        friend bool operator==(const Subject &, const Subject &) = default;
    };
    Subject subject() const;

    // `alike` decides which values of several selected objects count as equal; without it they must be equal.
    BoundValue value(Foundation::ArrayController::Likeness alike = nullptr) const;
    // Writes a value that the user entered. Returns false and does nothing if the value is the same or cannot
    // be set.
    bool setValue(const Foundation::Value &value) const;

    // The controller of a path through "selection" or "arrangedObjects", otherwise null.
    Foundation::ArrayController *controller() const { return m_controller; }
    // The key path into each object of the controller.
    const QString &keyPathOfObjects() const { return m_keyPath; }
    bool isOfSelection() const { return m_controller && m_isOfSelection; }
    // True if the path leads into the content of the document, and not to a property of the document itself.
    bool isOfContent() const { return isOfSelection() || (!m_controller && !m_keyPath.isEmpty()); }

    // Connects the signals after which the value may differ with `changed`, and those that may be sent many
    // times in a row with `changedOneOfMany`. Both must be methods of the receiver without arguments.
    void observe(QObject *receiver, const QMetaMethod &changed, const QMetaMethod &changedOneOfMany) const;

private:
    struct Step
    {
        QPointer<QObject> object;
        QMetaProperty property;
    };

    const Step *lastStep() const { return m_steps.isEmpty() ? nullptr : &m_steps.last(); }

    QList<Step> m_steps;
    QPointer<Foundation::ArrayController> m_controller;
    bool m_isOfSelection = false;
    QString m_keyPath;
};

// Convert between the value of a property and a Foundation::Value.
Foundation::Value valueOfVariant(const QVariant &variant);
QVariant variantOfValue(const Foundation::Value &value, QMetaType type);
