#pragma once

#include <QString>

#include <functional>

namespace Foundation
{

// Name of an entry of a Dictionary. Names are interned: equal names are one object, so that comparing keys
// compares pointers. A name leaves the table with its last key, so that the keys of a hostile file do not
// stay in memory. Main thread only.
class Key
{
public:
    // An empty name is valid. A null name is the same as the empty one.
    explicit Key(QStringView name);
    Key(const Key &other) noexcept
        : m_name(other.m_name)
    {
        ++m_name->references;
    }
    Key(Key &&other) noexcept
        : m_name(std::exchange(other.m_name, nullptr))
    {
    }
    Key &operator=(Key other) noexcept
    {
        std::swap(m_name, other.m_name);
        return *this;
    }
    ~Key()
    {
        if (m_name && --m_name->references == 0)
            forget(m_name);
    }

    const QString &name() const noexcept { return m_name->text; }
    friend bool operator==(const Key &a, const Key &b) noexcept { return a.m_name == b.m_name; }
    // True if this is the only key with its name, so that the memory of the name is due to this key.
    bool isOnly() const noexcept { return m_name->references == 1; }
    // A hash value for tables: equal keys have the same one as long as one of them exists.
    const void *identity() const noexcept { return m_name; }

private:
    struct Name
    {
        QString text;
        quint32 references;
    };
    struct Table;

    static Table &table();
    static void forget(Name *name);

    Name *m_name;
};

} // namespace Foundation

template <>
struct std::hash<Foundation::Key>
{
    std::size_t operator()(const Foundation::Key &key) const noexcept
    {
        return std::hash<const void *>()(key.identity());
    }
};
