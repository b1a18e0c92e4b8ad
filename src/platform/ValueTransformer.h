#pragma once

#include "values/Value.h"

#include <QHash>

#include <functional>
#include <memory>

namespace Foundation
{

// Converts a value of the model into a value that a control shows, and back if allowsReverseTransformation()
// is true. Interface files refer to transformers by name; see ValueTransformerRegistry.
class ValueTransformer
{
public:
    enum class ValueClass { Number, String, Color, Image };

    virtual ~ValueTransformer() = default;
    // The declared class of the result of transformedValue(). Some transformers return another class.
    virtual ValueClass transformedValueClass() const = 0;
    virtual bool allowsReverseTransformation() const { return false; }
    virtual Value transformedValue(const Value &value) const = 0;
    // Returns Null if the transformer has no reverse.
    virtual Value reverseTransformedValue(const Value &) const { return {}; }
};

// Finds transformers by name. An installed transformer takes precedence; a registered class that needs no
// argument is found under its class name and made at the first look-up. Main thread only.
class ValueTransformerRegistry
{
public:
    using Maker = std::function<std::unique_ptr<ValueTransformer>()>;

    static ValueTransformerRegistry &shared();

    // Installs a transformer under a name, in place of the former one of that name. Null removes it.
    void setValueTransformer(const QString &name, const std::shared_ptr<ValueTransformer> &transformer);
    void registerClass(const QString &className, const Maker &maker);
    // Returns null for an unknown name.
    std::shared_ptr<ValueTransformer> valueTransformerForName(const QString &name);

private:
    ValueTransformerRegistry() = default;

    QHash<QString, std::shared_ptr<ValueTransformer>> m_installed;
    QHash<QString, Maker> m_classes;
};

} // namespace Foundation
