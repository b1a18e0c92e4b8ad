#pragma once

#include <QString>

#include <functional>

namespace Foundation
{

// Name of an entry of a Dictionary, interned: equal names are one object, so comparing keys compares
// pointers. A name stays in the table while a key bears it, so that hostile files leave nothing behind. Main
// thread only.
class Key
{
public:
    // An empty name is a name like any other; a null one is the empty one.
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
    // No other key bears this name: what it costs is due to this one.
    bool isOnly() const noexcept { return m_name->references == 1; }
    // The same for equal keys, while they live; for tables.
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
