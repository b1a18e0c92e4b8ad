#pragma once

#include "lists/ArrayController.h"

#include <QMetaMethod>
#include <QPointer>
#include <QStringList>

// What a control learns of the value that it is bound to.
struct BoundValue
{
    Foundation::Value value;
    bool isMixed = false;  // the selected objects disagree; the value is then null
    bool hasObject = true; // false where nothing is selected
};

// A dotted path from an object to a value, as interface files name it: "plainPasswordInserted",
// "myLabelDictionary.note", "myArrayController.selection.phoneWork".
//
// The parts are properties of Qt's meta-object system, and pointers to objects are followed. A property that
// holds a dictionary goes on by its keys. After an ArrayController, "selection" stands for the objects
// selected there and "arrangedObjects" for those shown, and the rest of the path is a key path into each of
// them. A path that leads nowhere reads as null and cannot be written. Owns nothing: an object that goes away
// leaves such a path behind.
class KeyPath
{
public:
    KeyPath(QObject *root, const QString &path);

    // What the path leads to at present: it leads elsewhere when other objects are selected, or when the
    // dictionary that it goes through is replaced.
    struct Subject
    {
        quint64 selectionStamp = 0;
        Foundation::Ref<Foundation::Dictionary> dictionary;

        friend bool operator==(const Subject &, const Subject &) = default;
    };
    Subject subject() const;

    // Selected objects that are alike agree; without a likeness those with the same value.
    BoundValue value(Foundation::ArrayController::Likeness alike = nullptr) const;
    // Takes what was put into a control. False, and nothing happens, where the value is this one already or
    // cannot be set.
    bool setValue(const Foundation::Value &value) const;

    // The controller of a path through "selection" or "arrangedObjects", otherwise null.
    Foundation::ArrayController *controller() const { return m_controller; }
    // The key path into each object of the controller.
    const QString &keyPathOfObjects() const { return m_keyPath; }
    bool isOfSelection() const { return m_controller && m_isOfSelection; }
    // Leads into what the document holds, and not to a property of the document itself.
    bool isOfContent() const { return isOfSelection() || (!m_controller && !m_keyPath.isEmpty()); }

    // Connects all signals that tell of another value with `changed`, those that come in numbers (one for
    // each changed object) with `changedOneOfMany`. Both are methods of the receiver without arguments.
    void observe(QObject *receiver, const QMetaMethod &changed, const QMetaMethod &changedOneOfMany) const;

    // Whether the path leads somewhere from an object of that class. A key of a record, category or caption
    // counts only if such a thing can have it.
    static bool resolves(const QMetaObject &root, const QString &path);

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

// A property's value as the logic's type, and the other way round for a property of that type.
Foundation::Value valueOfVariant(const QVariant &variant);
QVariant variantOfValue(const Foundation::Value &value, QMetaType type);
