#pragma once

#include "values/Value.h"

#include <QHash>

#include <functional>
#include <memory>

namespace Foundation
{

// Turns a value of the model into what a control shows, and back where `allowsReverseTransformation` says so.
// Bindings name transformers; see ValueTransformerRegistry.
class ValueTransformer
{
public:
    enum class ValueClass { Number, String, Color, Image };

    virtual ~ValueTransformer() = default;
    // What transformedValue() gives, or says it gives.
    virtual ValueClass transformedValueClass() const = 0;
    virtual bool allowsReverseTransformation() const { return false; }
    virtual Value transformedValue(const Value &value) const = 0;
    // Null where there is no way back.
    virtual Value reverseTransformedValue(const Value &) const { return {}; }
};

// The transformers by name. An installed name comes first; a class that needs no argument is found under its
// own name too and made at the first look-up. Main thread only.
class ValueTransformerRegistry
{
public:
    using Maker = std::function<std::unique_ptr<ValueTransformer>()>;

    static ValueTransformerRegistry &shared();

    // Replaces the former transformer of that name. Null removes it.
    void setValueTransformer(const QString &name, const std::shared_ptr<ValueTransformer> &transformer);
    void registerClass(const QString &className, const Maker &maker);
    // Null for an unknown name.
    std::shared_ptr<ValueTransformer> valueTransformerForName(const QString &name);

private:
    ValueTransformerRegistry() = default;

    QHash<QString, std::shared_ptr<ValueTransformer>> m_installed;
    QHash<QString, Maker> m_classes;
};

} // namespace Foundation
