#include "window/binding/InterfaceTransformers.h"

#include "platform/ValueTransformer.h"

using Foundation::Value;
using Foundation::ValueTransformer;
using Foundation::ValueTransformerRegistry;

namespace
{

class WithoutTrailingColon : public ValueTransformer
{
public:
    ValueClass transformedValueClass() const override { return ValueClass::String; }
    Value transformedValue(const Value &value) const override
    {
        const QString caption = value.stringValue();
        return caption.endsWith(u':') ? Value(caption.chopped(1)) : value;
    }
};

} // namespace

void registerInterfaceTransformers()
{
    ValueTransformerRegistry::shared().registerClass(QStringLiteral("withoutTrailingColon"),
                                                     [] { return std::make_unique<WithoutTrailingColon>(); });
}
