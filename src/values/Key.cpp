#include "values/Key.h"

#include <QHash>

namespace Foundation
{

// The views point into the names' own texts, which never move.
struct Key::Table
{
    QHash<QStringView, Name *> names;
};

Key::Table &Key::table()
{
    // Never destroyed: keys that are constants of other files outlive it otherwise.
    static auto *table = new Table;
    return *table;
}

Key::Key(QStringView name)
{
    auto &names = table().names;
    const auto known = names.constFind(name);
    if (known != names.constEnd()) {
        m_name = *known;
        ++m_name->references;
        return;
    }
    // A null name is the empty name: a text made of it must not be a null text.
    m_name = new Name{name.isNull() ? QStringLiteral("") : name.toString(), 1};
    names.insert(QStringView(m_name->text), m_name);
}

void Key::forget(Name *name)
{
    table().names.remove(QStringView(name->text));
    delete name;
}

} // namespace Foundation
