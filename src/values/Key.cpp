#include "values/Key.h"

#include <QHash>

namespace Foundation
{

// The views point into the texts of the names, which never move in memory.
struct Key::Table
{
    QHash<QStringView, Name *> names;
};

Key::Table &Key::table()
{
    // The table is never destroyed, because global constant keys of other files may be destroyed later.
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
    // A null name counts as the empty name, and name() must not return a null text.
    m_name = new Name{name.isNull() ? QStringLiteral("") : name.toString(), 1};
    names.insert(QStringView(m_name->text), m_name);
}

void Key::forget(Name *name)
{
    table().names.remove(QStringView(name->text));
    delete name;
}

} // namespace Foundation
