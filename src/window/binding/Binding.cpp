#include "window/binding/Binding.h"

#include <algorithm>

using Foundation::Value;
using Foundation::ValueTransformerRegistry;

namespace
{

bool isTrue(const BoundValue &bound)
{
    if (bound.isMixed)
        return true;
    if (bound.value.isString())
        return bound.value.text().size > 0;
    return bound.value.isNumber() ? bound.value.boolValue() : !bound.value.isNull();
}

} // namespace

QStringList BindingExpression::keyPaths(const QString &text)
{
    QStringList paths = text.split(text.contains(u'&') ? u'&' : u'|');
    for (QString &path : paths)
        path = path.remove(u'!').trimmed();
    return paths;
}

BindingExpression::BindingExpression(QObject *root, const QString &text, const QString &transformerName,
                                     Foundation::ArrayController::Likeness alike)
    : m_isNegated(text.startsWith(u'!'))
    , m_needsAll(text.contains(u'&'))
    , m_alike(alike)
{
    for (const QString &path : keyPaths(text))
        m_keyPaths.emplace_back(root, path);
    if (!transformerName.isEmpty())
        m_transformer = ValueTransformerRegistry::shared().valueTransformerForName(transformerName);
}

BoundValue BindingExpression::value() const
{
    BoundValue bound = m_keyPaths.front().value(m_alike);
    if (m_transformer && !bound.isMixed)
        bound.value = m_transformer->transformedValue(bound.value);
    return bound;
}

bool BindingExpression::holds() const
{
    if (m_keyPaths.size() == 1)
        return isTrue(value()) != m_isNegated;
    const auto pathHolds = [this](const KeyPath &path) { return isTrue(path.value(m_alike)); };
    const bool holds = m_needsAll ? std::all_of(m_keyPaths.begin(), m_keyPaths.end(), pathHolds)
                                  : std::any_of(m_keyPaths.begin(), m_keyPaths.end(), pathHolds);
    return holds != m_isNegated;
}

bool BindingExpression::setValue(const Value &value) const
{
    if (!m_transformer)
        return m_keyPaths.front().setValue(value);
    return m_transformer->allowsReverseTransformation() &&
           m_keyPaths.front().setValue(m_transformer->reverseTransformedValue(value));
}

Binding::Binding(BindingExpression expression, Show show, QObject *parent)
    : QObject(parent)
    , m_expression(std::move(expression))
    , m_show(std::move(show))
{
    const auto method = [](const char *signature) {
        return staticMetaObject.method(staticMetaObject.indexOfMethod(signature));
    };
    for (const KeyPath &path : m_expression.allKeyPaths())
        path.observe(this, method("refresh()"), method("refreshLater()"));
    refresh();
}

void Binding::refresh()
{
    m_isShowing = true;
    m_show(m_expression);
    m_isShowing = false;
}

void Binding::refreshLater()
{
    if (m_isRefreshPending)
        return;
    m_isRefreshPending = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_isRefreshPending = false;
            refresh();
        },
        Qt::QueuedConnection);
}
