#include "values/Predicate.h"

namespace Foundation
{

Predicate Predicate::contains(const QString &key, const QString &text)
{
    Predicate predicate;
    predicate.m_kind = Kind::Contains;
    predicate.m_key = key;
    predicate.m_text = text;
    return predicate;
}

Predicate Predicate::anyOf(const QList<Predicate> &conditions)
{
    Predicate predicate;
    predicate.m_kind = Kind::AnyOf;
    predicate.m_conditions = conditions;
    return predicate;
}

Predicate Predicate::allOf(const QList<Predicate> &conditions)
{
    Predicate predicate;
    predicate.m_conditions = conditions;
    return predicate;
}

QString Predicate::predicateFormat() const
{
    if (m_kind == Kind::Contains) {
        QString quoted = m_text;
        quoted.replace(u'\\', QStringLiteral("\\\\")).replace(u'"', QStringLiteral("\\\""));
        return QStringLiteral("%1 CONTAINS[cd] \"%2\"").arg(m_key, quoted);
    }
    QStringList formats;
    for (const Predicate &condition : m_conditions)
        formats.append(condition.predicateFormat());
    const QString joined = formats.join(m_kind == Kind::AnyOf ? u" OR " : u" AND ");
    return m_conditions.size() > 1 ? u'(' + joined + u')' : joined;
}

} // namespace Foundation
