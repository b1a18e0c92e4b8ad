#include "window/binding/KeyPath.h"

using Foundation::ArrayController;
using Foundation::Key;
using Foundation::Value;

namespace
{

constexpr QLatin1String Selection("selection");
constexpr QLatin1String ArrangedObjects("arrangedObjects");

} // namespace

KeyPath::KeyPath(QObject *root, const QString &path)
{
    QObject *object = root;
    const QStringList parts = path.split(u'.');
    for (qsizetype i = 0; i < parts.size() && object; ++i) {
        const QString rest = QStringList(parts.mid(i + 1)).join(u'.');
        auto *controller = qobject_cast<ArrayController *>(object);
        if (controller && (parts[i] == Selection || parts[i] == ArrangedObjects)) {
            m_controller = controller;
            m_isOfSelection = parts[i] == Selection;
            m_keyPath = rest;
            return;
        }
        const QMetaObject *meta = object->metaObject();
        m_steps.append({object, meta->property(meta->indexOfProperty(parts[i].toLatin1().constData()))});
        const QMetaProperty &property = m_steps.last().property;
        if (!(property.metaType().flags() & QMetaType::PointerToQObject)) {
            m_keyPath = rest;
            return;
        }
        object = property.read(object).value<QObject *>();
    }
}

KeyPath::Subject KeyPath::subject() const
{
    if (m_controller)
        return {isOfSelection() ? m_controller->selectionStamp() : 0, nullptr};
    const Step *step = lastStep();
    if (!step || !step->object || m_keyPath.isEmpty())
        return {};
    return {0, valueOfVariant(step->property.read(step->object)).dictionary()};
}

BoundValue KeyPath::value(ArrayController::Likeness alike) const
{
    BoundValue bound;
    if (m_controller) {
        bound.hasObject = m_controller->canRemove();
        if (m_isOfSelection)
            bound.value = m_controller->valueForSelection(m_keyPath, &bound.isMixed, alike);
        return bound;
    }
    const Step *step = lastStep();
    if (!step || !step->object)
        return bound;
    bound.value = valueOfVariant(step->property.read(step->object));
    if (!m_keyPath.isEmpty()) {
        const auto dictionary = bound.value.dictionary();
        bound.value = dictionary ? dictionary->valueForKeyPath(m_keyPath) : Value();
    }
    return bound;
}

bool KeyPath::setValue(const Value &value) const
{
    const BoundValue present = this->value();
    if (!present.isMixed && present.value == value)
        return false;
    if (isOfSelection()) {
        // A nested path would change an object that others share.
        if (!present.hasObject || m_keyPath.contains(u'.'))
            return false;
        m_controller->takeInputForSelection(Key(m_keyPath), value);
        return true;
    }
    const Step *step = lastStep();
    if (!step || !step->object)
        return false;
    if (m_keyPath.isEmpty())
        return step->property.write(step->object, variantOfValue(value, step->property.metaType()));
    const auto dictionary = valueOfVariant(step->property.read(step->object)).dictionary();
    if (!dictionary || m_keyPath.contains(u'.'))
        return false;
    dictionary->setValue(Key(m_keyPath), value);
    // Dictionaries send no notifications, so the signal of the property is sent instead.
    return step->property.notifySignal().invoke(step->object, Qt::DirectConnection);
}

void KeyPath::observe(QObject *receiver, const QMetaMethod &changed,
                      const QMetaMethod &changedOneOfMany) const
{
    for (const Step &step : m_steps) {
        if (step.object && step.property.hasNotifySignal())
            QObject::connect(step.object, step.property.notifySignal(), receiver, changed);
    }
    if (!m_controller)
        return;
    const auto connectSignal = [&](const QMetaMethod &signal, const QMetaMethod &method) {
        QObject::connect(m_controller, signal, receiver, method);
    };
    connectSignal(QMetaMethod::fromSignal(m_isOfSelection ? &ArrayController::selectionChanged
                                                          : &ArrayController::arrangedObjectsChanged),
                  changed);
    connectSignal(QMetaMethod::fromSignal(&ArrayController::objectsChanged), changedOneOfMany);
}

Value valueOfVariant(const QVariant &variant)
{
    switch (variant.typeId()) {
    case QMetaType::Bool:
        return variant.toBool();
    case QMetaType::Int:
        return qint32(variant.toInt());
    case QMetaType::QString:
        return variant.toString();
    default:
        return variant.value<Value>();
    }
}

QVariant variantOfValue(const Value &value, QMetaType type)
{
    switch (type.id()) {
    case QMetaType::Bool:
        return value.boolValue();
    case QMetaType::Int:
        return value.intValue();
    case QMetaType::QString:
        return value.stringValue();
    default:
        return QVariant::fromValue(value);
    }
}
