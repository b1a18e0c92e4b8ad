#pragma once

#include <QObject>
#include <QVariant>

// The names of the dynamic properties in interface files. Binder.h describes them.
namespace InterfaceProperty
{
inline constexpr char BindValue[] = "bindValue";
inline constexpr char Transformer[] = "transformer";
inline constexpr char BindFormat[] = "bindFormat";
inline constexpr char BindVisible[] = "bindVisible";
inline constexpr char VisibleTransformer[] = "visibleTransformer";
inline constexpr char BindEnabled[] = "bindEnabled";
inline constexpr char EnabledTransformer[] = "enabledTransformer";
inline constexpr char BindShowsText[] = "bindShowsText";
inline constexpr char BindLink[] = "bindLink";
inline constexpr char BindToolTip[] = "bindToolTip";
inline constexpr char BindContent[] = "bindContent";
inline constexpr char BindSelectedObject[] = "bindSelectedObject";
inline constexpr char Action[] = "action";
inline constexpr char ActionSender[] = "actionSender";
inline constexpr char Tag[] = "tag";
} // namespace InterfaceProperty

// Returns a null text if the object has no such property.
inline QString textProperty(const QObject *object, const char *name)
{
    return object->property(name).toString();
}

// Returns 0 if the object has no tag.
inline int tagOf(const QObject *object)
{
    return object->property(InterfaceProperty::Tag).toInt();
}
