#include "values/Predicate.h"

#include <algorithm>

namespace Foundation
{

namespace
{

// The text in lower case and without accents.
QString folded(const QString &text)
{
    QString plain = text.normalized(QString::NormalizationForm_D).toCaseFolded();
    plain.removeIf([](QChar c) { return c.category() == QChar::Mark_NonSpacing; });
    return plain;
}

} // namespace

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

bool Predicate::evaluate(const Dictionary &object) const
{
    const auto holds = [&object](const Predicate &condition) { return condition.evaluate(object); };
    if (m_kind == Kind::AllOf)
        return std::all_of(m_conditions.begin(), m_conditions.end(), holds);
    if (m_kind == Kind::AnyOf)
        return std::any_of(m_conditions.begin(), m_conditions.end(), holds);
    const QString text = object.value(m_key).stringValue();
    return !text.isNull() && folded(text).contains(folded(m_text));
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
