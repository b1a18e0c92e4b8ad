#include "platform/ValueTransformer.h"

namespace Foundation
{

ValueTransformerRegistry &ValueTransformerRegistry::shared()
{
    static ValueTransformerRegistry registry;
    return registry;
}

void ValueTransformerRegistry::setValueTransformer(const QString &name,
                                                   const std::shared_ptr<ValueTransformer> &transformer)
{
    if (transformer)
        m_installed.insert(name, transformer);
    else
        m_installed.remove(name);
}

void ValueTransformerRegistry::registerClass(const QString &className, const Maker &maker)
{
    m_classes.insert(className, maker);
}

std::shared_ptr<ValueTransformer> ValueTransformerRegistry::valueTransformerForName(const QString &name)
{
    if (const auto installed = m_installed.constFind(name); installed != m_installed.constEnd())
        return *installed;
    const auto maker = m_classes.constFind(name);
    if (maker == m_classes.constEnd())
        return nullptr;
    return m_installed.insert(name, (*maker)()).value();
}

} // namespace Foundation
