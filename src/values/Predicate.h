#pragma once

#include <QList>
#include <QString>

namespace Foundation
{

// A condition on a dictionary: either the text under a key contains another text, case and accents ignored,
// or any or all of several conditions hold. It is a value to bind to and to show; nothing evaluates it.
class Predicate
{
public:
    Predicate() = default;
    static Predicate contains(const QString &key, const QString &text);
    static Predicate anyOf(const QList<Predicate> &conditions);
    static Predicate allOf(const QList<Predicate> &conditions);

    // The condition as text: key CONTAINS[cd] "text", joined by OR and AND in parentheses.
    QString predicateFormat() const;

    friend bool operator==(const Predicate &a, const Predicate &b)
    {
        return a.predicateFormat() == b.predicateFormat();
    }

private:
    enum class Kind { AllOf, AnyOf, Contains };

    Kind m_kind = Kind::AllOf;
    QString m_key;
    QString m_text;
    QList<Predicate> m_conditions;
};

} // namespace Foundation
